#include "Screenshot.h"

#include <GL/gl.h>

#include <cstring>
#include <vector>

#include <OrvEngine/OrvFileException.h>
#include <OrvEngine/OrvPNGWriter.h>

bool SaveScreenshot(const std::string& path, unsigned int width, unsigned int height)
{
    const size_t row = static_cast<size_t>(width) * 4;
    std::vector<unsigned char> pixels(row * height);
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glReadPixels(0, 0, static_cast<GLsizei>(width), static_cast<GLsizei>(height), GL_RGBA, GL_UNSIGNED_BYTE,
                 pixels.data());
    // OpenGL's rows run up from the bottom, PNG's down from the top; what the
    // window shows is opaque, whatever blending left in alpha.
    std::vector<unsigned char> topFirst(pixels.size());
    for (unsigned int y = 0; y < height; ++y)
        std::memcpy(&topFirst[y * row], &pixels[(height - 1 - y) * row], row);
    for (size_t i = 3; i < topFirst.size(); i += 4)
        topFirst[i] = 255;
    try
    {
        OrvPNGWriter::Write(path, width, height, topFirst.data());
    }
    catch (const OrvFileException&)
    {
        return false;
    }
    return true;
}

#include "OrvGLScreenshot.h"

#include <GL/gl.h>

#include <algorithm>

void OrvReadFrame(unsigned int width, unsigned int height, std::vector<unsigned char>& rgba)
{
    const size_t row = static_cast<size_t>(width) * 4;
    rgba.assign(row * height, 0);
    if (rgba.empty())
        return;
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glReadPixels(0, 0, static_cast<GLsizei>(width), static_cast<GLsizei>(height), GL_RGBA, GL_UNSIGNED_BYTE,
                 rgba.data());
    // GL counts rows from the bottom.
    for (unsigned int y = 0; y < height / 2; ++y)
        std::swap_ranges(rgba.begin() + static_cast<long>(y * row), rgba.begin() + static_cast<long>((y + 1) * row),
                         rgba.begin() + static_cast<long>((height - 1 - y) * row));
}

#include "Screenshot.h"

#include <GL/gl.h>
#include <png.h>

#include <cstdio>
#include <vector>

bool SaveScreenshot(const std::string& path, unsigned int width, unsigned int height)
{
    std::vector<unsigned char> pixels(static_cast<size_t>(width) * height * 3);
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glReadPixels(0, 0, static_cast<GLsizei>(width), static_cast<GLsizei>(height), GL_RGB, GL_UNSIGNED_BYTE,
                 pixels.data());
    FILE* file = std::fopen(path.c_str(), "wb");
    if (file == nullptr)
        return false;
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png != nullptr ? png_create_info_struct(png) : nullptr;
    if (info == nullptr || setjmp(png_jmpbuf(png)))
    {
        png_destroy_write_struct(&png, &info);
        std::fclose(file);
        return false;
    }
    png_init_io(png, file);
    png_set_IHDR(png, info, width, height, 8, PNG_COLOR_TYPE_RGB, PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT,
                 PNG_FILTER_TYPE_DEFAULT);
    png_write_info(png, info);
    // OpenGL's rows run up from the bottom, PNG's down from the top.
    for (unsigned int row = height; row > 0; --row)
        png_write_row(png, pixels.data() + static_cast<size_t>(row - 1) * width * 3);
    png_write_end(png, nullptr);
    png_destroy_write_struct(&png, &info);
    return std::fclose(file) == 0;
}

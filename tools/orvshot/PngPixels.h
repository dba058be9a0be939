#ifndef ORVSHOT_PNG_PIXELS_H
#define ORVSHOT_PNG_PIXELS_H

#include <string>
#include <vector>

// A screenshot's pixels: 8-bit RGB or RGBA PNG files, any filters, not
// interlaced (what the engine's writer and libpng's defaults make).
struct PngPixels
{
    unsigned int width = 0;
    unsigned int height = 0;
    std::vector<unsigned char> rgba;
};

// Reads the file; false with a reason in `error` when it cannot.
bool ReadPngPixels(const std::string& name, PngPixels& picture, std::string& error);

#endif

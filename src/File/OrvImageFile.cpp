#include "OrvImageFile.h"

#include <limits>

OrvImageFile::OrvImageFile() : m_width(0), m_height(0), m_pixelFormat(PIXEL_RGB), m_imageDataBytes(0) {}

OrvImageFile::~OrvImageFile() = default;

unsigned char* OrvImageFile::AllocateImageData(unsigned long bytes)
{
    unsigned char* data = AllocateData(bytes);
    m_imageDataBytes = bytes;
    return data;
}

bool OrvImageFile::ImageBytes(unsigned long width, unsigned long height, unsigned long bytesPerPixel,
                              unsigned long& bytes)
{
    unsigned long pixels = 0;
    if (__builtin_mul_overflow(width, height, &pixels) || __builtin_mul_overflow(pixels, bytesPerPixel, &bytes))
        return false;
    // The buffer size must also be expressible as a file size.
    return bytes <= static_cast<unsigned long>(std::numeric_limits<long>::max());
}

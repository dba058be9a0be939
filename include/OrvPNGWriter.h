#ifndef ORV_PNG_WRITER_H
#define ORV_PNG_WRITER_H

#include <string>

/// Writes pictures as PNG files: 8-bit RGBA, rows from the top one down, no
/// filtering, compressed with zlib. OrvPNGImageFile reads them back.
class OrvPNGWriter
{
public:
    /// Writes width × height RGBA pixels; throws OrvFileException naming the
    /// file when it cannot be written.
    static void Write(const std::string& name, unsigned int width, unsigned int height, const unsigned char* rgba);
};

#endif

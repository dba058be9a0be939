#include "OrvBMPImageFile.h"

#include "OrvFileException.h"

namespace
{
const char* const kFile = "src/File/OrvBMPImageFile";
// File header (14 bytes) and the info header's size field.
const unsigned long kHeaderBytes = 18;
// Up to the height field of a 40-byte info header.
const unsigned long kInfoHeaderBytes = 26;

unsigned long Read32(const unsigned char* bytes)
{
    return static_cast<unsigned long>(bytes[0]) | (static_cast<unsigned long>(bytes[1]) << 8) |
           (static_cast<unsigned long>(bytes[2]) << 16) | (static_cast<unsigned long>(bytes[3]) << 24);
}
}

OrvBMPImageFile::OrvBMPImageFile()
{
    m_extension = "bmp";
}

OrvBMPImageFile::~OrvBMPImageFile() = default;

void OrvBMPImageFile::Load(const OrvUnicode& name, const OrvUnicode& path)
{
    Guarded([&] {
        OrvImageFile::Load(name, path);
        m_pixelFormat = PIXEL_RGB;
        std::unique_ptr<unsigned char[]> file = ReadWholeFile();
        const unsigned char* bytes = file.get();
        const unsigned long size = static_cast<unsigned long>(m_size);
        if (size < kHeaderBytes)
            ORV_THROW(OrvFileException, MessageNaming("BMP file shorter than its header"), kFile);
        const unsigned long pixelOffset = Read32(bytes + 10);
        if (Read32(bytes + 14) == 40)
        {
            if (size < kInfoHeaderBytes)
                ORV_THROW(OrvFileException, MessageNaming("BMP file shorter than its header"), kFile);
            m_width = static_cast<unsigned int>(Read32(bytes + 18));
            m_height = static_cast<unsigned int>(Read32(bytes + 22));
        }

        // Rows are padded to 4 bytes, the last one too.
        const unsigned long rowPixelBytes = static_cast<unsigned long>(m_width) * 3;
        const unsigned long rowSize = (rowPixelBytes + 3) & ~3UL;
        if (m_width > 0 && m_height > 0 && (pixelOffset > size || m_height > (size - pixelOffset) / rowSize))
            ORV_THROW(OrvFileException, MessageNaming("BMP file shorter than its pixel data"), kFile);
        // Bounded by the file's size once the rows fit.
        const unsigned long pixelBytes = rowPixelBytes * m_height;
        unsigned char* data = AllocateImageData(pixelBytes);
        for (unsigned long row = 0; pixelBytes > 0 && row < m_height; ++row)
        {
            const unsigned char* from = bytes + pixelOffset + row * rowSize;
            unsigned char* to = data + row * rowPixelBytes;
            for (unsigned long i = 0; i < rowPixelBytes; i += 3)
            {
                to[i] = from[i + 2];
                to[i + 1] = from[i + 1];
                to[i + 2] = from[i];
            }
        }
    });
}

void OrvBMPImageFile::Save(const OrvUnicode&) {}

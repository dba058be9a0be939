#include "OrvPNGImageFile.h"

#include <cstring>

#include "OrvFileException.h"

namespace
{
const char* const kFile = "src/File/OrvPNGImageFile";
const unsigned char kSignature[8] = {0x89, 'P', 'N', 'G', 13, 10, 26, 10};
// Signature and the whole IHDR chunk: length, type, 13 bytes of data, CRC.
const unsigned long kHeaderBytes = 33;
// A chunk's length and type.
const unsigned long kChunkHeaderBytes = 8;
const unsigned long kCrcBytes = 4;

unsigned long Read32BigEndian(const unsigned char* bytes)
{
    return (static_cast<unsigned long>(bytes[0]) << 24) | (static_cast<unsigned long>(bytes[1]) << 16) |
           (static_cast<unsigned long>(bytes[2]) << 8) | static_cast<unsigned long>(bytes[3]);
}

void ThrowInvalidBitDepth()
{
    ORV_THROW(OrvFileException, "Coulnd't read png file : invalid bit depth", kFile);
}
}

OrvPNGImageFile::OrvPNGImageFile()
    : m_bitDepth(0),
      m_colorType(0),
      m_compressionMethod(0),
      m_filterMethod(0),
      m_interlaceMethod(0),
      m_palette(nullptr),
      m_paletteValueCount(0)
{
    m_extension = "png";
}

OrvPNGImageFile::OrvPNGImageFile(const OrvPNGImageFile& other)
    : OrvImageFile(other),
      m_bitDepth(other.m_bitDepth),
      m_colorType(other.m_colorType),
      m_compressionMethod(other.m_compressionMethod),
      m_filterMethod(other.m_filterMethod),
      m_interlaceMethod(other.m_interlaceMethod),
      m_palette(nullptr),
      m_paletteValueCount(0)
{
    CopyPalette(other);
}

OrvPNGImageFile& OrvPNGImageFile::operator=(const OrvPNGImageFile& other)
{
    if (this == &other)
        return *this;
    OrvImageFile::operator=(other);
    m_bitDepth = other.m_bitDepth;
    m_colorType = other.m_colorType;
    m_compressionMethod = other.m_compressionMethod;
    m_filterMethod = other.m_filterMethod;
    m_interlaceMethod = other.m_interlaceMethod;
    CopyPalette(other);
    return *this;
}

OrvPNGImageFile::~OrvPNGImageFile()
{
    FreePalette();
}

void OrvPNGImageFile::FreePalette()
{
    delete[] m_palette;
    m_palette = nullptr;
    m_paletteValueCount = 0;
}

void OrvPNGImageFile::CopyPalette(const OrvPNGImageFile& other)
{
    FreePalette();
    if (other.m_palette == nullptr)
        return;
    m_palette = new unsigned int[other.m_paletteValueCount > 0 ? other.m_paletteValueCount : 1];
    m_paletteValueCount = other.m_paletteValueCount;
    std::memcpy(m_palette, other.m_palette, m_paletteValueCount * sizeof(unsigned int));
}

void OrvPNGImageFile::Load(const OrvUnicode& name, const OrvUnicode& path)
{
    Guarded([&] {
        OrvImageFile::Load(name, path);
        std::unique_ptr<unsigned char[]> file = ReadWholeFile();
        unsigned char* bytes = file.get();
        const unsigned long size = static_cast<unsigned long>(m_size);
        if (size < sizeof(kSignature))
            ORV_THROW(OrvFileException, MessageNaming("PNG file shorter than its signature"), kFile);
        if (std::memcmp(bytes, kSignature, sizeof(kSignature)) != 0)
            ORV_THROW(OrvFileException, "The file you tried to open is not a png file", kFile);
        if (size < kHeaderBytes)
            ORV_THROW(OrvFileException, MessageNaming("PNG file shorter than its image header"), kFile);

        FreePalette();
        m_width = static_cast<unsigned int>(Read32BigEndian(bytes + 16));
        m_height = static_cast<unsigned int>(Read32BigEndian(bytes + 20));
        m_bitDepth = bytes[24];
        m_colorType = bytes[25];
        m_compressionMethod = bytes[26];
        m_filterMethod = bytes[27];
        m_interlaceMethod = bytes[28];
        switch (m_colorType)
        {
        case 0:
            DecodeColorType0(bytes);
            break;
        case 2:
            DecodeColorType2(bytes);
            break;
        case 3:
            DecodeColorType3(bytes);
            break;
        case 4:
            DecodeColorType4(bytes);
            break;
        case 6:
            DecodeColorType6(bytes);
            break;
        default:
            ORV_THROW(OrvFileException, "Couldn't read png file : invalid color type", kFile);
        }
    });
}

void OrvPNGImageFile::CheckBitDepthIs8Or16()
{
    if (m_bitDepth != 8 && m_bitDepth != 16)
        ThrowInvalidBitDepth();
}

void OrvPNGImageFile::DecodeColorType0(unsigned char*)
{
    if (m_bitDepth != 1 && m_bitDepth != 2 && m_bitDepth != 4 && m_bitDepth != 8 && m_bitDepth != 16)
        ThrowInvalidBitDepth();
}

void OrvPNGImageFile::DecodeColorType2(unsigned char*)
{
    CheckBitDepthIs8Or16();
}

void OrvPNGImageFile::DecodeColorType4(unsigned char*)
{
    CheckBitDepthIs8Or16();
}

void OrvPNGImageFile::DecodeColorType6(unsigned char*)
{
    CheckBitDepthIs8Or16();
}

void OrvPNGImageFile::DecodeColorType3(unsigned char* fileBytes)
{
    if (m_bitDepth != 1 && m_bitDepth != 2 && m_bitDepth != 4 && m_bitDepth != 8)
        ThrowInvalidBitDepth();

    // Walk the chunks after IHDR until IEND; a chunk header or a palette lying
    // past the end of the file means the file is corrupted.
    const unsigned long size = m_size > 0 ? static_cast<unsigned long>(m_size) : 0;
    unsigned long position = kHeaderBytes;
    while (position <= size && size - position >= kChunkHeaderBytes)
    {
        const unsigned long length = Read32BigEndian(fileBytes + position);
        const unsigned char* type = fileBytes + position + 4;
        const unsigned long dataStart = position + kChunkHeaderBytes;
        if (std::memcmp(type, "IEND", 4) == 0)
        {
            // The end chunk must be whole, CRC included.
            if (length > size - dataStart || kCrcBytes > size - dataStart - length)
                break;
            return;
        }
        if (std::memcmp(type, "PLTE", 4) == 0)
        {
            if (length > size - dataStart)
                break;
            FreePalette();
            m_palette = new unsigned int[length > 0 ? length : 1];
            m_paletteValueCount = static_cast<unsigned int>(length);
            for (unsigned long i = 0; i < length; ++i)
                m_palette[i] = fileBytes[dataStart + i];
        }
        // Lengths are 32-bit: the next position cannot overflow.
        position = dataStart + length + kCrcBytes;
    }
    ORV_THROW(OrvFileException, "Couldn't read png file, the file is currupted", kFile);
}

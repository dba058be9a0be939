#include "OrvTGAImageFile.h"

#include <cstring>

#include "OrvFileException.h"

namespace
{
const char* const kFile = "src/File/OrvTGAImageFile";
const long kHeaderBytes = 18;

unsigned int Read16(const unsigned char* bytes)
{
    return static_cast<unsigned int>(bytes[0]) | (static_cast<unsigned int>(bytes[1]) << 8);
}

void Write16(unsigned char* bytes, unsigned int value)
{
    bytes[0] = static_cast<unsigned char>(value & 0xFF);
    bytes[1] = static_cast<unsigned char>((value >> 8) & 0xFF);
}

// Copies pixels swapping the first and third byte of each (BGR(A) <-> RGB(A)).
void CopySwapped(unsigned char* to, const unsigned char* from, unsigned long bytes, unsigned int bytesPerPixel)
{
    for (unsigned long i = 0; i < bytes; i += bytesPerPixel)
    {
        to[i] = from[i + 2];
        to[i + 1] = from[i + 1];
        to[i + 2] = from[i];
        if (bytesPerPixel == 4)
            to[i + 3] = from[i + 3];
    }
}
}

OrvTGAImageFile::OrvTGAImageFile()
    : m_idFieldCharCount(0),
      m_colorMapType(0),
      m_imageTypeCode(0),
      m_xOrigin(0),
      m_yOrigin(0),
      m_imagePixelSize(0),
      m_imageDescByte(0)
{
    m_extension = "tga";
}

OrvTGAImageFile::~OrvTGAImageFile() = default;

void OrvTGAImageFile::Load(const OrvUnicode& name, const OrvUnicode& path)
{
    Guarded([&] {
        OrvImageFile::Load(name, path);
        std::unique_ptr<unsigned char[]> bytes = ReadWholeFile();
        if (m_size < kHeaderBytes)
            ORV_THROW(OrvFileException, MessageNaming("TGA file shorter than its header"), kFile);
        m_idFieldCharCount = bytes[0];
        m_colorMapType = static_cast<char>(bytes[1]);
        m_imageTypeCode = static_cast<char>(bytes[2]);
        if (m_colorMapType != 0)
            ORV_THROW(OrvFileException, "TGA colors maps aren't supported, get to work !", kFile);
        if (m_imageTypeCode != 2)
            ORV_THROW(OrvFileException, "TGA image type not supported", kFile);
        LoadImageType2(reinterpret_cast<char*>(bytes.get()));
    });
}

void OrvTGAImageFile::LoadImageType2(char* fileBytes)
{
    if (m_size < kHeaderBytes)
        ORV_THROW(OrvFileException, MessageNaming("TGA file shorter than its header"), kFile);
    const unsigned char* bytes = reinterpret_cast<const unsigned char*>(fileBytes);
    m_xOrigin = Read16(bytes + 8);
    m_yOrigin = Read16(bytes + 10);
    m_width = Read16(bytes + 12);
    m_height = Read16(bytes + 14);
    m_imagePixelSize = static_cast<char>(bytes[16]);
    m_imageDescByte = static_cast<char>(bytes[17]);
    if (m_imagePixelSize != 24 && m_imagePixelSize != 32)
        ORV_THROW(OrvFileException, "TGA image pixel size not supported, get to work !", kFile);
    m_pixelFormat = m_imagePixelSize == 32 ? PIXEL_RGBA : PIXEL_RGB;

    // Width and height are 16-bit: the product cannot overflow.
    const unsigned int bytesPerPixel = static_cast<unsigned int>(m_imagePixelSize) / 8;
    const unsigned long pixelBytes = static_cast<unsigned long>(m_width) * m_height * bytesPerPixel;
    const unsigned long start = static_cast<unsigned long>(kHeaderBytes) + m_idFieldCharCount;
    const unsigned long fileBytesCount = static_cast<unsigned long>(m_size);
    if (start > fileBytesCount || pixelBytes > fileBytesCount - start)
        ORV_THROW(OrvFileException, MessageNaming("TGA file shorter than its pixel data"), kFile);
    unsigned char* data = AllocateImageData(pixelBytes);
    CopySwapped(data, bytes + start, pixelBytes, bytesPerPixel);
}

void OrvTGAImageFile::SetImagePixelSize(char bits)
{
    m_imagePixelSize = bits;
    if (bits == 24)
        m_pixelFormat = PIXEL_RGB;
    else if (bits == 32)
        m_pixelFormat = PIXEL_RGBA;
}

void OrvTGAImageFile::ResetImageData()
{
    const unsigned long bytesPerPixel = static_cast<unsigned char>(m_imagePixelSize) / 8;
    unsigned long bytes = 0;
    if (!ImageBytes(m_width, m_height, bytesPerPixel, bytes))
        ORV_THROW(OrvFileException, MessageNaming("TGA image too large"), kFile);
    AllocateImageData(bytes);
}

void OrvTGAImageFile::Save(const char* name, SAVE_OPTION option)
{
    if (m_imagePixelSize != 24 && m_imagePixelSize != 32)
        ORV_THROW(OrvFileException, "TGA image pixel size not supported, get to work !", kFile);
    const unsigned int bytesPerPixel = static_cast<unsigned int>(m_imagePixelSize) / 8;
    unsigned long pixelBytes = 0;
    if (m_width > 0xFFFF || m_height > 0xFFFF || !ImageBytes(m_width, m_height, bytesPerPixel, pixelBytes))
        ORV_THROW(OrvFileException, MessageNaming("TGA image too large"), kFile);
    if (pixelBytes > GetImageDataSize())
        ORV_THROW(OrvFileException, MessageNaming("TGA image data smaller than its size"), kFile);

    OrvImageFile::Save(OrvUnicode(name), option);
    // No ID field is written, so the header announces none.
    m_idFieldCharCount = 0;
    unsigned char header[kHeaderBytes] = {};
    header[0] = m_idFieldCharCount;
    header[1] = static_cast<unsigned char>(m_colorMapType);
    header[2] = static_cast<unsigned char>(m_imageTypeCode);
    Write16(header + 8, m_xOrigin);
    Write16(header + 10, m_yOrigin);
    Write16(header + 12, m_width);
    Write16(header + 14, m_height);
    header[16] = static_cast<unsigned char>(m_imagePixelSize);
    header[17] = static_cast<unsigned char>(m_imageDescByte);
    Write(header, 1, kHeaderBytes);
    if (pixelBytes == 0)
        return;
    std::unique_ptr<unsigned char[]> pixels(new unsigned char[pixelBytes]);
    CopySwapped(pixels.get(), m_data, pixelBytes, bytesPerPixel);
    Write(pixels.get(), 1, pixelBytes);
}

void OrvTGAImageFile::PasteImageFile(OrvTGAImageFile* source, unsigned int x, unsigned int y)
{
    if (source == nullptr || m_imagePixelSize != 32 || source->m_imagePixelSize != 32)
        ORV_THROW(OrvFileException, MessageNaming("Only 32-bit TGA images can be pasted"), kFile);
    const unsigned int sourceWidth = source->m_width;
    const unsigned int sourceHeight = source->m_height;
    if (x > m_width || sourceWidth > m_width - x || y > m_height || sourceHeight > m_height - y)
        ORV_THROW(OrvFileException, MessageNaming("The pasted TGA image doesn't fit"), kFile);
    unsigned long targetBytes = 0;
    unsigned long sourceBytes = 0;
    if (!ImageBytes(m_width, m_height, 4, targetBytes) || targetBytes > GetImageDataSize() ||
        !ImageBytes(sourceWidth, sourceHeight, 4, sourceBytes) || sourceBytes > source->GetImageDataSize())
        ORV_THROW(OrvFileException, MessageNaming("TGA image data smaller than its size"), kFile);
    if (sourceBytes == 0)
        return;

    const unsigned long rowBytes = static_cast<unsigned long>(sourceWidth) * 4;
    for (unsigned int row = 0; row < sourceHeight; ++row)
    {
        const unsigned long target = ((static_cast<unsigned long>(y) + row) * m_width + x) * 4;
        std::memmove(m_data + target, source->m_data + row * rowBytes, rowBytes);
    }
}

#ifndef ORV_TGA_IMAGE_FILE_H
#define ORV_TGA_IMAGE_FILE_H

#include "OrvImageFile.h"

/// Uncompressed true-colour TGA images (type 2) of 24 or 32 bits a pixel, read
/// and written. Pixels are held red first; rows keep the file's order.
class OrvTGAImageFile : public OrvImageFile
{
public:
    OrvTGAImageFile();
    ~OrvTGAImageFile() override;

    void Load(const OrvUnicode& name, const OrvUnicode& path) override;
    /// Opens the file for writing only; the image is written by Save(const char*, ...).
    using OrvImageFile::Save;
    /// Width x height x (pixel size / 8) bytes, zeroed.
    void ResetImageData() override;
    /// Writes the 18-byte header (with an ID field count of 0) and the pixels.
    /// The file stays open until Close or the destructor.
    virtual void Save(const char* name, SAVE_OPTION option);

    /// Decodes the header fields from byte 8 on and the pixels; fileBytes holds
    /// the whole file, GetSize() bytes.
    void LoadImageType2(char* fileBytes);
    /// Copies the whole source into this image, its first pixel at column x of
    /// row y. Both images hold 32-bit pixels and the source must fit.
    void PasteImageFile(OrvTGAImageFile* source, unsigned int x, unsigned int y);

    char GetImagePixelSize() const { return m_imagePixelSize; }
    unsigned char GetIDFieldCharCount() const { return m_idFieldCharCount; }
    char GetColorMapType() const { return m_colorMapType; }
    char GetImageTypeCode() const { return m_imageTypeCode; }
    unsigned int GetXOrigin() const { return m_xOrigin; }
    unsigned int GetYOrigin() const { return m_yOrigin; }
    char GetImageDescByte() const { return m_imageDescByte; }

    void SetIDFieldCharCount(unsigned char count) { m_idFieldCharCount = count; }
    void SetColorMapType(char type) { m_colorMapType = type; }
    void SetImageTypeCode(char code) { m_imageTypeCode = code; }
    void SetXOrigin(unsigned int x) { m_xOrigin = x; }
    void SetYOrigin(unsigned int y) { m_yOrigin = y; }
    /// 24 also makes the pixel format RGB, 32 RGBA.
    void SetImagePixelSize(char bits);
    void SetImageDescByte(char descriptor) { m_imageDescByte = descriptor; }

protected:
    unsigned char m_idFieldCharCount;
    char m_colorMapType;
    char m_imageTypeCode;
    unsigned int m_xOrigin;
    unsigned int m_yOrigin;
    char m_imagePixelSize;
    char m_imageDescByte;
};

#endif

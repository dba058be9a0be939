#ifndef ORV_PNG_IMAGE_FILE_H
#define ORV_PNG_IMAGE_FILE_H

#include "OrvImageFile.h"

/// Reader of a PNG file's description: size, bit depth, colour type, the three
/// methods and, for palette images, the palette. It inflates no image data: the
/// data buffer stays empty and the pixel format is not set. A game uses it
/// through a class of its own that supplies ResetImageData.
class OrvPNGImageFile : public OrvImageFile
{
public:
    OrvPNGImageFile();
    OrvPNGImageFile(const OrvPNGImageFile& other);
    OrvPNGImageFile& operator=(const OrvPNGImageFile& other);
    ~OrvPNGImageFile() override;

    void Load(const OrvUnicode& name, const OrvUnicode& path) override;
    // Opens the file for writing only.

    /// Bit-depth checks by colour type; each is given the whole file, GetSize()
    /// bytes. DecodeColorType3 also walks the chunks for the palette.
    void DecodeColorType0(unsigned char* fileBytes);
    void DecodeColorType2(unsigned char* fileBytes);
    void DecodeColorType3(unsigned char* fileBytes);
    void DecodeColorType4(unsigned char* fileBytes);
    void DecodeColorType6(unsigned char* fileBytes);

    unsigned int GetBitDepth() const { return m_bitDepth; }
    unsigned int GetColorType() const { return m_colorType; }
    unsigned int GetCompressionMethod() const { return m_compressionMethod; }
    unsigned int GetFilterMethod() const { return m_filterMethod; }
    unsigned int GetInterlaceMethod() const { return m_interlaceMethod; }
    /// One value per byte of the PLTE chunk (red, green, blue of each entry);
    /// null unless a palette image was loaded. Owned by the image.
    unsigned int* GetPalette() const { return m_palette; }
    unsigned int GetPaletteValueCount() const { return m_paletteValueCount; }

protected:
    unsigned int m_bitDepth;
    unsigned int m_colorType;
    unsigned int m_compressionMethod;
    unsigned int m_filterMethod;
    unsigned int m_interlaceMethod;
    unsigned int* m_palette;
    unsigned int m_paletteValueCount;

private:
    void FreePalette();
    void CopyPalette(const OrvPNGImageFile& other);
    void CheckBitDepthIs8Or16();
};

#endif

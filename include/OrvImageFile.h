#ifndef ORV_IMAGE_FILE_H
#define ORV_IMAGE_FILE_H


#include "OrvFile.h"

/// An image: width, height, pixel format and the pixel bytes in the data buffer,
/// row after row in the order of the source file, without padding.
class OrvImageFile : public OrvFile
{
public:
    enum PIXEL_FORMAT : int
    {
        PIXEL_RGB = 0,  // 3 bytes a pixel: red, green, blue
        PIXEL_RGBA = 1  // 4 bytes a pixel: red, green, blue, alpha
    };

    OrvImageFile();
    ~OrvImageFile() override;

    /// Sizes the data buffer for the current width, height and pixel size.
    virtual void ResetImageData() = 0;

    void SetWidth(unsigned int width) { m_width = width; }
    unsigned int GetWidth() const { return m_width; }
    void SetHeight(unsigned int height) { m_height = height; }
    unsigned int GetHeight() const { return m_height; }
    PIXEL_FORMAT GetPixelFormat() const { return m_pixelFormat; }
    /// Bytes of pixels the data buffer holds.
    unsigned long GetImageDataSize() const { return m_imageDataBytes; }

protected:
    /// A fresh zeroed pixel buffer of `bytes` bytes.
    unsigned char* AllocateImageData(unsigned long bytes);
    /// width x height x bytesPerPixel; false when it does not fit.
    static bool ImageBytes(unsigned long width, unsigned long height, unsigned long bytesPerPixel,
                           unsigned long& bytes);

    unsigned int m_width;
    unsigned int m_height;
    PIXEL_FORMAT m_pixelFormat;

private:
    unsigned long m_imageDataBytes;
};

#endif

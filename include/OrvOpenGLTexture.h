#ifndef ORV_OPENGL_TEXTURE_H
#define ORV_OPENGL_TEXTURE_H

#include "OrvTexture.h"

/// A texture uploaded to OpenGL. Its OpenGL name exists from the first upload
/// until DeleteOpenGLName or destruction.
class OrvOpenGLTexture : public OrvTexture
{
public:
    /// The name of a texture that has none yet.
    static constexpr unsigned int kNoName = 0xFFFFFFFFu;

    OrvOpenGLTexture();
    ~OrvOpenGLTexture() override;

    void Create(int id, OrvTextureManager* manager) override;
    /// Records name and size, then uploads one level unless the application is
    /// loading. Throws OrvTextureException for a texture never created.
    void SetDataFromImage(OrvImageFile* image) override;

    /// Uploads `levels` levels (1 to 8) of the image to the bound texture, the
    /// size halving at each level; false, uploading nothing, for a bad level
    /// count, no image, an empty image or pixel data shorter than the image.
    /// Throws OrvTextureException "invalid pixel format" for anything but RGB
    /// and RGBA.
    bool CreateMiMapLevels(unsigned int levels, OrvImageFile* image);
    unsigned int GenerateOpenGLName();
    unsigned int GetOpenGLName() const { return m_openGLName; }
    void DeleteOpenGLName();

private:
    bool ApplicationIsLoading() const;

    unsigned int m_openGLName;
};

#endif

#include "OrvOpenGLTexture.h"

#include <GL/gl.h>

#include "OrvApplication.h"
#include "OrvGLBatch.h"
#include "OrvGLStateCache.h"
#include "OrvImageFile.h"
#include "OrvRenderer.h"
#include "OrvTextureException.h"
#include "OrvTextureManager.h"

namespace
{
const char* const kSource = "src/Renderer/OrvOpenGLTexture";
const unsigned int kMaxLevels = 8;
}  // namespace

OrvOpenGLTexture::OrvOpenGLTexture() : OrvTexture(), m_openGLName(kNoName) {}

OrvOpenGLTexture::~OrvOpenGLTexture()
{
    DeleteOpenGLName();
}

void OrvOpenGLTexture::Create(int id, OrvTextureManager* manager)
{
    OrvTexture::Create(id, manager);
    m_openGLName = kNoName;
}

unsigned int OrvOpenGLTexture::GenerateOpenGLName()
{
    if (m_openGLName == kNoName)
    {
        GLuint name = 0;
        glGenTextures(1, &name);
        m_openGLName = name;
        OrvGLStateCache::ForgetTexture(name);
    }
    return m_openGLName;
}

void OrvOpenGLTexture::DeleteOpenGLName()
{
    if (m_openGLName == kNoName)
        return;
    const GLuint name = m_openGLName;
    OrvGLBatch::StateChanging();
    glDeleteTextures(1, &name);
    OrvGLStateCache::ForgetTexture(name);
    m_openGLName = kNoName;
}

bool OrvOpenGLTexture::ApplicationIsLoading() const
{
    const OrvRenderer* renderer = m_textureManager != nullptr ? m_textureManager->GetRenderer() : nullptr;
    const OrvApplication* application = OrvApplication::Of(renderer);
    return application != nullptr && application->GetIsLoading();
}

void OrvOpenGLTexture::SetDataFromImage(OrvImageFile* image)
{
    if (m_id == 0)
        ORV_THROW(OrvTextureException, "You tried to set the data for a texture that hasn't been created", kSource);
    OrvTexture::SetDataFromImage(image);
    if (ApplicationIsLoading())
        return;
    OrvGLStateCache::BindTextureOnActiveUnit(GenerateOpenGLName());
    CreateMiMapLevels(1, image);
}

bool OrvOpenGLTexture::CreateMiMapLevels(unsigned int levels, OrvImageFile* image)
{
    if (levels == 0 || levels > kMaxLevels || image == nullptr || image->GetWidth() == 0 || image->GetHeight() == 0)
        return false;
    GLenum format = GL_RGB;
    unsigned long bytesPerPixel = 3;
    switch (image->GetPixelFormat())
    {
    case OrvImageFile::PIXEL_RGB: break;
    case OrvImageFile::PIXEL_RGBA:
        format = GL_RGBA;
        bytesPerPixel = 4;
        break;
    default: ORV_THROW(OrvTextureException, "invalid pixel format", kSource);
    }
    unsigned long width = image->GetWidth();
    unsigned long height = image->GetHeight();
    // Every level reads from the start of the image's pixels: they must hold
    // the largest level.
    if (image->GetData() == nullptr || width > image->GetImageDataSize() / bytesPerPixel / height)
        return false;
    // Geometry waiting for the draw may show this texture's old contents.
    OrvGLBatch::StateChanging();
    // Rows are packed, whatever their length.
    glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
    for (unsigned int level = 0; level < levels; ++level)
    {
        glTexImage2D(GL_TEXTURE_2D, static_cast<GLint>(level), static_cast<GLint>(format),
                     static_cast<GLsizei>(width), static_cast<GLsizei>(height), 0, format, GL_UNSIGNED_BYTE,
                     image->GetData());
        if (level + 1 < levels)
        {
            width >>= 1;
            height >>= 1;
            if (width == 0)
                return false;
        }
    }
    return true;
}

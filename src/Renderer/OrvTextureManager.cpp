#include "OrvTextureManager.h"

#include "OrvApplication.h"
#include "OrvFileManager.h"
#include "OrvOpenGLTexture.h"
#include "OrvRenderer.h"
#include "OrvTGAImageFile.h"
#include "OrvTextureException.h"

namespace
{
const char* const kSource = "src/Renderer/OrvTextureManager";
}

OrvTextureManager::OrvTextureManager(OrvRenderer* renderer) : m_renderer(renderer), m_nextID(1) {}

OrvTextureManager::~OrvTextureManager()
{
    m_textures.DeleteAll();
}

OrvTexture* OrvTextureManager::CreateRightType()
{
    if (m_renderer == nullptr || m_renderer->GetRendererType() != 0)
        ORV_THROW(OrvTextureException, "You tried to create a texture but no render type is set", kSource);
    return new OrvOpenGLTexture();
}

OrvTexture* OrvTextureManager::CreateTexture()
{
    OrvTexture* texture = CreateRightType();
    texture->Create(m_nextID++, this);
    ORV_ADD_OWNED(m_textures, texture, OrvTextureException, "Not enough memory for another texture", kSource);
    return texture;
}

void OrvTextureManager::CleanUp()
{
    unsigned int i = 0;
    while (i < m_textures.GetSize())
    {
        if (m_textures[i]->IsInUse())
            ++i;
        else
            m_textures.Delete(static_cast<unsigned long>(i));
    }
}

void OrvTextureManager::ReloadTextures()
{
    OrvApplication* application = OrvApplication::Of(m_renderer);
    OrvFileManager* files = application != nullptr ? application->GetFileManager() : nullptr;
    if (files == nullptr)
        ORV_THROW(OrvTextureException, "You tried to reload textures without a file manager", kSource);
    for (unsigned int i = 0; i < m_textures.GetSize(); ++i)
    {
        OrvTexture* texture = m_textures[i];
        if (texture->GetImageFileName().Length() == 0)
            continue;
        // An image of another format registered under the name serves as it is.
        OrvImageFile* image = files->GetOrLoad<OrvTGAImageFile>(texture->GetImageFileName());
        if (image == nullptr)
            image = dynamic_cast<OrvImageFile*>(files->GetFile(texture->GetImageFileName()));
        if (image == nullptr)
            ORV_THROW(OrvTextureException, "You tried to reload a texture from a file that is not an image", kSource);
        texture->SetDataFromImage(image);
        files->DeleteOrvFile(image);
    }
}

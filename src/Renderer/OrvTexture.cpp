#include "OrvTexture.h"

#include "OrvImageFile.h"
#include "OrvTextureException.h"
#include "OrvTextureMethod.h"

namespace
{
const char* const kSource = "src/Renderer/OrvTexture";
void (*g_setFromImageCallback)(OrvTexture*) = nullptr;
}  // namespace

OrvTexture::OrvTexture()
    : m_mipMapMethod(MIPMAP_LINEAR), m_wrapMethod(WRAP_REPEAT), m_textureManager(nullptr), m_id(0), m_users(0)
{
}

OrvTexture::OrvTexture(const OrvTexture&) : OrvTexture()
{
    ORV_THROW(OrvTextureException, "copy constructor should never be called", kSource);
}

OrvTexture& OrvTexture::operator=(const OrvTexture&)
{
    return *this;
}

OrvTexture::~OrvTexture() = default;

void OrvTexture::Create(int id, OrvTextureManager* manager)
{
    if (id == 0)
        ORV_THROW(OrvTextureException, "You tried to create a texture with an invalid ID", kSource);
    m_id = id;
    m_textureManager = manager;
}

void OrvTexture::SetDataFromImage(OrvImageFile* image)
{
    m_imageFileName = image->GetName();
    m_dimension.Set(static_cast<float>(image->GetWidth()), static_cast<float>(image->GetHeight()));
    OnSetFromImage();
}

void OrvTexture::RemoveUser()
{
    if (--m_users < 0)
        ORV_THROW(OrvException, "You removed to many users from texture !", kSource);
}

bool OrvTexture::SetMipMapMethod(MIPMAP_METHOD method)
{
    return OrvTextureMethod::Assign(m_mipMapMethod, method);
}

bool OrvTexture::SetWrapMethod(WRAP_METHOD method)
{
    return OrvTextureMethod::Assign(m_wrapMethod, method);
}

void OrvTexture::SetFromImageCallback(void (*callback)(OrvTexture*))
{
    g_setFromImageCallback = callback;
}

void OrvTexture::OnSetFromImage()
{
    if (g_setFromImageCallback != nullptr)
        g_setFromImageCallback(this);
}

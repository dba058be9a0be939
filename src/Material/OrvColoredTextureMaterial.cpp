#include "OrvColoredTextureMaterial.h"

#include "OrvException.h"
#include "OrvPass.h"

namespace
{
const char* const kSource = "src/Material/OrvColoredTextureMaterial";
}

OrvColoredTextureMaterial::OrvColoredTextureMaterial(OrvRenderer* renderer, OrvTexture* texture,
                                                     const OrvColor& color)
    : OrvMaterial(renderer), m_texture(nullptr), m_color()
{
    Setup(renderer, texture, color);
}

OrvColoredTextureMaterial::OrvColoredTextureMaterial(const OrvColoredTextureMaterial& other)
    : OrvMaterial(other.m_renderer), m_texture(nullptr), m_color()
{
    ORV_THROW(OrvException, "OrvColoredTextureMaterial copy constructor not supported", kSource);
}

OrvColoredTextureMaterial& OrvColoredTextureMaterial::operator=(const OrvColoredTextureMaterial&)
{
    ORV_THROW(OrvException, "operator= not supported", kSource);
}

OrvColoredTextureMaterial::~OrvColoredTextureMaterial() = default;

void OrvColoredTextureMaterial::Setup(OrvRenderer* renderer, OrvTexture* texture, const OrvColor& color)
{
    if (GetPassCount() != 0 || renderer == nullptr)
        return;
    AddAlphaBlendedPass(renderer, "ColoredTextureShader.txt");
    SetTexture(texture);
    m_color = color;
}

void OrvColoredTextureMaterial::SetTexture(OrvTexture* texture)
{
    if (GetPassCount() == 0)
        ORV_THROW(OrvException, "SetTexture() - no passes created yet", kSource);
    m_texture = texture;
    m_passes[0]->SetTextureUnit(TEXTURE_UNIT_0, texture);
}

void OrvColoredTextureMaterial::SetPassParameters(unsigned int)
{
    if (GetPassCount() == 0)
        ORV_THROW(OrvException, "SetPassParameters() - no passes created yet", kSource);
    SetColorOnFirstPass(m_color);
}

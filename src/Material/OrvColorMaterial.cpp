#include "OrvColorMaterial.h"

OrvColorMaterial::OrvColorMaterial(OrvRenderer* renderer) : OrvMaterial(renderer), m_color()
{
    AddAlphaBlendedPass(renderer, "ColorShader.txt");
    m_color.Set(1.0f, 1.0f, 1.0f, 0.0f);
}

OrvColorMaterial::~OrvColorMaterial() = default;

void OrvColorMaterial::SetPassParameters(unsigned int)
{
    SetColorOnFirstPass(m_color);
}

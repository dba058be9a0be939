#include "OrvPass.h"

#include "OrvEffect.h"
#include "OrvEffectManager.h"
#include "OrvPassDesc.h"
#include "OrvRendererException.h"
#include "OrvTextureMethod.h"

namespace
{
const char* const kSource = "src/Material/OrvPass";

// The effect the renderer shares for the paths of `effect`, or null.
OrvEffect* SharedEffect(OrvRenderer* renderer, const OrvEffect* effect)
{
    if (effect == nullptr || renderer == nullptr || renderer->GetEffectManager() == nullptr)
        return nullptr;
    return renderer->GetEffectManager()->CreateEffect(effect->GetVSPath(), effect->GetFSPath());
}
}  // namespace

OrvPass::OrvPass()
    : m_renderer(nullptr),
      m_mipMapMethod(MIPMAP_LINEAR),
      m_wrapMethod(WRAP_REPEAT),
      m_flags(0),
      m_srcBlendFactor(BLEND_FACTOR_ZERO),
      m_dstBlendFactor(BLEND_FACTOR_DST_COLOR),
      m_textureUnits{nullptr, nullptr},
      m_effect(nullptr)
{
}

OrvPass::OrvPass(const OrvPass& other) : OrvPass()
{
    *this = other;
}

OrvPass& OrvPass::operator=(const OrvPass& other)
{
    if (this == &other)
        return *this;
    m_renderer = other.m_renderer;
    m_mipMapMethod = other.m_mipMapMethod;
    m_wrapMethod = other.m_wrapMethod;
    m_flags = other.m_flags;
    m_srcBlendFactor = other.m_srcBlendFactor;
    m_dstBlendFactor = other.m_dstBlendFactor;
    m_textureUnits[0] = other.m_textureUnits[0];
    m_textureUnits[1] = other.m_textureUnits[1];
    m_effect = SharedEffect(other.m_renderer, other.m_effect);
    return *this;
}

OrvPass::~OrvPass() = default;

void OrvPass::Create(OrvPassDesc* desc)
{
    if (desc->Renderer == nullptr || desc->Renderer->GetEffectManager() == nullptr)
        ORV_THROW(OrvRendererException, "You tried to create a pass without an initialised renderer", kSource);
    m_renderer = desc->Renderer;
    m_flags = desc->Flags;
    m_srcBlendFactor = desc->SrcBlendFactor;
    m_dstBlendFactor = desc->DstBlendFactor;
    m_effect = m_renderer->GetEffectManager()->CreateEffect(desc->VSPath, desc->FSPath);
}

void OrvPass::Activate()
{
    if (m_renderer == nullptr)
        ORV_THROW(OrvRendererException, "You tried to activate a pass that was never created", kSource);
    m_renderer->ActivatePass(this);
    // The renderer's own matrix: activating allocates nothing.
    const OrvMatrix& modelView = m_renderer->ComputeModelView();
    m_renderer->SetEffectParameter(m_effect, "in_m44ModelView", const_cast<OrvMatrix*>(&modelView));
    m_renderer->SetEffectParameter(m_effect, "in_m44Proj", &m_renderer->PeekMatrix(TRANS_MATRIX_PROJECTION));
}

void OrvPass::SetParameter(const char* name, void* value)
{
    if (m_renderer == nullptr)
        ORV_THROW(OrvRendererException, "You tried to set a parameter of a pass that was never created", kSource);
    m_renderer->SetEffectParameter(m_effect, name, value);
}

void OrvPass::SetBlendFunction(OrvBlendFactor source, OrvBlendFactor destination)
{
    m_srcBlendFactor = source;
    m_dstBlendFactor = destination;
}

bool OrvPass::SetMipMapMethod(MIPMAP_METHOD method)
{
    return OrvTextureMethod::Assign(m_mipMapMethod, method);
}

bool OrvPass::SetWrapMethod(WRAP_METHOD method)
{
    return OrvTextureMethod::Assign(m_wrapMethod, method);
}

void OrvPass::SetTextureUnit(OrvTextureUnit unit, OrvTexture* texture)
{
    if (static_cast<unsigned int>(unit) <= 1)
        m_textureUnits[unit] = texture;
    if (texture != nullptr)
    {
        SetMipMapMethod(texture->GetMipMapMethod());
        SetWrapMethod(texture->GetWrapMethod());
    }
}

OrvTexture* OrvPass::GetTextureUnit(OrvTextureUnit unit) const
{
    return static_cast<unsigned int>(unit) <= 1 ? m_textureUnits[unit] : nullptr;
}

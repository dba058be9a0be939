#include "OrvMaterial.h"

#include "OrvColor.h"
#include "OrvMaterialShelf.h"
#include "OrvPass.h"
#include "OrvPassDesc.h"
#include "OrvRendererException.h"

namespace
{
const char* const kSource = "src/Material/OrvMaterial";
}

OrvMaterial::OrvMaterial(OrvRenderer* renderer) : m_renderer(renderer) {}

OrvMaterial::~OrvMaterial()
{
    if (m_shelf != nullptr)
        m_shelf->Forget(this);
    DeleteAllPasses();
}

void OrvMaterial::SetPassParameters(unsigned int) {}

void OrvMaterial::Prefetch(unsigned int stage) const
{
    if (stage == 0)
        __builtin_prefetch(m_passes.GetData());
    else if (m_passes.GetSize() != 0)
        __builtin_prefetch(m_passes.GetData()[0]);
}

void OrvMaterial::AddPass(OrvPass* pass)
{
    ORV_ADD_OWNED(m_passes, pass, OrvRendererException, "Not enough memory for another pass", kSource);
}

void OrvMaterial::DeleteAllPasses()
{
    m_passes.DeleteAll();
}

void OrvMaterial::ActivatePass(unsigned int pass)
{
    SetPassParameters(pass);
    OrvPass* chosen = m_passes[pass];
    if (chosen == nullptr)
        ORV_THROW(OrvRendererException, "You tried to activate a pass that the material doesn't have", kSource);
    chosen->Activate();
}

void OrvMaterial::AddAlphaBlendedPass(OrvRenderer* renderer, const char* shaderFile)
{
    OrvPassDesc desc;
    desc.Renderer = renderer;
    desc.VSPath = shaderFile;
    desc.FSPath = shaderFile;
    desc.SrcBlendFactor = BLEND_FACTOR_SRC_ALPHA;
    desc.DstBlendFactor = BLEND_FACTOR_ONE_MINUS_SRC_ALPHA;
    OrvPass* pass = new OrvPass();
    try
    {
        pass->Create(&desc);
    }
    catch (...)
    {
        delete pass;
        throw;
    }
    AddPass(pass);
}

void OrvMaterial::SetColorOnFirstPass(const OrvColor& color)
{
    float rgba[4] = {color.GetRed(), color.GetGreen(), color.GetBlue(), color.GetAlpha()};
    m_passes[0]->SetParameter("in_f4Color", rgba);
}

#include "OrvEffectManager.h"

#include "OrvEffect.h"
#include "OrvRenderer.h"
#include "OrvRendererException.h"

namespace
{
const char* const kSource = "src/Renderer/OrvEffectManager";
}

OrvEffectManager::OrvEffectManager(OrvRenderer* renderer) : m_renderer(renderer) {}

OrvEffectManager::~OrvEffectManager()
{
    for (unsigned int i = 0; i < m_effects.GetSize(); ++i)
    {
        OrvEffect* effect = m_effects[i];
        // Straight to the programs: the renderer may be mid-frame or going away.
        effect->m_effectManager = nullptr;
        effect->UnDeclare();
    }
    m_effects.DeleteAll();
}

OrvEffect* OrvEffectManager::GetEffect(const OrvUnicode& vsPath, const OrvUnicode& fsPath) const
{
    for (unsigned int i = 0; i < m_effects.GetSize(); ++i)
    {
        OrvEffect* effect = m_effects[i];
        if (effect->GetVSPath() == vsPath && effect->GetFSPath() == fsPath)
            return effect;
    }
    return nullptr;
}

OrvEffect* OrvEffectManager::CreateEffect(const OrvUnicode& vsPath, const OrvUnicode& fsPath)
{
    if (OrvEffect* shared = GetEffect(vsPath, fsPath))
        return shared;
    OrvEffect* effect = new OrvEffect(this, vsPath, fsPath);
    ORV_ADD_OWNED(m_effects, effect, OrvRendererException, "Not enough memory for another effect", kSource);
    return effect;
}

void OrvEffectManager::RedeclareEffects()
{
    for (unsigned int i = 0; i < m_effects.GetSize(); ++i)
        m_renderer->UndeclareEffect(m_effects[i]);
    m_renderer->ChangeContext();
    for (unsigned int i = 0; i < m_effects.GetSize(); ++i)
        m_renderer->DeclareEffect(m_effects[i]);
}

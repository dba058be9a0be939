#ifndef ORV_EFFECT_MANAGER_H
#define ORV_EFFECT_MANAGER_H

#include "OrvTArray.h"

class OrvEffect;
class OrvRenderer;
class OrvUnicode;

/// Keeps one effect per distinct pair of source paths, shared by every pass
/// that names it, and declares them all anew after a context change.
class OrvEffectManager
{
public:
    explicit OrvEffectManager(OrvRenderer* renderer);
    OrvEffectManager(const OrvEffectManager&) = delete;
    OrvEffectManager& operator=(const OrvEffectManager&) = delete;
    /// Undeclares and deletes every effect: they belong to the renderer's
    /// shader context, which goes with the renderer.
    virtual ~OrvEffectManager();

    /// The first effect of exactly these two paths (letter case counts), or null.
    OrvEffect* GetEffect(const OrvUnicode& vsPath, const OrvUnicode& fsPath) const;
    /// The shared effect of the pair, made (and declared) when new.
    OrvEffect* CreateEffect(const OrvUnicode& vsPath, const OrvUnicode& fsPath);
    /// Undeclares every effect, replaces the shader context, declares every effect.
    void RedeclareEffects();

    OrvRenderer* GetRenderer() const { return m_renderer; }
    unsigned int GetEffectCount() const { return m_effects.GetSize(); }

private:
    OrvRenderer* m_renderer;
    OrvTArray<OrvEffect> m_effects;
};

#endif

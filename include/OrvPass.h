#ifndef ORV_PASS_H
#define ORV_PASS_H

#include "OrvRenderer.h"
#include "OrvTexture.h"

class OrvEffect;
class OrvPassDesc;

/// One way of drawing: a shared effect, two texture units (not owned), a blend
/// function, and the filter and wrap applied to the units. Activating it binds
/// all that and hands the current model-view and projection matrices to the
/// shaders ("in_m44ModelView", "in_m44Proj").
class OrvPass
{
public:
    OrvPass();
    /// Copies everything; the effect is the same shared one.
    OrvPass(const OrvPass& other);
    OrvPass& operator=(const OrvPass& other);
    virtual ~OrvPass();

    /// Takes renderer, flags and blend factors from the descriptor and the
    /// shared effect of its two paths.
    void Create(OrvPassDesc* desc);
    /// After the object's model matrix is set and before Begin.
    void Activate();
    void SetParameter(const char* name, void* value);

    void SetBlendFunction(OrvBlendFactor source, OrvBlendFactor destination);
    OrvBlendFactor GetSrcBlendFactor() const { return m_srcBlendFactor; }
    OrvBlendFactor GetDstBlendFactor() const { return m_dstBlendFactor; }
    /// Values above 1 are refused (false).
    bool SetMipMapMethod(MIPMAP_METHOD method);
    bool SetWrapMethod(WRAP_METHOD method);
    MIPMAP_METHOD GetMipMapMethod() const { return m_mipMapMethod; }
    WRAP_METHOD GetWrapMethod() const { return m_wrapMethod; }
    /// Units 0 and 1 store the texture (others nothing); a texture, wherever it
    /// goes, hands its filter and wrap to the pass.
    void SetTextureUnit(OrvTextureUnit unit, OrvTexture* texture);
    /// Null for a unit above 1.
    OrvTexture* GetTextureUnit(OrvTextureUnit unit) const;
    OrvEffect* GetEffect() const { return m_effect; }
    OrvRenderer* GetRenderer() const { return m_renderer; }

private:
    OrvRenderer* m_renderer;
    MIPMAP_METHOD m_mipMapMethod;
    WRAP_METHOD m_wrapMethod;
    int m_flags;
    OrvBlendFactor m_srcBlendFactor;
    OrvBlendFactor m_dstBlendFactor;
    OrvTexture* m_textureUnits[2];
    OrvEffect* m_effect;
};

#endif

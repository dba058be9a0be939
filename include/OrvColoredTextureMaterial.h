#ifndef ORV_COLORED_TEXTURE_MATERIAL_H
#define ORV_COLORED_TEXTURE_MATERIAL_H

#include "OrvColor.h"
#include "OrvMaterial.h"

class OrvTexture;

/// A texture (not owned) tinted by a colour, drawn with
/// "ColoredTextureShader.txt" and blended by alpha. Cannot be copied: both the
/// copy constructor and the assignment throw OrvException.
class OrvColoredTextureMaterial : public OrvMaterial
{
public:
    OrvColoredTextureMaterial(OrvRenderer* renderer, OrvTexture* texture, const OrvColor& color);
    OrvColoredTextureMaterial(const OrvColoredTextureMaterial& other);
    OrvColoredTextureMaterial& operator=(const OrvColoredTextureMaterial& other);
    ~OrvColoredTextureMaterial() override;

    /// Makes the pass, once: does nothing when the material has a pass already
    /// or `renderer` is null.
    void Setup(OrvRenderer* renderer, OrvTexture* texture, const OrvColor& color);
    /// The colour goes to pass 0 as "in_f4Color".
    void SetPassParameters(unsigned int pass) override;

    /// Also sets unit 0 of pass 0, which takes the texture's filter and wrap.
    void SetTexture(OrvTexture* texture);
    OrvTexture* GetTexture() const { return m_texture; }
    void SetColor(const OrvColor& color) { m_color = color; }
    const OrvColor& GetColor() const { return m_color; }

private:
    OrvTexture* m_texture;
    OrvColor m_color;
};

#endif

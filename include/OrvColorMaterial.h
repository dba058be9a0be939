#ifndef ORV_COLOR_MATERIAL_H
#define ORV_COLOR_MATERIAL_H

#include "OrvColor.h"
#include "OrvMaterial.h"

/// A flat colour, blended by its alpha, drawn with "ColorShader.txt". A new one
/// is white with alpha 0: it draws nothing until given a colour.
class OrvColorMaterial : public OrvMaterial
{
public:
    explicit OrvColorMaterial(OrvRenderer* renderer);
    ~OrvColorMaterial() override;

    /// The colour goes to pass 0 as "in_f4Color" (red, green, blue, alpha).
    void SetPassParameters(unsigned int pass) override;

    void SetColor(const OrvColor& color) { m_color = color; }
    const OrvColor& GetColor() const { return m_color; }

private:
    OrvColor m_color;
};

#endif

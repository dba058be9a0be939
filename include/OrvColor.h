#ifndef ORV_COLOR_H
#define ORV_COLOR_H

/// A colour as four floats, nominally 0 to 1 (never clamped). The fields lie in
/// memory as red, blue, green, alpha, while every argument list reads red,
/// green, blue, alpha: whatever hands a colour to a shader goes through the
/// getters.
class OrvColor
{
public:
    /// Opaque black.
    OrvColor();
    OrvColor(float red, float green, float blue, float alpha);
    /// 0..255 a channel, each multiplied by 1/255 (not clamped).
    OrvColor(int red, int green, int blue, int alpha);
    OrvColor(const OrvColor& other) = default;
    virtual ~OrvColor();

    OrvColor& operator=(const OrvColor& other) = default;

    void Set(float red, float green, float blue, float alpha);
    void Set(int red, int green, int blue, int alpha);

    void SetRed(float red) { m_red = red; }
    float GetRed() const { return m_red; }
    void SetGreen(float green) { m_green = green; }
    float GetGreen() const { return m_green; }
    void SetBlue(float blue) { m_blue = blue; }
    float GetBlue() const { return m_blue; }
    void SetAlpha(float alpha) { m_alpha = alpha; }
    float GetAlpha() const { return m_alpha; }

private:
    float m_red;
    float m_blue;
    float m_green;
    float m_alpha;
};

#endif

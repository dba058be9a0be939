#include "OrvColor.h"

namespace
{
// 1/255 as the single-precision constant the byte channels are scaled by.
const float kByteToUnit = 0.003921569f;
}

OrvColor::OrvColor() : m_red(0.0f), m_blue(0.0f), m_green(0.0f), m_alpha(1.0f) {}

OrvColor::OrvColor(float red, float green, float blue, float alpha)
    : m_red(red), m_blue(blue), m_green(green), m_alpha(alpha)
{
}

OrvColor::OrvColor(int red, int green, int blue, int alpha) : OrvColor()
{
    Set(red, green, blue, alpha);
}

OrvColor::~OrvColor() = default;

void OrvColor::Set(float red, float green, float blue, float alpha)
{
    m_red = red;
    m_green = green;
    m_blue = blue;
    m_alpha = alpha;
}

void OrvColor::Set(int red, int green, int blue, int alpha)
{
    Set(static_cast<float>(red) * kByteToUnit, static_cast<float>(green) * kByteToUnit,
        static_cast<float>(blue) * kByteToUnit, static_cast<float>(alpha) * kByteToUnit);
}

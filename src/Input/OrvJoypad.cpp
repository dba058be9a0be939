#include "OrvJoypad.h"

#include <cmath>

namespace
{
template <int Count>
bool InRange(int value)
{
    return value >= 0 && value < Count;
}
}  // namespace

OrvJoypad::OrvJoypad() : OrvJoypad(0) {}

OrvJoypad::OrvJoypad(int joypadIndex)
    : OrvInputDevice(), m_deadZone(0.2f), m_joypadIndex(joypadIndex), m_axes(), m_buttons(), m_hat(HAT_CENTERED)
{
}

OrvJoypad::~OrvJoypad() = default;

void OrvJoypad::SetAxisValue(OrvJoypadAxis axis, float value)
{
    if (!InRange<kAxisCount>(axis))
        return;
    m_axes[axis] = value > 1.0f ? 1.0f : value < -1.0f ? -1.0f : value;
}

float OrvJoypad::GetAxisValue(OrvJoypadAxis axis) const
{
    return InRange<kAxisCount>(axis) ? m_axes[axis] : 0.0f;
}

void OrvJoypad::SetButtonState(OrvJoypadButton button, bool down)
{
    if (InRange<kButtonCount>(button))
        m_buttons[button] = down;
}

bool OrvJoypad::IsButtonDown(OrvJoypadButton button) const
{
    return InRange<kButtonCount>(button) && m_buttons[button];
}

void OrvJoypad::SetDeadZone(float zone)
{
    const float magnitude = std::fabs(zone);
    m_deadZone = magnitude > 1.0f ? 1.0f : magnitude;
}

void OrvJoypad::Reset()
{
    for (float& axis : m_axes)
        axis = 0.0f;
    for (bool& button : m_buttons)
        button = false;
}

OrvUnicode OrvJoypad::GetButtonText(OrvJoypadButton button)
{
    static const char* const kTexts[kButtonCount] = {"X Button",  "A Button",  "B Button",     "Y Button",
                                                     "L1 Button", "L2 Button", "L3 Button",    "R1 Button",
                                                     "R2 Button", "R3 Button", "Start Button", "Select Button"};
    return OrvUnicode(InRange<kButtonCount>(button) ? kTexts[button] : "");
}

OrvUnicode OrvJoypad::GetAxisText(OrvJoypadAxis axis)
{
    static const char* const kTexts[kAxisCount] = {"Left Stick", "Left Stick", "Right Stick", "Right Stick"};
    return OrvUnicode(InRange<kAxisCount>(axis) ? kTexts[axis] : "");
}

OrvUnicode OrvJoypad::GetHatPositionText(OrvJoypadHatPosition position)
{
    static const char* const kTexts[9] = {"Hat Centered",  "Hat Up",         "Hat Right",   "Hat Down",     "Hat Left",
                                          "Hat Right Up", "Hat Right Down", "Hat Left Up", "Hat Left Down"};
    return OrvUnicode(InRange<9>(position) ? kTexts[position] : "");
}

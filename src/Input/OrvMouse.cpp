#include "OrvMouse.h"

namespace
{
bool HasSlot(OrvMouseButton button)
{
    return static_cast<int>(button) >= 0 && static_cast<int>(button) < 3;
}
}  // namespace

OrvMouse::OrvMouse() : OrvInputDevice(), m_wheel(0), m_relativeWheel(0), m_buttons() {}

OrvMouse::~OrvMouse() = default;

void OrvMouse::SetButtonState(OrvMouseButton button, bool down)
{
    if (HasSlot(button))
        m_buttons[button] = down;
}

bool OrvMouse::IsButtonDown(OrvMouseButton button) const
{
    return HasSlot(button) && m_buttons[button];
}

void OrvMouse::Reset()
{
    m_position.Set(0.0f, 0.0f);
    m_relative.Set(0.0f, 0.0f);
    m_wheel = 0;
    for (bool& button : m_buttons)
        button = false;
}

OrvUnicode OrvMouse::GetButtonText(OrvMouseButton button)
{
    static const char* const kTexts[3] = {"Left Mouse Button", "Middle Mouse Button", "Right Mouse Button"};
    return OrvUnicode(HasSlot(button) ? kTexts[button] : "");
}

#ifndef ORV_JOYPAD_BUTTON_EVENT_H
#define ORV_JOYPAD_BUTTON_EVENT_H

#include "OrvInputEvent.h"
#include "OrvJoypad.h"

/// A joypad button went down or up.
class OrvJoypadButtonEvent : public OrvInputEvent
{
public:
    OrvJoypadButtonEvent();
    /// INPUT_JOYPAD_BUTTON_DOWN or _UP, else OrvInputException before the
    /// joypad is touched; then the button's state is set.
    OrvJoypadButtonEvent(OrvInputEventType type, OrvJoypad* joypad, OrvJoypadButton button);
    OrvJoypadButtonEvent(const OrvJoypadButtonEvent& other) = default;
    OrvJoypadButtonEvent& operator=(const OrvJoypadButtonEvent& other) = default;
    ~OrvJoypadButtonEvent() override;

    OrvJoypadButton GetButton() const { return m_button; }

private:
    OrvJoypadButton m_button;
};

#endif

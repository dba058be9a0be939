#include "OrvJoypadButtonEvent.h"

#include "OrvInputException.h"

OrvJoypadButtonEvent::OrvJoypadButtonEvent() : OrvInputEvent(), m_button(JOYPAD_BUTTON_X) {}

OrvJoypadButtonEvent::OrvJoypadButtonEvent(OrvInputEventType type, OrvJoypad* joypad, OrvJoypadButton button)
    : OrvInputEvent(type, joypad), m_button(button)
{
    if (type != INPUT_JOYPAD_BUTTON_DOWN && type != INPUT_JOYPAD_BUTTON_UP)
        ORV_THROW(OrvInputException, "Invalid event type for an input joypad button event",
                  "src/Input/OrvJoypadButtonEvent");
    if (joypad != nullptr)
        joypad->SetButtonState(button, type == INPUT_JOYPAD_BUTTON_DOWN);
}

OrvJoypadButtonEvent::~OrvJoypadButtonEvent() = default;

#include "OrvJoypadHatEvent.h"

#include "OrvInputException.h"

OrvJoypadHatEvent::OrvJoypadHatEvent() : OrvInputEvent(), m_position(HAT_CENTERED) {}

OrvJoypadHatEvent::OrvJoypadHatEvent(OrvInputEventType type, OrvJoypad* joypad, OrvJoypadHatPosition position)
    : OrvInputEvent(type, joypad), m_position(position)
{
    if (type != INPUT_JOYPAD_HAT)
        ORV_THROW(OrvInputException, "Invalid event type for an input joypad hat event", "src/Input/OrvJoypadHatEvent");
    if (joypad != nullptr)
        joypad->SetHatPosition(position);
}

OrvJoypadHatEvent::~OrvJoypadHatEvent() = default;

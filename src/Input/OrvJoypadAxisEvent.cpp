#include "OrvJoypadAxisEvent.h"

#include "OrvInputException.h"

OrvJoypadAxisEvent::OrvJoypadAxisEvent() : OrvInputEvent(), m_axis(JOYPAD_AXIS_LEFT_X), m_velocity(0.0f) {}

OrvJoypadAxisEvent::OrvJoypadAxisEvent(OrvInputEventType type, OrvJoypad* joypad, OrvJoypadAxis axis, float velocity)
    : OrvInputEvent(type, joypad), m_axis(axis), m_velocity(velocity)
{
    if (type != INPUT_JOYPAD_AXIS)
        ORV_THROW(OrvInputException, "Invalid event type for an input joypad axis event",
                  "src/Input/OrvJoypadAxisEvent");
}

OrvJoypadAxisEvent::~OrvJoypadAxisEvent() = default;

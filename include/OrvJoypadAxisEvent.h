#ifndef ORV_JOYPAD_AXIS_EVENT_H
#define ORV_JOYPAD_AXIS_EVENT_H

#include "OrvInputEvent.h"
#include "OrvJoypad.h"

/// An axis moved; the joypad already holds the new value, the event carries the
/// change against the previous one.
class OrvJoypadAxisEvent : public OrvInputEvent
{
public:
    OrvJoypadAxisEvent();
    /// INPUT_JOYPAD_AXIS only, else OrvInputException.
    OrvJoypadAxisEvent(OrvInputEventType type, OrvJoypad* joypad, OrvJoypadAxis axis, float velocity);
    OrvJoypadAxisEvent(const OrvJoypadAxisEvent& other) = default;
    OrvJoypadAxisEvent& operator=(const OrvJoypadAxisEvent& other) = default;
    ~OrvJoypadAxisEvent() override;

    OrvJoypadAxis GetAxis() const { return m_axis; }
    float GetVelocity() const { return m_velocity; }

private:
    OrvJoypadAxis m_axis;
    float m_velocity;
};

#endif

#ifndef ORV_JOYPAD_HAT_EVENT_H
#define ORV_JOYPAD_HAT_EVENT_H

#include "OrvInputEvent.h"
#include "OrvJoypad.h"

/// The hat moved to a new position.
class OrvJoypadHatEvent : public OrvInputEvent
{
public:
    OrvJoypadHatEvent();
    /// INPUT_JOYPAD_HAT only, else OrvInputException before the joypad is
    /// touched; then the hat position is set.
    OrvJoypadHatEvent(OrvInputEventType type, OrvJoypad* joypad, OrvJoypadHatPosition position);
    OrvJoypadHatEvent(const OrvJoypadHatEvent& other) = default;
    OrvJoypadHatEvent& operator=(const OrvJoypadHatEvent& other) = default;
    ~OrvJoypadHatEvent() override;

    OrvJoypadHatPosition GetHatPosition() const { return m_position; }

private:
    OrvJoypadHatPosition m_position;
};

#endif

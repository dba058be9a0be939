#ifndef ORV_SDL_JOYPAD_H
#define ORV_SDL_JOYPAD_H

#include "OrvJoypad.h"


/// One joystick read from SDL's event queue, at most 128 events a frame. Events
/// of other joysticks go back to the end of the queue for their own joypad.
/// SDL axis 1 is turned over (up is positive); SDL axis 2, the analogue
/// triggers, only sets L2 or R2, without events.
class OrvSDLJoypad : public OrvJoypad
{
public:
    static constexpr int kEventsPerCapture = 128;

    OrvSDLJoypad();
    explicit OrvSDLJoypad(int joypadIndex);
    ~OrvSDLJoypad() override;

    /// Turns SDL's joystick events on and opens the joystick (a failure leaves
    /// a joypad that never receives anything).
    void Create() override;
    void Capture() override;
    void RefreshHardware() override;
    unsigned int GetTakenEvents() const override { return kTakesJoypad; }

    /// SDL's joystick, opaque; null when none opened.
    void* GetJoystick() const { return m_joystick; }

private:
    void Dispatch(const class OrvInputEvent& event);
    void AxisMoved(int sdlAxis, int raw);

    void* m_joystick;
};

#endif

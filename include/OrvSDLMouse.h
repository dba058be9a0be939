#ifndef ORV_SDL_MOUSE_H
#define ORV_SDL_MOUSE_H

#include "OrvMouse.h"

/// The mouse read from SDL's event queue, at most ten events a frame,
/// taken one by one (a listener's exception leaves the rest queued). Motion
/// takes the position from SDL's mouse state; a wheel step is counted once, on
/// its button-down event.
class OrvSDLMouse : public OrvMouse
{
public:
    static constexpr int kEventsPerCapture = 10;

    OrvSDLMouse();
    ~OrvSDLMouse() override;

    void Create() override;
    void Capture() override;
    void RefreshHardware() override;
    unsigned int GetTakenEvents() const override { return kTakesMouse; }

private:
    void Dispatch(const class OrvInputEvent& event);
    void WheelStep(int direction);
};

#endif

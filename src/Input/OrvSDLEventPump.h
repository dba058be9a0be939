#ifndef ORV_SDL_EVENT_PUMP_H
#define ORV_SDL_EVENT_PUMP_H

// The input manager's door to SDL's event queue. The SDL devices read the
// queue themselves; the manager only pumps it once a turn and clears out
// what no device will take.
class OrvSDLEventPump
{
public:
    // Moves the window system's pending input into SDL's queue.
    static void Pump();
    // Drops queued input and window housekeeping events of every kind not in
    // `taken` (OrvInputDevice::kTakes... bits); SDL_QUIT and user events stay.
    static void DropAllBut(unsigned int taken);
};

#endif

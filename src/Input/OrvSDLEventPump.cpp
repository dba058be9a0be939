#include "OrvSDLEventPump.h"

#include <SDL.h>

#include "OrvInputDevice.h"

void OrvSDLEventPump::Pump()
{
    SDL_PumpEvents();
}

void OrvSDLEventPump::DropAllBut(unsigned int taken)
{
    Uint32 keep = 0;
    if (taken & OrvInputDevice::kTakesKeys)
        keep |= SDL_KEYDOWNMASK | SDL_KEYUPMASK;
    if (taken & OrvInputDevice::kTakesMouse)
        keep |= SDL_MOUSEMOTIONMASK | SDL_MOUSEBUTTONDOWNMASK | SDL_MOUSEBUTTONUPMASK;
    if (taken & OrvInputDevice::kTakesJoypad)
        keep |= SDL_JOYEVENTMASK;
    const Uint32 kinds = SDL_ACTIVEEVENTMASK | SDL_KEYDOWNMASK | SDL_KEYUPMASK | SDL_MOUSEMOTIONMASK |
                         SDL_MOUSEBUTTONDOWNMASK | SDL_MOUSEBUTTONUPMASK | SDL_JOYEVENTMASK | SDL_SYSWMEVENTMASK |
                         SDL_VIDEORESIZEMASK | SDL_VIDEOEXPOSEMASK;
    const Uint32 drop = kinds & ~keep;
    SDL_Event events[32];
    while (SDL_PeepEvents(events, 32, SDL_GETEVENT, drop) > 0)
    {
    }
}

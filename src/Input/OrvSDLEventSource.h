#ifndef ORV_SDL_EVENT_SOURCE_H
#define ORV_SDL_EVENT_SOURCE_H

#include <SDL.h>

#include "OrvSession.h"

// Where the SDL devices take their events from. Live, from SDL's queue; while
// a session records, every event taken is also written into the turn being
// recorded; while one replays, the events come from the recorded turn and the
// live queue gives nothing. The pointer's position travels in the motion and
// button events themselves (x, y; dx, dy), so a replay needs no live state.
class OrvSDLEventSource
{
public:
    // Takes up to `count` queued events of the kinds in `mask`.
    static int Take(SDL_Event* events, int count, Uint32 mask);
    // Puts back an event a device took and does not want (another joypad's).
    static void PutBack(const SDL_Event& event);
    // The window's focus bits (SDL_GetAppState), recorded or replayed.
    static Uint8 AppState();

    // Live input written into `turn` as it is taken (null: stop recording).
    static void Record(OrvSession::Turn* turn);
    // Input taken from `turn` instead of SDL (null: live again).
    static void Replay(const OrvSession::Turn* turn);
    static bool Replaying();
    // Live, with nothing recorded or replayed yet (a session starts or ends).
    static void Reset();
};

#endif

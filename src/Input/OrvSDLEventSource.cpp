#include "OrvSDLEventSource.h"

#include <algorithm>
#include <iterator>
#include <vector>

namespace
{
OrvSession::Turn* g_recording = nullptr;
const OrvSession::Turn* g_replaying = nullptr;
// The replayed turn's events not taken yet, and the focus last replayed.
std::vector<SDL_Event> g_pending;
Uint8 g_replayedState = SDL_APPMOUSEFOCUS | SDL_APPINPUTFOCUS | SDL_APPACTIVE;
int g_recordedState = -1;

Uint32 MaskOf(Uint8 type)
{
    return SDL_EVENTMASK(type);
}

OrvSession::Event Written(const SDL_Event& sdl)
{
    OrvSession::Event event;
    switch (sdl.type)
    {
    case SDL_KEYDOWN:
    case SDL_KEYUP:
        event.kind = 'K';
        event.values[0] = sdl.type == SDL_KEYDOWN;
        event.values[1] = sdl.key.keysym.sym;
        event.values[2] = sdl.key.keysym.unicode;
        break;
    case SDL_MOUSEMOTION:
        event.kind = 'M';
        event.values[0] = sdl.motion.x;
        event.values[1] = sdl.motion.y;
        event.values[2] = sdl.motion.xrel;
        event.values[3] = sdl.motion.yrel;
        break;
    case SDL_MOUSEBUTTONDOWN:
    case SDL_MOUSEBUTTONUP:
        event.kind = 'B';
        event.values[0] = sdl.type == SDL_MOUSEBUTTONDOWN;
        event.values[1] = sdl.button.button;
        event.values[2] = sdl.button.x;
        event.values[3] = sdl.button.y;
        break;
    case SDL_JOYAXISMOTION:
        event.kind = 'A';
        event.values[0] = sdl.jaxis.which;
        event.values[1] = sdl.jaxis.axis;
        event.values[2] = sdl.jaxis.value;
        break;
    case SDL_JOYBUTTONDOWN:
    case SDL_JOYBUTTONUP:
        event.kind = 'J';
        event.values[0] = sdl.type == SDL_JOYBUTTONDOWN;
        event.values[1] = sdl.jbutton.which;
        event.values[2] = sdl.jbutton.button;
        break;
    case SDL_JOYHATMOTION:
        event.kind = 'H';
        event.values[0] = sdl.jhat.which;
        event.values[1] = sdl.jhat.hat;
        event.values[2] = sdl.jhat.value;
        break;
    default:
        break;
    }
    return event;
}

// The SDL event a recorded one stands for; false for focus changes.
bool Read(const OrvSession::Event& event, SDL_Event& sdl)
{
    sdl = SDL_Event();
    const int* v = event.values;
    switch (event.kind)
    {
    case 'K':
        sdl.type = v[0] ? SDL_KEYDOWN : SDL_KEYUP;
        sdl.key.state = v[0] ? SDL_PRESSED : SDL_RELEASED;
        sdl.key.keysym.sym = static_cast<SDLKey>(v[1]);
        sdl.key.keysym.unicode = static_cast<Uint16>(v[2]);
        return true;
    case 'M':
        sdl.type = SDL_MOUSEMOTION;
        sdl.motion.x = static_cast<Uint16>(v[0]);
        sdl.motion.y = static_cast<Uint16>(v[1]);
        sdl.motion.xrel = static_cast<Sint16>(v[2]);
        sdl.motion.yrel = static_cast<Sint16>(v[3]);
        return true;
    case 'B':
        sdl.type = v[0] ? SDL_MOUSEBUTTONDOWN : SDL_MOUSEBUTTONUP;
        sdl.button.state = v[0] ? SDL_PRESSED : SDL_RELEASED;
        sdl.button.button = static_cast<Uint8>(v[1]);
        sdl.button.x = static_cast<Uint16>(v[2]);
        sdl.button.y = static_cast<Uint16>(v[3]);
        return true;
    case 'A':
        sdl.type = SDL_JOYAXISMOTION;
        sdl.jaxis.which = static_cast<Uint8>(v[0]);
        sdl.jaxis.axis = static_cast<Uint8>(v[1]);
        sdl.jaxis.value = static_cast<Sint16>(v[2]);
        return true;
    case 'J':
        sdl.type = v[0] ? SDL_JOYBUTTONDOWN : SDL_JOYBUTTONUP;
        sdl.jbutton.state = v[0] ? SDL_PRESSED : SDL_RELEASED;
        sdl.jbutton.which = static_cast<Uint8>(v[1]);
        sdl.jbutton.button = static_cast<Uint8>(v[2]);
        return true;
    case 'H':
        sdl.type = SDL_JOYHATMOTION;
        sdl.jhat.which = static_cast<Uint8>(v[0]);
        sdl.jhat.hat = static_cast<Uint8>(v[1]);
        sdl.jhat.value = static_cast<Uint8>(v[2]);
        return true;
    default:
        return false;
    }
}
}  // namespace

int OrvSDLEventSource::Take(SDL_Event* events, int count, Uint32 mask)
{
    if (g_replaying != nullptr)
    {
        int taken = 0;
        for (auto it = g_pending.begin(); it != g_pending.end() && taken < count;)
        {
            if ((MaskOf(it->type) & mask) == 0)
            {
                ++it;
                continue;
            }
            events[taken++] = *it;
            it = g_pending.erase(it);
        }
        return taken;
    }
    const int taken = SDL_PeepEvents(events, count, SDL_GETEVENT, mask);
    for (int i = 0; i < taken; ++i)
    {
        SDL_Event& event = events[i];
        // What the devices read: the pointer where SDL has it now, and how far
        // it went since the last motion taken.
        if (event.type == SDL_MOUSEMOTION)
        {
            int x = 0, y = 0;
            SDL_GetMouseState(&x, &y);
            event.motion.x = static_cast<Uint16>(x);
            event.motion.y = static_cast<Uint16>(y);
            SDL_GetRelativeMouseState(&x, &y);
            event.motion.xrel = static_cast<Sint16>(x);
            event.motion.yrel = static_cast<Sint16>(y);
        }
        if (g_recording != nullptr)
            g_recording->events.push_back(Written(event));
    }
    return taken;
}

void OrvSDLEventSource::PutBack(const SDL_Event& event)
{
    // Recorded when the device it belongs to takes it.
    if (g_recording != nullptr)
    {
        const OrvSession::Event back = Written(event);
        auto& events = g_recording->events;
        for (auto it = events.rbegin(); it != events.rend(); ++it)
            if (it->kind == back.kind && std::equal(back.values, back.values + 4, it->values))
            {
                events.erase(std::next(it).base());
                break;
            }
    }
    if (g_replaying != nullptr)
        g_pending.push_back(event);
    else
        SDL_PushEvent(const_cast<SDL_Event*>(&event));
}

Uint8 OrvSDLEventSource::AppState()
{
    if (g_replaying != nullptr)
        return g_replayedState;
    const Uint8 state = SDL_GetAppState();
    if (g_recording != nullptr && state != g_recordedState)
    {
        OrvSession::Event event;
        event.kind = 'F';
        event.values[0] = state;
        g_recording->events.push_back(event);
        g_recordedState = state;
    }
    return state;
}

void OrvSDLEventSource::Record(OrvSession::Turn* turn)
{
    g_recording = turn;
}

void OrvSDLEventSource::Reset()
{
    g_recording = nullptr;
    g_replaying = nullptr;
    g_pending.clear();
    g_recordedState = -1;
    g_replayedState = SDL_APPMOUSEFOCUS | SDL_APPINPUTFOCUS | SDL_APPACTIVE;
}

void OrvSDLEventSource::Replay(const OrvSession::Turn* turn)
{
    g_replaying = turn;
    g_pending.clear();
    if (turn == nullptr)
        return;
    for (const OrvSession::Event& event : turn->events)
    {
        SDL_Event sdl;
        if (Read(event, sdl))
            g_pending.push_back(sdl);
        else if (event.kind == 'F')
            g_replayedState = static_cast<Uint8>(event.values[0]);
    }
}

bool OrvSDLEventSource::Replaying()
{
    return g_replaying != nullptr;
}

#include "OrvSDLMouse.h"

#include <SDL.h>

#include "OrvInputManager.h"
#include "OrvMouseButtonEvent.h"
#include "OrvSDLEventSource.h"

OrvSDLMouse::OrvSDLMouse() = default;

OrvSDLMouse::~OrvSDLMouse() = default;

void OrvSDLMouse::Create() {}

void OrvSDLMouse::RefreshHardware() {}

void OrvSDLMouse::Dispatch(const OrvInputEvent& event)
{
    if (m_inputManager != nullptr)
        m_inputManager->ProcessEvent(event);
}

void OrvSDLMouse::WheelStep(int direction)
{
    m_relativeWheel = direction;
    m_wheel += direction;
    Dispatch(OrvInputEvent(INPUT_MOUSE_WHEEL, this));
}

void OrvSDLMouse::Capture()
{
    // One at a time: when a listener throws, the events not yet dispatched
    // are still in SDL's queue for the next frame.
    SDL_Event sdl;
    for (int i = 0; i < kEventsPerCapture; ++i)
    {
        if (OrvSDLEventSource::Take(&sdl, 1, SDL_MOUSEMOTIONMASK | SDL_MOUSEBUTTONDOWNMASK | SDL_MOUSEBUTTONUPMASK) <=
            0)
            break;
        if (sdl.type == SDL_MOUSEMOTION)
        {
            // The event source puts the pointer's position and its motion since
            // the last motion taken into the event.
            m_position.Set(static_cast<float>(sdl.motion.x), static_cast<float>(sdl.motion.y));
            m_relative.Set(static_cast<float>(sdl.motion.xrel), static_cast<float>(sdl.motion.yrel));
            Dispatch(OrvInputEvent(INPUT_MOUSE_MOVED, this));
            continue;
        }
        const bool down = sdl.type == SDL_MOUSEBUTTONDOWN;
        const OrvInputEventType type = down ? INPUT_MOUSE_BUTTON_DOWN : INPUT_MOUSE_BUTTON_UP;
        switch (sdl.button.button)
        {
        case SDL_BUTTON_LEFT: Dispatch(OrvMouseButtonEvent(type, this, MOUSE_BUTTON_LEFT)); break;
        case SDL_BUTTON_MIDDLE: Dispatch(OrvMouseButtonEvent(type, this, MOUSE_BUTTON_MIDDLE)); break;
        case SDL_BUTTON_RIGHT: Dispatch(OrvMouseButtonEvent(type, this, MOUSE_BUTTON_RIGHT)); break;
        case SDL_BUTTON_WHEELUP:
            if (down)
                WheelStep(+1);
            break;
        case SDL_BUTTON_WHEELDOWN:
            if (down)
                WheelStep(-1);
            break;
        default:
            // Buttons beyond the wheel: ignored.
            break;
        }
    }
}

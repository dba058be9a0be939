#include "OrvSDLJoypad.h"

#include <SDL.h>

#include <cmath>

#include "OrvInputManager.h"
#include "OrvJoypadAxisEvent.h"
#include "OrvJoypadButtonEvent.h"
#include "OrvJoypadHatEvent.h"
#include "OrvSDLEventSource.h"

namespace
{
const int kAxisRange = 32000;
const int kTriggerThreshold = 5000;

const OrvJoypadButton kButtons[] = {JOYPAD_BUTTON_A,  JOYPAD_BUTTON_B,  JOYPAD_BUTTON_X,      JOYPAD_BUTTON_Y,
                                    JOYPAD_BUTTON_L1, JOYPAD_BUTTON_R1, JOYPAD_BUTTON_SELECT, JOYPAD_BUTTON_START,
                                    JOYPAD_BUTTON_L3, JOYPAD_BUTTON_R3};

// SDL's hat value → the engine's position; false for a value SDL never sends.
bool HatPosition(Uint8 value, OrvJoypadHatPosition& position)
{
    switch (value)
    {
    case SDL_HAT_CENTERED: position = HAT_CENTERED; return true;
    case SDL_HAT_UP: position = HAT_UP; return true;
    case SDL_HAT_RIGHT: position = HAT_RIGHT; return true;
    case SDL_HAT_DOWN: position = HAT_DOWN; return true;
    case SDL_HAT_LEFT: position = HAT_LEFT; return true;
    case SDL_HAT_RIGHTUP: position = HAT_RIGHT_UP; return true;
    case SDL_HAT_RIGHTDOWN: position = HAT_RIGHT_DOWN; return true;
    case SDL_HAT_LEFTUP: position = HAT_LEFT_UP; return true;
    case SDL_HAT_LEFTDOWN: position = HAT_LEFT_DOWN; return true;
    default: return false;
    }
}
}  // namespace

OrvSDLJoypad::OrvSDLJoypad() : OrvSDLJoypad(0) {}

OrvSDLJoypad::OrvSDLJoypad(int joypadIndex) : OrvJoypad(joypadIndex), m_joystick(nullptr) {}

OrvSDLJoypad::~OrvSDLJoypad() = default;

void OrvSDLJoypad::Create()
{
    SDL_JoystickEventState(SDL_ENABLE);
    m_joystick = SDL_JoystickOpen(m_joypadIndex);
}

void OrvSDLJoypad::RefreshHardware()
{
    m_joystick = SDL_JoystickOpen(m_joypadIndex);
}

void OrvSDLJoypad::Dispatch(const OrvInputEvent& event)
{
    if (m_inputManager != nullptr)
        m_inputManager->ProcessEvent(event);
}

void OrvSDLJoypad::AxisMoved(int sdlAxis, int raw)
{
    raw = raw > kAxisRange ? kAxisRange : raw < -kAxisRange ? -kAxisRange : raw;
    float value = static_cast<float>(raw) / static_cast<float>(kAxisRange);
    if (std::fabs(value) <= m_deadZone)
        value = 0.0f;
    OrvJoypadAxis axis;
    switch (sdlAxis)
    {
    case 0: axis = JOYPAD_AXIS_LEFT_X; break;
    case 1:
        axis = JOYPAD_AXIS_LEFT_Y;
        value = -value;
        break;
    case 2:
        // The analogue triggers: buttons, set without events.
        m_buttons[JOYPAD_BUTTON_L2] = false;
        m_buttons[JOYPAD_BUTTON_R2] = false;
        if (raw > kTriggerThreshold)
            m_buttons[JOYPAD_BUTTON_L2] = true;
        else if (raw < -kTriggerThreshold)
            m_buttons[JOYPAD_BUTTON_R2] = true;
        return;
    case 3: axis = JOYPAD_AXIS_RIGHT_X; break;
    case 4: axis = JOYPAD_AXIS_RIGHT_Y; break;
    default: return;
    }
    const float previous = m_axes[axis];
    m_axes[axis] = value;
    Dispatch(OrvJoypadAxisEvent(INPUT_JOYPAD_AXIS, this, axis, value - previous));
}

void OrvSDLJoypad::Capture()
{
    SDL_Event events[kEventsPerCapture];
    const int count = OrvSDLEventSource::Take(events, kEventsPerCapture, SDL_JOYEVENTMASK);
    for (int i = 0; i < count; ++i)
    {
        SDL_Event& sdl = events[i];
        // Every joystick event starts with its joystick's number.
        if (sdl.jaxis.which != m_joypadIndex)
        {
            OrvSDLEventSource::PutBack(sdl);
            continue;
        }
        switch (sdl.type)
        {
        case SDL_JOYAXISMOTION: AxisMoved(sdl.jaxis.axis, sdl.jaxis.value); break;
        case SDL_JOYHATMOTION:
        {
            OrvJoypadHatPosition position;
            if (HatPosition(sdl.jhat.value, position))
                Dispatch(OrvJoypadHatEvent(INPUT_JOYPAD_HAT, this, position));
            break;
        }
        case SDL_JOYBUTTONDOWN:
        case SDL_JOYBUTTONUP:
            if (sdl.jbutton.button < sizeof(kButtons) / sizeof(kButtons[0]))
                Dispatch(OrvJoypadButtonEvent(
                    sdl.type == SDL_JOYBUTTONDOWN ? INPUT_JOYPAD_BUTTON_DOWN : INPUT_JOYPAD_BUTTON_UP, this,
                    kButtons[sdl.jbutton.button]));
            break;
        default:
            // Ball motion: taken and ignored.
            break;
        }
    }
}

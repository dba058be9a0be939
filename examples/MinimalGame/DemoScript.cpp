#include "DemoScript.h"

#include <SDL.h>

#include <string>

#include "GameHud.h"
#include <OrvEngine/OrvAutoTextField.h>
#include <OrvEngine/OrvCursor.h>
#include <OrvEngine/OrvRenderer.h>
#include <OrvEngine/OrvWidget.h>

void DemoScript::Advance(float seconds)
{
    static const Step kSteps[] = {
        {0.2f, "point", "Options"}, {0.7f, "point", "Debug"}, {0.9f, "click", ""},     {1.1f, "type", "Ar"},
        {1.4f, "type", "\t"},       {1.6f, "type", "\r"},     {1.8f, "point", "Name"}, {1.9f, "click", ""},
        {2.1f, "type", "Be"},       {2.3f, "point", "Options"}, {2.6f, "point", "Blip"},
    };
    m_time += seconds;
    // Each step at its time, one a turn at most, so that SDL has delivered a
    // pointer move before a click; the widgets' own timers do the rest.
    if (m_step < sizeof(kSteps) / sizeof(kSteps[0]) && m_time >= kSteps[m_step].time)
    {
        const Step& step = kSteps[m_step++];
        const std::string action = step.action;
        if (action == "point")
            PointAt(std::string(step.text) == "Name" ? m_hud->GetNameField() : m_hud->GetButton(step.text));
        else if (action == "click")
            Click();
        else
            Type(step.text);
    }
}

void DemoScript::PointAt(const OrvWidget* widget) const
{
    if (widget == nullptr)
        return;
    // The pointer's hot spot is its top-left corner; the mouse counts down from the window's top.
    const OrvCursor* cursor = m_hud->GetCursor();
    const OrvVector3D target = widget->GetWorldPosition();
    const float x = target.X + cursor->GetWidth() * 0.5f + static_cast<float>(m_renderer->GetViewportOriginX());
    const float y = static_cast<float>(m_renderer->GetViewportHeight()) - (target.Y - cursor->GetHeight() * 0.5f) +
                    static_cast<float>(m_renderer->GetViewportOriginY());
    SDL_WarpMouse(static_cast<Uint16>(x), static_cast<Uint16>(y));
}

void DemoScript::Click()
{
    SDL_Event event = {};
    event.type = SDL_MOUSEBUTTONDOWN;
    event.button.button = SDL_BUTTON_LEFT;
    event.button.state = SDL_PRESSED;
    SDL_PushEvent(&event);
    event.type = SDL_MOUSEBUTTONUP;
    event.button.state = SDL_RELEASED;
    SDL_PushEvent(&event);
}

void DemoScript::Type(const char* text)
{
    for (const char* c = text; *c != '\0'; ++c)
    {
        SDL_Event event = {};
        event.type = SDL_KEYDOWN;
        event.key.state = SDL_PRESSED;
        // Letters are their lower-case keys; the character is what was typed.
        const char lower = (*c >= 'A' && *c <= 'Z') ? static_cast<char>(*c - 'A' + 'a') : *c;
        event.key.keysym.sym = static_cast<SDLKey>(lower);
        event.key.keysym.unicode = static_cast<Uint16>(*c);
        SDL_PushEvent(&event);
        event.type = SDL_KEYUP;
        event.key.state = SDL_RELEASED;
        SDL_PushEvent(&event);
    }
}

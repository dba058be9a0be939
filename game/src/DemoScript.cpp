#include "DemoScript.h"

#include <SDL.h>

#include "Hud.h"
#include <OrvEngine/OrvCursor.h>
#include <OrvEngine/OrvRenderer.h>
#include <OrvEngine/OrvWidget.h>
#include "TarnwickGame.h"

void DemoScript::BeforeTurn(unsigned int turn)
{
    // Space is only heard at the table; a round that ended late (not in the
    // demo's fixed time) makes the pass wait for it.
    if (turn - m_passStart >= kPassTurns && m_game->IsShowingScores())
    {
        Type(SDLK_SPACE, ' ');
        m_passStart = turn;
        m_roundOver = 0;
        return;
    }
    if (!m_game->IsRoundOver())
        Play(turn - m_passStart);
    else
    {
        if (m_roundOver == 0)
            m_roundOver = turn;
        Name(turn - m_roundOver);
    }
}

void DemoScript::Play(unsigned int turn)
{
    switch (turn)
    {
    case 1: Key(SDLK_RIGHT, 0, true); break;
    case 40: Key(SDLK_DOWN, 0, true); break;
    case 50: Key(SDLK_RIGHT, 0, false); break;
    case 75: Key(SDLK_DOWN, 0, false); break;
    case 90: m_game->RequestScreenshot("tarnwick-play.png"); break;
    case 100: PointAtField(-180.0f, -200.0f); break;
    case 102: Click(); break;
    case 150: Type(SDLK_ESCAPE, 27); break;
    case 158: PointAt(m_game->GetHud()->GetOptionsButton()); break;
    // The sub-menu opens 0.2 s (12 turns) after the pointer came.
    case 185: PointAt(m_game->GetHud()->GetSoundButton()); break;
    case 195: Click(); break;
    case 205: m_game->RequestScreenshot("tarnwick-menu.png"); break;
    case 212: PointAt(m_game->GetHud()->GetResumeButton()); break;
    case 222: Click(); break;
    case 230: PointAtField(300.0f, -260.0f); break;
    default: break;
    }
}

void DemoScript::Name(unsigned int sinceEnd)
{
    switch (sinceEnd)
    {
    case 20: Type('a', 'A'); break;
    case 22: Type('r', 'r'); break;
    case 40: m_game->RequestScreenshot("tarnwick-name.png"); break;
    case 50: Type(SDLK_TAB, '\t'); break;
    case 60: Type(SDLK_RETURN, '\r'); break;
    case 90: m_game->RequestScreenshot("tarnwick-scores.png"); break;
    default: break;
    }
}

void DemoScript::PointAt(const OrvWidget* widget) const
{
    // The pointer's hot spot, its top-left corner, on the widget's middle.
    const OrvCursor* cursor = m_game->GetHud()->GetCursor();
    const OrvVector3D target = widget->GetWorldPosition();
    const float height = static_cast<float>(m_game->GetRenderer()->GetViewportHeight());
    SDL_WarpMouse(static_cast<Uint16>(target.X + cursor->GetWidth() * 0.5f),
                  static_cast<Uint16>(height - (target.Y - cursor->GetHeight() * 0.5f)));
}

void DemoScript::PointAtField(float x, float y) const
{
    const OrvCursor* cursor = m_game->GetHud()->GetCursor();
    const OrvVector2D spot = m_game->ScreenOf(OrvVector3D(x, y, 0.0f));
    SDL_WarpMouse(static_cast<Uint16>(spot.X + cursor->GetWidth() * 0.5f),
                  static_cast<Uint16>(spot.Y + cursor->GetHeight() * 0.5f));
}

void DemoScript::Key(int key, unsigned short character, bool down)
{
    SDL_Event event = {};
    event.type = down ? SDL_KEYDOWN : SDL_KEYUP;
    event.key.state = down ? SDL_PRESSED : SDL_RELEASED;
    event.key.keysym.sym = static_cast<SDLKey>(key);
    event.key.keysym.unicode = character;
    SDL_PushEvent(&event);
}

void DemoScript::Type(int key, unsigned short character)
{
    Key(key, character, true);
    Key(key, 0, false);
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

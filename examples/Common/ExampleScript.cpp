// ExampleApp's hand for demo scripts: what it does reaches the game through
// the input manager, as SDL's events do: the device's state changes, then
// every listener hears the event (the cursor first, the widgets after it).
#include "ExampleApp.h"
#include <OrvEngine/OrvCursor.h>
#include <OrvEngine/OrvInputManager.h>
#include <OrvEngine/OrvKeyboardEvent.h>
#include <OrvEngine/OrvMouseButtonEvent.h>
#include <OrvEngine/OrvRenderer.h>
#include <OrvEngine/OrvSDLKeyboard.h>
#include "ScriptedMouse.h"

void ExampleApp::PointAt(const OrvVector3D& target)
{
    // The cursor's hot spot, its top-left corner, lands on the target.
    const OrvCursor* cursor = GetCursorCount() > 0 ? GetCursor(0) : nullptr;
    const float halfWidth = cursor != nullptr ? cursor->GetWidth() * 0.5f : 0.0f;
    const float halfHeight = cursor != nullptr ? cursor->GetHeight() * 0.5f : 0.0f;
    const OrvRenderer* renderer = GetRenderer();
    m_mouse->MoveTo(target.X + halfWidth + static_cast<float>(renderer->GetViewportOriginX()),
                    static_cast<float>(renderer->GetViewportHeight()) - (target.Y - halfHeight) +
                        static_cast<float>(renderer->GetViewportOriginY()));
    GetInputManager()->ProcessEvent(OrvInputEvent(INPUT_MOUSE_MOVED, m_mouse));
}

void ExampleApp::PointAt(const OrvGameAsset* asset)
{
    PointAt(asset->GetWorldPosition());
}

void ExampleApp::Click()
{
    GetInputManager()->ProcessEvent(OrvMouseButtonEvent(INPUT_MOUSE_BUTTON_DOWN, m_mouse, MOUSE_BUTTON_LEFT));
    GetInputManager()->ProcessEvent(OrvMouseButtonEvent(INPUT_MOUSE_BUTTON_UP, m_mouse, MOUSE_BUTTON_LEFT));
}

void ExampleApp::KeyDown(OrvKey key, const char* text)
{
    GetInputManager()->ProcessEvent(OrvKeyboardEvent(INPUT_KEY_DOWN, m_keyboard, key, text));
}

void ExampleApp::KeyUp(OrvKey key)
{
    GetInputManager()->ProcessEvent(OrvKeyboardEvent(INPUT_KEY_UP, m_keyboard, key, ""));
}

void ExampleApp::Type(OrvKey key, const char* text)
{
    KeyDown(key, text);
    KeyUp(key);
}

int ExampleApp::DueScriptStep(float seconds, std::initializer_list<float> times)
{
    m_scriptTime += seconds;
    if (m_scriptStep >= times.size() || m_scriptTime < times.begin()[m_scriptStep])
        return -1;
    return static_cast<int>(m_scriptStep++);
}

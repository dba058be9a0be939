// Input: the keyboard, the mouse and the first joypad, made by the game and
// handed to the input manager. Two ways to use them: read their state at any
// time (the arrow keys or the left stick move the square), or listen to
// their events (a key log hears every key and button pressed). With --demo
// the example replays its recorded demo (InputDemo.xml): Right held for half
// a second, H and I typed, a click, then Escape, handed to the devices as SDL
// handed them over when it was recorded.
//
//   Input [SECONDS] [--windowed] [--demo] [--screenshot FILE]
#include <string>

#include "ExampleApp.h"
#include <OrvEngine/OrvInputManager.h>
#include <OrvEngine/OrvKeyboardEvent.h>
#include <OrvEngine/OrvMouseButtonEvent.h>
#include <OrvEngine/OrvSDLJoypad.h>
#include <OrvEngine/OrvSDLKeyboard.h>
#include <OrvEngine/OrvSDLMouse.h>

namespace
{
// Keeps the names of the keys and buttons pressed on the devices it hears.
class KeyLog : public OrvInputListner
{
public:
    std::string heard;

    void ProcessInputEvent(const OrvInputEvent& event) override
    {
        OrvUnicode text;
        if (event.GetType() == INPUT_KEY_DOWN)
            text = OrvKeyboard::GetKeyText(static_cast<const OrvKeyboardEvent&>(event).GetKey());
        else if (event.GetType() == INPUT_MOUSE_BUTTON_DOWN)
            text = OrvMouse::GetButtonText(static_cast<const OrvMouseButtonEvent&>(event).GetButton());
        char name[32] = {};
        text.ToCString(name, sizeof(name), nullptr);
        if (name[0] != '\0')
            heard += (heard.empty() ? "" : ", ") + std::string(name);
    }
};

class Input : public ExampleApp
{
public:
    explicit Input(const ExampleOptions& options) : ExampleApp("Input", options) {}

protected:
    void OnInitialise() override
    {
        ExampleApp::OnInitialise();
        AddStandardDevices();
        GetInputManager()->AddListner(&m_log);
        m_log.AddInputDevice(GetKeyboard());
        m_log.AddInputDevice(GetMouse());
        m_square = Spawn(GetHUDRoot(), OrvVector3D(0, 0, 0));
        m_square->SetMesh(MakeQuad(60, 60, MakeColor(OrvColor(240, 200, 40, 255))));
    }

    void ProcessInputEvent(const OrvInputEvent& event) override
    {
        if (event.GetType() == INPUT_KEY_DOWN && static_cast<const OrvKeyboardEvent&>(event).GetKey() == KEY_ESCAPE)
            Report("heard %s; Escape ends the example with the square %.0f pixels right of the middle",
                   m_log.heard.c_str(), m_square->GetPosition().X);
        ExampleApp::ProcessInputEvent(event);
    }

    void Update(float seconds) override
    {
        OrvApplication::Update(seconds);
        // Up is positive on the stick as in the HUD.
        float x = GetJoypad()->GetAxisValue(JOYPAD_AXIS_LEFT_X);
        float y = GetJoypad()->GetAxisValue(JOYPAD_AXIS_LEFT_Y);
        x += (GetKeyboard()->IsKeyDown(KEY_RIGHT) ? 1.0f : 0.0f) - (GetKeyboard()->IsKeyDown(KEY_LEFT) ? 1.0f : 0.0f);
        y += (GetKeyboard()->IsKeyDown(KEY_UP) ? 1.0f : 0.0f) - (GetKeyboard()->IsKeyDown(KEY_DOWN) ? 1.0f : 0.0f);
        m_square->SetPosition(m_square->GetPosition() + OrvVector3D(x, y, 0) * (300.0f * seconds));
    }

private:
    KeyLog m_log;
    OrvGameAsset* m_square = nullptr;
};
}  // namespace

int main(int argc, char** argv)
{
    return RunExample<Input>(argc, argv);
}

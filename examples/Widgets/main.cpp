// Widgets: the pointer (OrvCursor, a sprite animation following the mouse),
// a menu whose "Colours" button opens a sub-menu when clicked or rested on,
// a button of its own, labels, and a text field that takes what is typed.
// Return greets the name typed; the status line says what happened. With
// --demo the example replays its recorded demo (WidgetsDemo.xml): it clicks
// "Say hello", types a name into the field and enters it, rests on "Colours"
// until its sub-menu opens, picks "Cyan" there and ends over "Clear".
//
//   Widgets [SECONDS] [--windowed] [--demo] [--screenshot FILE]
#include <string>

#include "ExampleApp.h"
#include <OrvEngine/OrvButton.h>
#include <OrvEngine/OrvButtonDesc.h>
#include <OrvEngine/OrvCursor.h>
#include <OrvEngine/OrvCursorDesc.h>
#include <OrvEngine/OrvKeyboardEvent.h>
#include <OrvEngine/OrvLabel.h>
#include <OrvEngine/OrvLabelDesc.h>
#include <OrvEngine/OrvMenu.h>
#include <OrvEngine/OrvMenuDesc.h>
#include <OrvEngine/OrvTextField.h>
#include <OrvEngine/OrvTextFieldDesc.h>

namespace
{
class Widgets : public ExampleApp
{
public:
    explicit Widgets(const ExampleOptions& options) : ExampleApp("Widgets", options) {}

protected:
    void OnInitialise() override
    {
        ExampleApp::OnInitialise();
        AddStandardDevices();  // widgets hear the first mouse and keyboard: they come first
        OrvFont* font = LoadFont("Font.tga", 32, 0.5f);
        // The cursor before the widgets, so that it has moved when they look at a motion.
        OrvCursorDesc pointer;
        OrvCursor* cursor = Make<OrvCursor>(pointer, nullptr);
        cursor->PlaySpriteAnimation("pointer", false, false);
        AddCursor(cursor);

        OrvMenuDesc menu;
        menu.font = font;
        menu.fontSizeCoef = 0.5f;
        menu.position.Set(-300, 200, 0);
        OrvMenu* main = Make<OrvMenu>(menu, GetHUDRoot());
        OrvMenu* colours = Make<OrvMenu>(menu, nullptr);  // placed beside its button when opened
        main->SetBackgroundColor(OrvColor(30, 50, 110, 230));
        colours->SetBackgroundColor(OrvColor(110, 50, 30, 230));
        m_hello = main->AddActionButton("Say hello", Clicked, this);
        m_colours = main->AddSubMenuButton("Colours", colours);
        m_quit = main->AddActionButton("Quit", Clicked, this);
        colours->AddActionButton("Yellow", Clicked, this);
        m_cyan = colours->AddActionButton("Cyan", Clicked, this);

        OrvButtonDesc clear;
        clear.labelDesc.font = font;
        clear.labelDesc.fontSizeCoef = 0.5f;
        clear.labelDesc.text = "Clear";
        clear.labelDesc.align = FONT_ALIGN_CENTER;
        clear.backgroundNormalColor = OrvColor(60, 140, 60, 255);
        clear.backgroundHoverColor = OrvColor(90, 200, 90, 255);
        clear.backgroundPressedColor = OrvColor(30, 80, 30, 255);
        clear.position.Set(250, 200, 0);
        m_clear = Make<OrvButton>(clear, GetHUDRoot());
        m_clear->SetPressedAndReleasedCallback(Clicked, this);

        OrvLabelDesc label;
        label.font = font;
        label.fontSizeCoef = 0.5f;
        label.fontColor = OrvColor(255, 255, 255, 255);
        label.align = FONT_ALIGN_CENTER;
        label.text = "Click a button, or type a name and press Return";
        m_status = Make<OrvLabel>(label, GetHUDRoot());
        label.text = "Name";
        label.position.Set(-200, -150, 0);
        Make<OrvLabel>(label, GetHUDRoot());

        OrvTextFieldDesc field;
        field.font = font;
        field.fontSizeCoef = 0.5f;
        field.position.Set(-120, -150, 0);
        m_name = Make<OrvTextField>(field, GetHUDRoot());
        // Left-aligned text starts at the field's origin: the box reaches right from just before it.
        m_name->SetQuad(-16, -18, 300, 18);
        m_name->UseColorMaterial(OrvColor(40, 60, 90, 255));
        m_name->SetMaxLen(16);
    }

    void ProcessInputEvent(const OrvInputEvent& event) override
    {
        ExampleApp::ProcessInputEvent(event);
        // The game hears the keyboard before the field does: the name is whole.
        if (event.GetType() == INPUT_KEY_DOWN && static_cast<const OrvKeyboardEvent&>(event).GetKey() == KEY_RETURN &&
            m_name->GetIsEditing())
        {
            char name[32] = {};
            m_name->GetText().ToCString(name, sizeof(name), nullptr);
            SetStatus("Hello, " + std::string(name) + "!");
        }
    }

private:
    // Whichever button was clicked.
    static void Clicked(OrvWidget* button, OrvCursor*, void* data)
    {
        Widgets* game = static_cast<Widgets*>(data);
        if (button == game->m_hello || button == game->m_clear)
            game->SetStatus(button == game->m_hello ? "Hello!" : "");
        else if (button == game->m_quit)
            game->Exit();
        else
        {
            const bool cyan = button == game->m_cyan;
            game->m_status->SetFontColor(cyan ? OrvColor(80, 220, 255, 255) : OrvColor(255, 220, 0, 255));
            game->Report("status colour: %s", cyan ? "cyan" : "yellow");
        }
    }

    void SetStatus(const std::string& text)
    {
        m_status->SetText(text.c_str());
        Report("status: %s", text.c_str());
    }

    OrvButton* m_hello = nullptr;
    OrvButton* m_colours = nullptr;
    OrvButton* m_quit = nullptr;
    OrvButton* m_cyan = nullptr;
    OrvButton* m_clear = nullptr;
    OrvLabel* m_status = nullptr;
    OrvTextField* m_name = nullptr;
};
}  // namespace

int main(int argc, char** argv)
{
    return RunExample<Widgets>(argc, argv);
}

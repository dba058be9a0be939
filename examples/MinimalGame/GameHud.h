#ifndef MINIMAL_GAME_HUD_H
#define MINIMAL_GAME_HUD_H

#include <string>

class OrvApplication;
class OrvAutoTextField;
class OrvCursor;
class OrvFont;
class OrvLabel;
class OrvMenu;
class OrvWidget;

// What the game does when a menu button is clicked or a name is entered.
class HudActions
{
public:
    virtual ~HudActions() = default;
    // The text of the button clicked: "Faster", "Slower", "Blip", "Pause", "Debug", "Quit".
    virtual void OnMenu(const std::string& action) = 0;
};

// The example's widgets: the pointer that follows the mouse, a menu with an
// "Options" sub-menu, a status line, and a name field that completes from
// the names entered before. Made after the input devices; the engine owns
// the widgets.
class GameHud
{
public:
    GameHud(OrvApplication* game, OrvFont* font, HudActions* actions);

    // Lays the widgets out for a viewport of that size (the HUD's origin is its centre).
    void Place(float width, float height);
    void SetStatus(const std::string& text);
    // Ends typing and keeps the name for completion; the name typed.
    std::string EnterName();
    bool IsTypingName() const;

    OrvCursor* GetCursor() const { return m_cursor; }
    OrvWidget* GetButton(const std::string& text) const;
    OrvAutoTextField* GetNameField() const { return m_name; }

private:
    static void Clicked(OrvWidget* button, OrvCursor* cursor, void* hud);

    HudActions* m_actions;
    OrvCursor* m_cursor;
    OrvMenu* m_menu;
    OrvMenu* m_options;
    OrvLabel* m_status;
    OrvLabel* m_nameLabel;
    OrvAutoTextField* m_name;
    // The HUD's x where the status line and the name begin.
    float m_left = 0.0f;
};

#endif

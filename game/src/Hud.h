#ifndef TARNWICK_HUD_H
#define TARNWICK_HUD_H

#include <string>
#include <vector>

class OrvApplication;
class OrvAutoTextField;
class OrvButton;
class OrvCursor;
class OrvFont;
class OrvLabel;
class OrvMenu;
class OrvWidget;

// What the game does when a button of the pause menu is clicked.
class HudActions
{
public:
    enum Action
    {
        RESUME,
        TOGGLE_SOUND,
        TOGGLE_FULL_SCREEN,
        QUIT
    };
    virtual ~HudActions() = default;
    virtual void OnHudAction(Action action) = 0;
};

// The head-up display: the pointer, the score and time left, a line of news,
// the pause menu (Resume, Options with Sound and Full screen, Quit), the name
// field shown when a round ends, and the high-score table. The engine owns
// the widgets; the HUD keeps pointers to them.
class Hud
{
public:
    Hud(OrvApplication* game, OrvFont* font, HudActions* actions);

    // Lays the widgets out for a viewport of that size (the HUD's origin is its centre).
    void Place(float width, float height);

    void ShowScore(int score);
    void ShowTimeLeft(int seconds);
    void ShowNews(const std::string& text);
    void ShowSound(bool on);
    void ShowFullScreen(bool on);

    void ShowPauseMenu(bool show);
    // Empties the name field, proposes the names known and starts editing; the panel fits the name row.
    void AskName(const std::vector<std::string>& knownNames);
    // The name typed; the field stops editing and hides.
    std::string TakeName();
    bool IsAskingName() const;
    // A table of "name points" lines, the panel fitted around them; an empty text hides it.
    void ShowTable(const std::string& table);
    // The dark panel behind the name field and the table.
    void ShowPanel(bool show);

    OrvCursor* GetCursor() const { return m_cursor; }
    OrvWidget* GetResumeButton() const;
    OrvWidget* GetOptionsButton() const;
    OrvWidget* GetSoundButton() const;
    OrvAutoTextField* GetNameField() const { return m_name; }
    OrvLabel* GetScoreLabel() const { return m_score; }

private:
    static void Clicked(OrvWidget* button, OrvCursor* cursor, void* hud);
    OrvLabel* MakeLabel(OrvFont* font, float coefficient, int red, int green, int blue);

    OrvApplication* m_game;
    HudActions* m_actions;
    OrvCursor* m_cursor = nullptr;
    OrvLabel* m_score = nullptr;
    OrvLabel* m_time = nullptr;
    OrvLabel* m_news = nullptr;
    OrvLabel* m_table = nullptr;
    OrvWidget* m_panel = nullptr;
    OrvMenu* m_menu = nullptr;
    OrvMenu* m_options = nullptr;
    OrvButton* m_resume = nullptr;
    OrvButton* m_optionsButton = nullptr;
    OrvButton* m_sound = nullptr;
    OrvButton* m_fullScreen = nullptr;
    OrvButton* m_quit = nullptr;
    OrvLabel* m_nameLabel = nullptr;
    OrvAutoTextField* m_name = nullptr;
    float m_left = 0.0f;
    float m_right = 0.0f;
    float m_top = 0.0f;
};

#endif

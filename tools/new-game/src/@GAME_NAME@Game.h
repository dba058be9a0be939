#ifndef @GAME_NAME_UPPER@_GAME_H
#define @GAME_NAME_UPPER@_GAME_H

#include <OrvEngine/OrvApplication.h>
#include <OrvEngine/OrvVector3D.h>

class OrvFont;
class OrvKeyboard;
class OrvLabel;
class OrvWidget;

// A walker that the arrow keys move about the screen, and a label that says
// where it is. Escape ends the game; so does the turn limit, when there is one.
class @GAME_NAME@Game : public OrvApplication
{
public:
    // A limit of 0 turns plays until Escape.
    explicit @GAME_NAME@Game(unsigned int turnLimit) : m_turnLimit(turnLimit) {}

    unsigned int GetTurns() const { return m_turns; }
    // Where the walker stands (pixels from the middle of the window).
    OrvVector3D GetWalkerPosition() const;

protected:
    // The archive, the devices, the font, the walker and the label.
    void OnInitialise() override;
    // What the game made itself: the font.
    void OnTerminate() override;
    void OnRenderWorld() override {}
    // A title, drawn with the font straight over the head-up display.
    void OnRenderHUD() override;
    // The keys steer the walker, then the engine plays the turn.
    void Update(float seconds) override;

private:
    void Steer();
    void KeepOnScreen();

    unsigned int m_turnLimit;
    unsigned int m_turns = 0;
    bool m_walking = false;
    bool m_facingLeft = false;
    OrvKeyboard* m_keyboard = nullptr;
    OrvFont* m_font = nullptr;
    OrvWidget* m_walker = nullptr;
    OrvLabel* m_label = nullptr;
};

#endif

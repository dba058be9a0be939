#ifndef MINIMAL_GAME_DEMO_SCRIPT_H
#define MINIMAL_GAME_DEMO_SCRIPT_H

class GameHud;
class OrvRenderer;
class OrvWidget;

// Plays the widgets by itself, through SDL as a player would: the pointer
// rests on Options until its sub-menu opens and clicks Debug in it; a name is
// typed, completed with Tab and entered with Return; the name field is
// clicked and a second name begun, its completion showing; the pointer goes
// back to the sub-menu. It warps the system pointer, so it is meant for runs
// without a player.
class DemoScript
{
public:
    DemoScript(GameHud* hud, OrvRenderer* renderer) : m_hud(hud), m_renderer(renderer) {}

    // Does what falls due in the `seconds` since the last call.
    void Advance(float seconds);

private:
    struct Step
    {
        float time;
        // "point" at the widget of that text, "click", or "type" the text.
        const char* action;
        const char* text;
    };

    void PointAt(const OrvWidget* widget) const;
    static void Click();
    static void Type(const char* text);

    GameHud* m_hud;
    OrvRenderer* m_renderer;
    float m_time = 0.0f;
    unsigned int m_step = 0;
};

#endif

#ifndef TARNWICK_DEMO_SCRIPT_H
#define TARNWICK_DEMO_SCRIPT_H

#include <string>

class OrvWidget;
class TarnwickGame;

// The scripted demo: a fixed sequence of input pushed into SDL, as a player's
// would arrive. The hero walks right and down for the first gems, then is sent
// across the field by a click; Escape pauses, the pointer rests on Options
// until its sub-menu opens and turns the sound off, then clicks Resume. When
// the round is over it types "Ar", takes the proposed name with Tab and keeps
// it with Return. Screenshots are taken on the way. Once the script's turns
// are over and the table shows, Space starts another round and the script
// plays again from its start, so a run of any length keeps going through the
// round, the menu, the name field and the table. It moves the system pointer:
// it is meant for runs without a player.
class DemoScript
{
public:
    // Turns in one pass of the script, from a round's start to the next.
    static constexpr unsigned int kPassTurns = 520;

    explicit DemoScript(TarnwickGame* game) : m_game(game) {}

    // What falls due before turn `turn` runs.
    void BeforeTurn(unsigned int turn);

private:
    void Play(unsigned int turn);
    void Name(unsigned int sinceEnd);
    void PointAt(const OrvWidget* widget) const;
    void PointAtField(float x, float y) const;
    static void Key(int key, unsigned short character, bool down);
    static void Type(int key, unsigned short character);
    static void Click();

    TarnwickGame* m_game;
    // The turn the current pass started at.
    unsigned int m_passStart = 0;
    // The turn in which the pass's round was seen over; 0 until then.
    unsigned int m_roundOver = 0;
};

#endif

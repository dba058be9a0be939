#ifndef TARNWICK_CREATURE_STATES_H
#define TARNWICK_CREATURE_STATES_H

#include <OrvEngine/OrvGameAssetState.h>

class Creature;

// What the creatures' states share: their creature, nothing to undo on
// leaving, no message heard unless a state says so.
class CreatureState : public OrvGameAssetState
{
public:
    explicit CreatureState(Creature* creature);
    void Exit() override {}
    bool OnMessage(OrvMessage*) override { return false; }

protected:
    Creature* m_creature;
};

// Wanders; a prowler that sees the hero (or hears an "alert") chases it, a
// skitter that sees it escapes.
class Wandering : public CreatureState
{
public:
    using CreatureState::CreatureState;
    void Enter() override;
    void Execute(float seconds) override;
    bool OnMessage(OrvMessage* message) override;
};

// A prowler pursuing the hero until it loses sight of it. On entering it
// calls the other prowlers: an "alert" reaches them a second later.
class Chasing : public CreatureState
{
public:
    using CreatureState::CreatureState;
    void Enter() override;
    void Execute(float seconds) override;
};

// A skitter evading the hero until it is far enough.
class Escaping : public CreatureState
{
public:
    using CreatureState::CreatureState;
    void Enter() override;
    void Execute(float seconds) override;
};

// A prowler that caught the hero flees from it until its own "calm" message
// comes back two seconds later.
class Recovering : public CreatureState
{
public:
    using CreatureState::CreatureState;
    void Enter() override;
    void Execute(float) override {}
    bool OnMessage(OrvMessage* message) override;
};

#endif

#ifndef TARNWICK_CREATURE_STATES_H
#define TARNWICK_CREATURE_STATES_H

#include "OrvGameAssetState.h"

class Creature;

// Wanders; a prowler that sees the hero (or hears an "alert") chases it, a
// skitter that sees it escapes.
class Wandering : public OrvGameAssetState
{
public:
    explicit Wandering(Creature* creature);
    void Enter() override;
    void Execute(float seconds) override;
    void Exit() override {}
    bool OnMessage(OrvMessage* message) override;

private:
    Creature* m_creature;
};

// A prowler pursuing the hero, until it loses sight of it.
class Chasing : public OrvGameAssetState
{
public:
    explicit Chasing(Creature* creature);
    // Calls the other prowlers: an "alert" reaches them a second later.
    void Enter() override;
    void Execute(float seconds) override;
    void Exit() override {}
    bool OnMessage(OrvMessage*) override { return false; }

private:
    Creature* m_creature;
};

// A skitter evading the hero, until it is far enough.
class Escaping : public OrvGameAssetState
{
public:
    explicit Escaping(Creature* creature);
    void Enter() override;
    void Execute(float seconds) override;
    void Exit() override {}
    bool OnMessage(OrvMessage*) override { return false; }

private:
    Creature* m_creature;
};

// A prowler that caught the hero flees from it until its own "calm" message
// comes back two seconds later.
class Recovering : public OrvGameAssetState
{
public:
    explicit Recovering(Creature* creature);
    void Enter() override;
    void Execute(float seconds) override;
    void Exit() override {}
    bool OnMessage(OrvMessage* message) override;

private:
    Creature* m_creature;
};

#endif

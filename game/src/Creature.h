#ifndef TARNWICK_CREATURE_H
#define TARNWICK_CREATURE_H

#include "Actor.h"
#include <OrvEngine/OrvSteeringBehaviorEvade.h>
#include <OrvEngine/OrvSteeringBehaviorFlee.h>
#include <OrvEngine/OrvSteeringBehaviorPursuit.h>
#include <OrvEngine/OrvSteeringBehaviorWander.h>

class Hero;

// A creature of the field, driven by its state machine. Prowlers wander,
// pursue the hero once they see it (and call the other prowlers with a
// message that arrives a second later), and flee for a while after they
// caught it. Skitters wander and evade the hero when it comes near.
class Creature : public Actor
{
public:
    enum Kind
    {
        PROWLER,
        SKITTER
    };

    Creature();
    ~Creature() override;

    void Update(float seconds) override;

    // Its kind and its prey or threat; it plays its animation and starts wandering.
    void Setup(Kind kind, Hero* hero);
    Kind GetKind() const { return m_kind; }
    Hero* GetHero() const { return m_hero; }
    float DistanceToHero() const;

    // The behaviour that steers it from now on.
    void Steer(OrvSteeringBehavior* behavior);
    OrvSteeringBehaviorWander* GetWander() { return &m_wander; }
    OrvSteeringBehaviorPursuit* GetPursuit() { return &m_pursuit; }
    OrvSteeringBehaviorEvade* GetEvade() { return &m_evade; }
    OrvSteeringBehaviorFlee* GetFlee() { return &m_flee; }

    enum Mode
    {
        WANDERING,
        CHASING,
        ESCAPING,
        RECOVERING
    };
    // Asks its state machine for a new state of that mode; a change asked for
    // earlier in the turn is dropped. The states are the creature's own (it
    // never registers them): the machine destroys the state two changes back,
    // the creature those still in use when it goes.
    void Become(Mode mode);
    Mode GetMode() const { return m_mode; }

private:
    Kind m_kind = PROWLER;
    Mode m_mode = WANDERING;
    Hero* m_hero = nullptr;
    OrvSteeringBehaviorWander m_wander;
    OrvSteeringBehaviorPursuit m_pursuit;
    OrvSteeringBehaviorEvade m_evade;
    OrvSteeringBehaviorFlee m_flee;
};

#endif

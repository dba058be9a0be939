#include "Creature.h"

#include "CreatureStates.h"
#include "Hero.h"
#include <OrvEngine/OrvSteeringBehaviors.h>

Creature::Creature() = default;

// The behaviours leave the combiner as they go; the state machine deletes its states.
Creature::~Creature()
{
    // The machine destroys only the states registered with it: the current,
    // previous and requested states are the creature's.
    OrvTStateMachine<OrvGameAsset>* machine = GetStateMachine();
    if (machine == nullptr)
        return;
    OrvTState<OrvGameAsset>* states[3] = {machine->GetCurrentState(), machine->GetPreviousState(),
                                          machine->GetNextState()};
    for (int i = 0; i < 3; ++i)
    {
        bool seen = false;
        for (int j = 0; j < i; ++j)
            seen = seen || states[j] == states[i];
        if (!seen)
            delete states[i];
    }
}

void Creature::Setup(Kind kind, Hero* hero)
{
    m_kind = kind;
    m_hero = hero;
    m_pursuit.SetEvader(hero);
    m_evade.AddPursurer(hero);
    m_evade.SetFriendlyDistance(260.0f);
    m_flee.SetPanicDistanceSqr(400.0f * 400.0f);
    m_wander.SetWanderJitter(2.0f);
    Play(kind == PROWLER ? "prowler" : "skitter", false);
    Become(WANDERING);
}

void Creature::Update(float seconds)
{
    if (m_kind == PROWLER)
        m_flee.SetTarget(m_hero->GetPosition());
    Actor::Update(seconds);
    KeepOnField();
}

float Creature::DistanceToHero() const
{
    return (m_hero->GetPosition() - GetPosition()).Length();
}

void Creature::Steer(OrvSteeringBehavior* behavior)
{
    GetSteeringBehaviors()->RemoveAllSteeringBehaviors();
    GetSteeringBehaviors()->AddSteeringBehavior(behavior);
}

void Creature::Become(Mode mode)
{
    OrvTStateMachine<OrvGameAsset>* machine = GetStateMachine();
    // A pending state is one of ours, made for this change and never entered.
    OrvTState<OrvGameAsset>* pending = machine->GetNextState();
    switch (mode)
    {
    case WANDERING: machine->RequestState(new Wandering(this)); break;
    case CHASING: machine->RequestState(new Chasing(this)); break;
    case ESCAPING: machine->RequestState(new Escaping(this)); break;
    case RECOVERING: machine->RequestState(new Recovering(this)); break;
    }
    delete pending;
    m_mode = mode;
}

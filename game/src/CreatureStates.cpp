#include "CreatureStates.h"

#include "Creature.h"
#include <OrvEngine/OrvMessage.h>
#include <OrvEngine/OrvMessageManager.h>

namespace
{
// How far the creatures see the hero, and how far it must be for them to forget it.
const float kSight = 190.0f;
const float kForget = 330.0f;
}  // namespace

CreatureState::CreatureState(Creature* creature) : OrvGameAssetState(creature), m_creature(creature) {}

void Wandering::Enter()
{
    m_creature->Steer(m_creature->GetWander());
}

void Wandering::Execute(float)
{
    if (m_creature->DistanceToHero() > kSight)
        return;
    m_creature->Become(m_creature->GetKind() == Creature::PROWLER ? Creature::CHASING : Creature::ESCAPING);
}

bool Wandering::OnMessage(OrvMessage* message)
{
    if (!(message->GetMessage() == "alert") || m_creature->GetKind() != Creature::PROWLER)
        return false;
    m_creature->Become(Creature::CHASING);
    return true;
}

void Chasing::Enter()
{
    m_creature->Steer(m_creature->GetPursuit());
    OrvMessageManager* messages = m_creature->GetGameAssetManager()->GetApplication()->GetMessageManager();
    for (OrvGameAsset* other : m_creature->GetParent()->GetChildren())
    {
        Creature* prowler = dynamic_cast<Creature*>(other);
        if (prowler != nullptr && prowler != m_creature && prowler->GetKind() == Creature::PROWLER)
            messages->SendMessage(m_creature, prowler, "alert", nullptr, 1);
    }
}

void Chasing::Execute(float)
{
    if (m_creature->DistanceToHero() > kForget)
        m_creature->Become(Creature::WANDERING);
}

void Escaping::Enter()
{
    m_creature->Steer(m_creature->GetEvade());
}

void Escaping::Execute(float)
{
    if (m_creature->DistanceToHero() > kForget)
        m_creature->Become(Creature::WANDERING);
}

void Recovering::Enter()
{
    m_creature->Steer(m_creature->GetFlee());
    OrvMessageManager* messages = m_creature->GetGameAssetManager()->GetApplication()->GetMessageManager();
    messages->SendMessage(m_creature, m_creature, "calm", nullptr, 2);
}

bool Recovering::OnMessage(OrvMessage* message)
{
    if (!(message->GetMessage() == "calm"))
        return false;
    m_creature->Become(Creature::WANDERING);
    return true;
}

#include "OrvSteeringBehaviors.h"

#include "OrvSteeringBehavior.h"

OrvSteeringBehaviors::OrvSteeringBehaviors(OrvMovingGameAsset* owner) : m_owner(owner) {}

OrvSteeringBehaviors::~OrvSteeringBehaviors()
{
    RemoveAllSteeringBehaviors();
}

void OrvSteeringBehaviors::AddSteeringBehavior(OrvSteeringBehavior* behavior)
{
    if (behavior == nullptr || m_behaviors.Contains(behavior))
        return;
    m_behaviors.Add(behavior);
    behavior->SetSteeringBehaviors(this);
}

void OrvSteeringBehaviors::RemoveSteeringBehavior(OrvSteeringBehavior* behavior)
{
    const int index = m_behaviors.Find(behavior);
    if (index < 0)
        return;
    m_behaviors.RemoveIndex(static_cast<unsigned int>(index));
    behavior->SetSteeringBehaviors(nullptr);
}

void OrvSteeringBehaviors::RemoveAllSteeringBehaviors()
{
    while (m_behaviors.GetCount() > 0)
    {
        const unsigned int last = m_behaviors.GetCount() - 1;
        m_behaviors[last]->SetSteeringBehaviors(nullptr);
        m_behaviors.RemoveIndex(last);
    }
}

OrvVector3D OrvSteeringBehaviors::Compute()
{
    OrvVector3D force(0.0f, 0.0f, 0.0f);
    for (OrvSteeringBehavior* behavior : m_behaviors)
        force += behavior->Compute();
    return force;
}

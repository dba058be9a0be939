#include "OrvSteeringBehaviorEvade.h"

#include "OrvMovingGameAsset.h"
#include "OrvSteeringBehaviorFlee.h"
#include "OrvSteeringBehaviorStop.h"

OrvSteeringBehaviorEvade::OrvSteeringBehaviorEvade()
    : m_friendlyDistance(200.0f), m_flee(new OrvSteeringBehaviorFlee()), m_stop(new OrvSteeringBehaviorStop())
{
    m_flee->SetPanicDistanceSqr(40000.0f);
    m_stop->SetStopDeceleration(0.3f);
}

OrvSteeringBehaviorEvade::~OrvSteeringBehaviorEvade()
{
    delete m_flee;
    delete m_stop;
}

void OrvSteeringBehaviorEvade::SetSteeringBehaviors(OrvSteeringBehaviors* behaviors)
{
    OrvSteeringBehavior::SetSteeringBehaviors(behaviors);
    m_flee->SetSteeringBehaviors(behaviors);
    m_stop->SetSteeringBehaviors(behaviors);
}

void OrvSteeringBehaviorEvade::SetFriendlyDistance(float distance)
{
    m_friendlyDistance = distance;
    m_flee->SetPanicDistanceSqr(distance * distance);
}

void OrvSteeringBehaviorEvade::AddPursurer(OrvMovingGameAsset* pursuer)
{
    if (!m_pursuers.Contains(pursuer))
        m_pursuers.Add(pursuer);
}

OrvVector3D OrvSteeringBehaviorEvade::Compute()
{
    const OrvMovingGameAsset* owner = Owner();
    OrvVector3D sum(0.0f, 0.0f, 0.0f);
    if (owner == nullptr)
        return sum;
    for (const OrvMovingGameAsset* pursuer : m_pursuers)
    {
        const float distance = (pursuer->GetPosition() - owner->GetPosition()).Length();
        if (distance >= m_friendlyDistance)
            continue;
        const float lookAhead = distance / (owner->GetMaxSpeed() + pursuer->GetVelocity().Length());
        m_flee->SetTarget(pursuer->GetPosition() + pursuer->GetVelocity() * lookAhead);
        sum += m_flee->Compute();
    }
    if (sum != OrvVector3D(0.0f, 0.0f, 0.0f))
        return sum;
    return m_stop->Compute();
}

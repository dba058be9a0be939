#include "OrvSteeringBehaviorPursuit.h"

#include "OrvMovingGameAsset.h"
#include "OrvSteeringBehaviorArrive.h"

OrvSteeringBehaviorPursuit::OrvSteeringBehaviorPursuit() : m_evader(nullptr), m_arrive(new OrvSteeringBehaviorArrive()) {}

OrvSteeringBehaviorPursuit::~OrvSteeringBehaviorPursuit()
{
    delete m_arrive;
}

void OrvSteeringBehaviorPursuit::SetSteeringBehaviors(OrvSteeringBehaviors* behaviors)
{
    OrvSteeringBehavior::SetSteeringBehaviors(behaviors);
    m_arrive->SetSteeringBehaviors(behaviors);
}

OrvVector3D OrvSteeringBehaviorPursuit::Compute()
{
    const OrvMovingGameAsset* owner = Owner();
    if (owner == nullptr || m_evader == nullptr)
        return OrvVector3D(0.0f, 0.0f, 0.0f);
    const OrvVector3D evaderPosition = m_evader->GetPosition();
    const OrvVector3D toEvader = evaderPosition - owner->GetPosition();
    const OrvVector3D heading = owner->GetDirection();
    const bool headOn = toEvader.Dot(heading) > 0.0f &&
                        static_cast<double>(heading.Dot(m_evader->GetDirection())) < -0.94;
    if (headOn)
        m_arrive->SetTarget(evaderPosition);
    else
    {
        const float lookAhead = toEvader.Length() / (owner->GetMaxSpeed() + m_evader->GetVelocity().Length()) +
                                owner->CalculateTurningTime(evaderPosition);
        m_arrive->SetTarget(evaderPosition + m_evader->GetVelocity() * lookAhead);
    }
    return m_arrive->Compute();
}

#include "OrvSteeringBehaviorArrive.h"

#include "OrvMovingGameAsset.h"

OrvSteeringBehaviorArrive::OrvSteeringBehaviorArrive() : m_target(0.0f, 0.0f, 0.0f), m_deceleration(0.3f) {}

OrvSteeringBehaviorArrive::~OrvSteeringBehaviorArrive() = default;

OrvVector3D OrvSteeringBehaviorArrive::Compute()
{
    const OrvMovingGameAsset* owner = Owner();
    if (owner == nullptr)
        return OrvVector3D(0.0f, 0.0f, 0.0f);
    OrvVector3D toTarget = m_target - owner->GetPosition();
    float distance = 0.0f;
    if (toTarget != OrvVector3D(0.0f, 0.0f, 0.0f))
    {
        distance = toTarget.Length();
        toTarget.Normalize();
    }
    if (distance <= 0.0f)
        return OrvVector3D(0.0f, 0.0f, 0.0f);
    return Towards(toTarget * (distance / m_deceleration));
}

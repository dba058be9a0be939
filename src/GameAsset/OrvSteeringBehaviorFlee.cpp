#include "OrvSteeringBehaviorFlee.h"

#include "OrvMovingGameAsset.h"

OrvSteeringBehaviorFlee::OrvSteeringBehaviorFlee() : m_target(0.0f, 0.0f, 0.0f), m_panicDistanceSquared(10000.0f) {}

OrvSteeringBehaviorFlee::~OrvSteeringBehaviorFlee() = default;

OrvVector3D OrvSteeringBehaviorFlee::Compute()
{
    const OrvMovingGameAsset* owner = Owner();
    if (owner == nullptr)
        return OrvVector3D(0.0f, 0.0f, 0.0f);
    const OrvVector3D away = owner->GetPosition() - m_target;
    if (away.LengthSquared() > m_panicDistanceSquared)
        return OrvVector3D(0.0f, 0.0f, 0.0f);
    return Towards(away.NormalizedVector() * owner->GetMaxSpeed());
}

#include "OrvSteeringBehaviorSeek.h"

#include "OrvMovingGameAsset.h"

OrvSteeringBehaviorSeek::OrvSteeringBehaviorSeek() : m_target(0.0f, 0.0f, 0.0f) {}

OrvSteeringBehaviorSeek::~OrvSteeringBehaviorSeek() = default;

OrvVector3D OrvSteeringBehaviorSeek::Compute()
{
    const OrvMovingGameAsset* owner = Owner();
    if (owner == nullptr)
        return OrvVector3D(0.0f, 0.0f, 0.0f);
    return Towards((m_target - owner->GetPosition()).NormalizedVector() * owner->GetMaxSpeed());
}

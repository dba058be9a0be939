#include "OrvSteeringBehaviorStop.h"

#include "OrvMovingGameAsset.h"

OrvSteeringBehaviorStop::OrvSteeringBehaviorStop() : m_deceleration(0.9f) {}

OrvSteeringBehaviorStop::~OrvSteeringBehaviorStop() = default;

OrvVector3D OrvSteeringBehaviorStop::Compute()
{
    const OrvMovingGameAsset* owner = Owner();
    if (owner == nullptr)
        return OrvVector3D(0.0f, 0.0f, 0.0f);
    OrvVector3D back = OrvVector3D(0.0f, 0.0f, 0.0f) - owner->GetVelocity();
    if (back == OrvVector3D(0.0f, 0.0f, 0.0f))
        return back;
    const float speed = back.Length();
    back.Normalize();
    return back * (speed * m_deceleration + owner->GetMinSpeed());
}

#include "OrvSteeringBehavior.h"

#include "OrvMovingGameAsset.h"
#include "OrvSteeringBehaviors.h"

OrvSteeringBehavior::OrvSteeringBehavior() : m_steeringBehaviors(nullptr) {}

OrvSteeringBehavior::~OrvSteeringBehavior()
{
    // A behaviour the game destroys leaves its combiner first.
    if (m_steeringBehaviors != nullptr)
        m_steeringBehaviors->RemoveSteeringBehavior(this);
}

void OrvSteeringBehavior::SetSteeringBehaviors(OrvSteeringBehaviors* behaviors)
{
    m_steeringBehaviors = behaviors;
}

OrvMovingGameAsset* OrvSteeringBehavior::Owner() const
{
    return m_steeringBehaviors != nullptr ? m_steeringBehaviors->GetOwner() : nullptr;
}

OrvVector3D OrvSteeringBehavior::Towards(const OrvVector3D& desired) const
{
    return desired - Owner()->GetVelocity();
}

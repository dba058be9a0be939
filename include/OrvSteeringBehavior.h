#ifndef ORV_STEERING_BEHAVIOR_H
#define ORV_STEERING_BEHAVIOR_H

#include "OrvVector3D.h"

class OrvMovingGameAsset;
class OrvSteeringBehaviors;

/// A force pushing a moving asset towards a goal, computed once a turn while
/// the behaviour is attached to the asset's combiner. A detached behaviour
/// (no owner) computes no force. Behaviours are not copied.
class OrvSteeringBehavior
{
public:
    OrvSteeringBehavior();
    OrvSteeringBehavior(const OrvSteeringBehavior&) = delete;
    OrvSteeringBehavior& operator=(const OrvSteeringBehavior&) = delete;
    virtual ~OrvSteeringBehavior();

    virtual OrvVector3D Compute() = 0;
    /// Composites pass the combiner on to their inner behaviours.
    virtual void SetSteeringBehaviors(OrvSteeringBehaviors* behaviors);
    OrvSteeringBehaviors* GetSteeringBehaviors() const { return m_steeringBehaviors; }

protected:
    /// The moving asset of the combiner, or null when detached.
    OrvMovingGameAsset* Owner() const;
    /// The desired velocity minus the owner's velocity.
    OrvVector3D Towards(const OrvVector3D& desired) const;

    OrvSteeringBehaviors* m_steeringBehaviors;
};

#endif

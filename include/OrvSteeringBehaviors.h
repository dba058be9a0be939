#ifndef ORV_STEERING_BEHAVIORS_H
#define ORV_STEERING_BEHAVIORS_H

#include "OrvTObjectArray.h"
#include "OrvVector3D.h"

class OrvMovingGameAsset;
class OrvSteeringBehavior;

/// The steering behaviours of one moving asset (not owned: the game owns
/// them); their forces are summed in the order they were added.
class OrvSteeringBehaviors
{
public:
    explicit OrvSteeringBehaviors(OrvMovingGameAsset* owner);
    OrvSteeringBehaviors(const OrvSteeringBehaviors&) = delete;
    OrvSteeringBehaviors& operator=(const OrvSteeringBehaviors&) = delete;
    /// Detaches what is still attached.
    virtual ~OrvSteeringBehaviors();

    OrvMovingGameAsset* GetOwner() const { return m_owner; }
    /// Once: a behaviour already there is ignored.
    void AddSteeringBehavior(OrvSteeringBehavior* behavior);
    void RemoveSteeringBehavior(OrvSteeringBehavior* behavior);
    void RemoveAllSteeringBehaviors();
    unsigned int GetSteeringBehaviorCount() const { return m_behaviors.GetCount(); }
    /// The plain sum of the behaviours' forces: no weights, no truncation.
    OrvVector3D Compute();

private:
    OrvMovingGameAsset* m_owner;
    OrvTObjectArray<OrvSteeringBehavior*> m_behaviors;
};

#endif

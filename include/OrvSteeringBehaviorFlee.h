#ifndef ORV_STEERING_BEHAVIOR_FLEE_H
#define ORV_STEERING_BEHAVIOR_FLEE_H

#include "OrvSteeringBehavior.h"

/// Full speed away from the target while it is within the panic distance.
class OrvSteeringBehaviorFlee : public OrvSteeringBehavior
{
public:
    OrvSteeringBehaviorFlee();
    ~OrvSteeringBehaviorFlee() override;

    OrvVector3D Compute() override;
    void SetTarget(const OrvVector3D& target) { m_target = target; }
    const OrvVector3D& GetTarget() const { return m_target; }
    /// A squared distance, stored as given.
    void SetPanicDistanceSqr(float distanceSquared) { m_panicDistanceSquared = distanceSquared; }
    float GetPanicDistanceSqr() const { return m_panicDistanceSquared; }

private:
    OrvVector3D m_target;
    float m_panicDistanceSquared;
};

#endif

#ifndef ORV_STEERING_BEHAVIOR_ARRIVE_H
#define ORV_STEERING_BEHAVIOR_ARRIVE_H

#include "OrvSteeringBehavior.h"

/// Towards the target, slowing down as it gets near: the desired speed is the
/// distance divided by the deceleration (not capped).
class OrvSteeringBehaviorArrive : public OrvSteeringBehavior
{
public:
    OrvSteeringBehaviorArrive();
    ~OrvSteeringBehaviorArrive() override;

    OrvVector3D Compute() override;
    void SetTarget(const OrvVector3D& target) { m_target = target; }
    const OrvVector3D& GetTarget() const { return m_target; }
    void SetArriveDeceleration(float deceleration) { m_deceleration = deceleration; }
    float GetArriveDeceleration() const { return m_deceleration; }

private:
    OrvVector3D m_target;
    float m_deceleration;
};

#endif

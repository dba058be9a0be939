#ifndef ORV_STEERING_BEHAVIOR_WANDER_H
#define ORV_STEERING_BEHAVIOR_WANDER_H

#include "OrvSteeringBehavior.h"

/// A random walk: a target on a circle ahead of the asset (along world X)
/// jitters a little every turn.
class OrvSteeringBehaviorWander : public OrvSteeringBehavior
{
public:
    OrvSteeringBehaviorWander();
    ~OrvSteeringBehaviorWander() override;

    /// Draws two numbers with rand(): the first moves the target in y, the second in x.
    OrvVector3D Compute() override;
    void SetWanderDistance(float distance) { m_distance = distance; }
    void SetWanderRadius(float radius) { m_radius = radius; }
    void SetWanderJitter(float jitter) { m_jitter = jitter; }
    const OrvVector3D& GetWanderTarget() const { return m_target; }

private:
    float m_distance;
    float m_radius;
    float m_jitter;
    OrvVector3D m_target;
};

#endif

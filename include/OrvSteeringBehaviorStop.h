#ifndef ORV_STEERING_BEHAVIOR_STOP_H
#define ORV_STEERING_BEHAVIOR_STOP_H

#include "OrvSteeringBehavior.h"

/// Against the current velocity, harder the faster the asset goes.
class OrvSteeringBehaviorStop : public OrvSteeringBehavior
{
public:
    OrvSteeringBehaviorStop();
    ~OrvSteeringBehaviorStop() override;

    OrvVector3D Compute() override;
    void SetStopDeceleration(float deceleration) { m_deceleration = deceleration; }
    float GetStopDeceleration() const { return m_deceleration; }

private:
    float m_deceleration;
};

#endif

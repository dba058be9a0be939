#ifndef ORV_STEERING_BEHAVIOR_SEEK_H
#define ORV_STEERING_BEHAVIOR_SEEK_H

#include "OrvSteeringBehavior.h"

/// Full speed towards the target.
class OrvSteeringBehaviorSeek : public OrvSteeringBehavior
{
public:
    OrvSteeringBehaviorSeek();
    ~OrvSteeringBehaviorSeek() override;

    OrvVector3D Compute() override;
    void SetTarget(const OrvVector3D& target) { m_target = target; }
    const OrvVector3D& GetTarget() const { return m_target; }

private:
    OrvVector3D m_target;
};

#endif

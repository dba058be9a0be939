#ifndef ORV_STEERING_BEHAVIOR_PURSUIT_H
#define ORV_STEERING_BEHAVIOR_PURSUIT_H

#include "OrvSteeringBehavior.h"

class OrvSteeringBehaviorArrive;

/// Towards where the evader will be: its position ahead by its velocity times
/// the time to reach it (and to turn). An evader coming head-on is aimed at
/// where it is.
class OrvSteeringBehaviorPursuit : public OrvSteeringBehavior
{
public:
    OrvSteeringBehaviorPursuit();
    /// Deletes the inner arrive.
    ~OrvSteeringBehaviorPursuit() override;

    /// No force without an evader.
    OrvVector3D Compute() override;
    void SetSteeringBehaviors(OrvSteeringBehaviors* behaviors) override;
    void SetEvader(OrvMovingGameAsset* evader) { m_evader = evader; }
    OrvMovingGameAsset* GetEvader() const { return m_evader; }
    OrvSteeringBehaviorArrive* GetArrive() const { return m_arrive; }

private:
    OrvMovingGameAsset* m_evader;
    OrvSteeringBehaviorArrive* m_arrive;
};

#endif

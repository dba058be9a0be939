#ifndef ORV_STEERING_BEHAVIOR_EVADE_H
#define ORV_STEERING_BEHAVIOR_EVADE_H

#include "OrvSteeringBehavior.h"

#include "OrvTObjectArray.h"

class OrvSteeringBehaviorFlee;
class OrvSteeringBehaviorStop;

/// Away from where each pursuer within the friendly distance will be; with none
/// near, the asset comes to rest.
class OrvSteeringBehaviorEvade : public OrvSteeringBehavior
{
public:
    OrvSteeringBehaviorEvade();
    /// Deletes the inner flee and stop.
    ~OrvSteeringBehaviorEvade() override;

    OrvVector3D Compute() override;
    void SetSteeringBehaviors(OrvSteeringBehaviors* behaviors) override;
    /// Also the inner flee's panic distance, squared.
    void SetFriendlyDistance(float distance);
    float GetFriendlyDistance() const { return m_friendlyDistance; }
    /// Once.
    void AddPursurer(OrvMovingGameAsset* pursuer);
    unsigned int GetPursuerCount() const { return m_pursuers.GetCount(); }
    OrvSteeringBehaviorFlee* GetFlee() const { return m_flee; }
    OrvSteeringBehaviorStop* GetStop() const { return m_stop; }

private:
    float m_friendlyDistance;
    OrvSteeringBehaviorFlee* m_flee;
    OrvSteeringBehaviorStop* m_stop;
    OrvTObjectArray<OrvMovingGameAsset*> m_pursuers;
};

#endif

#ifndef ORV_MOVING_GAME_ASSET_H
#define ORV_MOVING_GAME_ASSET_H

#include "OrvGameAsset.h"

struct OrvMovingGameAssetDesc;
class OrvSteeringBehaviors;

/// A game asset that moves by itself: every turn, while enabled, the sum of its
/// steering behaviours' forces, divided by its mass, changes its velocity
/// (never above the max speed); a speed at or below the min speed counts as
/// standing still, and the heading then keeps its last value. Moving assets are
/// not copied.
class OrvMovingGameAsset : public OrvGameAsset
{
public:
    OrvMovingGameAsset();
    /// Deletes the combiner, not the behaviours in it.
    ~OrvMovingGameAsset() override;

    void Update(float seconds) override;
    void Render() override;
    void RenderElements() const override;
    using OrvGameAsset::Create;
    /// The base creation, the five parameters, no velocity, a new combiner.
    virtual void Create(OrvMovingGameAssetDesc* desc);

    /// 0 for a target straight ahead, the max turn rate for one straight behind.
    float CalculateTurningTime(const OrvVector3D& targetPosition) const;

    float GetMass() const { return m_mass; }
    float GetMaxSpeed() const { return m_maxSpeed; }
    void SetMaxSpeed(float speed) { m_maxSpeed = speed; }
    float GetMinSpeed() const { return m_minSpeed; }
    float GetMaxForce() const { return m_maxForce; }
    float GetMaxTurnRate() const { return m_maxTurnRate; }
    OrvVector3D GetVelocity() const { return m_velocity; }
    void SetVelocity(const OrvVector3D& velocity) { m_velocity = velocity; }
    OrvVector3D GetDirection() const { return m_direction; }
    void SetDirection(const OrvVector3D& direction) { m_direction = direction; }
    OrvVector3D GetSide() const { return m_side; }
    OrvSteeringBehaviors* GetSteeringBehaviors() const { return m_steeringBehaviors; }

protected:
    float m_mass;
    float m_maxSpeed;
    float m_minSpeed;
    float m_maxForce;
    float m_maxTurnRate;
    OrvVector3D m_velocity;
    OrvVector3D m_direction;
    OrvVector3D m_side;
    OrvSteeringBehaviors* m_steeringBehaviors;
};

#endif

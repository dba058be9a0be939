#include "OrvMovingGameAsset.h"

#include "OrvMovingGameAssetDesc.h"
#include "OrvSteeringBehaviors.h"

namespace
{
const OrvVector3D kDown(0.0f, 0.0f, -1.0f);
}

OrvMovingGameAssetDesc::OrvMovingGameAssetDesc()
    : OrvGameAssetDesc(), mass(0.1f), maxSpeed(150.0f), maxForce(0.2f), maxTurnRate(1.0f), minSpeed(10.0f)
{
}

OrvMovingGameAsset::OrvMovingGameAsset()
    : OrvGameAsset(), m_mass(0.1f), m_maxSpeed(150.0f), m_minSpeed(10.0f), m_maxForce(0.2f), m_maxTurnRate(1.0f),
      m_steeringBehaviors(nullptr)
{
}

OrvMovingGameAsset::~OrvMovingGameAsset()
{
    delete m_steeringBehaviors;
}

void OrvMovingGameAsset::Create(OrvMovingGameAssetDesc* desc)
{
    OrvGameAsset::Create(desc);
    m_mass = desc->mass;
    m_maxSpeed = desc->maxSpeed;
    m_minSpeed = desc->minSpeed;
    m_maxForce = desc->maxForce;
    m_maxTurnRate = desc->maxTurnRate;
    m_velocity.Set(0.0f, 0.0f, 0.0f);
    m_direction.Set(0.0f, 0.0f, 0.0f);
    m_side = m_direction.Cross(kDown);
    delete m_steeringBehaviors;
    m_steeringBehaviors = new OrvSteeringBehaviors(this);
}

void OrvMovingGameAsset::Update(float seconds)
{
    // An asset never created has no combiner, and so no force.
    if (m_enabled && m_steeringBehaviors != nullptr)
    {
        const OrvVector3D acceleration = m_steeringBehaviors->Compute() / m_mass;
        m_velocity += acceleration * seconds;
        m_velocity.Truncate(m_maxSpeed);
        if (m_velocity.LengthSquared() <= m_minSpeed * m_minSpeed)
            m_velocity.Set(0.0f, 0.0f, 0.0f);
        else
        {
            m_direction = m_velocity.NormalizedVector();
            m_side = m_direction.Cross(kDown);
        }
        SetPosition(m_position + m_velocity * seconds);
    }
    OrvGameAsset::Update(seconds);
}

void OrvMovingGameAsset::Render()
{
    OrvGameAsset::Render();
}

void OrvMovingGameAsset::RenderElements() const
{
    OrvGameAsset::RenderElements();
}

float OrvMovingGameAsset::CalculateTurningTime(const OrvVector3D& targetPosition) const
{
    const OrvVector3D toTarget = (targetPosition - m_position).NormalizedVector();
    const float dot = m_direction.Dot(toTarget);
    return (dot - 1.0f) * -(m_maxTurnRate * 0.5f);
}

#include "OrvSteeringBehaviorWander.h"

#include "OrvMovingGameAsset.h"
#include <cstdlib>

OrvSteeringBehaviorWander::OrvSteeringBehaviorWander()
    : m_distance(10.0f), m_radius(10.0f), m_jitter(1.0f), m_target(10.0f, 0.0f, 0.0f)
{
}

OrvSteeringBehaviorWander::~OrvSteeringBehaviorWander() = default;

namespace
{
// -1.00 to 0.99 in steps of 0.01.
float RandomStep()
{
    return static_cast<float>(std::rand() % 200 - 100) / 100.0f;
}
}  // namespace

OrvVector3D OrvSteeringBehaviorWander::Compute()
{
    const float y = RandomStep();
    const float x = RandomStep();
    m_target += OrvVector3D(x * m_jitter, y * m_jitter, 0.0f);
    m_target.Normalize();
    m_target *= m_radius;
    return m_target + OrvVector3D(m_distance, 0.0f, 0.0f);
}

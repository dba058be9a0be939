#include "OrvRay.h"

#include "OrvAxisAlignedBox.h"
#include "OrvException.h"
#include "OrvMatrix.h"
#include "OrvPlane.h"

OrvRay::OrvRay() : m_origin(0.0f, 0.0f, 0.0f), m_direction(0.0f, 0.0f, 0.0f) {}

OrvRay::OrvRay(const OrvVector3D& origin, const OrvVector3D& direction) : m_origin(origin), m_direction(direction)
{
    m_direction.Normalize();
}

OrvRay::~OrvRay() = default;

void OrvRay::SetDirection(const OrvVector3D& direction)
{
    m_direction = direction;
    m_direction.Normalize();
}

void OrvRay::Transform(const OrvMatrix& m)
{
    if (m.GetRowCount() != 4 || m.GetColumnCount() != 4)
        ORV_THROW(OrvException, "You tried to transform a ray with an invalid matrix", "src/Math/OrvRay");
    m_origin.Transform(m, true);
    m_direction.Transform(m, false);
}

bool OrvRay::IsColliding(const OrvPlane& plane, OrvVector3D& point)
{
    const float denominator = m_direction.Dot(plane.GetNormal());
    if (denominator == 0.0f)
        return false;
    const float t = -(m_origin.Dot(plane.GetNormal()) + plane.GetDistance()) / denominator;
    point = m_origin + m_direction * t;
    return true;
}

bool OrvRay::IsColliding(OrvAxisAlignedBox* box, OrvVector3D& point) const
{
    // The plane z = 0: normal (0, 0, -1), distance 0.
    const OrvVector3D normal(0.0f, 0.0f, -1.0f);
    const float denominator = m_direction.Dot(normal);
    if (denominator == 0.0f)
        return false;
    const float t = -m_origin.Dot(normal) / denominator;
    if (t < 0.0f)
        return false;
    const OrvVector3D hit = m_origin + m_direction * t;
    if (box == nullptr || !box->Contains(hit))
        return false;
    point = hit;
    return true;
}

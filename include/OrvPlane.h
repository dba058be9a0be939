#ifndef ORV_PLANE_H
#define ORV_PLANE_H

#include "OrvVector3D.h"

/// The points p with Normal · p + Distance = 0.
class OrvPlane
{
public:
    /// Normal (0, 0, 0), distance 0.
    OrvPlane();
    OrvPlane(float distance, const OrvVector3D& normal);
    OrvPlane(const OrvPlane& other) = default;
    virtual ~OrvPlane();

    OrvPlane& operator=(const OrvPlane& other) = default;

    void SetDistance(float distance) { m_distance = distance; }
    float GetDistance() const { return m_distance; }
    void SetNormal(const OrvVector3D& normal) { m_normal = normal; }
    const OrvVector3D& GetNormal() const { return m_normal; }

private:
    float m_distance;
    OrvVector3D m_normal;
};

#endif

#ifndef ORV_RAY_H
#define ORV_RAY_H

#include "OrvVector3D.h"

class OrvAxisAlignedBox;
class OrvMatrix;
class OrvPlane;

/// A half line from an origin along a direction that is kept normalised (a
/// zero direction stays zero). Used for picking with the cursor.
class OrvRay
{
public:
    OrvRay();
    OrvRay(const OrvVector3D& origin, const OrvVector3D& direction);
    OrvRay(const OrvRay& other) = default;
    virtual ~OrvRay();

    OrvRay& operator=(const OrvRay& other) = default;

    void SetOrigine(const OrvVector3D& origin) { m_origin = origin; }
    const OrvVector3D& GetOrigine() const { return m_origin; }
    /// Normalises.
    void SetDirection(const OrvVector3D& direction);
    const OrvVector3D& GetDirection() const { return m_direction; }

    /// The origin as a point, the direction as a direction (not normalised
    /// again). Throws OrvException unless the matrix is 4×4.
    void Transform(const OrvMatrix& m);
    /// The line meets the plane (behind the origin too): `point` receives the
    /// meeting point. False, `point` untouched, when parallel.
    bool IsColliding(const OrvPlane& plane, OrvVector3D& point);
    /// The ray, in front of its origin, meets the plane z = 0 inside the box's
    /// world corners (X and Y): `point` receives the hit.
    bool IsColliding(OrvAxisAlignedBox* box, OrvVector3D& point) const;

private:
    OrvVector3D m_origin;
    OrvVector3D m_direction;
};

#endif

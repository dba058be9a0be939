#ifndef ORV_VERTEX_H
#define ORV_VERTEX_H

#include "OrvVector2D.h"
#include "OrvVector3D.h"

/// One corner of drawn geometry: position, texture coordinates and normal.
class OrvVertex
{
public:
    /// Position (0, 0, 0), UV (0, 0), normal (0, 1, 0).
    OrvVertex();
    OrvVertex(OrvVector3D position, OrvVector2D uv, OrvVector3D normal);
    OrvVertex(const OrvVertex& other) = default;
    virtual ~OrvVertex();

    OrvVertex& operator=(const OrvVertex& other) = default;

    void SetPosition(const OrvVector3D& position) { m_position = position; }
    const OrvVector3D& GetPosition() const { return m_position; }
    void SetUV(const OrvVector2D& uv) { m_uv = uv; }
    const OrvVector2D& GetUV() const { return m_uv; }
    void SetNormal(const OrvVector3D& normal) { m_normal = normal; }
    const OrvVector3D& GetNormal() const { return m_normal; }

private:
    OrvVector3D m_position;
    OrvVector2D m_uv;
    OrvVector3D m_normal;
};

#endif

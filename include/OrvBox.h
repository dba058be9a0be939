#ifndef ORV_BOX_H
#define ORV_BOX_H

#include "OrvMatrix.h"
#include "OrvVector3D.h"

class OrvColor;
class OrvColorMaterial;
class OrvMaterialShelf;
class OrvRenderer;

/// An oriented box: eight local corner points and their world images under a
/// transform. Point 0 to 3 are the face z = -1 (top-left, top-right,
/// bottom-right, bottom-left, Y up), 4 to 7 the face z = 1 in the same order.
/// Collision and containment work in the XY plane. It draws its edges with a
/// colour material of the application's material shelf, like OrvAxisAlignedBox.
class OrvBox
{
public:
    /// All points at (0, 0, 0) until Reset.
    explicit OrvBox(OrvRenderer* renderer);
    OrvBox(const OrvBox&) = delete;
    /// Copies renderer, axes and direction minima and maxima only.
    OrvBox& operator=(const OrvBox& other);
    virtual ~OrvBox();

    /// The unit corners (-1..1), identity transform, world points = local points.
    void Reset();
    /// Moves the world points by `m`; nothing when `m` is the stored transform.
    void Transform(const OrvMatrix& m);
    void RefreshWorldPoints();
    /// Local point i, 0 to 7.
    const OrvVector3D& GetPoint(unsigned int index) const { return m_points[index & 7]; }
    const OrvVector3D& GetWorldPoint(unsigned int index) const { return m_worldPoints[index & 7]; }
    /// Edge i (0 to 3) is world point i + 1 minus world point i; edge 4 is
    /// point 3 minus point 0; any other (0, 0, 0).
    OrvVector3D GetEdge(unsigned int index) const;
    void ProjectToAxis(const OrvVector3D& axis, float& minimum, float& maximum) const;
    /// Separating axes in the XY plane; touching counts.
    bool IsCollidingWorld(OrvBox* other);
    /// Inside the face of world points 0 to 3 (edges count as inside).
    bool ContainsWorld(const OrvVector3D& point);

    /// Index 0 to 2, else OrvException.
    void SetDirectionAxe(unsigned int index, const OrvVector3D& axis);
    const OrvVector3D& GetDirectionAxe(unsigned int index) const;
    /// Do nothing.
    void SetDirectionMin(unsigned int index, float value, bool refresh);
    void SetDirectionMax(unsigned int index, float value, bool refresh);
    float GetDirectionMin(unsigned int index) const;
    float GetDirectionMax(unsigned int index) const;
    void SetAxeDimension(unsigned int index, float value);
    void SetDimension(const OrvVector3D& dimension) { m_dimension = dimension; }
    const OrvVector3D& GetDimension() const { return m_dimension; }

    void SetPosition(const OrvVector3D& position) { m_position = position; }
    const OrvVector3D& GetPoistion() const { return m_position; }
    void SetScale(const OrvVector3D& scale) { m_scale = scale; }
    const OrvVector3D& GetScale() const { return m_scale; }

    void SetRenderColor(const OrvColor& color);
    OrvColor GetRenderColor() const;
    /// The edges of the local points, inside the current model transform
    /// (segments 4-0 and 6-5 are not drawn).
    void Render();

private:
    void SendPoints(int mode, const unsigned int* indices, unsigned int count);

    OrvRenderer* m_renderer;
    OrvColorMaterial* m_material;
    OrvVector3D m_axes[3];
    OrvVector3D m_dimension;
    float m_directionMin[3];
    float m_directionMax[3];
    OrvVector3D m_position;
    OrvVector3D m_scale;
    OrvVector3D m_points[8];
    OrvVector3D m_worldPoints[8];
    OrvMatrix m_transform;
    OrvMaterialShelf* m_shelf;
};

#endif

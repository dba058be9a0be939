#ifndef ORV_AXIS_ALIGNED_BOX_H
#define ORV_AXIS_ALIGNED_BOX_H

#include "OrvVector3D.h"

class OrvColor;
class OrvColorMaterial;
class OrvMaterialShelf;
class OrvMatrix;
class OrvRenderer;

/// An axis-aligned box: local corners, and world corners after the box's own
/// position and scale. Containment and collision work in the XY plane and ignore
/// Z. A box whose local corners are both (0, 0, 0) is null and collides with
/// nothing. It draws its outline with a colour material of the application's
/// material shelf.
class OrvAxisAlignedBox
{
public:
    /// Takes a colour material from the shelf of the renderer's application
    /// (throws OrvRendererException when that shelf has no renderer). A box
    /// without renderer has no material and draws nothing.
    explicit OrvAxisAlignedBox(OrvRenderer* renderer);
    /// Same renderer and local corners; a material of its own.
    OrvAxisAlignedBox(const OrvAxisAlignedBox& other);
    OrvAxisAlignedBox& operator=(const OrvAxisAlignedBox& other);
    /// Gives the material back to the shelf.
    virtual ~OrvAxisAlignedBox();

    /// Every corner to (0, 0, 0); position and scale stay.
    void Reset();
    bool IsNull() const;
    /// Throws OrvException "Max corner must be bigger" unless minimum <= maximum
    /// in X, Y and Z, and then changes nothing.
    void SetExtents(const OrvVector3D& minimum, const OrvVector3D& maximum);
    /// Neither refreshes the world corners.
    void SetMinimum(const OrvVector3D& minimum);
    void SetMaximum(const OrvVector3D& maximum);
    const OrvVector3D& GetMinimum() const { return m_minimum; }
    const OrvVector3D& GetMaximum() const { return m_maximum; }
    /// Grows the box to hold `point`.
    void Merge(const OrvVector3D& point, bool refresh);

    /// A changed value refreshes the world corners; an equal one does nothing.
    void SetPosition(const OrvVector3D& position);
    const OrvVector3D& GetPosition() const { return m_position; }
    void SetScale(const OrvVector3D& scale);
    const OrvVector3D& GetScale() const { return m_scale; }
    void RefreshWorldMinimum();
    void RefreshWorldMaximum();
    const OrvVector3D& GetWorldMinimum() const { return m_worldMinimum; }
    const OrvVector3D& GetWorldMaximum() const { return m_worldMaximum; }

    /// The local corners become the axis-aligned bounds of the box transformed
    /// by `m` (and of the origin).
    void Transform(const OrvMatrix& m);
    bool Contains(const OrvVector3D& point) const;
    /// Touching counts; Z is not examined.
    bool IsColliding(OrvAxisAlignedBox* other) const;

    void SetRenderColor(const OrvColor& color);
    /// The outline of the local corners at z = minimum Z, inside the current
    /// model transform.
    void Render();

    OrvRenderer* GetRenderer() const { return m_renderer; }
    OrvColorMaterial* GetMaterial() const { return m_material; }

private:
    void TakeMaterial();
    void GiveBackMaterial();

    OrvRenderer* m_renderer;
    OrvColorMaterial* m_material;
    OrvVector3D m_minimum;
    OrvVector3D m_maximum;
    OrvVector3D m_worldMinimum;
    OrvVector3D m_worldMaximum;
    OrvVector3D m_position;
    OrvVector3D m_scale;
    /// Where the material came from and goes back to.
    OrvMaterialShelf* m_shelf;
};

#endif

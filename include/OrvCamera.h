#ifndef ORV_CAMERA_H
#define ORV_CAMERA_H

#include "OrvMatrix.h"
#include "OrvVector2D.h"
#include "OrvVector3D.h"

class OrvApplication;
class OrvPlane;

/// Makes the view and projection of a frame. A camera never turns: it looks
/// down -Z with Y up, and moving it only translates the view. The viewport size
/// is the renderer's at construction and changes only through SetPerspective.
class OrvCamera
{
public:
    /// Nothing but the two positions (0, 0, 0) is set; field of view 45, a
    /// 1 × 1 viewport, near 1 and far 2000000 are our starting values.
    OrvCamera();
    /// The renderer must have been set up: its viewport size is taken.
    explicit OrvCamera(OrvApplication* application);
    /// Also takes `position` as its position and default position.
    OrvCamera(OrvApplication* application, const OrvVector3D& position);
    /// Position and projection values; no application, default position (0, 0, 0).
    OrvCamera(const OrvCamera& other);
    /// Position and projection values; application and default position stay.
    OrvCamera& operator=(const OrvCamera& other);
    virtual ~OrvCamera();

    void SetPerspective(float fovY, unsigned int width, unsigned int height, float zNear, float zFar);
    void SetPosition(const OrvVector3D& position) { m_position = position; }
    const OrvVector3D& GetPosition() const { return m_position; }
    void SetDefaultPosition(const OrvVector3D& position) { m_defaultPosition = position; }
    const OrvVector3D& GetDefaultPosition() const { return m_defaultPosition; }
    void SetToDefaultPosition() { m_position = m_defaultPosition; }

    float GetFOVY() const { return m_fovY; }
    float GetAspectRatio() const { return m_aspectRatio; }
    float GetZNear() const { return m_zNear; }
    float GetZFar() const { return m_zFar; }
    unsigned int GetViewportWidth() const { return m_viewportWidth; }
    unsigned int GetViewportHeight() const { return m_viewportHeight; }

    /// View: minus the position. Projection: the frustum of the field of view.
    void ActivatePerspective();
    /// View: identity. Projection: pixels, origin at the lower left, eye z 0 to -1.
    void ActivateOthographic();
    /// The point of `plane` under the screen point (pixels, origin lower left),
    /// seen from the camera; (0, 0, 0) when the view ray is parallel to it.
    OrvVector3D ComputePickPosition(const OrvVector2D& screen, const OrvPlane& plane) const;

    OrvApplication* GetApplication() const { return m_application; }

private:
    void ComputeAspectRatio();
    /// tan(half the field of view) × near.
    float HalfHeightAtNear() const;

    OrvApplication* m_application;
    OrvVector3D m_defaultPosition;
    OrvVector3D m_position;
    float m_fovY;
    unsigned int m_viewportWidth;
    unsigned int m_viewportHeight;
    float m_aspectRatio;
    float m_zNear;
    float m_zFar;
    /// Built in place at each activation.
    OrvMatrix m_projection;
};

#endif

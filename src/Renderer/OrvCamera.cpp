#include "OrvCamera.h"

#include <cmath>

#include "OrvApplication.h"
#include "OrvPlane.h"
#include "OrvRay.h"
#include "OrvRenderer.h"

namespace
{
// Degrees to radians, as a single-precision constant.
const float kDegreesToRadians = 0.017453292f;
const float kDefaultFOVY = 45.0f;
const float kDefaultNear = 1.0f;
const float kDefaultFar = 2000000.0f;
}  // namespace

OrvCamera::OrvCamera()
    : m_application(nullptr), m_defaultPosition(0.0f, 0.0f, 0.0f), m_position(0.0f, 0.0f, 0.0f),
      m_fovY(kDefaultFOVY), m_viewportWidth(1), m_viewportHeight(1), m_aspectRatio(1.0f), m_zNear(kDefaultNear),
      m_zFar(kDefaultFar)
{
}

OrvCamera::OrvCamera(OrvApplication* application) : OrvCamera()
{
    m_application = application;
    const OrvRenderer* renderer = application != nullptr ? application->GetRenderer() : nullptr;
    if (renderer != nullptr)
    {
        m_viewportWidth = renderer->GetViewportWidth();
        m_viewportHeight = renderer->GetViewportHeight();
    }
    ComputeAspectRatio();
}

OrvCamera::OrvCamera(OrvApplication* application, const OrvVector3D& position) : OrvCamera(application)
{
    m_defaultPosition = position;
    m_position = position;
}

OrvCamera::OrvCamera(const OrvCamera& other) : OrvCamera()
{
    *this = other;
}

OrvCamera& OrvCamera::operator=(const OrvCamera& other)
{
    m_position = other.m_position;
    m_fovY = other.m_fovY;
    m_viewportWidth = other.m_viewportWidth;
    m_viewportHeight = other.m_viewportHeight;
    m_zNear = other.m_zNear;
    m_zFar = other.m_zFar;
    ComputeAspectRatio();
    return *this;
}

OrvCamera::~OrvCamera() = default;

void OrvCamera::ComputeAspectRatio()
{
    m_aspectRatio = m_viewportHeight != 0
                        ? static_cast<float>(static_cast<double>(m_viewportWidth) / static_cast<double>(m_viewportHeight))
                        : 1.0f;
}

void OrvCamera::SetPerspective(float fovY, unsigned int width, unsigned int height, float zNear, float zFar)
{
    m_fovY = fovY;
    m_viewportWidth = width;
    m_viewportHeight = height;
    m_zNear = zNear;
    m_zFar = zFar;
    ComputeAspectRatio();
}

float OrvCamera::HalfHeightAtNear() const
{
    return std::tan(m_fovY * 0.5f * kDegreesToRadians) * m_zNear;
}

void OrvCamera::ActivatePerspective()
{
    OrvRenderer* renderer = m_application->GetRenderer();
    renderer->LoadIdentityMatrix(TRANS_MATRIX_VIEW);
    renderer->TranslateMatrix(TRANS_MATRIX_VIEW, OrvVector3D(-m_position.X, -m_position.Y, -m_position.Z));

    const float top = HalfHeightAtNear();
    const float bottom = -top;
    const float right = top * m_aspectRatio;
    const float left = -right;
    m_projection.Clear();
    m_projection.Set(1, 1, 2.0f * m_zNear / (right - left));
    m_projection.Set(2, 2, 2.0f * m_zNear / (top - bottom));
    m_projection.Set(1, 3, (right + left) / (right - left));
    m_projection.Set(2, 3, (top + bottom) / (top - bottom));
    m_projection.Set(3, 3, (m_zFar + m_zNear) / (m_zNear - m_zFar));
    m_projection.Set(4, 3, -1.0f);
    m_projection.Set(3, 4, 2.0f * m_zFar * m_zNear / (m_zNear - m_zFar));
    renderer->LoadMatrix(TRANS_MATRIX_PROJECTION, m_projection);
}

void OrvCamera::ActivateOthographic()
{
    OrvRenderer* renderer = m_application->GetRenderer();
    renderer->LoadIdentityMatrix(TRANS_MATRIX_VIEW);
    m_projection.Clear();
    m_projection.Set(1, 1, 2.0f / static_cast<float>(m_viewportWidth));
    m_projection.Set(2, 2, 2.0f / static_cast<float>(m_viewportHeight));
    m_projection.Set(3, 3, -2.0f);
    m_projection.Set(1, 4, -1.0f);
    m_projection.Set(2, 4, -1.0f);
    m_projection.Set(3, 4, -1.0f);
    m_projection.Set(4, 4, 1.0f);
    renderer->LoadMatrix(TRANS_MATRIX_PROJECTION, m_projection);
}

OrvVector3D OrvCamera::ComputePickPosition(const OrvVector2D& screen, const OrvPlane& plane) const
{
    const float hw = static_cast<float>(m_viewportWidth) * 0.5f;
    const float hh = static_cast<float>(m_viewportHeight) * 0.5f;
    const float nx = (screen.X - hw) / hw;
    const float ny = (screen.Y - hh) / hh;
    const float th = HalfHeightAtNear();
    OrvRay ray(m_position, OrvVector3D(m_aspectRatio * th * nx, th * ny, -m_zNear));
    OrvVector3D result(0.0f, 0.0f, 0.0f);
    ray.IsColliding(plane, result);
    return result;
}

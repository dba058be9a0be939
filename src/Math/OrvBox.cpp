#include "OrvBox.h"

#include "OrvColorMaterial.h"
#include "OrvException.h"
#include "OrvMaterialShelf.h"
#include "OrvRenderer.h"
#include "OrvVertex.h"

namespace
{
const char* const kSource = "src/Math/OrvBox";

const float kCorners[8][3] = {{-1, 1, -1}, {1, 1, -1}, {1, -1, -1}, {-1, -1, -1},
                              {-1, 1, 1},  {1, 1, 1},  {1, -1, 1},  {-1, -1, 1}};

// (-e.Y, e.X, 0), normalised: the XY normal of an edge.
OrvVector3D EdgeNormal(const OrvVector3D& edge)
{
    OrvVector3D normal(-edge.Y, edge.X, 0.0f);
    normal.Normalize();
    return normal;
}
}  // namespace

OrvBox::OrvBox(OrvRenderer* renderer)
    : m_renderer(renderer), m_material(nullptr), m_dimension(0.0f, 0.0f, 0.0f), m_directionMin{0, 0, 0},
      m_directionMax{0, 0, 0}, m_position(0.0f, 0.0f, 0.0f), m_scale(1.0f, 1.0f, 1.0f),
      m_transform(OrvMatrix::CreateIdentity(4)), m_shelf(nullptr)
{
    m_axes[0].Set(1.0f, 0.0f, 0.0f);
    m_axes[1].Set(0.0f, 1.0f, 0.0f);
    m_axes[2].Set(0.0f, 0.0f, 1.0f);
    if (m_renderer == nullptr)
        return;
    m_shelf = OrvMaterialShelf::FromRenderer(m_renderer);
    m_material = m_shelf->CreateMaterial<OrvColorMaterial>();
}

OrvBox& OrvBox::operator=(const OrvBox& other)
{
    m_renderer = other.m_renderer;
    for (int i = 0; i < 3; ++i)
    {
        m_axes[i] = other.m_axes[i];
        m_directionMin[i] = other.m_directionMin[i];
        m_directionMax[i] = other.m_directionMax[i];
    }
    return *this;
}

OrvBox::~OrvBox()
{
    if (m_shelf != nullptr)
        m_shelf->DestroyMaterial(m_material);
}

void OrvBox::Reset()
{
    m_axes[0].Set(1.0f, 0.0f, 0.0f);
    m_axes[1].Set(0.0f, 1.0f, 0.0f);
    m_axes[2].Set(0.0f, 0.0f, 1.0f);
    for (int i = 0; i < 3; ++i)
    {
        m_directionMin[i] = 0.0f;
        m_directionMax[i] = 0.0f;
    }
    for (int i = 0; i < 8; ++i)
    {
        m_points[i].Set(kCorners[i][0], kCorners[i][1], kCorners[i][2]);
        m_worldPoints[i] = m_points[i];
    }
    m_transform.SetIdentity();
}

void OrvBox::Transform(const OrvMatrix& m)
{
    if (m == m_transform)
        return;
    m_transform = m;
    RefreshWorldPoints();
}

void OrvBox::RefreshWorldPoints()
{
    for (int i = 0; i < 8; ++i)
    {
        m_worldPoints[i] = m_points[i];
        m_worldPoints[i].Transform(m_transform, true);
    }
}

OrvVector3D OrvBox::GetEdge(unsigned int index) const
{
    if (index < 4)
        return m_worldPoints[index + 1] - m_worldPoints[index];
    if (index == 4)
        return m_worldPoints[3] - m_worldPoints[0];
    return OrvVector3D(0.0f, 0.0f, 0.0f);
}

void OrvBox::ProjectToAxis(const OrvVector3D& axis, float& minimum, float& maximum) const
{
    minimum = maximum = axis.Dot(m_worldPoints[0]);
    for (int i = 1; i < 8; ++i)
    {
        const float value = axis.Dot(m_worldPoints[i]);
        if (value < minimum)
            minimum = value;
        else if (value > maximum)
            maximum = value;
    }
}

bool OrvBox::IsCollidingWorld(OrvBox* other)
{
    for (unsigned int k = 0; k < 8; ++k)
    {
        const OrvVector3D axis = EdgeNormal(k < 4 ? GetEdge(k) : other->GetEdge(k - 4));
        float a0, a1, b0, b1;
        ProjectToAxis(axis, a0, a1);
        other->ProjectToAxis(axis, b0, b1);
        const float gap = b0 <= a0 ? a0 - b1 : b0 - a1;
        if (gap > 0.0f)
            return false;
    }
    return true;
}

bool OrvBox::ContainsWorld(const OrvVector3D& point)
{
    for (unsigned int i = 0; i < 4; ++i)
    {
        const OrvVector3D& start = m_worldPoints[i];
        const OrvVector3D normal = EdgeNormal(m_worldPoints[(i + 1) % 4] - start);
        OrvVector3D toPoint = point - start;
        toPoint.Normalize();
        if (normal.Dot(toPoint) > 0.0f)
            return false;
    }
    return true;
}

void OrvBox::SetDirectionAxe(unsigned int index, const OrvVector3D& axis)
{
    if (index > 2)
        ORV_THROW(OrvException, "You tried to set an invalid direction axe", kSource);
    m_axes[index] = axis;
}

const OrvVector3D& OrvBox::GetDirectionAxe(unsigned int index) const
{
    if (index > 2)
        ORV_THROW(OrvException, "You tried to get an invalid direction axe", kSource);
    return m_axes[index];
}

void OrvBox::SetDirectionMin(unsigned int, float, bool) {}

void OrvBox::SetDirectionMax(unsigned int, float, bool) {}

float OrvBox::GetDirectionMin(unsigned int index) const
{
    if (index > 2)
        ORV_THROW(OrvException, "You tried to get an invalid direction min", kSource);
    return m_directionMin[index];
}

float OrvBox::GetDirectionMax(unsigned int index) const
{
    if (index > 2)
        ORV_THROW(OrvException, "You tried to get an invalid direction max", kSource);
    return m_directionMax[index];
}

void OrvBox::SetAxeDimension(unsigned int index, float value)
{
    switch (index)
    {
    case 0: m_dimension.X = value; break;
    case 1: m_dimension.Y = value; break;
    case 2: m_dimension.Z = value; break;
    default: ORV_THROW(OrvException, "You tried to set an invalid axe dimension ! ", kSource);
    }
}

void OrvBox::SetRenderColor(const OrvColor& color)
{
    if (m_material != nullptr)
        m_material->SetColor(color);
}

OrvColor OrvBox::GetRenderColor() const
{
    return m_material != nullptr ? m_material->GetColor() : OrvColor();
}

void OrvBox::SendPoints(int mode, const unsigned int* indices, unsigned int count)
{
    OrvVertex vertex;
    m_renderer->Begin(static_cast<OrvRenderMode>(mode));
    for (unsigned int i = 0; i < count; ++i)
    {
        vertex.SetPosition(m_points[indices[i]]);
        m_renderer->Vertex(&vertex);
    }
    m_renderer->End();
}

void OrvBox::Render()
{
    if (m_material == nullptr)
        return;
    m_material->ActivatePass(0);
    static const unsigned int kFront[4] = {0, 1, 2, 3};
    static const unsigned int kLeft[4] = {0, 3, 7, 4};
    static const unsigned int kBack[4] = {5, 4, 7, 6};
    static const unsigned int kSides[4] = {1, 5, 6, 2};
    SendPoints(RENDER_MODE_LINE_LOOP, kFront, 4);
    SendPoints(RENDER_MODE_LINE_STRIP, kLeft, 4);
    SendPoints(RENDER_MODE_LINE_STRIP, kBack, 4);
    SendPoints(RENDER_MODE_LINES, kSides, 4);
}

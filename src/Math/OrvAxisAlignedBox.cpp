#include "OrvAxisAlignedBox.h"

#include "OrvColorMaterial.h"
#include "OrvException.h"
#include "OrvMaterialShelf.h"
#include "OrvMatrix.h"
#include "OrvRenderer.h"
#include "OrvVertex.h"

namespace
{
const char* const kSource = "src/Math/OrvAxisAlignedBox";

bool NotAbove(const OrvVector3D& a, const OrvVector3D& b)
{
    return a.X <= b.X && a.Y <= b.Y && a.Z <= b.Z;
}

OrvVector3D Scaled(const OrvVector3D& v, const OrvVector3D& scale)
{
    return OrvVector3D(v.X * scale.X, v.Y * scale.Y, v.Z * scale.Z);
}
}  // namespace

OrvAxisAlignedBox::OrvAxisAlignedBox(OrvRenderer* renderer)
    : m_renderer(renderer), m_material(nullptr), m_position(0.0f, 0.0f, 0.0f), m_scale(1.0f, 1.0f, 1.0f),
      m_shelf(nullptr)
{
    TakeMaterial();
}

OrvAxisAlignedBox::OrvAxisAlignedBox(const OrvAxisAlignedBox& other) : OrvAxisAlignedBox(other.m_renderer)
{
    SetExtents(other.m_minimum, other.m_maximum);
}

OrvAxisAlignedBox& OrvAxisAlignedBox::operator=(const OrvAxisAlignedBox& other)
{
    if (this == &other)
        return *this;
    if (m_renderer != other.m_renderer)
    {
        GiveBackMaterial();
        m_renderer = other.m_renderer;
        TakeMaterial();
    }
    SetExtents(other.m_minimum, other.m_maximum);
    return *this;
}

OrvAxisAlignedBox::~OrvAxisAlignedBox()
{
    GiveBackMaterial();
}

void OrvAxisAlignedBox::TakeMaterial()
{
    if (m_renderer == nullptr)
        return;
    m_shelf = OrvMaterialShelf::FromRenderer(m_renderer);
    m_material = m_shelf->CreateMaterial<OrvColorMaterial>();
}

void OrvAxisAlignedBox::GiveBackMaterial()
{
    if (m_shelf != nullptr)
        m_shelf->DestroyMaterial(m_material);
    m_shelf = nullptr;
    m_material = nullptr;
}

void OrvAxisAlignedBox::Reset()
{
    const OrvVector3D zero(0.0f, 0.0f, 0.0f);
    m_minimum = zero;
    m_maximum = zero;
    m_worldMinimum = zero;
    m_worldMaximum = zero;
}

bool OrvAxisAlignedBox::IsNull() const
{
    const OrvVector3D zero(0.0f, 0.0f, 0.0f);
    return m_minimum == zero && m_maximum == zero;
}

void OrvAxisAlignedBox::SetExtents(const OrvVector3D& minimum, const OrvVector3D& maximum)
{
    if (!NotAbove(minimum, maximum))
        ORV_THROW(OrvException, "Max corner must be bigger", kSource);
    m_minimum = minimum;
    m_maximum = maximum;
    RefreshWorldMinimum();
    RefreshWorldMaximum();
}

void OrvAxisAlignedBox::SetMinimum(const OrvVector3D& minimum)
{
    if (!NotAbove(minimum, m_maximum))
        ORV_THROW(OrvException, "Max corner must be bigger", kSource);
    m_minimum = minimum;
}

void OrvAxisAlignedBox::SetMaximum(const OrvVector3D& maximum)
{
    if (!NotAbove(m_minimum, maximum))
        ORV_THROW(OrvException, "Max corner must be bigger", kSource);
    m_maximum = maximum;
}

void OrvAxisAlignedBox::Merge(const OrvVector3D& point, bool refresh)
{
    m_maximum.MakeCeil(point);
    m_minimum.MakeFloor(point);
    if (refresh)
    {
        RefreshWorldMinimum();
        RefreshWorldMaximum();
    }
}

void OrvAxisAlignedBox::SetPosition(const OrvVector3D& position)
{
    if (position == m_position)
        return;
    m_position = position;
    RefreshWorldMinimum();
    RefreshWorldMaximum();
}

void OrvAxisAlignedBox::SetScale(const OrvVector3D& scale)
{
    if (scale == m_scale)
        return;
    m_scale = scale;
    RefreshWorldMinimum();
    RefreshWorldMaximum();
}

void OrvAxisAlignedBox::RefreshWorldMinimum()
{
    m_worldMinimum = m_position + Scaled(m_minimum, m_scale);
}

void OrvAxisAlignedBox::RefreshWorldMaximum()
{
    m_worldMaximum = m_position + Scaled(m_maximum, m_scale);
}

void OrvAxisAlignedBox::Transform(const OrvMatrix& m)
{
    const OrvVector3D minimum = m_minimum;
    const OrvVector3D maximum = m_maximum;
    Reset();
    for (int corner = 0; corner < 8; ++corner)
    {
        OrvVector3D point((corner & 1) ? maximum.X : minimum.X, (corner & 2) ? maximum.Y : minimum.Y,
                          (corner & 4) ? maximum.Z : minimum.Z);
        point.Transform(m, true);
        Merge(point, true);
    }
}

bool OrvAxisAlignedBox::Contains(const OrvVector3D& point) const
{
    return m_worldMinimum.X <= point.X && point.X <= m_worldMaximum.X && m_worldMinimum.Y <= point.Y &&
           point.Y <= m_worldMaximum.Y;
}

bool OrvAxisAlignedBox::IsColliding(OrvAxisAlignedBox* other) const
{
    if (other == nullptr || IsNull() || other->IsNull())
        return false;
    return other->m_worldMinimum.X <= m_worldMaximum.X && other->m_worldMinimum.Y <= m_worldMaximum.Y &&
           m_worldMinimum.X <= other->m_worldMaximum.X && m_worldMinimum.Y <= other->m_worldMaximum.Y;
}

void OrvAxisAlignedBox::SetRenderColor(const OrvColor& color)
{
    if (m_material != nullptr)
        m_material->SetColor(color);
}

void OrvAxisAlignedBox::Render()
{
    if (m_material == nullptr)
        return;
    m_material->ActivatePass(0);
    const float z = m_minimum.Z;
    const float corners[4][2] = {
        {m_minimum.X, m_maximum.Y}, {m_maximum.X, m_maximum.Y}, {m_maximum.X, m_minimum.Y}, {m_minimum.X, m_minimum.Y}};
    OrvVertex vertex;
    m_renderer->Begin(RENDER_MODE_LINE_LOOP);
    for (const auto& corner : corners)
    {
        vertex.SetPosition(OrvVector3D(corner[0], corner[1], z));
        m_renderer->Vertex(&vertex);
    }
    m_renderer->End();
}

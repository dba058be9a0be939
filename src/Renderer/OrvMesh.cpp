#include "OrvMesh.h"

#include "OrvAxisAlignedBox.h"
#include "OrvMaterial.h"
#include "OrvRenderer.h"
#include "OrvVertex.h"
#include "OrvRendererException.h"

namespace
{
const char* const kSource = "src/Renderer/OrvMesh";
}

OrvMesh::OrvMesh(OrvRenderer* renderer)
    : m_renderer(renderer), m_material(nullptr), m_boundingBox(new OrvAxisAlignedBox(renderer)),
      m_renderBoundingBox(false)
{
}

OrvMesh::~OrvMesh()
{
    m_vertices.DeleteAll();
    delete m_material;
    delete m_boundingBox;
}

void OrvMesh::AddVertex(OrvVertex* vertex)
{
    ORV_ADD_OWNED(m_vertices, vertex, OrvRendererException, "Not enough memory for another vertex", kSource);
}

OrvVertex* OrvMesh::RemoveVertex(unsigned int index)
{
    return m_vertices.Remove(static_cast<unsigned long>(index));
}

void OrvMesh::ClearVertices()
{
    m_vertices.DeleteAll();
}

void OrvMesh::BuildBoundingVolumes()
{
    m_boundingBox->Reset();
    for (unsigned int i = 0; i < m_vertices.GetSize(); ++i)
        m_boundingBox->Merge(m_vertices[i]->GetPosition(), true);
    m_boundingBox->RefreshWorldMaximum();
    m_boundingBox->RefreshWorldMinimum();
}

float OrvMesh::GetBoundingRadiusSquared() const
{
    const OrvVector3D& position = m_boundingBox->GetPosition();
    const float toMinimum = (m_boundingBox->GetWorldMinimum() - position).LengthSquared();
    const float toMaximum = (m_boundingBox->GetWorldMaximum() - position).LengthSquared();
    return toMinimum > toMaximum ? toMinimum : toMaximum;
}

void OrvMesh::Prefetch(unsigned int stage) const
{
    if (stage == 0)
    {
        __builtin_prefetch(m_vertices.GetData());
        __builtin_prefetch(m_material);
        return;
    }
    if (stage == 1)
        for (unsigned int i = 0; i < m_vertices.GetSize(); ++i)
            __builtin_prefetch(m_vertices.GetData()[i]);
    if (m_material != nullptr)
        m_material->Prefetch(stage - 1);
}

void OrvMesh::SendVertices()
{
    m_renderer->Begin(RENDER_MODE_QUADS);
    for (unsigned int i = 0; i < m_vertices.GetSize(); ++i)
        m_renderer->Vertex(m_vertices[i]);
    m_renderer->End();
}

void OrvMesh::Render()
{
    if (m_renderer != nullptr)
    {
        if (m_material == nullptr)
            SendVertices();
        else
            for (unsigned int pass = 0; pass < m_material->GetPassCount(); ++pass)
            {
                m_material->ActivatePass(pass);
                SendVertices();
            }
    }
    if (m_renderBoundingBox)
        m_boundingBox->Render();
}

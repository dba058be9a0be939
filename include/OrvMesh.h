#ifndef ORV_MESH_H
#define ORV_MESH_H

#include "OrvTArray.h"

class OrvAxisAlignedBox;
class OrvMaterial;
class OrvRenderer;
class OrvVertex;

/// Vertices drawn as quads (every four make one) with a material, and the
/// bounding box of their positions. The mesh owns its vertices, its material
/// and its box. Meshes are not copied.
class OrvMesh
{
public:
    /// The bounding box is made with the same renderer (and so takes a colour
    /// material from the application's shelf).
    explicit OrvMesh(OrvRenderer* renderer);
    OrvMesh(const OrvMesh&) = delete;
    OrvMesh& operator=(const OrvMesh&) = delete;
    virtual ~OrvMesh();

    /// The mesh takes ownership.
    void AddVertex(OrvVertex* vertex);
    /// Hands the vertex back to the caller, who owns it again; null past the end.
    OrvVertex* RemoveVertex(unsigned int index);
    void ClearVertices();
    OrvVertex* GetVertex(unsigned int index) const { return m_vertices[index]; }
    unsigned int GetVertexCount() const { return m_vertices.GetSize(); }

    /// The mesh takes ownership; a previous material is not deleted.
    void SetMaterial(OrvMaterial* material) { m_material = material; }
    OrvMaterial* GetMaterial() const { return m_material; }

    OrvAxisAlignedBox* GetBoundingBox() const { return m_boundingBox; }
    /// The box again from the vertex positions (and the local origin).
    void BuildBoundingVolumes();
    /// The larger squared distance from the box's position to a world corner.
    float GetBoundingRadiusSquared() const;
    void SetRenderBoundingBox(bool render) { m_renderBoundingBox = render; }
    bool GetRenderBoundingBox() const { return m_renderBoundingBox; }

    /// Every pass of the material in turn (or whatever pass is active when
    /// there is no material) over all the quads; then the box when asked.
    void Render();

    OrvRenderer* GetRenderer() const { return m_renderer; }
    /// Asks the cache for the parts drawing reads, one step of their chain a
    /// call (stage 0: the vertex list and the material; 1: the vertices and
    /// the material's pass list; 2: the pass). Reads nothing that stage
    /// stage - 1 did not ask for.
    void Prefetch(unsigned int stage) const;

private:
    void SendVertices();

    OrvRenderer* m_renderer;
    OrvTArray<OrvVertex> m_vertices;
    OrvMaterial* m_material;
    OrvAxisAlignedBox* m_boundingBox;
    bool m_renderBoundingBox;
};

#endif

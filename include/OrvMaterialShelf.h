#ifndef ORV_MATERIAL_SHELF_H
#define ORV_MATERIAL_SHELF_H

#include "OrvMaterial.h"
#include "OrvRendererException.h"
#include "OrvTArray.h"

class OrvRenderer;

/// Makes materials for the game's objects and destroys those it made. Its
/// destructor releases its list only: a material handed to a mesh belongs to
/// that mesh from then on. A listed material that is deleted elsewhere (by its
/// mesh) leaves the list by itself (see OrvMaterial).
class OrvMaterialShelf
{
public:
    OrvMaterialShelf();
    OrvMaterialShelf(const OrvMaterialShelf&) = delete;
    OrvMaterialShelf& operator=(const OrvMaterialShelf&) = delete;
    virtual ~OrvMaterialShelf();

    void Init(OrvRenderer* renderer);
    /// The shelf of the renderer's application; throws OrvRendererException
    /// (the shelf's own message) when there is none.
    static OrvMaterialShelf* FromRenderer(OrvRenderer* renderer);
    OrvRenderer* GetRenderer() const { return m_renderer; }
    unsigned int GetMaterialCount() const { return m_materials.GetSize(); }

    /// A new T(renderer), listed on the shelf. Throws OrvRendererException
    /// before Init.
    template <class T>
    T* CreateMaterial()
    {
        if (m_renderer == nullptr)
            ORV_THROW(OrvRendererException, kNoRendererMessage, "include/OrvMaterialShelf");
        T* material = new T(m_renderer);
        ORV_ADD_OWNED(m_materials, material, OrvRendererException, "Not enough memory for another material",
                      "include/OrvMaterialShelf");
        static_cast<OrvMaterial*>(material)->m_shelf = this;
        return material;
    }

    /// Deletes a material the shelf made and nulls the caller's pointer; any
    /// other pointer is left alone.
    template <class T>
    void DestroyMaterial(T*& material)
    {
        if (material == nullptr || m_materials.Remove(static_cast<OrvMaterial*>(material)) == nullptr)
            return;
        static_cast<OrvMaterial*>(material)->m_shelf = nullptr;
        delete material;
        material = nullptr;
    }

    static constexpr const char* kNoRendererMessage =
        "Renderer is null, can't use material shelf (try calling Init method)";

private:
    friend class OrvMaterial;
    /// A listed material is being deleted elsewhere.
    void Forget(OrvMaterial* material) { m_materials.Remove(material); }

    OrvTArray<OrvMaterial> m_materials;
    OrvRenderer* m_renderer;
};

#endif

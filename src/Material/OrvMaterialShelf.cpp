#include "OrvMaterialShelf.h"

#include "OrvApplication.h"
#include "OrvRenderer.h"

OrvMaterialShelf::OrvMaterialShelf() : m_renderer(nullptr) {}

OrvMaterialShelf::~OrvMaterialShelf()
{
    // The materials still listed outlive the shelf (their meshes delete them).
    for (unsigned int i = 0; i < m_materials.GetSize(); ++i)
        if (m_materials[i] != nullptr)
            m_materials[i]->m_shelf = nullptr;
    m_materials.Destroy();
}

void OrvMaterialShelf::Init(OrvRenderer* renderer)
{
    m_renderer = renderer;
}

OrvMaterialShelf* OrvMaterialShelf::FromRenderer(OrvRenderer* renderer)
{
    OrvApplication* application = OrvApplication::Of(renderer);
    OrvMaterialShelf* shelf = application != nullptr ? application->GetMaterialShelf() : nullptr;
    if (shelf == nullptr)
        ORV_THROW(OrvRendererException, kNoRendererMessage, "include/OrvMaterialShelf");
    return shelf;
}

#include "OrvMaterialShelf.h"

#include "OrvApplication.h"
#include "OrvRenderer.h"

OrvMaterialShelf::OrvMaterialShelf() : m_renderer(nullptr) {}

OrvMaterialShelf::~OrvMaterialShelf()
{
    m_materials.Destroy();
}

void OrvMaterialShelf::Init(OrvRenderer* renderer)
{
    m_renderer = renderer;
}

OrvMaterialShelf* OrvMaterialShelf::FromRenderer(OrvRenderer* renderer)
{
    OrvApplication* application = renderer != nullptr ? renderer->GetApplication() : nullptr;
    OrvMaterialShelf* shelf = application != nullptr ? application->GetMaterialShelf() : nullptr;
    if (shelf == nullptr)
        ORV_THROW(OrvRendererException, kNoRendererMessage, "include/OrvMaterialShelf");
    return shelf;
}

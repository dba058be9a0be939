#include "OrvMaterialShelf.h"

OrvMaterialShelf::OrvMaterialShelf() : m_renderer(nullptr) {}

OrvMaterialShelf::~OrvMaterialShelf()
{
    m_materials.Destroy();
}

void OrvMaterialShelf::Init(OrvRenderer* renderer)
{
    m_renderer = renderer;
}

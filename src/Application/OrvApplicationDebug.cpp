#include "OrvApplication.h"

// Debug markers (coloured squares in a tree of their own, drawn after the
// world) and the cursors drawn on top of the HUD.

#include "OrvCursor.h"
#include "OrvGameAsset.h"
#include "OrvGameAssetManager.h"
#include "OrvWidget.h"
#include "OrvWidgetDesc.h"

OrvWidget* OrvApplication::CreateDebugSprite(const OrvVector3D& position, const OrvColor& color, float size)
{
    if (m_gameAssetManager == nullptr || m_debugRoot == nullptr)
        return nullptr;
    OrvWidgetDesc desc;
    desc.position = position;
    desc.scale.Set(size, size, size);
    OrvWidget* sprite = m_gameAssetManager->CreateGameAsset<OrvWidget, OrvWidgetDesc>(&desc);
    try
    {
        sprite->UseColorMaterial(color);
    }
    catch (...)
    {
        m_gameAssetManager->DeleteGameAsset(sprite);
        throw;
    }
    m_debugRoot->AddChild(sprite);
    return sprite;
}

void OrvApplication::DeleteDebugGameAsset(OrvGameAsset* asset)
{
    if (m_debugRoot == nullptr || asset == nullptr || !m_debugRoot->GetChildren().Contains(asset))
        return;
    m_debugRoot->RemoveChild(asset);
    m_gameAssetManager->DeleteGameAsset(asset);
}

void OrvApplication::DeleteAllDebugGameAssets()
{
    if (m_debugRoot == nullptr)
        return;
    for (OrvGameAsset* child : m_debugRoot->GetChildren())
        m_gameAssetManager->DeleteGameAsset(child);
    m_debugRoot->GetChildren().RemoveAll();
}

void OrvApplication::RenderDebugGameAssets(bool render)
{
    if (m_debugRoot != nullptr)
        m_debugRoot->SetRender(render, true);
}

void OrvApplication::AddCursor(OrvCursor* cursor)
{
    m_cursors.Add(cursor);
}

OrvCursor* OrvApplication::GetCursor(unsigned int index) const
{
    return m_cursors[index];
}

unsigned int OrvApplication::GetCursorCount() const
{
    return m_cursors.GetCount();
}

#include "OrvGameAssetManager.h"

#include <vector>

#include "OrvGameAsset.h"

OrvGameAssetManager::OrvGameAssetManager(OrvApplication* application)
    : m_application(application), m_lastID(0), m_cleanUpNeeded(false), m_ownsAssets(true)
{
}

OrvGameAssetManager::OrvGameAssetManager(const OrvGameAssetManager& other)
    : m_application(other.m_application), m_gameAssets(other.m_gameAssets), m_lastID(other.m_lastID),
      m_cleanUpNeeded(false), m_ownsAssets(false)
{
}

OrvGameAssetManager& OrvGameAssetManager::operator=(const OrvGameAssetManager&)
{
    ORV_THROW(OrvException, "OrvGameAssetManager::operator=() - Not supported", "src/GameAsset/OrvGameAssetManager");
}

OrvGameAssetManager::~OrvGameAssetManager()
{
    if (m_ownsAssets)
        DeleteGameAssets();
    m_gameAssets.Destroy();
}

void OrvGameAssetManager::AddGameAsset(OrvGameAsset* asset)
{
    m_gameAssets.Add(asset, true);
}

OrvGameAsset* OrvGameAssetManager::GetGameAssetByID(int id) const
{
    for (unsigned int i = 0; i < m_gameAssets.GetSize(); ++i)
        if (m_gameAssets[i]->GetID() == id)
            return m_gameAssets[i];
    return nullptr;
}

void OrvGameAssetManager::DeleteGameAsset(OrvGameAsset* asset)
{
    if (asset == nullptr || m_gameAssets.Find(asset) < 0)
        return;
    asset->SetToDelete(true, true);
    m_cleanUpNeeded = true;
}

void OrvGameAssetManager::DeleteGameAssetByID(int id)
{
    DeleteGameAsset(GetGameAssetByID(id));
}

void OrvGameAssetManager::UntieMarkedAssets()
{
    for (unsigned int i = 0; i < m_gameAssets.GetSize(); ++i)
    {
        OrvGameAsset* asset = m_gameAssets[i];
        OrvGameAsset* parent = asset->GetParent();
        if (parent != nullptr && parent->GetToDelete() != asset->GetToDelete())
            parent->RemoveChild(asset);
    }
}

void OrvGameAssetManager::CleanUp()
{
    std::vector<OrvGameAsset*> marked;
    do
    {
        m_cleanUpNeeded = false;
        marked.clear();
        for (unsigned int i = 0; i < m_gameAssets.GetSize(); ++i)
            if (m_gameAssets[i]->GetToDelete())
                marked.push_back(m_gameAssets[i]);
        if (marked.empty())
            continue;
        UntieMarkedAssets();
        // Assets that destructors mark meanwhile wait for the next round.
        for (OrvGameAsset* asset : marked)
        {
            m_gameAssets.Remove(asset);
            delete asset;
        }
    } while (m_cleanUpNeeded);
}

void OrvGameAssetManager::MonitorCleanUp()
{
    if (m_cleanUpNeeded)
        CleanUp();
}

void OrvGameAssetManager::DeleteGameAssets()
{
    // First to last, as the list held them; taken off the list at once rather
    // than one by one from its front.
    std::vector<OrvGameAsset*> all;
    all.reserve(m_gameAssets.GetSize());
    for (unsigned int i = 0; i < m_gameAssets.GetSize(); ++i)
        all.push_back(m_gameAssets[i]);
    m_gameAssets.Destroy();
    for (OrvGameAsset* asset : all)
        delete asset;
}

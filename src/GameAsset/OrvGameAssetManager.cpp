#include "OrvGameAssetManager.h"

#include <vector>

#include "OrvGameAsset.h"

OrvGameAssetManager::OrvGameAssetManager(OrvApplication* application)
    : m_application(application), m_lastID(0), m_cleanUpNeeded(false), m_ownsAssets(true)
{
}

OrvGameAssetManager::OrvGameAssetManager(const OrvGameAssetManager& other)
    : m_application(other.m_application),
      m_gameAssets(other.m_gameAssets),
      m_lastID(other.m_lastID),
      m_cleanUpNeeded(false),
      m_ownsAssets(false),
      m_registered(other.m_registered),
      m_idCounts(other.m_idCounts)
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
    if (asset == nullptr || IsRegistered(asset))
        return;
    const unsigned int size = m_gameAssets.GetSize();
    m_gameAssets.Add(asset, false);
    // The list refuses quietly when it cannot grow.
    if (m_gameAssets.GetSize() == size)
        return;
    m_registered.insert(asset);
    ++m_idCounts[asset->GetID()];
}

void OrvGameAssetManager::Forget(const OrvGameAsset* asset)
{
    m_registered.erase(asset);
    const auto count = m_idCounts.find(asset->GetID());
    if (count != m_idCounts.end() && --count->second == 0)
        m_idCounts.erase(count);
}

OrvGameAsset* OrvGameAssetManager::GetGameAssetByID(int id) const
{
    if (!HasID(id))
        return nullptr;
    for (unsigned int i = 0; i < m_gameAssets.GetSize(); ++i)
        if (m_gameAssets[i]->GetID() == id)
            return m_gameAssets[i];
    return nullptr;
}

void OrvGameAssetManager::DeleteGameAsset(OrvGameAsset* asset)
{
    if (asset == nullptr || !IsRegistered(asset))
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
    // Nothing was marked since the last clean-up: nothing to walk.
    if (!m_cleanUpNeeded)
        return;
    std::vector<OrvGameAsset*> marked;
    std::vector<OrvGameAsset*> kept;
    do
    {
        m_cleanUpNeeded = false;
        marked.clear();
        kept.clear();
        for (unsigned int i = 0; i < m_gameAssets.GetSize(); ++i)
            (m_gameAssets[i]->GetToDelete() ? marked : kept).push_back(m_gameAssets[i]);
        if (marked.empty())
            continue;
        UntieMarkedAssets();
        // Off the list in one pass, keeping the others' order; then destroyed
        // in list order. Assets that destructors mark meanwhile wait for the
        // next round.
        m_gameAssets.SetSize(kept.size());
        if (!kept.empty())
            m_gameAssets.MemCopy(0, kept.data(), kept.size() * sizeof(OrvGameAsset*));
        for (OrvGameAsset* asset : marked)
            Forget(asset);
        for (OrvGameAsset* asset : marked)
            delete asset;
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
    m_registered.clear();
    m_idCounts.clear();
    for (OrvGameAsset* asset : all)
        delete asset;
}

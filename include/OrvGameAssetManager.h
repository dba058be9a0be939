#ifndef ORV_GAME_ASSET_MANAGER_H
#define ORV_GAME_ASSET_MANAGER_H

#include <unordered_map>
#include <unordered_set>

#include "OrvException.h"
#include "OrvTArray.h"

class OrvApplication;
class OrvGameAsset;

/// Creates every game asset from its descriptor with a unique ID, owns them,
/// and destroys those marked for deletion at the clean-ups (before each render
/// pass when something was marked, and at the end of every turn).
///
/// Before destroying anything a clean-up unties each marked asset from an
/// unmarked parent, and each unmarked asset from a marked parent, so that no
/// tree keeps a pointer to a destroyed asset. The manager's destructor
/// destroys the assets still registered.
///
/// Creating, registering and marking take constant time whatever the number
/// of assets (an index of the registered pointers and of the IDs in use sits
/// beside the list); a clean-up walks the list only when something was
/// marked since the last one, and takes the marked assets off it in one pass.
class OrvGameAssetManager
{
public:
    explicit OrvGameAssetManager(OrvApplication* application);
    /// Shares the assets (and destroys none of them), the application and the
    /// last ID; nothing to clean up.
    OrvGameAssetManager(const OrvGameAssetManager& other);
    /// Refused: throws OrvException, the manager unchanged.
    OrvGameAssetManager& operator=(const OrvGameAssetManager& other);
    virtual ~OrvGameAssetManager();

    /// A new T created from a copy of `desc` (with this manager) and registered.
    /// ID 0 takes the next automatic ID; another ID is kept (the automatic ones
    /// then go on above it) unless an asset has it already, which throws
    /// OrvException and creates nothing. With `forceNewID` the next automatic
    /// ID is taken whatever the descriptor says. The asset has no parent.
    template <class T, class D>
    T* CreateGameAsset(D* desc, bool forceNewID = false)
    {
        D copy(*desc);
        copy.manager = this;
        if (forceNewID)
            copy.ID = ++m_lastID;
        else
        {
            if (copy.ID == 0)
                copy.ID = ++m_lastID;
            else if (m_lastID <= copy.ID)
                m_lastID = copy.ID + 1;
            if (HasID(copy.ID))
                ORV_THROW(OrvException, "You tried to create a game asset with an ID that already exists",
                          "include/OrvGameAssetManager");
        }
        T* asset = new T();
        try
        {
            asset->Create(&copy);
        }
        catch (...)
        {
            delete asset;
            throw;
        }
        AddGameAsset(asset);
        // The list could not grow: the asset is not kept half registered.
        if (!IsRegistered(asset))
        {
            delete asset;
            ORV_THROW(OrvException, "Not enough memory for another game asset", "include/OrvGameAssetManager");
        }
        return asset;
    }

    /// Registers an asset once.
    void AddGameAsset(OrvGameAsset* asset);
    OrvGameAsset* GetGameAsset(unsigned int index) const { return m_gameAssets[index]; }
    unsigned int GetGameAssetCount() const { return m_gameAssets.GetSize(); }
    OrvGameAsset* GetGameAssetByID(int id) const;
    /// A registered asset has that ID.
    bool HasID(int id) const { return m_idCounts.find(id) != m_idCounts.end(); }
    bool IsRegistered(const OrvGameAsset* asset) const { return m_registered.count(asset) != 0; }
    /// Marks a registered asset and its subtree; anything else is ignored.
    void DeleteGameAsset(OrvGameAsset* asset);
    void DeleteGameAssetByID(int id);
    /// Destroys the marked assets, again while destructors mark more.
    void CleanUp();
    /// CleanUp when something was marked since the last one.
    void MonitorCleanUp();
    bool CleanUpNeeded() const { return m_cleanUpNeeded; }
    /// One of this manager's assets was marked (OrvGameAsset::SetToDelete
    /// says so): the next clean-up has work.
    void NoteMarked() { m_cleanUpNeeded = true; }
    /// Destroys every registered asset.
    void DeleteGameAssets();

    OrvApplication* GetApplication() const { return m_application; }
    int GetLastID() const { return m_lastID; }

private:
    void UntieMarkedAssets();
    /// Takes the asset out of the indexes (not off the list).
    void Forget(const OrvGameAsset* asset);

    OrvApplication* m_application;
    OrvTArray<OrvGameAsset> m_gameAssets;
    int m_lastID;
    bool m_cleanUpNeeded;
    /// False for a copy: it destroys nothing it shares.
    bool m_ownsAssets;
    /// The list's members, and how many registered assets hold each ID.
    std::unordered_set<const OrvGameAsset*> m_registered;
    std::unordered_map<int, unsigned int> m_idCounts;
};

#endif

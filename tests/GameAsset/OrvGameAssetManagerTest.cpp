#include <gtest/gtest.h>

#include "OrvGameAsset.h"
#include "OrvGameAssetDesc.h"
#include "OrvGameAssetManager.h"
#include "OrvTestBytes.h"

namespace
{
OrvGameAsset* Make(OrvGameAssetManager& manager, int id = 0, bool forceNewID = false)
{
    OrvGameAssetDesc desc;
    desc.ID = id;
    return manager.CreateGameAsset<OrvGameAsset, OrvGameAssetDesc>(&desc, forceNewID);
}

// Marks another asset for deletion when it is destroyed.
class Dragging : public OrvGameAsset
{
public:
    ~Dragging() override
    {
        if (other != nullptr)
            GetGameAssetManager()->DeleteGameAsset(other);
    }
    OrvGameAsset* other = nullptr;
};
}  // namespace

TEST(OrvGameAssetManager, AutomaticAndChosenIDs)
{
    OrvGameAssetManager manager(nullptr);
    EXPECT_EQ(1, Make(manager)->GetID());
    EXPECT_EQ(2, Make(manager)->GetID());
    EXPECT_EQ(3, Make(manager)->GetID());
    EXPECT_EQ(&manager, manager.GetGameAsset(0)->GetGameAssetManager());

    OrvGameAssetManager fresh(nullptr);
    EXPECT_EQ(10, Make(fresh, 10)->GetID());
    EXPECT_EQ(12, Make(fresh)->GetID()) << "lastID became 11 and grows before use";

    OrvGameAssetManager upToSeven(nullptr);
    for (int i = 0; i < 7; ++i)
        Make(upToSeven);
    upToSeven.DeleteGameAssetByID(5);
    upToSeven.CleanUp();
    EXPECT_EQ(7, upToSeven.GetLastID());
    EXPECT_EQ(5, Make(upToSeven, 5)->GetID()) << "an ID below lastID is kept when free";
    EXPECT_EQ(7, upToSeven.GetLastID());
}

TEST(OrvGameAssetManager, DuplicateIDsAreRefusedUnlessANewOneIsForced)
{
    OrvGameAssetManager manager(nullptr);
    Make(manager);
    Make(manager);
    const Thrown refused([&] { Make(manager, 2); });
    EXPECT_EQ("You tried to create a game asset with an ID that already exists | include/OrvGameAssetManager",
              refused.message + " | " + refused.file);
    EXPECT_EQ(2u, manager.GetGameAssetCount()) << "nothing created";
    EXPECT_EQ(4, Make(manager, 2, true)->GetID()) << "forced: the descriptor's ID is ignored";

    OrvGameAssetManager copy(manager);
    EXPECT_EQ(manager.GetGameAsset(0), copy.GetGameAsset(0)) << "a copy shares the assets";
    EXPECT_EQ("OrvGameAssetManager::operator=() - Not supported", Thrown([&] { copy = manager; }).message);
}

TEST(OrvGameAssetManager, MarkedSubtreesGoAtTheCleanUps)
{
    OrvGameAssetManager manager(nullptr);
    manager.MonitorCleanUp();
    OrvGameAsset* root = Make(manager);
    OrvGameAsset* parent = Make(manager);
    OrvGameAsset* child = Make(manager);
    parent->AttachTo(root);
    child->AttachTo(parent);
    OrvGameAsset* stray = Make(manager);

    OrvGameAsset unregistered;
    manager.DeleteGameAsset(&unregistered);
    EXPECT_FALSE(manager.CleanUpNeeded());

    manager.DeleteGameAsset(parent);
    EXPECT_TRUE(child->GetToDelete()) << "the subtree is marked";
    EXPECT_EQ(4u, manager.GetGameAssetCount()) << "nothing goes before a clean-up";
    manager.MonitorCleanUp();
    EXPECT_EQ(2u, manager.GetGameAssetCount());
    EXPECT_EQ(nullptr, manager.GetGameAssetByID(3));
    EXPECT_EQ(0u, root->GetChildCount());
    EXPECT_FALSE(manager.CleanUpNeeded());

    manager.DeleteGameAssetByID(stray->GetID());
    manager.MonitorCleanUp();
    EXPECT_EQ(1u, manager.GetGameAssetCount());

    // A destructor that marks another asset: handled in the same clean-up.
    OrvGameAssetDesc desc;
    Dragging* dragging = manager.CreateGameAsset<Dragging, OrvGameAssetDesc>(&desc);
    dragging->other = root;
    manager.DeleteGameAsset(dragging);
    manager.CleanUp();
    EXPECT_EQ(0u, manager.GetGameAssetCount());
}

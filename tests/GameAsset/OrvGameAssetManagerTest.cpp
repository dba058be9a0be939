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

TEST(OrvGameAssetManager, TheIndexesFollowEveryWayInAndOut)
{
    OrvGameAssetManager manager(nullptr);
    // A hand-made asset with an ID of its own, registered directly, twice.
    OrvGameAsset* handMade = new OrvGameAsset();
    OrvGameAssetDesc desc;
    desc.ID = 9;
    desc.manager = &manager;
    handMade->Create(&desc);
    manager.AddGameAsset(handMade);
    manager.AddGameAsset(handMade);
    EXPECT_EQ(1u, manager.GetGameAssetCount());
    EXPECT_EQ(handMade, manager.GetGameAssetByID(9));
    EXPECT_THROW(Make(manager, 9), OrvException) << "its ID is taken";

    // Marked by the asset itself, not through the manager: the clean-up still
    // sees it, and its ID is free afterwards.
    handMade->SetToDelete(true, false);
    EXPECT_TRUE(manager.CleanUpNeeded());
    manager.CleanUp();
    EXPECT_EQ(0u, manager.GetGameAssetCount());
    EXPECT_EQ(nullptr, manager.GetGameAssetByID(9));
    EXPECT_EQ(9, Make(manager, 9)->GetID());

    // Many assets in a row keep their order through a clean-up in the middle.
    for (int i = 0; i < 100; ++i)
        Make(manager);
    for (unsigned int i = 1; i < manager.GetGameAssetCount(); i += 2)
        manager.DeleteGameAsset(manager.GetGameAsset(i));
    manager.CleanUp();
    ASSERT_EQ(51u, manager.GetGameAssetCount());
    for (unsigned int i = 1; i < manager.GetGameAssetCount(); ++i)
        EXPECT_LT(manager.GetGameAsset(i - 1)->GetID(), manager.GetGameAsset(i)->GetID());
    EXPECT_NE(nullptr, manager.GetGameAssetByID(manager.GetGameAsset(50)->GetID()));
}

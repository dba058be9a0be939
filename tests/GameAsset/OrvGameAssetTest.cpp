#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "OrvAxisAlignedBox.h"
#include "OrvCamera.h"
#include "OrvGameAsset.h"
#include "OrvGameAssetDesc.h"
#include "OrvGameAssetManager.h"
#include "OrvMesh.h"
#include "OrvTestBytes.h"
#include "OrvTestGame.h"

namespace
{
// Counts its refreshes and logs its ID when it draws its elements.
class Probe : public OrvGameAsset
{
public:
    void RefreshPosition(bool force) override
    {
        ++refreshes;
        OrvGameAsset::RefreshPosition(force);
    }
    void RenderElements() const override
    {
        if (log != nullptr)
            log->push_back(GetID());
    }
    int refreshes = 0;
    std::vector<int>* log = nullptr;
};

class OrvGameAssetTest : public OrvGameTest
{
protected:
    Probe* Make(const OrvVector3D& position, OrvGameAsset* parent = nullptr)
    {
        OrvGameAssetDesc desc;
        desc.position = position;
        Probe* asset = game.GetGameAssetManager()->CreateGameAsset<Probe, OrvGameAssetDesc>(&desc);
        if (parent != nullptr)
            asset->AttachTo(parent);
        asset->log = &drawn;
        return asset;
    }
    std::vector<int> drawn;
};

bool Near(const OrvVector3D& a, const OrvVector3D& b)
{
    return (a - b).LengthSquared() < 1e-8f;
}
}  // namespace

TEST_F(OrvGameAssetTest, MovingAParentCarriesTheWholeSubtreeInOneCall)
{
    Probe* parent = Make(OrvVector3D(100, 0, 0));
    Probe* child = Make(OrvVector3D(10, 0, 0), parent);
    Probe* grandchild = Make(OrvVector3D(0, 5, 0), child);
    EXPECT_EQ(OrvVector3D(110, 5, 0), grandchild->GetWorldPosition());

    parent->SetRotation(90.0f);
    EXPECT_TRUE(Near(OrvVector3D(95, 10, 0), grandchild->GetWorldPosition())) << "turned a quarter about the parent";
    OrvMatrix world = parent->GetCurrentTransformationMatrix() * child->GetLocalMatrix() * grandchild->GetLocalMatrix();
    EXPECT_EQ(world, grandchild->GetCurrentTransformationMatrix());

    const int before = grandchild->refreshes;
    parent->SetPosition(parent->GetPosition());
    EXPECT_EQ(before, grandchild->refreshes) << "an unchanged position refreshes nothing";
    parent->SetPosition(OrvVector3D(0, 0, 0));
    EXPECT_EQ(before + 1, grandchild->refreshes);
    EXPECT_TRUE(Near(OrvVector3D(-5, 10, 0), grandchild->GetWorldPosition()));

    // Detached, the child is a root of its own.
    child->Detach();
    EXPECT_EQ(nullptr, child->GetParent());
    EXPECT_EQ(0u, parent->GetChildCount());
    EXPECT_EQ(OrvVector3D(10, 5, 0), grandchild->GetWorldPosition());
    EXPECT_TRUE(child->AttachTo(parent));
    EXPECT_TRUE(child->AttachTo(parent)) << "already there";
    EXPECT_EQ(1u, parent->GetChildCount());
    EXPECT_FALSE(child->AttachTo(nullptr)) << "not a root";
    EXPECT_TRUE(parent->AttachTo(nullptr));
}

// The matrices of the data model, built the long way: translation ×
// rotation × scale from identities, then the parent's world matrix times it.
OrvMatrix LocalByProducts(const OrvGameAsset& asset)
{
    OrvMatrix t = OrvMatrix::CreateIdentity(4);
    t.Translate(asset.GetPosition());
    OrvMatrix r = OrvMatrix::CreateIdentity(4);
    r.Rotate(asset.GetRotation());
    OrvMatrix s = OrvMatrix::CreateIdentity(4);
    s.Scale(asset.GetScale());
    return t * r * s;
}

::testing::AssertionResult MatchesProducts(const OrvGameAsset& asset)
{
    const OrvMatrix local = LocalByProducts(asset);
    const OrvMatrix world =
        asset.GetParent() != nullptr ? asset.GetParent()->GetCurrentTransformationMatrix() * local : local;
    OrvVector3D position = asset.GetPosition();
    if (asset.GetParent() != nullptr)
        position.Transform(asset.GetParent()->GetCurrentTransformationMatrix(), true);
    if (!(asset.GetLocalMatrix() == local))
        return ::testing::AssertionFailure() << "local matrix differs";
    if (!(asset.GetCurrentTransformationMatrix() == world))
        return ::testing::AssertionFailure() << "world differs";
    if (!(asset.GetWorldPosition() == position))
        return ::testing::AssertionFailure() << "world position differs";
    return ::testing::AssertionSuccess();
}

TEST_F(OrvGameAssetTest, RefreshedMatricesEqualTheProductsToTheBit)
{
    Probe* parent = Make(OrvVector3D(13.7f, -2.25f, 0.3f));
    Probe* child = Make(OrvVector3D(-4.1f, 7.3f, 0.0f), parent);
    Probe* grandchild = Make(OrvVector3D(0.33f, 1.0f / 3.0f, -0.2f), child);
    const auto check = [&](const char* step) {
        for (Probe* asset : {parent, child, grandchild})
            EXPECT_TRUE(MatchesProducts(*asset)) << step << ", asset " << asset->GetID();
    };
    check("created");
    child->SetRotation(33.3f);
    check("child turned");
    grandchild->SetPosition(OrvVector3D(2.7f, -0.9f, 0.1f));
    check("grandchild moved");
    parent->SetScale(OrvVector3D(1.5f, 0.75f, 2.0f));
    check("parent scaled");
    grandchild->SetScale(OrvVector3D(0.1f, 3.0f, 1.0f));
    grandchild->SetRotation(-71.0f);
    check("grandchild scaled and turned");
    for (int i = 0; i < 20; ++i)
    {
        child->SetPosition(OrvVector3D(0.37f * i, -1.3f * i, 0.01f * i));
        grandchild->SetPosition(OrvVector3D(-0.71f * i, 0.17f * i, 0.0f));
    }
    check("moved again and again");
    parent->SetRotation(200.0f);
    parent->SetPosition(OrvVector3D(-5.5f, 8.125f, 0.0f));
    check("parent turned and moved");
}

TEST_F(OrvGameAssetTest, BoxesFollowTheAssetAndCollisionsCheckRadiiFirst)
{
    Probe* a = Make(OrvVector3D(100, 0, 0));
    a->SetMesh(SquareMesh(renderer, 32, OrvColor(1.0f, 0.0f, 0.0f, 1.0f)));
    a->SetScale(OrvVector3D(2, 0.5f, 1));
    EXPECT_EQ(OrvVector3D(68, -8, 0), a->GetMesh()->GetBoundingBox()->GetWorldMinimum());
    EXPECT_EQ(OrvVector3D(132, 8, 0), a->GetMesh()->GetBoundingBox()->GetWorldMaximum());

    // Radii 1 and 1, centres 1.5 apart: 1 + 1 < 2.25, apart without the box test.
    Probe* b = Make(OrvVector3D(0, 0, 0));
    Probe* c = Make(OrvVector3D(1.5f, 0, 0));
    b->SetMesh(SquareMesh(renderer, std::sqrt(2.0f), OrvColor()));
    c->SetMesh(SquareMesh(renderer, std::sqrt(2.0f), OrvColor()));
    b->RefreshPosition(true);
    c->RefreshPosition(true);
    EXPECT_NEAR(1.0f, b->GetMesh()->GetBoundingRadiusSquared(), 1e-5f);
    EXPECT_FALSE(b->IsColliding(c, false));
    c->SetPosition(OrvVector3D(1.2f, 0, 0));
    EXPECT_TRUE(b->IsColliding(c, false)) << "near enough, and the boxes overlap";
    c->SetEnabled(false, false);
    EXPECT_FALSE(b->IsColliding(c, false)) << "disabled assets collide with nothing";
    EXPECT_FALSE(b->IsColliding(Make(OrvVector3D(0, 0, 0)), false)) << "no mesh, no collision";

    EXPECT_TRUE(b->IsOnScreen());
    b->SetPosition(OrvVector3D(5000, 0, 0));
    EXPECT_FALSE(b->IsOnScreen());
    EXPECT_FALSE(Make(OrvVector3D(0, 0, 0))->IsOnScreen()) << "without a mesh";
}

TEST_F(OrvGameAssetTest, ChildrenBehindDrawFirstAndFlagsReachTheSubtree)
{
    Probe* parent = Make(OrvVector3D(0, 0, 0));
    Probe* front = Make(OrvVector3D(0, 0, 0), parent);
    Probe* behind = Make(OrvVector3D(0, 0, -1), parent);
    Probe* grandchild = Make(OrvVector3D(0, 0, 0), behind);
    parent->Render();
    EXPECT_EQ((std::vector<int>{behind->GetID(), grandchild->GetID(), parent->GetID(), front->GetID()}), drawn);
    EXPECT_EQ(OrvMatrix::CreateIdentity(4), renderer->PeekMatrix(TRANS_MATRIX_MODEL)) << "pushed and popped";

    drawn.clear();
    parent->SetRender(false, false);
    parent->Render();
    EXPECT_EQ(3u, drawn.size()) << "a hidden parent still draws its children";
    drawn.clear();
    parent->SetRender(false, true);
    parent->Render();
    EXPECT_TRUE(drawn.empty());

    parent->SetRenderAndEnabled(true);
    EXPECT_TRUE(grandchild->GetRender() && grandchild->GetEnabled());
    parent->SetEnabled(false, true);
    EXPECT_FALSE(grandchild->GetEnabled());

    // Pixels: the world camera sees a red square at the centre.
    Probe* square = Make(OrvVector3D(0, 0, 0));
    square->SetMesh(SquareMesh(renderer, 200, OrvColor(1.0f, 0.0f, 0.0f, 1.0f)));
    game.GetWorldCamera()->ActivatePerspective();
    square->Render();
    EXPECT_TRUE(PixelIs(32, 32, 0xFF0000));
    EXPECT_TRUE(PixelIs(2, 2, 0x000000)) << "200 units of the 720 seen from 870";
}

TEST_F(OrvGameAssetTest, DeletingThroughTheAssetDetachesIt)
{
    Probe* parent = Make(OrvVector3D(0, 0, 0));
    Probe* child = Make(OrvVector3D(0, 0, 0), parent);
    Make(OrvVector3D(0, 0, 0), child);
    OrvGameAssetManager* manager = game.GetGameAssetManager();
    const unsigned int count = manager->GetGameAssetCount();
    EXPECT_TRUE(child->DeleteThisGameAsset());
    EXPECT_EQ(0u, parent->GetChildCount());
    manager->MonitorCleanUp();
    EXPECT_EQ(count - 2, manager->GetGameAssetCount());

    Probe loose;
    EXPECT_FALSE(loose.DeleteThisGameAsset()) << "no manager";

    // Marked without detaching: the clean-up unties it from its parent.
    Probe* other = Make(OrvVector3D(0, 0, 0), parent);
    manager->DeleteGameAsset(other);
    manager->CleanUp();
    EXPECT_EQ(0u, parent->GetChildCount());

    Make(OrvVector3D(0, 0, 0), parent);
    Make(OrvVector3D(0, 0, 0), parent);
    parent->DeleteAllChildren();
    EXPECT_EQ(0u, parent->GetChildCount());
    manager->CleanUp();
    EXPECT_EQ(count - 2, manager->GetGameAssetCount());
}

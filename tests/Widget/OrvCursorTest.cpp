#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "OrvAxisAlignedBox.h"
#include "OrvColor.h"
#include "OrvColorMaterial.h"
#include "OrvGameAsset.h"
#include "OrvGameAssetDesc.h"
#include "OrvMesh.h"
#include "OrvRenderer.h"
#include "OrvVector2D.h"
#include "OrvWidget.h"
#include "OrvWidgetDesc.h"
#include "OrvWidgetFixture.h"

namespace
{
std::vector<std::string>* g_order = nullptr;

// Each logs "<name> update" and "<name> render".
template <class Base>
class Logged : public Base
{
public:
    std::string name;
    void Update(float seconds) override
    {
        if (g_order != nullptr)
            g_order->push_back(name + " update");
        Base::Update(seconds);
    }
    void Render() override
    {
        if (g_order != nullptr)
            g_order->push_back(name + " render");
        Base::Render();
    }
};

class OrvCursorTest : public OrvWidgetTest
{
protected:
    OrvWidget* MakeBox(float x0, float y0, float x1, float y1)
    {
        OrvWidgetDesc desc;
        desc.position.Set((x0 + x1) * 0.5f, (y0 + y1) * 0.5f, 0);
        OrvWidget* widget = Make<OrvWidget>(desc);
        widget->SetDimension(OrvVector2D(x1 - x0, y1 - y0));
        return widget;
    }
    OrvGameAsset* MakeWorldSquare(OrvGameAsset* parent, const OrvVector3D& position, float side)
    {
        OrvGameAssetDesc desc;
        desc.position = position;
        OrvGameAsset* asset = Make<OrvGameAsset>(desc);
        asset->SetMesh(SquareMesh(game.GetRenderer(), side, OrvColor(1.0f, 1.0f, 1.0f, 1.0f)));
        asset->AttachTo(parent);
        asset->RefreshPosition(true);
        return asset;
    }
};
}  // namespace

TEST_F(OrvCursorTest, FollowsTheMouseInYUpPixelsOfTheViewport)
{
    mouse->MoveTo(0, 0);
    EXPECT_EQ(OrvVector3D(0, 600, 0), cursor->GetPosition());
    mouse->MoveTo(800, 600);
    EXPECT_EQ(OrvVector3D(800, 0, 0), cursor->GetPosition());
    mouse->MoveTo(120, 450);
    EXPECT_EQ(OrvVector3D(120, 150, 0), cursor->GetPosition());

    // Buttons and the wheel change nothing, even from SDL's queue.
    Press();
    Release();
    SDL_Event wheel = {};
    wheel.type = SDL_MOUSEBUTTONDOWN;
    wheel.button.button = SDL_BUTTON_WHEELUP;
    ASSERT_EQ(0, SDL_PushEvent(&wheel));
    game.Update(0.001f);
    EXPECT_EQ(1, mouse->GetWheelPosition());
    EXPECT_EQ(OrvVector3D(120, 150, 0), cursor->GetPosition());

    // A viewport away from the window's corner.
    game.GetRenderer()->Setup(10, 20, 400, 300);
    mouse->MoveTo(10, 300);
    EXPECT_EQ(OrvVector3D(0, 20, 0), cursor->GetPosition());
}

TEST_F(OrvCursorTest, TheHotSpotIsTheTopLeftCorner)
{
    cursor->SetDimension(OrvVector2D(32, 32));
    cursor->SetPosition(OrvVector3D(100, 100, 0));
    EXPECT_EQ(OrvVector3D(84, 116, 0), cursor->GetHotSpot());
    EXPECT_TRUE(cursor->IsOver(MakeBox(80, 110, 90, 120)));
    EXPECT_FALSE(cursor->IsOver(MakeBox(100, 110, 120, 120)));
    EXPECT_FALSE(cursor->IsOver(nullptr));
}

TEST_F(OrvCursorTest, PicksWorldAssetsNearestFirst)
{
    // The camera looks down from (0, 0, 870): the middle of the viewport sees (0, 0).
    OrvGameAsset* root = game.GetWorldRoot();
    OrvGameAsset* low = MakeWorldSquare(root, OrvVector3D(0, 0, 0), 100);
    OrvGameAsset* high = MakeWorldSquare(root, OrvVector3D(20, 0, 100), 100);
    OrvGameAsset* missed = MakeWorldSquare(root, OrvVector3D(300, 0, 0), 40);
    OrvGameAsset* child = MakeWorldSquare(missed, OrvVector3D(-300, 10, 50), 40);
    MakeWorldSquare(root, OrvVector3D(-300, 0, 0), 40);
    mouse->MoveTo(400, 300);

    OrvTObjectArray<OrvGameAsset*> picked = cursor->ComputePerspectivePick(root);
    ASSERT_EQ(3u, picked.GetCount());
    EXPECT_EQ(high, picked[0]);
    EXPECT_EQ(child, picked[1]) << "found under a parent the ray misses";
    EXPECT_EQ(low, picked[2]);

    // Off the middle: the ray leans, and only what lies under it is hit.
    mouse->MoveTo(650, 300);
    picked = cursor->ComputePerspectivePick(root);
    ASSERT_EQ(1u, picked.GetCount());
    EXPECT_EQ(missed, picked[0]);
}

TEST_F(OrvCursorTest, CursorsUpdateAfterTheTreesAndDrawOverTheHUD)
{
    std::vector<std::string> order;
    g_order = &order;
    OrvGameAssetDesc desc;
    auto* world = Make<Logged<OrvGameAsset>>(desc);
    world->name = "world";
    world->AttachTo(game.GetWorldRoot());
    auto* hud = Make<Logged<OrvGameAsset>>(desc);
    hud->name = "hud";
    hud->AttachTo(game.GetHUDRoot());
    OrvCursorDesc cursorDesc;
    auto* pointer = Make<Logged<OrvCursor>>(cursorDesc);
    pointer->name = "cursor";
    game.AddCursor(pointer);
    game.AddCursor(pointer);

    game.Update(0.01f);
    game.RenderHUD();
    g_order = nullptr;
    EXPECT_EQ((std::vector<std::string>{"world update", "hud update", "cursor update", "cursor update", "hud render",
                                        "cursor render", "cursor render"}),
              order);
    EXPECT_EQ("Orv Array Exception | The index at which you are trying to access an element is out of bounds | "
              "template/OrvTObjectArray",
              Thrown([&] { game.GetCursor(game.GetCursorCount()); }).Full());

    // The cursor, drawn last, covers the HUD: a red HUD square under a blue cursor.
    game.SetPaused(true);
    hud->SetMesh(SquareMesh(game.GetRenderer(), 200, OrvColor(1.0f, 0.0f, 0.0f, 1.0f)));
    hud->SetPosition(OrvVector3D(0, 0, -0.5f));
    pointer->SetDimension(OrvVector2D(20, 20));
    pointer->UseColorMaterial(OrvColor(0.0f, 0.0f, 1.0f, 1.0f));
    pointer->SetPosition(OrvVector3D(400, 300, 0));
    game.GetRenderer()->PreRender();
    game.RenderHUD();
    EXPECT_TRUE(PixelIs(400, 300, 0x0000FF));
    EXPECT_TRUE(PixelIs(450, 300, 0xFF0000)) << "the HUD tree's origin is the viewport's centre";
    EXPECT_TRUE(PixelIs(550, 300, 0x000000));
}

TEST_F(OrvCursorTest, DebugSpritesLiveUnderTheirOwnRoot)
{
    OrvGameAsset* root = game.GetDebugRoot();
    OrvWidget* a = game.CreateDebugSprite(OrvVector3D(1, 2, 3), OrvColor(0.0f, 1.0f, 0.0f, 1.0f), 4.0f);
    OrvWidget* b = game.CreateDebugSprite(OrvVector3D(), OrvColor(), 1.0f);
    OrvWidget* c = game.CreateDebugSprite(OrvVector3D(), OrvColor(), 1.0f);
    ASSERT_EQ(3u, root->GetChildCount());
    EXPECT_EQ(root, a->GetParent());
    EXPECT_EQ(OrvVector3D(4, 4, 4), a->GetScale());
    EXPECT_FLOAT_EQ(8.0f, a->GetWidth()) << "the 2 × 2 quad at that scale";
    EXPECT_FLOAT_EQ(1.0f, a->GetColorMaterial()->GetColor().GetGreen());

    game.RenderDebugGameAssets(false);
    EXPECT_FALSE(b->GetRender());
    game.RenderDebugGameAssets(true);
    EXPECT_TRUE(c->GetRender());

    game.DeleteDebugGameAsset(game.GetWorldRoot());
    EXPECT_FALSE(game.GetWorldRoot()->GetToDelete()) << "not a debug child: nothing";
    game.DeleteDebugGameAsset(b);
    EXPECT_EQ(2u, root->GetChildCount());
    EXPECT_TRUE(b->GetToDelete());
    game.DeleteAllDebugGameAssets();
    EXPECT_EQ(0u, root->GetChildCount());
    EXPECT_TRUE(a->GetToDelete() && c->GetToDelete());
    const unsigned int before = game.GetGameAssetManager()->GetGameAssetCount();
    game.GetGameAssetManager()->CleanUp();
    EXPECT_EQ(before - 3, game.GetGameAssetManager()->GetGameAssetCount());
}

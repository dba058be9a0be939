#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "OrvAxisAlignedBox.h"
#include "OrvButton.h"
#include "OrvMenu.h"
#include "OrvMenuDesc.h"
#include "OrvMesh.h"
#include "OrvSubMenuButton.h"
#include "OrvTreeNodeException.h"
#include "OrvWidgetFixture.h"

namespace
{
struct Clicked
{
    OrvWidget* button;
    OrvCursor* cursor;
    void* data;
};

void Record(OrvWidget* button, OrvCursor* cursor, void* data)
{
    static_cast<std::vector<Clicked>*>(data)->push_back({button, cursor, data});
}

// Fonts of 10 × 10 cells without spacing: a label of n letters is 10n × 20.
class OrvMenuTest : public OrvWidgetTest
{
protected:
    void SetUp() override
    {
        OrvWidgetTest::SetUp();
        font = MakeFont(10, 0, 10);
    }
    OrvMenu* MakeMenu(float x, float y)
    {
        OrvMenuDesc desc;
        desc.font = font;
        desc.position.Set(x, y, 0);
        return Make<OrvMenu>(desc);
    }
    static bool Shown(const OrvGameAsset* asset) { return asset->GetRender() && asset->GetEnabled(); }
    static bool Hidden(const OrvGameAsset* asset) { return !asset->GetRender() && !asset->GetEnabled(); }

    OrvFont* font = nullptr;
    std::vector<Clicked> clicks;
};
}  // namespace

TEST_F(OrvMenuTest, ButtonsStackDownwardsAtTheSizeOfTheLargest)
{
    OrvMenu* menu = MakeMenu(0, 0);
    OrvButton* a = menu->AddActionButton("abcd", Record, &clicks);
    OrvButton* b = menu->AddActionButton("abcdefgh", Record, &clicks);
    OrvButton* c = menu->AddActionButton("abcdef", Record, &clicks);
    for (OrvButton* button : {a, b, c})
    {
        EXPECT_FLOAT_EQ(80.0f, button->GetWidth());
        EXPECT_FLOAT_EQ(20.0f, button->GetHeight());
        EXPECT_TRUE(button->GetMesh()->GetRenderBoundingBox()) << "each button outlined";
        EXPECT_EQ(menu, button->GetParent());
    }
    EXPECT_EQ(0.0f, a->GetPosition().Y);
    EXPECT_EQ(-20.0f, b->GetPosition().Y);
    EXPECT_EQ(-40.0f, c->GetPosition().Y);
    const OrvAxisAlignedBox* box = menu->GetMesh()->GetBoundingBox();
    EXPECT_EQ(OrvVector3D(-40, -50, 0), box->GetWorldMinimum());
    EXPECT_EQ(OrvVector3D(40, 10, 0), box->GetWorldMaximum());
    EXPECT_EQ("Button_abcdefgh", Text(b->GetType()));

    // A taller button later moves none of the earlier ones.
    OrvMenuDesc tallDesc;
    tallDesc.font = font;
    tallDesc.fontSizeCoef = 2.0f;
    OrvMenu* tall = Make<OrvMenu>(tallDesc);
    OrvButton* first = tall->AddActionButton("ab", nullptr, nullptr);
    tall->AddActionButton("abcdefgh", nullptr, nullptr);
    EXPECT_EQ(0.0f, first->GetPosition().Y);
    EXPECT_FLOAT_EQ(160.0f, first->GetWidth());

    menu->ClearButtons();
    EXPECT_EQ(0u, menu->GetChildCount());
    EXPECT_TRUE(a->GetToDelete() && c->GetToDelete());
    OrvButton* fresh = menu->AddActionButton("x", Record, &clicks);
    EXPECT_EQ(OrvVector3D(0, 0, 0), fresh->GetPosition());
    EXPECT_FLOAT_EQ(10.0f, fresh->GetWidth());
}

TEST_F(OrvMenuTest, AClickCallsTheButtonsCallback)
{
    OrvMenu* menu = MakeMenu(400, 300);
    menu->AddActionButton("Play", Record, &clicks);
    OrvButton* quit = menu->AddActionButton("Quit", Record, &clicks);
    PointAt(390, 281);
    Click();
    ASSERT_EQ(1u, clicks.size());
    EXPECT_EQ(quit, clicks[0].button);
    EXPECT_EQ(cursor, clicks[0].cursor);
    EXPECT_EQ(&clicks, clicks[0].data);
    PointAt(300, 300);
    Click();
    EXPECT_EQ(1u, clicks.size()) << "beside the menu";
}

TEST_F(OrvMenuTest, SubMenusOpenOnHoverOrClickAndCloseWhenLeft)
{
    OrvMenu* root = MakeMenu(400, 300);
    OrvMenu* options = MakeMenu(0, 0);
    root->AddActionButton("Play", Record, &clicks);
    OrvButton* more = root->AddSubMenuButton("More", options);
    EXPECT_EQ("SubMenu_More", Text(options->GetType()));
    EXPECT_EQ(options, more->GetChild(1));
    OrvButton* sound = options->AddActionButton("Sound", Record, &clicks);
    options->AddActionButton("Screen", Record, &clicks);
    EXPECT_TRUE(Hidden(options));
    EXPECT_TRUE(Hidden(sound)) << "a button added to a hidden menu is hidden too";

    // More is 40 × 20 at (400, 280); Options opens on its right.
    PointAt(405, 285);
    game.Update(0.1f);
    EXPECT_TRUE(Hidden(options));
    game.Update(0.15f);
    ASSERT_TRUE(Shown(options)) << "opened 0.2 s after the cursor came";
    EXPECT_TRUE(Shown(sound));
    EXPECT_EQ(OrvVector3D(20 + 30, 0, -0.01f), options->GetPosition());

    // Onto the sub-menu: it stays open, and its buttons work.
    PointAt(445, 285);
    game.Update(0.3f);
    EXPECT_TRUE(Shown(options));
    EXPECT_TRUE(Shown(root)) << "a menu of its own stays up";
    Click();
    ASSERT_EQ(1u, clicks.size());
    EXPECT_EQ(sound, clicks[0].button);

    // Away from both: closed 0.2 s later.
    PointAt(100, 100);
    game.Update(0.1f);
    EXPECT_TRUE(Shown(options));
    game.Update(0.15f);
    EXPECT_TRUE(Hidden(options));
    EXPECT_TRUE(Shown(root));

    // Passing over the button too quickly opens nothing; a click opens at once.
    PointAt(405, 285);
    game.Update(0.1f);
    PointAt(100, 100);
    game.Update(0.3f);
    EXPECT_TRUE(Hidden(options));
    PointAt(405, 285);
    Click();
    EXPECT_TRUE(Shown(options));
}

TEST_F(OrvMenuTest, ASubMenuButtonNeedsAMenuOfItsOwn)
{
    OrvMenu* root = MakeMenu(0, 0);
    const unsigned int assets = game.GetGameAssetManager()->GetGameAssetCount();
    EXPECT_EQ("Orv Tree Node Exception | You tried to add a Null pointer as a child | template/OrvTTreeNode",
              Thrown([&] { root->AddSubMenuButton("None", nullptr); }).Full());
    OrvMenu* taken = MakeMenu(0, 0);
    taken->AttachTo(root);
    EXPECT_EQ("You tried to add a child that already has a parent",
              Thrown([&] { root->AddSubMenuButton("Taken", taken); }).message);
    game.GetGameAssetManager()->CleanUp();
    EXPECT_EQ(assets + 1, game.GetGameAssetManager()->GetGameAssetCount()) << "no button or label left over";
    EXPECT_EQ(1u, root->GetChildCount());
}

#include <gtest/gtest.h>

#include "OrvButton.h"
#include "OrvButtonDesc.h"
#include "OrvColorMaterial.h"
#include "OrvLabel.h"
#include "OrvLabelDesc.h"
#include "OrvMaterialShelf.h"
#include "OrvMenu.h"
#include "OrvMenuDesc.h"
#include "OrvRenderer.h"
#include "OrvVector2D.h"
#include "OrvWidgetFixture.h"

namespace
{
// Red, green, blue and alpha as 0xRRGGBBAA, rounded to bytes.
unsigned int Rgba(const OrvColor& color)
{
    auto byte = [](float v) { return static_cast<unsigned int>(v * 255.0f + 0.5f); };
    return byte(color.GetRed()) << 24 | byte(color.GetGreen()) << 16 | byte(color.GetBlue()) << 8 |
           byte(color.GetAlpha());
}

class OrvLabelButtonTest : public OrvWidgetTest
{
protected:
    OrvLabel* MakeLabel(const char* text, OrvFont* font, float coefficient = 1.0f)
    {
        OrvLabelDesc desc;
        desc.text = text;
        desc.font = font;
        desc.fontSizeCoef = coefficient;
        return Make<OrvLabel>(desc);
    }
    // A button around (400, 300): red and white, green and black under a
    // cursor, blue and grey while pressed.
    OrvButton* MakeButton(const char* text, OrvFont* font)
    {
        OrvButtonDesc desc;
        desc.type = "Play";
        desc.position.Set(400, 300, 0);
        desc.labelDesc.text = text;
        desc.labelDesc.font = font;
        desc.labelDesc.align = FONT_ALIGN_CENTER;
        desc.backgroundNormalColor = OrvColor(1.0f, 0.0f, 0.0f, 1.0f);
        desc.backgroundHoverColor = OrvColor(0.0f, 1.0f, 0.0f, 1.0f);
        desc.backgroundPressedColor = OrvColor(0.0f, 0.0f, 1.0f, 1.0f);
        desc.textHoverColor = OrvColor(0.0f, 0.0f, 0.0f, 1.0f);
        return Make<OrvButton>(desc);
    }
};
}  // namespace

TEST_F(OrvLabelButtonTest, ALabelIsAsLargeAsItsText)
{
    OrvFont* font = MakeFont(10, 2, 12);
    OrvLabel* label = MakeLabel("abc", font);
    EXPECT_FLOAT_EQ(34.0f, label->GetWidth());
    EXPECT_FLOAT_EQ(24.0f, label->GetHeight()) << "twice the cell height";

    label->SetText("abcd");
    EXPECT_FLOAT_EQ(46.0f, label->GetWidth());
    label->SetText("");
    EXPECT_FLOAT_EQ(0.0f, label->GetWidth()) << "no text, no width";
    EXPECT_FLOAT_EQ(68.0f, MakeLabel("abc", font, 2.0f)->GetWidth()) << "scaled by the size coefficient";

    label->SetWidth(5);
    label->SetText("abcdef");
    EXPECT_FLOAT_EQ(5.0f, label->GetWidth()) << "no longer sized automatically";
    EXPECT_EQ("abcdef", Text(label->GetText()));
    EXPECT_NO_THROW(MakeLabel("abc", nullptr)->Render()) << "without a font nothing is drawn or sized";
}

TEST_F(OrvLabelButtonTest, AButtonGrowsToItsLabelButNeverShrinks)
{
    OrvFont* font = MakeFont(10, 2, 12);
    OrvButton* button = MakeButton("abc", font);
    EXPECT_FLOAT_EQ(34.0f, button->GetWidth()) << "from the 2 × 2 quad to the label";
    EXPECT_FLOAT_EQ(24.0f, button->GetHeight());
    ASSERT_EQ(1u, button->GetChildCount());
    EXPECT_EQ(button->GetLabel(), button->GetChild(0));
    EXPECT_EQ("PlayLabel", Text(button->GetLabel()->GetType()));

    button->SetText("abcdefgh");
    EXPECT_FLOAT_EQ(94.0f, button->GetWidth());
    button->SetText("a");
    EXPECT_FLOAT_EQ(94.0f, button->GetWidth()) << "a smaller label leaves it as it is";

    button->SetDimension(OrvVector2D(200, 100));
    button->SetText("abcdefghijklmnopqrst");
    EXPECT_FLOAT_EQ(200.0f, button->GetWidth()) << "sized by hand: the text changes nothing";
    button->ComputeOptimalSize();
    EXPECT_FLOAT_EQ(238.0f, button->GetWidth()) << "wider label: its width";
    EXPECT_FLOAT_EQ(100.0f, button->GetHeight()) << "lower label: its own height";
}

TEST_F(OrvLabelButtonTest, ButtonColoursFollowTheCursor)
{
    OrvFont* font = MakeFont(10, 2, 12);
    OrvButton* button = MakeButton("abc", font);
    button->SetDimension(OrvVector2D(200, 100));
    auto colors = [&] {
        return std::to_string(Rgba(button->GetColorMaterial()->GetColor())) + " " +
               std::to_string(Rgba(button->GetLabel()->GetFontColor()));
    };
    const std::string normal = std::to_string(0xFF0000FFu) + " " + std::to_string(0xFFFFFFFFu);
    const std::string hover = std::to_string(0x00FF00FFu) + " " + std::to_string(0x000000FFu);
    const std::string pressed = std::to_string(0x0000FFFFu) + " " + std::to_string(0xB3B3B3FFu);
    EXPECT_EQ(normal, colors());
    PointAt(400, 300);
    EXPECT_EQ(hover, colors());
    Press();
    EXPECT_EQ(pressed, colors());
    Release();
    EXPECT_EQ(hover, colors());
    PointAt(100, 100);
    EXPECT_EQ(normal, colors());

    // Drawn in the HUD: the pressed quad, and the label's white cells over it.
    PointAt(400, 300);
    Press();
    button->AttachTo(game.GetHUDRoot());
    button->SetPosition(OrvVector3D(0, 0, 0));
    game.GetRenderer()->PreRender();
    game.RenderHUD();
    EXPECT_TRUE(PixelIs(480, 300, 0x0000FF));
    EXPECT_TRUE(PixelIs(390, 300, 0xB3B3B3)) << "the text in the pressed colour";
    EXPECT_TRUE(PixelIs(520, 300, 0x000000)) << "outside the button";
}

TEST_F(OrvLabelButtonTest, WidgetsWithAQuadNeedTheShelfsRenderer)
{
    OrvFont* font = MakeFont(10, 2, 12);
    game.GetMaterialShelf()->Init(nullptr);
    const std::string refused =
        "Orv Renderer Exception | Renderer is null, can't use material shelf (try calling Init method) | "
        "include/OrvMaterialShelf";
    const unsigned int assets = game.GetGameAssetManager()->GetGameAssetCount();
    EXPECT_EQ(refused, Thrown([&] { MakeLabel("abc", font); }).Full());
    EXPECT_EQ(refused, Thrown([&] { MakeButton("abc", font); }).Full());
    OrvMenuDesc menu;
    EXPECT_EQ(refused, Thrown([&] { Make<OrvMenu>(menu); }).Full());
    EXPECT_EQ(refused,
              Thrown([&] { game.CreateDebugSprite(OrvVector3D(), OrvColor(), 1.0f); }).Full());
    game.GetMaterialShelf()->Init(game.GetRenderer());
    game.GetGameAssetManager()->CleanUp();
    EXPECT_EQ(assets, game.GetGameAssetManager()->GetGameAssetCount()) << "nothing half made is left";
}

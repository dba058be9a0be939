#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "OrvInputException.h"
#include "OrvSpriteAnimation.h"
#include "OrvSpriteAnimationPlayer.h"
#include "OrvTextField.h"
#include "OrvTextFieldDesc.h"
#include "OrvVector2D.h"
#include "OrvWidget.h"
#include "OrvWidgetDesc.h"
#include "OrvWidgetFixture.h"

namespace
{
// Logs every notification; the callbacks log with their user data.
class RecordingWidget : public OrvWidget
{
public:
    std::vector<std::string> log;

    void CursorEntered(OrvCursor* cursor) override
    {
        log.push_back("entered");
        OrvWidget::CursorEntered(cursor);
    }
    void CursorExit(OrvCursor* cursor) override
    {
        log.push_back("exit");
        OrvWidget::CursorExit(cursor);
    }
    void CursorPressed(OrvCursor* cursor) override
    {
        log.push_back("pressed");
        OrvWidget::CursorPressed(cursor);
    }
    void CursorReleased(OrvCursor* cursor) override
    {
        log.push_back("released");
        OrvWidget::CursorReleased(cursor);
    }
    void CursorPressedAndReleased(OrvCursor* cursor) override
    {
        log.push_back("clicked");
        OrvWidget::CursorPressedAndReleased(cursor);
    }
};

void LogCallback(OrvWidget* widget, OrvCursor*, void* data)
{
    static_cast<RecordingWidget*>(widget)->log.push_back(std::string("callback ") + static_cast<const char*>(data));
}

class OrvWidgetBaseTest : public OrvWidgetTest
{
protected:
    // 100 × 50 around (400, 300).
    RecordingWidget* MakeTarget(bool listen = true)
    {
        OrvWidgetDesc desc;
        desc.position.Set(400, 300, 0);
        desc.listenToCursors = listen;
        RecordingWidget* widget = Make<RecordingWidget>(desc);
        widget->SetDimension(OrvVector2D(100, 50));
        return widget;
    }
    using Log = std::vector<std::string>;
};
}  // namespace

TEST_F(OrvWidgetBaseTest, CursorsEnterLeavePressAndRelease)
{
    RecordingWidget* widget = MakeTarget();
    char enterData[] = "enter", exitData[] = "exit", clickData[] = "click";
    widget->SetEnterCallback(LogCallback, enterData);
    widget->SetExitCallback(LogCallback, exitData);
    widget->SetPressedAndReleasedCallback(LogCallback, clickData);

    PointAt(200, 300);
    PointAt(380, 310);
    PointAt(420, 290);
    PointAt(449, 324);
    EXPECT_EQ((Log{"entered", "callback enter"}), widget->log) << "once, however it moves inside";
    EXPECT_TRUE(widget->IsCursorOver(cursor));
    PointAt(460, 300);
    EXPECT_EQ((Log{"entered", "callback enter", "exit", "callback exit"}), widget->log);

    // Pressed over it, out and back in, released: no click, but a release.
    widget->log.clear();
    PointAt(400, 300);
    Press();
    PointAt(600, 300);
    PointAt(400, 300);
    Release();
    EXPECT_EQ((Log{"entered", "callback enter", "pressed", "exit", "callback exit", "entered", "callback enter",
                   "released"}),
              widget->log);

    widget->log.clear();
    Press();
    Release();
    EXPECT_EQ((Log{"pressed", "released", "clicked", "callback click"}), widget->log);
    EXPECT_EQ(0u, widget->GetPressedCursorCount());

    // Pressed outside, released inside: no click either; a null callback is off.
    widget->log.clear();
    widget->SetPressedAndReleasedCallback(nullptr, clickData);
    PointAt(100, 100);
    Press();
    PointAt(400, 300);
    Release();
    Press();
    Release();
    EXPECT_EQ((Log{"exit", "callback exit", "entered", "callback enter", "released", "pressed", "released", "clicked"}),
              widget->log);
}

TEST_F(OrvWidgetBaseTest, DisablingForgetsTheCursors)
{
    RecordingWidget* widget = MakeTarget();
    PointAt(400, 300);
    Press();
    ASSERT_EQ(1u, widget->GetOverCursorCount());
    ASSERT_EQ(1u, widget->GetPressedCursorCount());
    widget->SetEnabled(false, false);
    EXPECT_EQ(0u, widget->GetOverCursorCount());
    EXPECT_EQ(0u, widget->GetPressedCursorCount());
    widget->log.clear();
    PointAt(410, 300);
    Release();
    EXPECT_TRUE(widget->log.empty()) << "a disabled widget hears nothing";

    widget->SetEnabled(true, false);
    Release();
    EXPECT_TRUE(widget->log.empty()) << "not over it until the next motion";
    PointAt(420, 300);
    EXPECT_EQ((std::vector<std::string>{"entered"}), widget->log);

    RecordingWidget* deaf = MakeTarget(false);
    PointAt(400, 300);
    EXPECT_TRUE(deaf->log.empty());
    EXPECT_FALSE(deaf->GetListenToCursors());
}

TEST_F(OrvWidgetBaseTest, SizesSetByHandTurnAutomaticSizeOff)
{
    RecordingWidget* widget = MakeTarget();
    widget->SetAutoSize(true);
    widget->SetWidth(100);
    EXPECT_FALSE(widget->GetAutoSize());
    widget->SetHeight(30);
    EXPECT_FLOAT_EQ(100.0f, widget->GetWidth()) << "each keeps the other extent";
    EXPECT_FLOAT_EQ(30.0f, widget->GetHeight());
    widget->SetScale(OrvVector3D(2, 3, 1));
    EXPECT_FLOAT_EQ(200.0f, widget->GetWidth()) << "extents in world space";
    EXPECT_FLOAT_EQ(90.0f, widget->GetHeight());
}

TEST_F(OrvWidgetBaseTest, AMouseIsNeededOnlyToFollowCursors)
{
    game.GetInputManager()->RemoveAllDevices();
    mouse = nullptr;
    keyboard = nullptr;
    const unsigned int listeners = game.GetInputManager()->GetListnerCount();
    const Thrown noMouse([&] { MakeTarget(); });
    EXPECT_EQ(listeners, game.GetInputManager()->GetListnerCount()) << "nothing left registered";
    EXPECT_EQ("Orv Input Exception | You tried to add an invalid device. | src/Input/OrvInputListner", noMouse.Full());
    EXPECT_NO_THROW(MakeTarget(false));
    OrvTextFieldDesc field;
    field.listenToCursors = false;
    EXPECT_EQ("You tried to add an invalid device.", Thrown([&] { Make<OrvTextField>(field); }).message)
        << "a text field needs a keyboard";
}

TEST_F(OrvWidgetBaseTest, SpriteAnimationsSizeTheQuad)
{
    SaveTGA("Hero.tga", 64, 32, [](unsigned int, unsigned int) { return 0xFFFFFFFFu; });
    OrvScratchDir::Write("SpriteSets.xml",
                         "<SpriteSets><SpriteSet><Name>Hero</Name>"
                         "<Sprite><Name>big</Name><XOrigin>0</XOrigin><YOrigin>0</YOrigin><XDimension>32</XDimension>"
                         "<YDimension>32</YDimension></Sprite>"
                         "<Sprite><Name>small</Name><XOrigin>32</XOrigin><YOrigin>0</YOrigin><XDimension>16</XDimension>"
                         "<YDimension>8</YDimension></Sprite></SpriteSet></SpriteSets>");
    OrvScratchDir::Write("Animations.xml",
                         "<Animations>"
                         "<Animation><Name>grow</Name><Speed>10</Speed><Loop>0</Loop>"
                         "<Frame><Name>small</Name><XOffset>0</XOffset><YOffset>0</YOffset></Frame>"
                         "<Frame><Name>big</Name><XOffset>0</XOffset><YOffset>0</YOffset></Frame></Animation>"
                         "<Animation><Name>idle</Name><Speed>10</Speed><Loop>1</Loop>"
                         "<Frame><Name>small</Name><XOffset>0</XOffset><YOffset>0</YOffset></Frame></Animation>"
                         "</Animations>");
    RecordingWidget* widget = MakeTarget();
    widget->PlaySpriteAnimation("grow", "idle", true, false);
    OrvSpriteAnimationPlayer* player = widget->GetSpriteAnimationPlayer();
    ASSERT_NE(nullptr, player->GetSpriteAnimation());
    ASSERT_NE(nullptr, player->GetNextSpriteAnimation());
    EXPECT_EQ(OrvUnicode("idle"), player->GetNextSpriteAnimation()->GetName());
    EXPECT_FALSE(player->GetMirrorX());

    widget->Update(0.01f);
    EXPECT_FLOAT_EQ(16.0f, widget->GetWidth());
    EXPECT_FLOAT_EQ(8.0f, widget->GetHeight());
    widget->Update(0.1f);
    EXPECT_FLOAT_EQ(32.0f, widget->GetWidth()) << "the next frame's sprite";
    widget->Update(0.2f);
    EXPECT_EQ(OrvUnicode("idle"), player->GetSpriteAnimation()->GetName()) << "chained at the end";
    EXPECT_TRUE(player->GetMirrorX());
    EXPECT_FLOAT_EQ(16.0f, widget->GetWidth());

    widget->PlaySpriteAnimation("grow", true, true);
    EXPECT_EQ(nullptr, player->GetNextSpriteAnimation()) << "nothing queued";
    EXPECT_TRUE(player->GetIsPlaying());
    EXPECT_TRUE(player->GetMirrorY());
}

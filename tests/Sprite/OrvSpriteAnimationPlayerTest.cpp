#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "OrvSprite.h"
#include "OrvSpriteAnimation.h"
#include "OrvSpriteAnimationFrame.h"
#include "OrvSpriteAnimationPlayer.h"

namespace
{
struct Log
{
    std::vector<std::string> entries;
    static void Ended(OrvSpriteAnimationPlayer* player, void* log)
    {
        static_cast<Log*>(log)->entries.push_back("end@" + std::to_string(player->GetCurrentFrameIndex()));
    }
    static void Started(OrvSpriteAnimationPlayer* player, void* log)
    {
        static_cast<Log*>(log)->entries.push_back("frame" + std::to_string(player->GetCurrentFrameIndex()));
    }
};

// Four frames a quarter second each, of one sprite.
class OrvPlayerTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        walk.Create("walk", 0.25f, false);
        run.Create("run", 0.1f, true);
        for (int i = 0; i < 4; ++i)
        {
            walk.AddFrame(new OrvSpriteAnimationFrame(&sprite, OrvVector2D(static_cast<float>(i), 0), OrvVector2D()));
            run.AddFrame(new OrvSpriteAnimationFrame(&sprite, OrvVector2D(), OrvVector2D()));
        }
    }
    OrvSprite sprite;
    OrvSpriteAnimation walk, run;
    Log log;
};
}  // namespace

TEST_F(OrvPlayerTest, TheTimelineCallsFramesOnceAndEndsAOneShot)
{
    OrvSpriteAnimationPlayer player;
    player.AddAnimationFrameStartedCallback("walk", &Log::Started, &log);
    player.AddAnimationFrameStartedCallback("walk", &Log::Started, &log);
    player.AddAnimationEndedCallback("walk", &Log::Ended, &log);
    player.AddAnimationEndedCallback("run", &Log::Ended, &log);
    EXPECT_EQ(nullptr, player.GetCurrentFrame());
    player.SetSpriteAnimation(&walk, false, false);
    EXPECT_EQ(1, walk.GetUserCount());
    EXPECT_EQ(4, sprite.GetUserCount()) << "one user per frame showing it";

    player.AddTime(0.375f);
    player.AddTime(0.0625f);
    EXPECT_EQ((std::vector<std::string>{"frame1"}), log.entries) << "into frame 1 once; still frame 1 at 0.4375";
    player.AddTime(0.6f);
    EXPECT_EQ("end@1", log.entries.back()) << "the end is called with the time left where it was";
    EXPECT_FALSE(player.GetIsPlaying());
    EXPECT_EQ(walk.GetFrame(1), player.GetCurrentFrame());
    player.AddTime(5.0f);
    EXPECT_EQ(2u, log.entries.size()) << "stopped";

    player.SetCurrentFrame(2);
    EXPECT_FLOAT_EQ(0.5f, player.GetTime());
    player.SetCurrentFrame(9);
    EXPECT_EQ(0.0f, player.GetTime());
    player.SetIsPlaying(true);
    player.SetCurrentFrame(3);
    player.AddTime(0.2f);
    EXPECT_EQ(walk.GetFrame(3), player.GetCurrentFrame()) << "past the end a one-shot shows its last frame";

    player.RemoveAnimationEndedCallbacks("walk");
    player.RemoveAnimationFrameStartedCallback("walk", &Log::Started, &log);
    log.entries.clear();
    player.SetIsPlaying(true);
    player.SetCurrentFrame(0);
    player.AddTime(0.3f);
    player.AddTime(1.0f);
    EXPECT_TRUE(log.entries.empty()) << "callbacks removed";
}

TEST_F(OrvPlayerTest, LoopsRestartAndNextAnimationsTakeOver)
{
    OrvSpriteAnimationPlayer player;
    player.AddAnimationFrameStartedCallback("run", &Log::Started, &log);
    player.AddAnimationEndedCallback("run", &Log::Ended, &log);
    player.SetSpriteAnimation(&run, false, false);
    player.AddTime(0.45f);
    EXPECT_EQ((std::vector<std::string>{"end@0", "frame0"}), log.entries)
        << "a loop ends, then starts again from 0 with its first frame";
    EXPECT_EQ(0.0f, player.GetTime()) << "the time beyond the end is dropped";
    player.AddTime(0.05f);
    player.AddTime(0.2f);
    EXPECT_EQ("frame2", log.entries.back()) << "skipping frame 1 calls the frame callbacks once";
    EXPECT_EQ(3u, log.entries.size());

    player.SetSpriteAnimation(&run, false, false);
    EXPECT_FLOAT_EQ(0.25f, player.GetTime()) << "asking again does not restart";
    EXPECT_EQ(1, run.GetUserCount());
    player.SetSpriteAnimation(&run, true, false);
    EXPECT_EQ(0.0f, player.GetTime()) << "another mirroring restarts";
    EXPECT_TRUE(player.GetMirrorX());

    player.SetNextSpriteAnimation(&walk, false, true);
    EXPECT_EQ(1, walk.GetUserCount());
    player.AddTime(0.5f);
    EXPECT_EQ(&walk, player.GetSpriteAnimation());
    EXPECT_EQ(nullptr, player.GetNextSpriteAnimation());
    EXPECT_TRUE(player.GetMirrorY());
    EXPECT_FALSE(player.GetMirrorX());
    EXPECT_EQ(0.0f, player.GetTime());
    EXPECT_EQ(0, run.GetUserCount());
    EXPECT_EQ(1, walk.GetUserCount());

    {
        OrvSpriteAnimationPlayer copy(player);
        EXPECT_EQ(2, walk.GetUserCount()) << "a copy holds a user of its own";
    }
    EXPECT_EQ(1, walk.GetUserCount());
}

TEST_F(OrvPlayerTest, AnAnimationWithoutAFiniteFrameDurationIsPaused)
{
    // "Speed" 0 in an animations file stores 1 / 0; a zero or negative
    // duration set by the game pauses too.
    for (float duration : {1.0f / 0.0f, 0.0f, -0.25f})
    {
        walk.SetSpeed(duration);
        EXPECT_TRUE(walk.IsPaused()) << duration;
        OrvSpriteAnimationPlayer player;
        player.AddAnimationEndedCallback("walk", &Log::Ended, &log);
        player.AddAnimationFrameStartedCallback("walk", &Log::Started, &log);
        player.SetSpriteAnimation(&walk, false, false);
        player.SetCurrentFrame(2);
        for (int i = 0; i < 3; ++i)
            player.AddTime(1000.0f);
        EXPECT_EQ(0u, player.GetCurrentFrameIndex()) << duration;
        EXPECT_TRUE(log.entries.empty()) << duration << ": " << log.entries.front();
    }
    walk.SetSpeed(0.25f);
    EXPECT_FALSE(walk.IsPaused());
}

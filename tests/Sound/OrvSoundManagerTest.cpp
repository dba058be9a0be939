#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <string>
#include <thread>

#include <AL/alc.h>

#include "OrvSound.h"
#include "OrvSoundManager.h"
#include "OrvTestBytes.h"
#include "OrvTestGame.h"

namespace
{
// A 16-bit mono tone at 8 kHz lasting `milliseconds`.
std::string Tone(int milliseconds, unsigned int channels = 1, unsigned int bits = 16)
{
    Wav wav;
    wav.channels = channels;
    wav.bits = bits;
    wav.rate = 8000;
    const int frames = 8 * milliseconds;
    for (int i = 0; i < frames; ++i)
    {
        const int value = static_cast<int>(8000.0 * std::sin(i * 0.3));
        for (unsigned int c = 0; c < channels; ++c)
            wav.samples += bits == 16 ? Le16(static_cast<unsigned long>(value) & 0xFFFF) : std::string(1, '\x80');
    }
    return wav.Bytes();
}

// Updates the manager until `done` holds; false after two seconds.
bool UpdateUntil(OrvSoundManager& sounds, const std::function<bool()>& done)
{
    for (int i = 0; i < 400; ++i)
    {
        sounds.Update();
        if (done())
            return true;
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return false;
}

bool Silent()
{
    const char* drivers = std::getenv("ALSOFT_DRIVERS");
    return drivers != nullptr && std::strcmp(drivers, "nothing") == 0;
}

int g_stopAlls = 0;

// The game's own sound manager, on openal-soft's null backend.
class OrvSoundTest : public OrvGameTest
{
protected:
    void SetUp() override
    {
        if (Silent())
            GTEST_SKIP() << "runs where an audio device opens";
        OrvGameTest::SetUp();
        sounds = game.GetSoundManager();
        ASSERT_TRUE(sounds->HasDevice());
        for (int i = 0; i < 13; ++i)
            OrvScratchDir::Write("long" + std::to_string(i) + ".wav", Tone(3000));
        OrvScratchDir::Write("short.wav", Tone(40));
        OrvScratchDir::Write("intro.wav", Tone(60));
        OrvScratchDir::Write("loop.wav", Tone(40));
    }
    void TearDown() override
    {
        if (!Silent())
            OrvGameTest::TearDown();
    }
    OrvSoundManager* sounds = nullptr;
};
}  // namespace

TEST(OrvSoundSilent, WithoutADeviceEverythingIsNeutral)
{
    if (!Silent())
        GTEST_SKIP() << "runs with ALSOFT_DRIVERS=nothing (its own ctest entry)";
    OrvGameFolder folder;
    OrvTestGame game;
    game.Initialise(32, 32);
    OrvSoundManager* sounds = game.GetSoundManager();
    EXPECT_FALSE(sounds->HasDevice());
    EXPECT_FALSE(sounds->GetIsActivated());
    sounds->PlaySound("missing.wav", 1.0f, false, 0);
    EXPECT_EQ(0u, sounds->GetSoundCount()) << "nothing loaded, nothing recorded";
    EXPECT_FALSE(sounds->IsSoundPlaying("missing.wav"));
    EXPECT_EQ(0.0f, sounds->GetGain("missing.wav"));
    EXPECT_EQ(-1, sounds->GetSourceIndex("missing.wav"));
    EXPECT_EQ(-1, sounds->GetFreeBuffer());
    sounds->Update();
    sounds->SetIsActivated(false);
    sounds->StopAllSounds();
    game.Term();
}

TEST(OrvSoundDeviceMessage, OneLineWithoutADeviceNothingWithOne)
{
    // Whatever backends this runs with (its ctest entries choose them):
    // only the manager's own line, and only when no device opened.
    testing::internal::CaptureStderr();
    bool device = false;
    {
        OrvSoundManager sounds(nullptr);
        device = sounds.HasDevice();
    }
    const std::string said = testing::internal::GetCapturedStderr();
    EXPECT_EQ(device ? "" : "no sound device: playing without sound\n", said);
}

TEST(OrvSoundRefused, AFailedStartReleasesTheDevice)
{
    const char* limited = std::getenv("ORV_TEST_FEW_SOURCES");
    if (limited == nullptr)
        GTEST_SKIP() << "runs where openal-soft allows fewer sources than the pool (its own ctest entry)";
    const Thrown refused([] { OrvSoundManager sounds(nullptr); });
    EXPECT_EQ("Orv Sound Exception | Error while generating OpenAL sources | src/Sound/OrvSoundManager",
              refused.Full());
    EXPECT_EQ(nullptr, alcGetCurrentContext()) << "the context went with the refusal";
}

TEST_F(OrvSoundTest, ThePoolHoldsTwelveAndReclaimsEndedSounds)
{
    sounds->PlaySound("short.wav", 1.0f, false, 0);
    for (int i = 0; i < 11; ++i)
        sounds->PlaySound(("long" + std::to_string(i) + ".wav").c_str(), 1.0f, false, 0);
    sounds->PlaySound("long11.wav", 1.0f, false, 0);
    EXPECT_FALSE(sounds->IsSoundPlaying("long11.wav")) << "the thirteenth finds no buffer";
    const OrvSound* waiting = sounds->GetSound(sounds->GetSoundIndex("long11.wav"));
    EXPECT_EQ(-1, waiting->GetBufferIndex());

    ASSERT_TRUE(UpdateUntil(*sounds, [&] { return !sounds->IsSoundPlaying("short.wav"); }));
    sounds->PlaySound("long11.wav", 1.0f, false, 0);
    EXPECT_TRUE(sounds->IsSoundPlaying("long11.wav")) << "the ended sound's buffer is taken";
    EXPECT_EQ(sounds->GetSoundCount(), sounds->GetSoundIndex("short.wav")) << "and its record forgotten";
    EXPECT_EQ(12u, sounds->GetSoundCount());

    // The WAV reader's limits, stricter here than the file's.
    OrvScratchDir::Write("eight.wav", Tone(20, 1, 8));
    Wav odd;
    odd.samples = "\1\2\3\4\5\6";
    OrvScratchDir::Write("odd.wav", odd.Bytes());
    sounds->SetSndOpCallback(OrvSoundManager::SND_OP_STOP_ALL, [](void*) {}, nullptr);
    sounds->StopAllSounds();
    ASSERT_TRUE(UpdateUntil(*sounds, [&] { return sounds->GetFreeSource() == 0; }));
    EXPECT_EQ("You tried to play a WAV sound whose data doesn't fit its block alignment",
              Thrown([&] { sounds->PlaySound("odd.wav", 1, false, 0); }).message);
    EXPECT_EQ("Orv Sound Exception | You tried to play a WAV sound that isn't 16 bits a sample | "
              "src/Sound/OrvSoundManager",
              Thrown([&] { sounds->QueueSound("eight.wav", 1, false, "", 0); }).Full());
}

TEST_F(OrvSoundTest, SoundsEndLoopAndRestart)
{
    sounds->PlaySound("short.wav", 0.8f, false, 0);
    EXPECT_TRUE(sounds->IsSoundPlaying("short.wav"));
    EXPECT_FLOAT_EQ(0.8f, sounds->GetGain("short.wav"));
    EXPECT_FLOAT_EQ(1.0f, sounds->GetPitch("short.wav"));
    ASSERT_TRUE(UpdateUntil(*sounds, [&] { return !sounds->IsSoundPlaying("short.wav"); }));

    sounds->PlaySound("loop.wav", 1.0f, true, 0);
    const int source = sounds->GetSourceIndex("loop.wav");
    const auto start = std::chrono::steady_clock::now();
    while (std::chrono::steady_clock::now() - start < std::chrono::milliseconds(250))
    {
        sounds->Update();
        ASSERT_EQ(source, sounds->GetSourceIndex("loop.wav")) << "a looping sound keeps its source";
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    sounds->PlaySound("loop.wav", 0.3f, true, 0);
    EXPECT_EQ(source, sounds->GetSourceIndex("loop.wav")) << "restarted on its own source";
    EXPECT_FLOAT_EQ(0.3f, sounds->GetGain("loop.wav"));
    sounds->SetPitch("loop.wav", 1.5f);
    EXPECT_FLOAT_EQ(1.5f, sounds->GetPitch("loop.wav"));
    sounds->StopSound("loop.wav");
    sounds->Update();
    EXPECT_FALSE(sounds->IsSoundPlaying("loop.wav")) << "the next update clears the stopped source";
}

TEST_F(OrvSoundTest, AQueuedSoundTakesOverItsPredecessorsSource)
{
    sounds->PlaySound("intro.wav", 1.0f, false, 1);
    sounds->QueueSound("loop.wav", 1.0f, true, "intro.wav", 1);
    const int source = sounds->GetSourceIndex("intro.wav");
    EXPECT_EQ(source, sounds->GetSourceIndex("loop.wav"));
    ASSERT_TRUE(UpdateUntil(*sounds, [&] { return !sounds->IsSoundPlaying("intro.wav"); }));
    EXPECT_EQ(source, sounds->GetSourceIndex("loop.wav")) << "the loop plays on";

    sounds->QueueSound("short.wav", 1.0f, false, "nothing-playing.wav", 0);
    EXPECT_TRUE(sounds->IsSoundPlaying("short.wav")) << "nothing to wait for: played at once";
    EXPECT_NE(source, sounds->GetSourceIndex("short.wav"));

    sounds->StopAllMusics();
    sounds->Update();
    EXPECT_FALSE(sounds->IsSoundPlaying("loop.wav")) << "a music";
    EXPECT_EQ("Invalid snd op parameter", Thrown([&] { sounds->SetIsActivated(false); }).message)
        << "no stop-all callback";
    EXPECT_FALSE(sounds->GetIsActivated());
    const Thrown unknownOperation(
        [&] { sounds->SetSndOpCallback(static_cast<OrvSoundManager::SND_OPS>(1), nullptr, nullptr); });
    EXPECT_EQ("Invalid snd op parameter | src/Sound/OrvSoundManager",
              unknownOperation.message + " | " + unknownOperation.file);
    g_stopAlls = 0;
    sounds->SetSndOpCallback(OrvSoundManager::SND_OP_STOP_ALL, [](void* count) { ++*static_cast<int*>(count); },
                             &g_stopAlls);
    sounds->StopAllSounds();
    EXPECT_EQ(1, g_stopAlls);
    sounds->PlaySound("long0.wav", 1.0f, false, 0);
    EXPECT_FALSE(sounds->IsSoundPlaying("long0.wav")) << "deactivated";
}

#include <gtest/gtest.h>

#include <string>

#include "OrvFileManager.h"
#include "OrvTestBytes.h"
#include "OrvWAVSoundFile.h"

namespace
{
std::string WavRefusal(const std::string& name, const Wav& wav)
{
    return Refusal<OrvWAVSoundFile>(name, wav.Bytes()).message;
}

const char* const kUnhandled = "Unhandled wav file, get to work ;-)";
}

using OrvWAVSoundFileTest = OrvScratchFiles;

TEST_F(OrvWAVSoundFileTest, LoadsCanonicalPCM)
{
    Wav wav;
    for (int i = 0; i < 4000; ++i)
        wav.samples += static_cast<char>(i * 7);
    // Bytes after the declared samples are not part of the sound.
    OrvScratchDir::Write("s.wav", wav.Bytes() + "LIST");
    OrvWAVSoundFile* sound = manager.GetOrLoad<OrvWAVSoundFile>("s.wav");
    EXPECT_EQ(2u, sound->GetChannelCount());
    EXPECT_EQ(44100u, sound->GetFrequency());
    EXPECT_EQ(176400u, sound->GetByteRate());
    EXPECT_EQ(4u, sound->GetBlockAlign());
    EXPECT_EQ(16u, sound->GetBitsPerSample());
    ASSERT_EQ(4000, sound->GetSize());
    EXPECT_EQ(wav.samples, AsString(sound->GetData(), 4000));
    EXPECT_EQ(nullptr, sound->GetSystemFile());

    Wav empty;
    empty.channels = 1;
    OrvScratchDir::Write("e.wav", empty.Bytes());
    OrvWAVSoundFile* silent = manager.GetOrLoad<OrvWAVSoundFile>("e.wav");
    EXPECT_EQ(0, silent->GetSize());
    EXPECT_EQ(1u, silent->GetChannelCount());
}

TEST_F(OrvWAVSoundFileTest, RefusesOtherAndShortWavFiles)
{
    Wav rifx, avi, floating;
    rifx.riff = "RIFX";
    EXPECT_EQ("Orv File Exception | " + std::string(kUnhandled) + " | src/File/OrvWAVSoundFile",
              Refusal<OrvWAVSoundFile>("rifx.wav", rifx.Bytes()).Full());
    avi.wave = "AVI ";
    EXPECT_EQ(kUnhandled, WavRefusal("avi.wav", avi));
    floating.format = 3;
    floating.bits = 32;
    EXPECT_EQ(kUnhandled, WavRefusal("float.wav", floating));
    EXPECT_EQ("The given file name doesn't have the right file extension", WavRefusal("s.WAV", Wav()));

    Wav wav, lying;
    wav.samples = "abcdefgh";
    ExpectEveryCutRefused<OrvWAVSoundFile>("cut.wav", wav.Bytes());
    lying.samples = "abcd";
    lying.declaredSize = 0xFFFFFFFF;
    EXPECT_EQ("WAV file shorter than its sample data : lying.wav", WavRefusal("lying.wav", lying));
}

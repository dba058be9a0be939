#include <gtest/gtest.h>

#include <string>

#include "OrvFileException.h"
#include "OrvFileManager.h"
#include "OrvScratchDir.h"
#include "OrvWAVSoundFile.h"

namespace
{
std::string Le16(unsigned int v)
{
    return std::string{static_cast<char>(v & 0xFF), static_cast<char>((v >> 8) & 0xFF)};
}

std::string Le32(unsigned long v)
{
    return Le16(v & 0xFFFF) + Le16((v >> 16) & 0xFFFF);
}

struct Wav
{
    std::string riff = "RIFF";
    std::string wave = "WAVE";
    unsigned int format = 1;
    unsigned int channels = 2;
    unsigned long rate = 44100;
    unsigned int bits = 16;
    std::string samples;
    long declaredSize = -1;

    std::string Bytes() const
    {
        const unsigned int align = channels * bits / 8;
        const unsigned long size = declaredSize < 0 ? samples.size() : static_cast<unsigned long>(declaredSize);
        return riff + Le32(36 + samples.size()) + wave + "fmt " + Le32(16) + Le16(format) + Le16(channels) +
               Le32(rate) + Le32(rate * align) + Le16(align) + Le16(bits) + "data" + Le32(size) + samples;
    }
};

std::string Refusal(const std::string& name, const std::string& bytes, std::string* file = nullptr)
{
    OrvScratchDir::Write(name, bytes);
    OrvFileManager manager;
    try
    {
        manager.GetOrLoad<OrvWAVSoundFile>(OrvUnicode(name.c_str()));
    }
    catch (const OrvFileException& e)
    {
        if (file != nullptr)
            *file = e.file;
        return e.message;
    }
    return "accepted";
}

const char* const kUnhandled = "Unhandled wav file, get to work ;-)";
}

TEST(OrvWAVSoundFile, LoadsCanonicalPCM)
{
    OrvScratchDir dir;
    OrvFileManager manager;
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
    EXPECT_EQ(wav.samples, std::string(reinterpret_cast<const char*>(sound->GetData()), 4000));
    EXPECT_EQ(nullptr, sound->GetSystemFile());

    Wav empty;
    empty.channels = 1;
    OrvScratchDir::Write("e.wav", empty.Bytes());
    OrvWAVSoundFile* silent = manager.GetOrLoad<OrvWAVSoundFile>("e.wav");
    EXPECT_EQ(0, silent->GetSize());
    EXPECT_EQ(1u, silent->GetChannelCount());
}

TEST(OrvWAVSoundFile, RefusesOtherWavFiles)
{
    OrvScratchDir dir;
    Wav rifx;
    rifx.riff = "RIFX";
    std::string file;
    EXPECT_EQ(kUnhandled, Refusal("rifx.wav", rifx.Bytes(), &file));
    EXPECT_EQ("src/File/OrvWAVSoundFile", file);
    Wav avi;
    avi.wave = "AVI ";
    EXPECT_EQ(kUnhandled, Refusal("avi.wav", avi.Bytes()));
    Wav floating;
    floating.format = 3;
    floating.bits = 32;
    EXPECT_EQ(kUnhandled, Refusal("float.wav", floating.Bytes()));
    EXPECT_EQ("The given file name doesn't have the right file extension", Refusal("s.WAV", Wav().Bytes()));
}

TEST(OrvWAVSoundFile, RefusesShortFiles)
{
    OrvScratchDir dir;
    Wav wav;
    wav.samples = "abcdefgh";
    const std::string bytes = wav.Bytes();
    for (size_t cut = 0; cut < bytes.size(); ++cut)
        EXPECT_NE(std::string::npos, Refusal("cut.wav", bytes.substr(0, cut)).find("cut.wav")) << "cut at " << cut;
    Wav lying;
    lying.samples = "abcd";
    lying.declaredSize = 0xFFFFFFFF;
    EXPECT_NE(std::string::npos, Refusal("lying.wav", lying.Bytes()).find("lying.wav"));
}

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "OrvFileManager.h"
#include "OrvPNGImageFile.h"
#include "OrvTestBytes.h"

namespace
{
// PNG reading is completed by the game with ResetImageData.
class GamePNGImageFile : public OrvPNGImageFile
{
public:
    void ResetImageData() override {}
};

// The message of the refusal, "nothing thrown" when the file is accepted.
std::string PngRefusal(const std::string& name, const std::string& bytes)
{
    return Refusal<GamePNGImageFile>(name, bytes).message;
}

const char* const kBadDepth = "Coulnd't read png file : invalid bit depth";
const char* const kCorrupted = "Couldn't read png file, the file is currupted";
}

using OrvPNGImageFileTest = OrvScratchFiles;

TEST_F(OrvPNGImageFileTest, ReadsTheHeaderAndThePalette)
{
    OrvScratchDir::Write("grey.png", Png(70000, 3, 16, 0, PngChunk("IDAT", "zz"), 1));
    GamePNGImageFile* image = manager.GetOrLoad<GamePNGImageFile>("grey.png");
    EXPECT_EQ(70000u, image->GetWidth());
    EXPECT_EQ(3u, image->GetHeight());
    EXPECT_EQ(16u, image->GetBitDepth());
    EXPECT_EQ(0u, image->GetColorType());
    EXPECT_EQ(1u, image->GetInterlaceMethod());
    EXPECT_EQ(nullptr, image->GetSystemFile());

    // Chunks are walked for the palette.
    const std::string chunks = PngChunk("tEXt", "note") + PngChunk("PLTE", "\x01\x02\xff\x10\x20\x30") +
                               PngChunk("IDAT", "abc") + PngChunk("IDAT", "");
    OrvScratchDir::Write("p.png", Png(4, 4, 4, 3, chunks) + "trailing");
    GamePNGImageFile* paletted = manager.GetOrLoad<GamePNGImageFile>("p.png");
    ASSERT_EQ(6u, paletted->GetPaletteValueCount());
    EXPECT_EQ((std::vector<unsigned int>{1, 2, 255, 16, 32, 48}),
              std::vector<unsigned int>(paletted->GetPalette(), paletted->GetPalette() + 6));

    // A copy owns a palette of its own.
    GamePNGImageFile copy(*paletted);
    ASSERT_NE(paletted->GetPalette(), copy.GetPalette());
    EXPECT_EQ(48u, copy.GetPalette()[5]);

    EXPECT_EQ("Orv File Exception | The file you tried to open is not a png file | src/File/OrvPNGImageFile",
              Refusal<GamePNGImageFile>("gif.png", "GIF89a" + std::string(40, '\0')).Full());
    // A signature whose CR LF became LF.
    EXPECT_EQ("The file you tried to open is not a png file",
              PngRefusal("unix.png", "\x89PNG\n\x1a\n" + Png(1, 1, 8, 2, "").substr(7)));
    EXPECT_EQ("The given file name doesn't have the right file extension", PngRefusal("a.PNG", Png(1, 1, 8, 2, "")));
}

TEST_F(OrvPNGImageFileTest, ChecksBitDepthByColorType)
{
    const std::set<int> greyDepths = {1, 2, 4, 8, 16};
    const std::set<int> paletteDepths = {1, 2, 4, 8};
    const std::set<int> wideDepths = {8, 16};
    const std::string palette = PngChunk("PLTE", "abc");
    for (int colorType = 0; colorType <= 8; ++colorType)
    {
        for (int depth : {0, 1, 2, 3, 4, 8, 12, 16, 32})
        {
            std::string expected = "nothing thrown";
            if (colorType == 1 || colorType == 5 || colorType > 6)
                expected = "Couldn't read png file : invalid color type";
            else if (!(colorType == 0 ? greyDepths : colorType == 3 ? paletteDepths : wideDepths).count(depth))
                expected = kBadDepth;
            EXPECT_EQ(expected, PngRefusal("t.png", Png(2, 2, depth, colorType, palette)))
                << "colour type " << colorType << ", depth " << depth;
        }
    }
}

TEST_F(OrvPNGImageFileTest, RefusesCorruptedAndShortFiles)
{
    const std::string plte = PngChunk("PLTE", "abcdef");
    const std::string good = Png(1, 1, 8, 3, plte + PngChunk("IDAT", "xyz"));
    EXPECT_EQ(kCorrupted, PngRefusal("noend.png", good.substr(0, good.size() - 12)));
    // The IDAT length points past the end.
    EXPECT_EQ(kCorrupted, PngRefusal("long.png", Png(1, 1, 8, 3, plte + Be32(1000) + "IDATxyz")));
    EXPECT_EQ(kCorrupted, PngRefusal("huge.png", Png(1, 1, 8, 3, plte + Be32(0xFFFFFFFF) + "IDATxyz")));
    EXPECT_EQ(kCorrupted, PngRefusal("plte.png", kPngSignature + PngChunk("IHDR", std::string(8, '\1') + "\x08\x03") +
                                                     Be32(50) + "PLTEabc"));

    // Every cut of a palette image is refused; short ones name the file.
    for (size_t cut = 0; cut < good.size(); ++cut)
    {
        const std::string message = PngRefusal("cut.png", good.substr(0, cut));
        if (cut < 33)
            EXPECT_NE(std::string::npos, message.find("cut.png")) << "cut at " << cut << ": " << message;
        else
            EXPECT_EQ(kCorrupted, message) << "cut at " << cut;
    }
}

#include <gtest/gtest.h>

#include <set>
#include <string>

#include "OrvFileException.h"
#include "OrvFileManager.h"
#include "OrvPNGImageFile.h"
#include "OrvScratchDir.h"

namespace
{
// PNG reading is completed by the game with ResetImageData.
class GamePNGImageFile : public OrvPNGImageFile
{
public:
    void ResetImageData() override {}
};

const std::string kSignature = "\x89PNG\r\n\x1a\n";

std::string Be32(unsigned long v)
{
    return std::string{static_cast<char>((v >> 24) & 0xFF), static_cast<char>((v >> 16) & 0xFF),
                       static_cast<char>((v >> 8) & 0xFF), static_cast<char>(v & 0xFF)};
}

// CRCs are not checked by the reader: they are left zero.
std::string Chunk(const std::string& type, const std::string& data)
{
    return Be32(data.size()) + type + data + std::string(4, '\0');
}

std::string Png(unsigned long width, unsigned long height, int depth, int colorType, const std::string& chunks,
                int interlace = 0)
{
    std::string ihdr = Be32(width) + Be32(height);
    ihdr += std::string{static_cast<char>(depth), static_cast<char>(colorType), 0, 0, static_cast<char>(interlace)};
    return kSignature + Chunk("IHDR", ihdr) + chunks + Chunk("IEND", "");
}

std::string Refusal(const std::string& name, const std::string& bytes, std::string* file = nullptr)
{
    OrvScratchDir::Write(name, bytes);
    OrvFileManager manager;
    try
    {
        manager.GetOrLoad<GamePNGImageFile>(OrvUnicode(name.c_str()));
    }
    catch (const OrvFileException& e)
    {
        if (file != nullptr)
            *file = e.file;
        return e.message;
    }
    return "accepted";
}

const char* const kBadDepth = "Coulnd't read png file : invalid bit depth";
const char* const kCorrupted = "Couldn't read png file, the file is currupted";
}

TEST(OrvPNGImageFile, ReadsTheImageHeader)
{
    OrvScratchDir dir;
    OrvFileManager manager;
    OrvScratchDir::Write("grey.png", Png(70000, 3, 16, 0, Chunk("IDAT", "zz"), 1));
    GamePNGImageFile* image = manager.GetOrLoad<GamePNGImageFile>("grey.png");
    EXPECT_EQ(70000u, image->GetWidth());
    EXPECT_EQ(3u, image->GetHeight());
    EXPECT_EQ(16u, image->GetBitDepth());
    EXPECT_EQ(0u, image->GetColorType());
    EXPECT_EQ(0u, image->GetCompressionMethod());
    EXPECT_EQ(0u, image->GetFilterMethod());
    EXPECT_EQ(1u, image->GetInterlaceMethod());
    EXPECT_EQ(nullptr, image->GetPalette());
    EXPECT_EQ(0u, image->GetImageDataSize());
    EXPECT_EQ(nullptr, image->GetSystemFile());

    std::string file;
    EXPECT_EQ("The file you tried to open is not a png file",
              Refusal("gif.png", "GIF89a" + std::string(40, '\0'), &file));
    EXPECT_EQ("src/File/OrvPNGImageFile", file);
    // A signature whose CR LF became LF.
    EXPECT_EQ("The file you tried to open is not a png file",
              Refusal("unix.png", "\x89PNG\n\x1a\n" + Png(1, 1, 8, 2, "").substr(7)));
    EXPECT_EQ("The given file name doesn't have the right file extension", Refusal("a.PNG", Png(1, 1, 8, 2, "")));
}

TEST(OrvPNGImageFile, ChecksBitDepthByColorType)
{
    OrvScratchDir dir;
    const std::set<int> greyDepths = {1, 2, 4, 8, 16};
    const std::set<int> paletteDepths = {1, 2, 4, 8};
    const std::set<int> wideDepths = {8, 16};
    const std::string palette = Chunk("PLTE", "abc");
    for (int colorType = 0; colorType <= 8; ++colorType)
    {
        for (int depth : {0, 1, 2, 3, 4, 8, 12, 16, 32})
        {
            std::string expected = "accepted";
            if (colorType == 1 || colorType == 5 || colorType > 6)
                expected = "Couldn't read png file : invalid color type";
            else if (!(colorType == 0 ? greyDepths : colorType == 3 ? paletteDepths : wideDepths).count(depth))
                expected = kBadDepth;
            EXPECT_EQ(expected, Refusal("t.png", Png(2, 2, depth, colorType, palette)))
                << "colour type " << colorType << ", depth " << depth;
        }
    }
}

TEST(OrvPNGImageFile, WalksChunksForThePalette)
{
    OrvScratchDir dir;
    OrvFileManager manager;
    const std::string chunks = Chunk("tEXt", "note") + Chunk("PLTE", "\x01\x02\xff\x10\x20\x30") +
                               Chunk("IDAT", "abc") + Chunk("IDAT", "");
    OrvScratchDir::Write("p.png", Png(4, 4, 4, 3, chunks) + "trailing");
    GamePNGImageFile* image = manager.GetOrLoad<GamePNGImageFile>("p.png");
    ASSERT_EQ(6u, image->GetPaletteValueCount());
    const unsigned int expected[] = {1, 2, 255, 16, 32, 48};
    for (unsigned int i = 0; i < 6; ++i)
        EXPECT_EQ(expected[i], image->GetPalette()[i]);

    // A copy owns a palette of its own.
    GamePNGImageFile copy(*image);
    ASSERT_NE(image->GetPalette(), copy.GetPalette());
    EXPECT_EQ(48u, copy.GetPalette()[5]);
}

TEST(OrvPNGImageFile, RefusesCorruptedAndShortFiles)
{
    OrvScratchDir dir;
    const std::string plte = Chunk("PLTE", "abcdef");
    const std::string good = Png(1, 1, 8, 3, plte + Chunk("IDAT", "xyz"));
    std::string file;
    EXPECT_EQ(kCorrupted, Refusal("noend.png", good.substr(0, good.size() - 12), &file));
    EXPECT_EQ("src/File/OrvPNGImageFile", file);
    // The IDAT length points past the end.
    EXPECT_EQ(kCorrupted, Refusal("long.png", Png(1, 1, 8, 3, plte + Be32(1000) + "IDATxyz")));
    EXPECT_EQ(kCorrupted, Refusal("huge.png", Png(1, 1, 8, 3, plte + Be32(0xFFFFFFFF) + "IDATxyz")));
    EXPECT_EQ(kCorrupted, Refusal("plte.png", kSignature + Chunk("IHDR", std::string(8, '\1') + "\x08\x03\0\0\0") +
                                                  Be32(50) + "PLTEabc"));

    // Every cut of a palette image is refused; short ones name the file.
    for (size_t cut = 0; cut < good.size(); ++cut)
    {
        const std::string message = Refusal("cut.png", good.substr(0, cut));
        if (cut < 33)
            EXPECT_NE(std::string::npos, message.find("cut.png")) << "cut at " << cut << ": " << message;
        else
            EXPECT_EQ(kCorrupted, message) << "cut at " << cut;
    }
}

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "OrvColor.h"
#include "OrvFont.h"
#include "OrvFontDesc.h"
#include "OrvColoredTextureMaterial.h"
#include "OrvPass.h"
#include "OrvTestBytes.h"
#include "OrvTestGame.h"

namespace
{
std::string Lines(const char* text, unsigned int length)
{
    OrvUnicode unicode;
    unicode.SetFromUTF8(text, length);
    OrvFont::unicode_chunk_struct chunks[8];
    unsigned int count = 0;
    OrvFont::GetUnicodeChunks(unicode, chunks, 8, count);
    std::string result;
    for (unsigned int i = 0; i < count; ++i)
        result += "[" + std::to_string(chunks[i].start) + "," + std::to_string(static_cast<int>(chunks[i].end)) + "]";
    return result;
}

// Every cell of the 16 × 16 grid a colour of its own, opaque.
unsigned int CellColour(unsigned int cell)
{
    return (((cell * 37u) & 0xFFu) << 24) | (((cell * 91u) & 0xFFu) << 16) | 0x8000u | 0xFFu;
}

class OrvFontTest : public OrvGameTest
{
protected:
    void SetUp() override
    {
        OrvGameTest::SetUp();
        SaveTGA("Cells.tga", 256, 256, [](unsigned int x, unsigned int row) { return CellColour(row / 16 * 16 + x / 16); });
        OrvFontDesc desc;
        desc.fileName = "Cells.tga";
        desc.imageWidth = desc.imageHeight = 256;
        desc.symbolWidth = desc.symbolHeight = 16;
        desc.symbolSpacing = 16;
        desc.sizeCoef = 0.5f;
        font.Create(&game, desc);
    }
    void TearDown() override
    {
        // A font lets go of its texture: before the texture manager goes.
        fontOwner.reset();
        OrvGameTest::TearDown();
    }
    ::testing::AssertionResult ShowsCell(int x, int y, unsigned int cell) { return PixelIs(x, y, CellColour(cell) >> 8); }

    std::unique_ptr<OrvFont> fontOwner{new OrvFont()};
    OrvFont& font = *fontOwner;
};
}  // namespace

TEST(OrvFontLayout, LinesAndGlyphCells)
{
    EXPECT_EQ("[0,2][4,3]", Lines("abc\n", 4)) << "a break at the end leaves an empty last line";
    EXPECT_EQ("[0,0][3,3]", Lines("a\r\nb", 4));
    EXPECT_EQ("[0,2]", Lines("a\rb", 3)) << "a lone CR is a character";
    EXPECT_EQ("[0,0][2,1][3,3]", Lines("a\n\nb", 4));
    EXPECT_EQ("[0,3]", Lines("\n\nab", 4)) << "leading breaks belong to the first line";
    EXPECT_EQ("[0,1]", Lines("ab\0cd", 5)) << "NUL ends the text";
    EXPECT_EQ("", Lines("", 0));
    OrvFont::unicode_chunk_struct one[1];
    unsigned int count = 9;
    OrvFont::GetUnicodeChunks(OrvUnicode("a\nb\nc"), one, 1, count);
    EXPECT_EQ(1u, count) << "never more than asked for";

    EXPECT_EQ(33u, OrvFont::GetGlyphCell('A'));
    EXPECT_EQ(34u, OrvFont::GetGlyphCell('B')) << "row 2, column 2 of a 16-column grid";
    EXPECT_EQ(0u, OrvFont::GetGlyphCell(' '));
    EXPECT_EQ(223u, OrvFont::GetGlyphCell(255));
    EXPECT_EQ(254u, OrvFont::GetGlyphCell('\t'));
    EXPECT_EQ(254u, OrvFont::GetGlyphCell(0x20AC));
}

TEST_F(OrvFontTest, GlyphsLandWhereTheLayoutPutsThem)
{
    EXPECT_EQ("Create() - non NULL app", Thrown([&] { font.Create(&game, OrvFontDesc()); }).message);
    EXPECT_EQ("copy constructor forbiden | src/Text/OrvFont", Thrown([&] { OrvFont copy(font); }).message +
                                                                   " | " + Thrown([&] { OrvFont copy(font); }).file);
    EXPECT_EQ("operator = forbiden", Thrown([&] { font = font; }).message);
    EXPECT_EQ(WRAP_CLAMP, font.GetMaterial()->GetPass(0)->GetWrapMethod());

    // W = H = 8 and S = 8: glyphs 16 pixels wide, 16 apart; line 1 lies 16 lower.
    renderer->TranslateMatrix(TRANS_MATRIX_MODEL, OrvVector3D(16, 40, 0));
    font.RenderText("AB\nC\tD", FONT_ALIGN_LEFT);
    EXPECT_TRUE(ShowsCell(16, 40, 33));
    EXPECT_TRUE(ShowsCell(32, 40, 34));
    EXPECT_TRUE(ShowsCell(16, 24, 35));
    EXPECT_TRUE(ShowsCell(32, 24, 254)) << "the tab shows cell 254";
    EXPECT_TRUE(ShowsCell(48, 24, 36));

    // Centred, W = 8 and S = 2: "abcd" starts 15 left of the origin.
    renderer->PreRender();
    font.SetSizeCoef(0.5f);
    OrvFontDesc narrow;
    narrow.fileName = "Cells.tga";
    narrow.imageWidth = narrow.imageHeight = 256;
    narrow.symbolWidth = narrow.symbolHeight = 16;
    narrow.symbolSpacing = 4;
    narrow.sizeCoef = 0.5f;
    OrvFont centred;
    centred.Create(&game, narrow);
    renderer->TranslateMatrix(TRANS_MATRIX_MODEL, OrvVector3D(32, 32, 0));
    centred.RenderText("abcd", FONT_ALIGN_CENTER);
    EXPECT_TRUE(ShowsCell(11, 32, 'a' - 31 - 1));
    EXPECT_TRUE(ShowsCell(53, 32, 'd' - 31 - 1));
    EXPECT_TRUE(PixelIs(4, 32, 0x000000));

    // Tinted: the colour multiplies the texels.
    renderer->PreRender();
    centred.SetColor(OrvColor(0.0f, 1.0f, 1.0f, 1.0f));
    renderer->TranslateMatrix(TRANS_MATRIX_MODEL, OrvVector3D(32, 32, 0));
    centred.RenderText("a", FONT_ALIGN_LEFT);
    EXPECT_TRUE(PixelIs(32, 32, (CellColour('a' - 32) >> 8) & 0x00FFFF));
}

TEST_F(OrvFontTest, OnlyTheFirst256LinesAreDrawn)
{
    std::string text;
    for (int i = 0; i < 300; ++i)
        text += "A\n";
    font.SetSizeCoef(0.125f);
    // Glyphs 4 pixels high, lines 4 apart: line 255 at y = 32, line 256 at y = 28.
    renderer->TranslateMatrix(TRANS_MATRIX_MODEL, OrvVector3D(16, 32 + 255 * 4, 0));
    font.RenderText(text.c_str(), FONT_ALIGN_LEFT);
    EXPECT_TRUE(ShowsCell(16, 32, 33));
    EXPECT_TRUE(ShowsCell(16, 36, 33));
    EXPECT_TRUE(PixelIs(16, 28, 0x000000));
}

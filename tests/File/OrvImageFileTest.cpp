#include <gtest/gtest.h>

#include <string>

#include "OrvBMPImageFile.h"
#include "OrvFileException.h"
#include "OrvFileManager.h"
#include "OrvTestBytes.h"
#include "OrvTGAImageFile.h"

namespace
{
// BMP reading is completed by the game with ResetImageData.
class GameBMPImageFile : public OrvBMPImageFile
{
public:
    void ResetImageData() override {}
};

template <class T>
T* Load(OrvFileManager& manager, const std::string& name, const std::string& bytes)
{
    OrvScratchDir::Write(name, bytes);
    return manager.GetOrLoad<T>(OrvUnicode(name.c_str()));
}

std::string DataOf(const OrvImageFile* image)
{
    return AsString(image->GetData(), image->GetImageDataSize());
}
}

using OrvTGAImageFileTest = OrvScratchFiles;
using OrvBMPImageFileTest = OrvScratchFiles;

TEST_F(OrvTGAImageFileTest, LoadSwapsToRGBAndSaveSwapsBack)
{
    const std::string file = Tga(0, 2, 2, 1, 32, "", Bytes({1, 2, 3, 4, 5, 6, 7, 8}), 0x28);
    OrvTGAImageFile* image = Load<OrvTGAImageFile>(manager, "a.tga", file);
    EXPECT_EQ(2u, image->GetWidth());
    EXPECT_EQ(1u, image->GetHeight());
    EXPECT_EQ(OrvImageFile::PIXEL_RGBA, image->GetPixelFormat());
    EXPECT_EQ(7u, image->GetXOrigin());
    EXPECT_EQ(9u, image->GetYOrigin());
    EXPECT_EQ(0x28, image->GetImageDescByte());
    EXPECT_EQ(Bytes({3, 2, 1, 4, 7, 6, 5, 8}), DataOf(image));
    EXPECT_EQ(nullptr, image->GetSystemFile());

    image->Save("copy.tga", OrvFile::SAVE_DEFAULT);
    image->Close();
    EXPECT_EQ(file, OrvScratchDir::Read("copy.tga"));

    // 24 bits, with an ID field that is skipped on load and not written back.
    OrvTGAImageFile* rgb = Load<OrvTGAImageFile>(manager, "b.tga", Tga(0, 2, 3, 1, 24, "hello", "ABCDEFGHI"));
    EXPECT_EQ(OrvImageFile::PIXEL_RGB, rgb->GetPixelFormat());
    EXPECT_EQ(5, rgb->GetIDFieldCharCount());
    EXPECT_EQ("CBAFEDIHG", DataOf(rgb));
    rgb->Save("out.tga", OrvFile::SAVE_DEFAULT);
    rgb->Close();
    EXPECT_EQ(Tga(0, 2, 3, 1, 24, "", "ABCDEFGHI"), OrvScratchDir::Read("out.tga"));
}

TEST_F(OrvTGAImageFileTest, RefusesWhatItCannotRead)
{
    EXPECT_EQ("Orv File Exception | TGA colors maps aren't supported, get to work ! | src/File/OrvTGAImageFile",
              Refusal<OrvTGAImageFile>("map.tga", Tga(1, 1, 1, 1, 8, "", "x")).Full());
    EXPECT_EQ("TGA image type not supported",
              Refusal<OrvTGAImageFile>("rle.tga", Tga(0, 10, 1, 1, 24, "", "abc")).message);
    EXPECT_EQ("TGA image type not supported",
              Refusal<OrvTGAImageFile>("grey.tga", Tga(0, 3, 1, 1, 8, "", "a")).message);
    EXPECT_EQ("TGA image pixel size not supported, get to work !",
              Refusal<OrvTGAImageFile>("16.tga", Tga(0, 2, 1, 1, 16, "", "ab")).message);
    EXPECT_EQ("The given file name doesn't have the right file extension",
              Refusal<OrvTGAImageFile>("a.TGA", Tga(0, 2, 1, 1, 24, "", "abc")).message);

    // A huge declared image with no pixels is refused before anything is allocated.
    EXPECT_EQ("TGA file shorter than its pixel data : big.tga",
              Refusal<OrvTGAImageFile>("big.tga", Tga(0, 2, 65535, 65535, 32, "", "ab")).message);
    ExpectEveryCutRefused<OrvTGAImageFile>("cut.tga", Tga(0, 2, 2, 2, 24, "id", "abcdefghijkl"));
}

TEST_F(OrvTGAImageFileTest, PasteCopiesTheSourceIntoPlace)
{
    OrvTGAImageFile target;
    target.SetWidth(4);
    target.SetHeight(4);
    target.SetImagePixelSize(32);
    target.ResetImageData();
    EXPECT_EQ(64u, target.GetImageDataSize());
    EXPECT_EQ(OrvImageFile::PIXEL_RGBA, target.GetPixelFormat());

    OrvTGAImageFile source;
    source.SetWidth(2);
    source.SetHeight(2);
    source.SetImagePixelSize(32);
    source.ResetImageData();
    for (unsigned int i = 0; i < 16; ++i)
        source.GetData()[i] = static_cast<unsigned char>(100 + i);

    target.PasteImageFile(&source, 1, 1);
    // The two source rows land at pixels 5-6 and 9-10 of the 4 x 4 target.
    std::string expected(64, '\0');
    for (int b = 0; b < 16; ++b)
        expected[(b < 8 ? 20 : 36) + b % 8] = static_cast<char>(100 + b);
    EXPECT_EQ(expected, DataOf(&target));

    EXPECT_THROW(target.PasteImageFile(&source, 3, 0), OrvFileException);
    EXPECT_THROW(target.PasteImageFile(&source, 0, 0xFFFFFFFF), OrvFileException);
    source.SetImagePixelSize(24);
    EXPECT_THROW(target.PasteImageFile(&source, 0, 0), OrvFileException);
    // Grown past its buffer: neither paste nor save reads beyond it.
    target.SetWidth(8);
    EXPECT_THROW(target.PasteImageFile(&target, 0, 0), OrvFileException);
    EXPECT_THROW(target.Save("never.tga", OrvFile::SAVE_DEFAULT), OrvFileException);
}

TEST_F(OrvBMPImageFileTest, ReadsPaddedRowsInFileOrderAndRefusesShortFiles)
{
    // 3 x 2: 9 bytes of pixels and 3 of padding a row; two gap bytes before the pixels.
    const std::string rows = "ABCDEFGHI" + Bytes({0, 0, 0}) + "JKLMNOPQR" + Bytes({0, 0, 0});
    GameBMPImageFile* image = Load<GameBMPImageFile>(manager, "a.bmp", Bmp(3, 2, rows, 40, ".."));
    EXPECT_EQ(3u, image->GetWidth());
    EXPECT_EQ(2u, image->GetHeight());
    EXPECT_EQ(OrvImageFile::PIXEL_RGB, image->GetPixelFormat());
    EXPECT_EQ("CBAFEDIHGLKJONMRQP", DataOf(image));
    // A 12-byte core header gives no size.
    GameBMPImageFile* core = Load<GameBMPImageFile>(manager, "core.bmp", Bmp(3, 2, rows, 12));
    EXPECT_EQ(0u, core->GetWidth());
    EXPECT_EQ(0u, core->GetHeight());
    EXPECT_EQ(0u, core->GetImageDataSize());

    ExpectEveryCutRefused<GameBMPImageFile>("cut.bmp", Bmp(3, 2, rows));
    // A top-down height (negative) and a huge width point far past the end.
    EXPECT_EQ("BMP file shorter than its pixel data : down.bmp",
              Refusal<GameBMPImageFile>("down.bmp", Bmp(3, 0xFFFFFFFE, rows)).message);
    EXPECT_EQ("BMP file shorter than its pixel data : wide.bmp",
              Refusal<GameBMPImageFile>("wide.bmp", Bmp(0xFFFFFFFF, 2, rows)).message);
    EXPECT_EQ("The given file name doesn't have the right file extension",
              Refusal<GameBMPImageFile>("a.bitmap", Bmp(3, 2, rows)).message);
}

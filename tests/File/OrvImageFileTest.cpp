#include <gtest/gtest.h>

#include <string>

#include "OrvBMPImageFile.h"
#include "OrvFileException.h"
#include "OrvFileManager.h"
#include "OrvScratchDir.h"
#include "OrvTGAImageFile.h"

namespace
{
// BMP reading is completed by the game with ResetImageData.
class GameBMPImageFile : public OrvBMPImageFile
{
public:
    void ResetImageData() override {}
};

std::string Le16(unsigned int v)
{
    return std::string{static_cast<char>(v & 0xFF), static_cast<char>((v >> 8) & 0xFF)};
}

std::string Le32(unsigned long v)
{
    return Le16(v & 0xFFFF) + Le16((v >> 16) & 0xFFFF);
}

std::string Bytes(std::initializer_list<int> values)
{
    std::string s;
    for (int v : values)
        s += static_cast<char>(v);
    return s;
}

std::string Tga(int colorMap, int type, unsigned int width, unsigned int height, int bits, const std::string& id,
                const std::string& pixels, int descriptor = 0)
{
    std::string s = Bytes({static_cast<int>(id.size()), colorMap, type, 0, 0, 0, 0, 0});
    s += Le16(7) + Le16(9) + Le16(width) + Le16(height) + Bytes({bits, descriptor});
    return s + id + pixels;
}

// A file header, a 40-byte info header (or one of infoSize bytes) and the rows.
std::string Bmp(unsigned long width, unsigned long height, const std::string& rows, unsigned long infoSize = 40,
                const std::string& gap = "")
{
    std::string info = Le32(infoSize) + Le32(width) + Le32(height) + Le16(1) + Le16(24);
    info.resize(infoSize, '\0');
    const unsigned long offset = 14 + infoSize + gap.size();
    return "BM" + Le32(offset + rows.size()) + Le32(0) + Le32(offset) + info + gap + rows;
}

template <class T>
T* Load(OrvFileManager& manager, const std::string& name, const std::string& bytes)
{
    OrvScratchDir::Write(name, bytes);
    return manager.GetOrLoad<T>(OrvUnicode(name.c_str()));
}

// The message of the refusal, or "accepted".
template <class T>
std::string Refusal(const std::string& name, const std::string& bytes, std::string* file = nullptr)
{
    OrvFileManager manager;
    try
    {
        Load<T>(manager, name, bytes);
    }
    catch (const OrvFileException& e)
    {
        if (file != nullptr)
            *file = e.file;
        return e.message;
    }
    return "accepted";
}

std::string DataOf(const OrvImageFile* image)
{
    return std::string(reinterpret_cast<const char*>(image->GetData()), image->GetImageDataSize());
}

// Every proper prefix of the file is refused with a message naming it.
template <class T>
void ExpectEveryCutRefused(const std::string& name, const std::string& bytes)
{
    for (size_t cut = 0; cut < bytes.size(); ++cut)
    {
        const std::string message = Refusal<T>(name, bytes.substr(0, cut));
        EXPECT_NE(std::string::npos, message.find(name)) << "cut at " << cut << ": " << message;
    }
}
}

TEST(OrvTGAImageFile, LoadSwapsToRGBAndSaveSwapsBack)
{
    OrvScratchDir dir;
    OrvFileManager manager;
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

    OrvTGAImageFile* rgb = Load<OrvTGAImageFile>(manager, "b.tga", Tga(0, 2, 3, 1, 24, "", "ABCDEFGHI"));
    EXPECT_EQ(OrvImageFile::PIXEL_RGB, rgb->GetPixelFormat());
    EXPECT_EQ("CBAFEDIHG", DataOf(rgb));
    // A registered name is served as it is, not read again.
    OrvScratchDir::Write("b.tga", "");
    EXPECT_EQ(rgb, manager.GetOrLoad<OrvTGAImageFile>("b.tga"));
}

TEST(OrvTGAImageFile, IDFieldIsSkippedAndNotWritten)
{
    OrvScratchDir dir;
    OrvFileManager manager;
    OrvTGAImageFile* image = Load<OrvTGAImageFile>(manager, "id.tga", Tga(0, 2, 1, 1, 24, "hello", "xyz"));
    EXPECT_EQ(5, image->GetIDFieldCharCount());
    EXPECT_EQ("zyx", DataOf(image));

    image->Save("out.tga", OrvFile::SAVE_DEFAULT);
    image->Close();
    const std::string saved = OrvScratchDir::Read("out.tga");
    ASSERT_EQ(21u, saved.size());
    EXPECT_EQ(0, saved[0]);
    EXPECT_EQ("xyz", saved.substr(18));
}

TEST(OrvTGAImageFile, RefusesWhatItCannotRead)
{
    OrvScratchDir dir;
    std::string file;
    EXPECT_EQ("TGA colors maps aren't supported, get to work !",
              Refusal<OrvTGAImageFile>("map.tga", Tga(1, 1, 1, 1, 8, "", "x"), &file));
    EXPECT_EQ("src/File/OrvTGAImageFile", file);
    EXPECT_EQ("TGA image type not supported", Refusal<OrvTGAImageFile>("rle.tga", Tga(0, 10, 1, 1, 24, "", "abc")));
    EXPECT_EQ("TGA image type not supported", Refusal<OrvTGAImageFile>("grey.tga", Tga(0, 3, 1, 1, 8, "", "a")));
    EXPECT_EQ("TGA image pixel size not supported, get to work !",
              Refusal<OrvTGAImageFile>("16.tga", Tga(0, 2, 1, 1, 16, "", "ab")));
    EXPECT_EQ("The given file name doesn't have the right file extension",
              Refusal<OrvTGAImageFile>("a.TGA", Tga(0, 2, 1, 1, 24, "", "abc")));

    // A huge declared image with no pixels is refused before anything is allocated.
    const std::string huge = Refusal<OrvTGAImageFile>("big.tga", Tga(0, 2, 65535, 65535, 32, "", "ab"));
    EXPECT_NE(std::string::npos, huge.find("big.tga"));
    ExpectEveryCutRefused<OrvTGAImageFile>("cut.tga", Tga(0, 2, 2, 2, 24, "id", "abcdefghijkl"));
}

TEST(OrvTGAImageFile, PasteCopiesTheSourceIntoPlace)
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
    for (unsigned int pixel = 0; pixel < 16; ++pixel)
    {
        const int sourcePixel = pixel == 5 ? 0 : pixel == 6 ? 1 : pixel == 9 ? 2 : pixel == 10 ? 3 : -1;
        for (unsigned int b = 0; b < 4; ++b)
        {
            const int expected = sourcePixel < 0 ? 0 : 100 + sourcePixel * 4 + static_cast<int>(b);
            EXPECT_EQ(expected, target.GetData()[pixel * 4 + b]) << "pixel " << pixel;
        }
    }

    EXPECT_THROW(target.PasteImageFile(&source, 3, 0), OrvFileException);
    EXPECT_THROW(target.PasteImageFile(&source, 0, 0xFFFFFFFF), OrvFileException);
    source.SetImagePixelSize(24);
    EXPECT_THROW(target.PasteImageFile(&source, 0, 0), OrvFileException);
    // Grown past its buffer: neither paste nor save reads beyond it.
    target.SetWidth(8);
    EXPECT_THROW(target.PasteImageFile(&target, 0, 0), OrvFileException);
    EXPECT_THROW(target.Save("never.tga", OrvFile::SAVE_DEFAULT), OrvFileException);
}

TEST(OrvBMPImageFile, ReadsPaddedRowsInFileOrder)
{
    OrvScratchDir dir;
    OrvFileManager manager;
    // 3 x 2: 9 bytes of pixels and 3 of padding a row; two gap bytes before the pixels.
    const std::string rows = "ABCDEFGHI" + Bytes({0, 0, 0}) + "JKLMNOPQR" + Bytes({0, 0, 0});
    GameBMPImageFile* image = Load<GameBMPImageFile>(manager, "a.bmp", Bmp(3, 2, rows, 40, ".."));
    EXPECT_EQ(3u, image->GetWidth());
    EXPECT_EQ(2u, image->GetHeight());
    EXPECT_EQ(OrvImageFile::PIXEL_RGB, image->GetPixelFormat());
    EXPECT_EQ("CBAFEDIHGLKJONMRQP", DataOf(image));

    GameBMPImageFile* core = Load<GameBMPImageFile>(manager, "core.bmp", Bmp(3, 2, rows, 12));
    EXPECT_EQ(0u, core->GetWidth());
    EXPECT_EQ(0u, core->GetHeight());
    EXPECT_EQ(0u, core->GetImageDataSize());
}

TEST(OrvBMPImageFile, RefusesShortFiles)
{
    OrvScratchDir dir;
    const std::string rows = "ABCDEFGHI" + Bytes({0, 0, 0}) + "JKLMNOPQR" + Bytes({0, 0, 0});
    ExpectEveryCutRefused<GameBMPImageFile>("cut.bmp", Bmp(3, 2, rows));
    // A top-down height (negative) and a huge width point far past the end.
    EXPECT_NE(std::string::npos, Refusal<GameBMPImageFile>("down.bmp", Bmp(3, 0xFFFFFFFE, rows)).find("down.bmp"));
    EXPECT_NE(std::string::npos, Refusal<GameBMPImageFile>("wide.bmp", Bmp(0xFFFFFFFF, 2, rows)).find("wide.bmp"));
    EXPECT_EQ("The given file name doesn't have the right file extension",
              Refusal<GameBMPImageFile>("a.bitmap", Bmp(3, 2, rows)));
}

// orvmedia: makes the images the engine's example and tests draw, so that no
// media has to come from elsewhere.

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "OrvException.h"
#include "OrvFileManager.h"
#include "OrvTGAImageFile.h"

namespace
{
const char* const kUsage =
    "Usage: orvmedia checker OUT.tga WIDTH HEIGHT CELL\n"
    "       orvmedia --help\n"
    "\n"
    "checker  a 32-bit TGA image of CELL x CELL squares, alternating a colour\n"
    "         ramp (red across, blue up) with white, fully opaque.\n";

const int kFailed = 1;
const int kBadUsage = 2;

bool ParseSize(const char* text, unsigned int& value)
{
    char* end = nullptr;
    const unsigned long parsed = std::strtoul(text, &end, 10);
    if (end == text || *end != '\0' || parsed == 0 || parsed > 4096)
        return false;
    value = static_cast<unsigned int>(parsed);
    return true;
}

// An image the generators fill pixel by pixel, red first.
class Canvas : public OrvTGAImageFile
{
public:
    Canvas(unsigned int width, unsigned int height)
    {
        SetImageTypeCode(2);
        SetImagePixelSize(32);
        SetWidth(width);
        SetHeight(height);
        ResetImageData();
    }

    void Put(unsigned int x, unsigned int y, unsigned char r, unsigned char g, unsigned char b, unsigned char a)
    {
        unsigned char* pixel = m_data + (static_cast<unsigned long>(y) * m_width + x) * 4;
        pixel[0] = r;
        pixel[1] = g;
        pixel[2] = b;
        pixel[3] = a;
    }

    void SaveAs(const std::string& name)
    {
        OrvFileManager files;
        Create(&files, 1);
        Save(name.c_str(), SAVE_DEFAULT);
        Close();
    }
};

int Checker(const std::string& out, unsigned int width, unsigned int height, unsigned int cell)
{
    Canvas canvas(width, height);
    for (unsigned int y = 0; y < height; ++y)
        for (unsigned int x = 0; x < width; ++x)
        {
            if (((x / cell) + (y / cell)) % 2 == 0)
                canvas.Put(x, y, 255, 255, 255, 255);
            else
                canvas.Put(x, y, static_cast<unsigned char>(x * 255 / width), 64,
                           static_cast<unsigned char>(y * 255 / height), 255);
        }
    canvas.SaveAs(out);
    return 0;
}
}  // namespace

int main(int argc, char** argv)
{
    if (argc == 2 && std::strcmp(argv[1], "--help") == 0)
    {
        std::fputs(kUsage, stdout);
        return 0;
    }
    unsigned int width = 0, height = 0, cell = 0;
    if (argc != 6 || std::strcmp(argv[1], "checker") != 0 || !ParseSize(argv[3], width) ||
        !ParseSize(argv[4], height) || !ParseSize(argv[5], cell))
    {
        std::fputs(kUsage, stderr);
        return kBadUsage;
    }
    try
    {
        return Checker(argv[2], width, height, cell);
    }
    catch (const OrvException& e)
    {
        std::fprintf(stderr, "orvmedia: %s\n", e.message);
        return kFailed;
    }
}

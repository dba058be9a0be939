// ShotCheck: the examples' tests look at their screenshots with it.
//
//   ShotCheck SHOT.tga CHECK...
//
// Points are in pixels from the image's centre, y up: where the HUD tree puts
// them. A colour matches within 40 a channel.
//   X,Y=R,G,B            the pixel there has that colour
//   X0,Y0,X1,Y1=R,G,B    some pixel of the rectangle (corners included) has it
//   !X0,Y0,X1,Y1=R,G,B   no pixel of the rectangle has it
// Prints one line a check; the exit status is 0 when all of them hold.

#include <cstdio>
#include <cstdlib>
#include <string>

#include <OrvEngine/OrvException.h>
#include <OrvEngine/OrvFileManager.h>
#include <OrvEngine/OrvTGAImageFile.h>

namespace
{
const int kTolerance = 40;

class Shot
{
public:
    explicit Shot(const OrvTGAImageFile& image)
        : m_image(image), m_bytes(image.GetImagePixelSize() / 8), m_topFirst((image.GetImageDescByte() & 0x20) != 0)
    {
    }

    bool Matches(int x, int y, const int rgb[3]) const
    {
        const int width = static_cast<int>(m_image.GetWidth()), height = static_cast<int>(m_image.GetHeight());
        const int column = width / 2 + x, row = height / 2 + y;
        if (column < 0 || row < 0 || column >= width || row >= height)
            return false;
        const long stored = m_topFirst ? height - 1 - row : row;
        const unsigned char* pixel = m_image.GetData() + (stored * width + column) * m_bytes;
        for (int channel = 0; channel < 3; ++channel)
            if (std::abs(pixel[channel] - rgb[channel]) > kTolerance)
                return false;
        return true;
    }

    bool AnyIn(const int box[4], const int rgb[3]) const
    {
        for (int y = box[1]; y <= box[3]; ++y)
            for (int x = box[0]; x <= box[2]; ++x)
                if (Matches(x, y, rgb))
                    return true;
        return false;
    }

private:
    const OrvTGAImageFile& m_image;
    long m_bytes;
    bool m_topFirst;
};

// One check; -1 when it cannot be read.
int Check(const Shot& shot, const std::string& text)
{
    const bool none = !text.empty() && text[0] == '!';
    int numbers[7] = {};
    int count = 0;
    const char* cursor = text.c_str() + (none ? 1 : 0);
    while (count < 7 && *cursor != '\0')
    {
        char* end = nullptr;
        numbers[count++] = static_cast<int>(std::strtol(cursor, &end, 10));
        if (end == cursor || (*end != ',' && *end != '=' && *end != '\0'))
            return -1;
        cursor = *end == '\0' ? end : end + 1;
    }
    if (*cursor != '\0' || (count != 5 && count != 7) || (none && count != 7))
        return -1;
    if (count == 5)
        return shot.Matches(numbers[0], numbers[1], numbers + 2) ? 1 : 0;
    const bool found = shot.AnyIn(numbers, numbers + 4);
    return found != none ? 1 : 0;
}
}  // namespace

int main(int argc, char** argv)
{
    if (argc < 3)
    {
        std::fprintf(stderr, "Usage: %s SHOT.tga CHECK...\n", argv[0]);
        return 2;
    }
    try
    {
        OrvFileManager files;
        const OrvTGAImageFile* image = files.GetOrLoad<OrvTGAImageFile>(argv[1]);
        const Shot shot(*image);
        int failed = 0;
        for (int i = 2; i < argc; ++i)
        {
            const int result = Check(shot, argv[i]);
            if (result < 0)
            {
                std::fprintf(stderr, "ShotCheck: cannot read the check %s\n", argv[i]);
                return 2;
            }
            std::printf("ShotCheck: %s %s\n", argv[i], result == 1 ? "holds" : "FAILS");
            failed += result == 1 ? 0 : 1;
        }
        return failed == 0 ? 0 : 1;
    }
    catch (const OrvException& e)
    {
        std::fprintf(stderr, "ShotCheck: %s: %s\n", e.name, e.message);
        return 1;
    }
}

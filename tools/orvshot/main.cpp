// orvshot: compares screenshots.
//
//   orvshot diff A.png B.png [--tolerance N] [--allow PIXELS] [--out DIFF.png]
//
// Two pictures of the same size match when no channel of any pixel differs by
// more than N (0 by default: byte for byte), or at most PIXELS pixels do (0
// by default): rasterisers round the edges of shapes differently, where one
// pixel can change a lot. Prints how many pixels differ
// beyond the tolerance and the largest difference; with --out, writes a
// picture of the differences: matching pixels dimmed to a grey of B, the
// others red. Exit status: 0 match, 1 differ, 2 bad usage or unreadable file.

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <stdexcept>
#include <string>
#include <vector>

#include <OrvEngine/OrvException.h>
#include <OrvEngine/OrvPNGWriter.h>
#include "PngPixels.h"

namespace
{
const char* const kUsage = "Usage: orvshot diff A.png B.png [--tolerance N] [--allow PIXELS] [--out DIFF.png]\n";

using Picture = PngPixels;

Picture Read(const char* name)
{
    Picture picture;
    std::string error;
    if (!ReadPngPixels(name, picture, error))
        throw std::runtime_error(std::string(name) + ": " + error);
    return picture;
}

// A whole number from 0 to `most`.
bool Whole(const char* text, long& value, long most)
{
    if (text[0] < '0' || text[0] > '9')
        return false;
    errno = 0;
    char* end = nullptr;
    value = std::strtol(text, &end, 10);
    return errno == 0 && *end == '\0' && value <= most;
}

bool Number(const char* text, long& value)
{
    return Whole(text, value, 255);
}

bool Count(const char* text, long& value)
{
    return Whole(text, value, 0x7FFFFFFF);
}
}  // namespace

int main(int argc, char** argv)
{
    if (argc < 4 || std::strcmp(argv[1], "diff") != 0)
    {
        std::fputs(kUsage, argc == 2 && std::strcmp(argv[1], "--help") == 0 ? stdout : stderr);
        return 2;
    }
    long tolerance = 0;
    long allowed = 0;
    std::string out;
    for (int i = 4; i < argc; ++i)
    {
        if (std::strcmp(argv[i], "--tolerance") == 0 && i + 1 < argc && Number(argv[i + 1], tolerance))
            ++i;
        else if (std::strcmp(argv[i], "--allow") == 0 && i + 1 < argc && Count(argv[i + 1], allowed))
            ++i;
        else if (std::strcmp(argv[i], "--out") == 0 && i + 1 < argc)
            out = argv[++i];
        else
        {
            std::fputs(kUsage, stderr);
            return 2;
        }
    }
    try
    {
        const Picture a = Read(argv[2]);
        const Picture b = Read(argv[3]);
        if (a.width != b.width || a.height != b.height)
        {
            std::printf("orvshot: %s is %ux%u, %s is %ux%u: different sizes\n", argv[2], a.width, a.height, argv[3],
                        b.width, b.height);
            return 1;
        }
        size_t differing = 0;
        int largest = 0;
        std::vector<unsigned char> picture(b.rgba.size());
        for (size_t i = 0; i < a.rgba.size(); i += 4)
        {
            int worst = 0;
            for (size_t c = 0; c < 4; ++c)
                worst = std::max(worst, std::abs(int(a.rgba[i + c]) - int(b.rgba[i + c])));
            largest = std::max(largest, worst);
            const bool differs = worst > tolerance;
            differing += differs;
            const unsigned char grey =
                static_cast<unsigned char>((b.rgba[i] + b.rgba[i + 1] + b.rgba[i + 2]) / 12);
            const unsigned char zero = 0, full = 255;
            const unsigned char pixel[4] = {differs ? full : grey, differs ? zero : grey, differs ? zero : grey, full};
            std::copy(pixel, pixel + 4, picture.begin() + static_cast<long>(i));
        }
        if (!out.empty())
            OrvPNGWriter::Write(out, b.width, b.height, picture.data());
        std::printf("orvshot: %zu of %zu pixels differ by more than %ld (largest difference %d)\n", differing,
                    a.rgba.size() / 4, tolerance, largest);
        return differing <= static_cast<size_t>(allowed) ? 0 : 1;
    }
    catch (const OrvException& e)
    {
        std::fprintf(stderr, "orvshot: %s\n", e.message);
        return 2;
    }
    catch (const std::exception& e)
    {
        std::fprintf(stderr, "orvshot: %s\n", e.what());
        return 2;
    }
}

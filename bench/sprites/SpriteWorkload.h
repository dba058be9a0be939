#ifndef ORV_SPRITE_WORKLOAD_H
#define ORV_SPRITE_WORKLOAD_H

// The workload both sprite benchmarks draw, OrvEngine's and SFML's, so that
// they draw the same picture: an 800 × 600 window, N sprites of 32 × 32
// pixels cut from one 64 × 64 RGBA texture (four cells of 32 × 32), drawn at
// whole-pixel places with nearest filtering and alpha blending, every sprite
// moved every frame. Coordinates here are SFML's: pixels from the top-left
// corner, y downwards.
//
// Plain functions of numbers only: no engine, no SFML.

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

namespace sprites
{
const unsigned int kWindowWidth = 800;
const unsigned int kWindowHeight = 600;
const unsigned int kTextureSize = 64;
const unsigned int kSpriteSize = 32;

// The texel at (x, y), y counted from the texture's top row, as 0xRRGGBBAA.
// Each cell holds a disc of its own colour, lighter towards the top, with a
// half-transparent rim and transparent corners.
inline std::uint32_t Texel(unsigned int x, unsigned int y)
{
    static const std::uint32_t kCellColours[4] = {0xE04040u, 0x40C060u, 0x4080F0u, 0xF0D040u};
    const unsigned int cell = (y / kSpriteSize) * 2 + x / kSpriteSize;
    const int dx = static_cast<int>(x % kSpriteSize) * 2 - 31;
    const int dy = static_cast<int>(y % kSpriteSize) * 2 - 31;
    const int distanceSquared = dx * dx + dy * dy;  // in half pixels, squared
    std::uint32_t alpha = 0;
    if (distanceSquared < 24 * 24)
        alpha = 255;
    else if (distanceSquared < 30 * 30)
        alpha = 128;
    const std::uint32_t rgb = kCellColours[cell];
    const std::uint32_t light = (kSpriteSize - 1 - y % kSpriteSize) * 2;  // 62 at a cell's top row, 0 at its bottom
    std::uint32_t channels[3] = {(rgb >> 16) & 0xFF, (rgb >> 8) & 0xFF, rgb & 0xFF};
    for (std::uint32_t& c : channels)
        c = c + light > 255 ? 255 : c + light;
    return (channels[0] << 24) | (channels[1] << 16) | (channels[2] << 8) | alpha;
}

// The cell sprite `index` shows: its column and row in the texture (0 or 1).
inline unsigned int CellColumn(unsigned int index) { return index % 2; }
inline unsigned int CellRow(unsigned int index) { return (index / 2) % 2; }

// The top-left corner of sprite `index` in frame `frame`.
inline void Place(unsigned int index, unsigned int frame, int& x, int& y)
{
    x = static_cast<int>((index * 37u + frame * 3u) % (kWindowWidth - kSpriteSize));
    y = static_cast<int>((index * 53u + frame * 2u) % (kWindowHeight - kSpriteSize));
}

struct Options
{
    std::string mode;  // what to draw; each program names its own modes
    unsigned int sprites = 2000;
    unsigned int warmup = 30;
    unsigned int frames = 200;
    bool flat = false;      // a window without depth and stencil buffers
    bool depth = false;     // a window with them (SFML's own default has none)
    std::string shot;       // a PPM of the last frame, when named
};

inline bool ParseCount(const char* text, unsigned int& value)
{
    char* end = nullptr;
    const long parsed = std::strtol(text, &end, 10);
    if (end == text || *end != '\0' || parsed < 0 || parsed > 1000000)
        return false;
    value = static_cast<unsigned int>(parsed);
    return true;
}

// Reads the options common to both programs; false (after a usage line on
// standard error) for anything else.
inline bool ParseOptions(int argc, char** argv, const char* modes, Options& options)
{
    for (int i = 1; i < argc; ++i)
    {
        const std::string arg = argv[i];
        const bool hasValue = i + 1 < argc;
        bool ok = true;
        if (arg == "--mode" && hasValue)
            options.mode = argv[++i];
        else if (arg == "--sprites" && hasValue)
            ok = ParseCount(argv[++i], options.sprites);
        else if (arg == "--warmup" && hasValue)
            ok = ParseCount(argv[++i], options.warmup);
        else if (arg == "--frames" && hasValue)
            ok = ParseCount(argv[++i], options.frames) && options.frames > 0;
        else if (arg == "--shot" && hasValue)
            options.shot = argv[++i];
        else if (arg == "--flat")
            options.flat = true;
        else if (arg == "--depth")
            options.depth = true;
        else
            ok = false;
        if (!ok)
        {
            std::fprintf(stderr,
                         "usage: %s [--mode %s] [--sprites N] [--warmup N] [--frames N] [--flat | --depth] "
                         "[--shot FILE.ppm]\n",
                         argv[0], modes);
            return false;
        }
    }
    return true;
}

// Writes rows of RGBA pixels, bottom row first (as glReadPixels gives them),
// as a binary PPM (top row first, alpha dropped).
inline bool WritePPM(const std::string& path, unsigned int width, unsigned int height,
                     const std::vector<unsigned char>& rgba)
{
    std::FILE* file = std::fopen(path.c_str(), "wb");
    if (file == nullptr)
        return false;
    std::fprintf(file, "P6\n%u %u\n255\n", width, height);
    std::vector<unsigned char> row(width * 3);
    for (unsigned int y = 0; y < height; ++y)
    {
        const unsigned char* source = rgba.data() + static_cast<std::size_t>(height - 1 - y) * width * 4;
        for (unsigned int x = 0; x < width; ++x)
            for (int c = 0; c < 3; ++c)
                row[x * 3 + c] = source[x * 4 + c];
        std::fwrite(row.data(), 1, row.size(), file);
    }
    return std::fclose(file) == 0;
}
}  // namespace sprites

#endif

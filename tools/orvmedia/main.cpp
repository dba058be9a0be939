// orvmedia: makes the images and sounds the engine's example uses, so that no
// media has to come from elsewhere.

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <algorithm>
#include <fstream>
#include <string>
#include <vector>

#include <ft2build.h>
#include FT_FREETYPE_H

#include "Canvas.h"
#include <OrvEngine/OrvException.h>

namespace
{
const char* const kUsage =
    "Usage: orvmedia checker OUT.tga WIDTH HEIGHT CELL\n"
    "       orvmedia notes OUT.wav MILLISECONDS HERTZ...\n"
    "       orvmedia sheet OUT.tga\n"
    "       orvmedia font OUT.tga FONT.ttf CELL\n"
    "       orvmedia tarnwick OUT.tga\n"
    "       orvmedia --help\n"
    "\n"
    "checker  a 32-bit TGA image of CELL x CELL squares, alternating a colour\n"
    "         ramp (red across, blue up) with white, fully opaque.\n"
    "notes    a 16-bit mono 22050 Hz WAV file playing each note (0 for a rest)\n"
    "         for MILLISECONDS, softened at both ends.\n"
    "sheet    a 256 x 160 sprite sheet: four 64 x 64 frames of a walking figure\n"
    "         along the top, four of a growing puff below them, and a 32 x 32\n"
    "         arrow pointing to its top-left corner under those.\n"
    "tarnwick the 256 x 320 sprite sheet of the sample game, 64 x 64 cells: the\n"
    "         hero walking; standing, cheering, hurt; a prowler and a skitter;\n"
    "         a gem and a sparkle; the rest of the sparkle and a pointer.\n"
    "font     a 16 x 16 grid of CELL-pixel cells holding the glyphs of codes 32\n"
    "         to 255 (Latin-1) from the font file, row by row from the top, white\n"
    "         with the glyph's coverage as alpha.\n";

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

void PutLe(std::string& out, unsigned long value, int bytes)
{
    for (int i = 0; i < bytes; ++i)
        out += static_cast<char>((value >> (8 * i)) & 0xFF);
}

int Notes(const std::string& out, unsigned int milliseconds, const std::vector<double>& hertz)
{
    const unsigned long rate = 22050;
    const unsigned long perNote = rate * milliseconds / 1000;
    std::string samples;
    for (double frequency : hertz)
        for (unsigned long i = 0; i < perNote; ++i)
        {
            // A short fade in and out keeps the notes from clicking.
            const double edge = std::min(1.0, std::min(i, perNote - i) / (rate * 0.005));
            const double value = frequency > 0 ? std::sin(2.0 * M_PI * frequency * i / rate) * 9000.0 * edge : 0.0;
            PutLe(samples, static_cast<unsigned long>(static_cast<long>(value)) & 0xFFFF, 2);
        }
    std::string wav = "RIFF";
    PutLe(wav, 36 + samples.size(), 4);
    wav += "WAVEfmt ";
    PutLe(wav, 16, 4);
    PutLe(wav, 1, 2);        // PCM
    PutLe(wav, 1, 2);        // mono
    PutLe(wav, rate, 4);
    PutLe(wav, rate * 2, 4); // byte rate
    PutLe(wav, 2, 2);        // block alignment
    PutLe(wav, 16, 2);       // bits a sample
    wav += "data";
    PutLe(wav, samples.size(), 4);
    wav += samples;
    std::ofstream file(out, std::ios::binary);
    file.write(wav.data(), static_cast<std::streamsize>(wav.size()));
    if (!file)
    {
        std::fprintf(stderr, "orvmedia: cannot write %s\n", out.c_str());
        return kFailed;
    }
    return 0;
}

int Sheet(const std::string& out)
{
    Canvas canvas(256, 160);
    const unsigned char skin[4] = {250, 205, 160, 255};
    const unsigned char shirt[4] = {60, 120, 230, 255};
    const unsigned char legs[4] = {40, 40, 70, 255};
    for (int frame = 0; frame < 4; ++frame)
    {
        const float left = 64.0f * frame;
        const float swing = std::sin(frame * M_PI / 2.0) * 12.0f;
        Stroke(canvas, left + 32, 40, left + 32 - swing, 62, 7, legs);
        Stroke(canvas, left + 32, 40, left + 32 + swing, 62, 7, legs);
        Stroke(canvas, left + 32, 20, left + 32, 42, 14, shirt);
        Stroke(canvas, left + 32, 24, left + 32 + swing, 38, 5, skin);
        Disc(canvas, left + 32, 12, 9, skin);

        const float radius = 8.0f + 7.0f * frame;
        const unsigned char puff[4] = {255, static_cast<unsigned char>(230 - 40 * frame), 80,
                                       static_cast<unsigned char>(255 - 50 * frame)};
        Disc(canvas, left + 32, 96, radius, puff);
    }
    // The pointer: a white arrow outlined in black, its tip at the cell's corner.
    const unsigned char outline[4] = {20, 20, 30, 255};
    const unsigned char white[4] = {255, 255, 255, 255};
    const float arrow[3][4] = {{2, 130, 2, 152}, {2, 130, 18, 146}, {8, 142, 18, 156}};
    for (const auto& line : arrow)
        Stroke(canvas, line[0], line[1], line[2], line[3], 5, outline);
    for (const auto& line : arrow)
        Stroke(canvas, line[0], line[1], line[2], line[3], 2, white);
    canvas.SaveAs(out);
    return 0;
}

int Font(const std::string& out, const std::string& fontFile, unsigned int cell)
{
    FT_Library library = nullptr;
    FT_Face face = nullptr;
    if (FT_Init_FreeType(&library) != 0 || FT_New_Face(library, fontFile.c_str(), 0, &face) != 0)
    {
        std::fprintf(stderr, "orvmedia: cannot open the font %s\n", fontFile.c_str());
        if (library != nullptr)
            FT_Done_FreeType(library);
        return kFailed;
    }
    FT_Set_Pixel_Sizes(face, 0, cell * 3 / 4);
    Canvas canvas(16 * cell, 16 * cell);
    const int baseline = static_cast<int>(cell) * 3 / 4;
    for (unsigned int code = 32; code < 256; ++code)
    {
        // Delete and the second block of control codes have no glyph: their cells stay empty.
        if ((code >= 127 && code < 160) || FT_Load_Char(face, code, FT_LOAD_RENDER) != 0)
            continue;
        const FT_GlyphSlot glyph = face->glyph;
        const unsigned int index = code - 32;
        const int left = static_cast<int>((index % 16) * cell) +
                         (static_cast<int>(cell) - static_cast<int>(glyph->bitmap.width)) / 2;
        const int top = static_cast<int>((index / 16) * cell) + baseline - glyph->bitmap_top;
        for (unsigned int y = 0; y < glyph->bitmap.rows; ++y)
            for (unsigned int x = 0; x < glyph->bitmap.width; ++x)
            {
                const unsigned char coverage = glyph->bitmap.buffer[y * glyph->bitmap.pitch + x];
                // Only inside the glyph's own cell.
                const int cellX = left + static_cast<int>(x) - static_cast<int>((index % 16) * cell);
                const int cellY = top + static_cast<int>(y) - static_cast<int>((index / 16) * cell);
                if (coverage != 0 && cellX >= 0 && cellY >= 0 && cellX < static_cast<int>(cell) &&
                    cellY < static_cast<int>(cell))
                    canvas.PutTop(left + static_cast<int>(x), top + static_cast<int>(y), 255, 255, 255, coverage);
            }
    }
    FT_Done_Face(face);
    FT_Done_FreeType(library);
    canvas.SaveAs(out);
    return 0;
}

// Runs a generator, reporting the engine's failures.
template <class Generator>
int Run(Generator generate)
{
    try
    {
        return generate();
    }
    catch (const OrvException& e)
    {
        std::fprintf(stderr, "orvmedia: %s\n", e.message);
        return kFailed;
    }
}

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
    if (argc == 3 && std::strcmp(argv[1], "sheet") == 0)
        return Run([&] { return Sheet(argv[2]); });
    if (argc == 3 && std::strcmp(argv[1], "tarnwick") == 0)
        return Run([&] { return TarnwickSheet(argv[2]); });
    if (argc == 5 && std::strcmp(argv[1], "font") == 0)
    {
        unsigned int cell = 0;
        if (!ParseSize(argv[4], cell) || cell > 256)
        {
            std::fputs(kUsage, stderr);
            return kBadUsage;
        }
        return Run([&] { return Font(argv[2], argv[3], cell); });
    }
    if (argc >= 5 && std::strcmp(argv[1], "notes") == 0)
    {
        unsigned int milliseconds = 0;
        std::vector<double> hertz;
        bool ok = ParseSize(argv[3], milliseconds);
        for (int i = 4; i < argc && ok; ++i)
        {
            char* end = nullptr;
            hertz.push_back(std::strtod(argv[i], &end));
            ok = end != argv[i] && *end == '\0' && hertz.back() >= 0 && hertz.back() < 20000;
        }
        if (!ok)
        {
            std::fputs(kUsage, stderr);
            return kBadUsage;
        }
        return Notes(argv[2], milliseconds, hertz);
    }
    unsigned int width = 0, height = 0, cell = 0;
    if (argc != 6 || std::strcmp(argv[1], "checker") != 0 || !ParseSize(argv[3], width) ||
        !ParseSize(argv[4], height) || !ParseSize(argv[5], cell))
    {
        std::fputs(kUsage, stderr);
        return kBadUsage;
    }
    return Run([&] { return Checker(argv[2], width, height, cell); });
}

// The sprite sheet of The Tarnwick: 64 × 64 cells, rows from the top. Every
// drawing keeps clear of its cell's edges, so that filtering never brings in
// the neighbour's pixels.
//   row 0: the hero walking (4 frames)
//   row 1: the hero standing, cheering (2 frames), hurt
//   row 2: a prowler (2 frames), a skitter (2 frames)
//   row 3: a gem (2 frames), a sparkle (frames 0 and 1)
//   row 4: the sparkle (frames 2 and 3), a 32 × 32 pointer
#include <cmath>

#include "Canvas.h"

namespace
{
typedef unsigned char Rgba[4];
const Rgba kSkin = {250, 205, 160, 255};
const Rgba kTunic = {40, 170, 150, 255};
const Rgba kScarf = {220, 50, 50, 255};
const Rgba kLegs = {50, 45, 80, 255};
const Rgba kWhite = {255, 255, 255, 255};
const Rgba kBlack = {20, 20, 30, 255};

// The hero in the cell whose top-left corner is (left, top): legs swung by
// `swing`, arms raised by `raise` (0 down, 1 up), the body `lift` higher.
void Hero(Canvas& c, float left, float top, float swing, float raise, float lift, const Rgba& face)
{
    const float x = left + 32, y = top + 1 - lift;
    Stroke(c, x, y + 40, x - swing, y + 57, 7, kLegs);
    Stroke(c, x, y + 40, x + swing, y + 57, 7, kLegs);
    Stroke(c, x, y + 20, x, y + 42, 14, kTunic);
    const float handY = y + 38 - 34 * raise;
    Stroke(c, x, y + 24, x + 12 - swing * (1 - raise), handY, 5, kSkin);
    Stroke(c, x, y + 24, x - 12 + swing * (1 - raise), handY, 5, kSkin);
    Stroke(c, x - 7, y + 20, x + 7, y + 20, 5, kScarf);
    Disc(c, x, y + 12, 9, face);
    Disc(c, x + 4, y + 10, 1.5f, kBlack);
}

// Red, round and toothy; `squash` flattens it for the second frame.
void Prowler(Canvas& c, float left, float top, float squash)
{
    const Rgba body = {200, 40, 40, 255};
    const float x = left + 32, y = top + 32 + squash * 0.5f;
    for (int i = 0; i < 8; ++i)
    {
        const float a = static_cast<float>(i) * 0.785398f;
        Stroke(c, x, y, x + std::cos(a) * 25, y + std::sin(a) * (25 - squash), 6, body);
    }
    Disc(c, x, y, 21 - squash * 0.5f, body);
    Disc(c, x - 8, y - 6, 5, kWhite);
    Disc(c, x + 8, y - 6, 5, kWhite);
    Disc(c, x - 7, y - 5, 2.5f, kBlack);
    Disc(c, x + 9, y - 5, 2.5f, kBlack);
    Stroke(c, x - 9, y + 9, x + 9, y + 9, 3, kWhite);
}

// A small green bug whose legs alternate.
void Skitter(Canvas& c, float left, float top, float step)
{
    const Rgba body = {90, 200, 70, 255};
    const float x = left + 32, y = top + 36;
    for (int i = -1; i <= 1; ++i)
    {
        const float shift = (i % 2 == 0 ? step : -step);
        Stroke(c, x - 4, y + i * 8, x - 22, y + i * 10 + shift, 3, kBlack);
        Stroke(c, x + 4, y + i * 8, x + 22, y + i * 10 - shift, 3, kBlack);
    }
    Disc(c, x, y, 13, body);
    Disc(c, x, y - 13, 7, body);
    Disc(c, x - 3, y - 15, 2, kBlack);
    Disc(c, x + 3, y - 15, 2, kBlack);
}

// A yellow diamond; the second frame catches the light.
void Gem(Canvas& c, float left, float top, bool shine)
{
    const Rgba gold = {250, 200, 40, 255};
    const Rgba light = {255, 250, 200, 255};
    const float x = left + 32, y = top + 32;
    for (float dy = -20; dy <= 20; dy += 1.0f)
    {
        const float half = 16.0f * (1.0f - std::fabs(dy) / 20.0f);
        Stroke(c, x - half, y + dy, x + half, y + dy, 2, gold);
    }
    Disc(c, x - 5, y - 5, shine ? 5.0f : 2.5f, light);
}

// Eight sparks flying apart, fading.
void Sparkle(Canvas& c, float left, float top, int frame)
{
    const float x = left + 32, y = top + 32;
    const Rgba spark = {255, 240, 120, static_cast<unsigned char>(255 - 50 * frame)};
    for (int i = 0; i < 8; ++i)
    {
        const float a = static_cast<float>(i) * 0.785398f;
        const float r = 6.0f + 7.0f * static_cast<float>(frame);
        Disc(c, x + std::cos(a) * r, y + std::sin(a) * r, 4.0f - 0.5f * static_cast<float>(frame), spark);
    }
}

// A white arrow outlined in black, its tip at the cell's top-left corner.
void Pointer(Canvas& c, float left, float top)
{
    const float arrow[3][4] = {{2, 2, 2, 24}, {2, 2, 18, 18}, {8, 14, 18, 28}};
    for (const auto& line : arrow)
        Stroke(c, left + line[0], top + line[1], left + line[2], top + line[3], 5, kBlack);
    for (const auto& line : arrow)
        Stroke(c, left + line[0], top + line[1], left + line[2], top + line[3], 2, kWhite);
}
}  // namespace

int TarnwickSheet(const std::string& out)
{
    Canvas canvas(256, 320);
    const Rgba hurt = {250, 120, 110, 255};
    for (int frame = 0; frame < 4; ++frame)
        Hero(canvas, 64.0f * frame, 0, std::sin(frame * 1.5708f) * 12.0f, 0, 0, kSkin);
    Hero(canvas, 0, 64, 0, 0, 0, kSkin);
    Hero(canvas, 64, 64, 0, 1, 0, kSkin);
    Hero(canvas, 128, 64, 4, 1, 2, kSkin);
    Hero(canvas, 192, 64, 6, 0.5f, 0, hurt);
    Prowler(canvas, 0, 128, 0);
    Prowler(canvas, 64, 128, 4);
    Skitter(canvas, 128, 128, 4);
    Skitter(canvas, 192, 128, -4);
    Gem(canvas, 0, 192, false);
    Gem(canvas, 64, 192, true);
    Sparkle(canvas, 128, 192, 0);
    Sparkle(canvas, 192, 192, 1);
    Sparkle(canvas, 0, 256, 2);
    Sparkle(canvas, 64, 256, 3);
    Pointer(canvas, 128, 256);
    canvas.SaveAs(out);
    return 0;
}

#ifndef ORVMEDIA_CANVAS_H
#define ORVMEDIA_CANVAS_H

// What orvmedia draws with: a 32-bit image filled pixel by pixel, discs and
// thick lines.

#include <string>

#include <OrvEngine/OrvFileManager.h>
#include <OrvEngine/OrvTGAImageFile.h>

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

    // (x, row) with rows counted from the image's top, as sprite origins are.
    void PutTop(int x, int row, unsigned char r, unsigned char g, unsigned char b, unsigned char a)
    {
        if (x >= 0 && row >= 0 && x < static_cast<int>(m_width) && row < static_cast<int>(m_height))
            Put(static_cast<unsigned int>(x), m_height - 1 - static_cast<unsigned int>(row), r, g, b, a);
    }

    void SaveAs(const std::string& name)
    {
        OrvFileManager files;
        Create(&files, 1);
        Save(name.c_str(), SAVE_DEFAULT);
        Close();
    }
};

// A disc of radius r around (cx, cy), rows from the top.
inline void Disc(Canvas& canvas, float cx, float cy, float r, const unsigned char rgba[4])
{
    for (int y = static_cast<int>(cy - r); y <= static_cast<int>(cy + r); ++y)
        for (int x = static_cast<int>(cx - r); x <= static_cast<int>(cx + r); ++x)
            if ((x - cx) * (x - cx) + (y - cy) * (y - cy) <= r * r)
                canvas.PutTop(x, y, rgba[0], rgba[1], rgba[2], rgba[3]);
}

// A thick line from (x0, y0) to (x1, y1), rows from the top.
inline void Stroke(Canvas& canvas, float x0, float y0, float x1, float y1, float width, const unsigned char rgba[4])
{
    const int steps = 64;
    for (int i = 0; i <= steps; ++i)
    {
        const float t = static_cast<float>(i) / steps;
        Disc(canvas, x0 + (x1 - x0) * t, y0 + (y1 - y0) * t, width * 0.5f, rgba);
    }
}

// The sprite sheet of The Tarnwick, the sample game.
int TarnwickSheet(const std::string& out);

#endif

#ifndef ORV_FONT_DESC_H
#define ORV_FONT_DESC_H

#include "OrvUnicode.h"

/// What a bitmap font is made from: its glyph image and the sizes, in pixels,
/// of the image and of one cell; the spacing and a size coefficient applied
/// when drawing.
struct OrvFontDesc
{
    OrvFontDesc();

    OrvUnicode fileName;
    float symbolSpacing;
    float imageHeight;
    float imageWidth;
    float symbolHeight;
    float symbolWidth;
    float sizeCoef;
};

#endif

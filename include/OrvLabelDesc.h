#ifndef ORV_LABEL_DESC_H
#define ORV_LABEL_DESC_H

#include "OrvColor.h"
#include "OrvFont.h"
#include "OrvUnicode.h"
#include "OrvWidgetDesc.h"

/// What a label is created from.
struct OrvLabelDesc : public OrvWidgetDesc
{
    OrvLabelDesc();

    OrvUnicode text;
    /// Not owned; needed to draw and to size the label.
    OrvFont* font;
    /// The quad's colour (transparent by default).
    OrvColor backgroundColor;
    OrvFontAlign align;
    float fontSizeCoef;
    OrvColor fontColor;
};

#endif

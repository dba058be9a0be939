#ifndef ORV_TEXT_FIELD_DESC_H
#define ORV_TEXT_FIELD_DESC_H

#include "OrvColor.h"
#include "OrvFont.h"
#include "OrvWidgetDesc.h"

/// What a text field is created from.
struct OrvTextFieldDesc : public OrvWidgetDesc
{
    OrvTextFieldDesc();

    /// Not owned; needed to draw.
    OrvFont* font;
    /// A new field takes what is typed at once.
    bool isEditing;
    OrvFontAlign align;
    OrvColor fontColor;
    float fontSizeCoef;
};

#endif

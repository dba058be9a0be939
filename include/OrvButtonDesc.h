#ifndef ORV_BUTTON_DESC_H
#define ORV_BUTTON_DESC_H

#include "OrvColor.h"
#include "OrvLabelDesc.h"
#include "OrvWidgetDesc.h"

/// What a button is created from: its label's record and the colours of its
/// quad and text when idle, hovered and pressed.
struct OrvButtonDesc : public OrvWidgetDesc
{
    OrvButtonDesc();

    OrvLabelDesc labelDesc;
    OrvColor backgroundNormalColor;
    OrvColor backgroundHoverColor;
    OrvColor backgroundPressedColor;
    OrvColor textNormalColor;
    OrvColor textHoverColor;
    OrvColor textPressedColor;
};

#endif

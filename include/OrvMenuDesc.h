#ifndef ORV_MENU_DESC_H
#define ORV_MENU_DESC_H

#include "OrvWidgetDesc.h"

class OrvFont;

/// What a menu is created from: the font of its buttons' labels and its size.
struct OrvMenuDesc : public OrvWidgetDesc
{
    OrvMenuDesc();

    OrvFont* font;
    float fontSizeCoef;
};

#endif

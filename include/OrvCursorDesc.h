#ifndef ORV_CURSOR_DESC_H
#define ORV_CURSOR_DESC_H

#include "OrvWidgetDesc.h"

/// What a cursor is created from: a widget's record, nothing more.
struct OrvCursorDesc : public OrvWidgetDesc
{
    OrvCursorDesc();
};

#endif

#ifndef ORV_WIDGET_DESC_H
#define ORV_WIDGET_DESC_H

#include "OrvMovingGameAssetDesc.h"

/// What a widget is created from.
struct OrvWidgetDesc : public OrvMovingGameAssetDesc
{
    OrvWidgetDesc();

    /// Follows the application's cursors (and then needs a mouse device).
    bool listenToCursors;
    /// Widgets that show text size themselves from it while this is on.
    bool autoSize;
};

#endif

#ifndef ORV_CURSOR_H
#define ORV_CURSOR_H

#include "OrvTObjectArray.h"
#include "OrvVector3D.h"
#include "OrvWidget.h"

class OrvGameAsset;
class OrvRay;
struct OrvCursorDesc;

/// The on-screen pointer: a widget that follows the mouse in the HUD's pixel
/// space (origin at the viewport's lower-left corner, y up). It is not part of
/// a tree: registered with the application (AddCursor), it is updated after
/// the trees and drawn after the HUD. Its hot spot is the top-left corner of
/// its quad. Create it before the widgets it points at, so that it has moved
/// when they look at a motion event.
class OrvCursor : public OrvWidget
{
public:
    OrvCursor();
    ~OrvCursor() override;

    using OrvWidget::Create;
    virtual void Create(OrvCursorDesc* desc);
    /// Mouse motion only: the position becomes the mouse's, in y-up pixels
    /// from the viewport's lower-left corner; z is 0.
    void ProcessInputEvent(const OrvInputEvent& event) override;

    /// Its position plus (-width / 2, +height / 2, 0).
    OrvVector3D GetHotSpot() const;
    /// The widget's bounding box holds the hot spot.
    bool IsOver(OrvWidget* widget) const;

    /// The assets of the tree under `root` whose boxes the world camera's ray
    /// through the cursor meets, nearest first.
    OrvTObjectArray<OrvGameAsset*> ComputePerspectivePick(OrvGameAsset* root) const;
    /// Inserts `asset` when hit, keeping both lists nearest first, then visits
    /// its children, hit or not.
    void RecursivePerspectivePick(OrvTObjectArray<OrvGameAsset*>& assets, OrvTObjectArray<OrvVector3D>& points,
                                  OrvGameAsset* asset, const OrvRay& ray) const;
};

#endif

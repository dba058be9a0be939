#ifndef ORV_WIDGET_H
#define ORV_WIDGET_H

#include "OrvInputListner.h"
#include "OrvMovingGameAsset.h"
#include "OrvTObjectArray.h"

class OrvApplication;
class OrvColor;
class OrvColorMaterial;
class OrvCursor;
class OrvInputDevice;
class OrvSpriteAnimationPlayer;
class OrvVector2D;
struct OrvWidgetDesc;

/// Base of the on-screen elements: a moving game asset drawn as one quad (an
/// OrvSpriteAnimationMesh showing the frame of its animation player) that
/// follows the application's cursors. It keeps the cursors over it and those
/// whose button went down over it, and turns mouse events into CursorEntered,
/// CursorExit, CursorPressed, CursorReleased and CursorPressedAndReleased (a
/// press and a release of the same cursor that never left it in between).
/// A cursor-sensitive widget listens to the input manager's first mouse, which
/// must have been added before the widget is created. Widgets are not copied.
class OrvWidget : public OrvMovingGameAsset, public OrvInputListner
{
public:
    typedef void (*Callback)(OrvWidget* widget, OrvCursor* cursor, void* userData);

    OrvWidget();
    /// Leaves the input manager; gives a material made by the shelf back to it.
    ~OrvWidget() override;

    /// Moves, then advances the animation and shows its frame.
    void Update(float seconds) override;
    /// Either way, forgets every cursor over it or pressing it.
    void SetEnabled(bool enabled, bool recursive) override;
    using OrvMovingGameAsset::Create;
    /// The moving asset, a fresh quad and animation player, then, when
    /// cursor-sensitive, the first mouse of the input manager: throws
    /// OrvInputException "You tried to add an invalid device." without one.
    virtual void Create(OrvWidgetDesc* desc);
    /// Mouse motion and buttons, while enabled and cursor-sensitive, for each
    /// cursor of the application.
    void ProcessInputEvent(const OrvInputEvent& event) override;
    /// Each calls its callback, when one is set.
    virtual void CursorEntered(OrvCursor* cursor);
    virtual void CursorExit(OrvCursor* cursor);
    /// Nothing here.
    virtual void CursorPressed(OrvCursor* cursor);
    virtual void CursorReleased(OrvCursor* cursor);
    virtual void CursorPressedAndReleased(OrvCursor* cursor);

    /// Each sets the quad's extent around the origin and turns automatic size off.
    void SetWidth(float width);
    void SetHeight(float height);
    void SetDimension(const OrvVector2D& dimension);
    /// The extent of the quad's bounding box in world space (scale included).
    float GetWidth() const;
    float GetHeight() const;

    /// The animation is imported through the sprite manager when needed and
    /// played from its start; nothing is queued after it.
    void PlaySpriteAnimation(const OrvUnicode& name, bool mirrorX, bool mirrorY);
    /// The same, with `nextName` queued to follow it.
    void PlaySpriteAnimation(const OrvUnicode& name, bool mirrorX, bool mirrorY, const OrvUnicode& nextName,
                             bool nextMirrorX, bool nextMirrorY);
    void PlaySpriteAnimation(const OrvUnicode& name, const OrvUnicode& nextName, bool nextMirrorX, bool nextMirrorY);
    OrvSpriteAnimationPlayer* GetSpriteAnimationPlayer() const { return m_player; }

    /// A null function switches the callback off.
    void SetEnterCallback(Callback callback, void* userData);
    void SetExitCallback(Callback callback, void* userData);
    void SetPressedAndReleasedCallback(Callback callback, void* userData);

    /// The quad's material becomes a flat colour made through the application's
    /// material shelf (OrvRendererException when the shelf has no renderer);
    /// the previous material goes.
    OrvColorMaterial* UseColorMaterial(const OrvColor& color);
    /// The quad's colour material, or null.
    OrvColorMaterial* GetColorMaterial() const;

    /// Both enabled, the quad of one of the application's cursors touches the
    /// widget's (world space).
    bool IsAnyCursorColliding() const;

    bool GetListenToCursors() const { return m_listenToCursors; }
    bool GetAutoSize() const { return m_autoSize; }
    void SetAutoSize(bool autoSize) { m_autoSize = autoSize; }
    bool IsCursorOver(OrvCursor* cursor) const { return m_overCursors.Contains(cursor); }
    unsigned int GetOverCursorCount() const { return m_overCursors.GetCount(); }
    unsigned int GetPressedCursorCount() const { return m_pressedCursors.GetCount(); }

    /// The quad from (left, bottom) to (right, top), corners bottom-left,
    /// top-left, top-right, bottom-right, UV (0, 0), normal (0, 1, 0); the
    /// bounding box rebuilt. Automatic size stays as it is.
    void SetQuad(float left, float bottom, float right, float top);

protected:
    /// The application of the asset's manager, or null.
    OrvApplication* GetApplication() const;
    /// The first device of the application's input manager of that kind, or null.
    OrvInputDevice* FindFirstDevice(bool (*isKind)(const OrvInputDevice*)) const;
    /// Removes the first occurrence, when there is one.
    static void Forget(OrvTObjectArray<OrvCursor*>& cursors, OrvCursor* cursor);

    Callback m_enterCallback;
    void* m_enterData;
    Callback m_exitCallback;
    void* m_exitData;
    Callback m_pressedAndReleasedCallback;
    void* m_pressedAndReleasedData;
    OrvSpriteAnimationPlayer* m_player;
    bool m_listenToCursors;
    bool m_autoSize;
    OrvTObjectArray<OrvCursor*> m_overCursors;
    OrvTObjectArray<OrvCursor*> m_pressedCursors;

private:
    void MouseMoved();
    void MouseButtonDown();
    void MouseButtonUp();
    void ReleaseMaterial();
    void SetQuadX(float half);
    void SetQuadY(float half);
};

#endif

#ifndef ORV_BUTTON_H
#define ORV_BUTTON_H

#include "OrvColor.h"
#include "OrvWidget.h"

class OrvLabel;
struct OrvButtonDesc;

/// A coloured quad with a label as its child (child 0). Quad and text take
/// their hover colours when a cursor enters, their pressed colours when it
/// presses, hover again on release and normal when it leaves. A click reaches
/// the game through the pressed-and-released callback.
class OrvButton : public OrvWidget
{
public:
    OrvButton();
    ~OrvButton() override;

    using OrvWidget::Create;
    /// The widget, the colours, the label (its type is the button's followed
    /// by "Label"), the size, then a colour material of the application's
    /// shelf (OrvRendererException when the shelf has no renderer).
    virtual void Create(OrvButtonDesc* desc);
    void CursorEntered(OrvCursor* cursor) override;
    void CursorExit(OrvCursor* cursor) override;
    void CursorPressed(OrvCursor* cursor) override;
    void CursorReleased(OrvCursor* cursor) override;

    /// The label's text; the button grows to it when automatic size is on.
    void SetText(const OrvUnicode& text);
    OrvUnicode GetText() const;
    void SetBackgroundColor(const OrvColor& color);
    OrvLabel* GetLabel() const { return m_label; }
    /// Grows (never shrinks) to the label's extent: its height first, then its width.
    void ComputeOptimalSize();

protected:
    void ShowColors(const OrvColor& background, const OrvColor& text);
    /// Undoes the label after a failed creation: detached and marked for deletion.
    void DropLabel();

    OrvLabel* m_label;
    OrvColor m_backgroundNormalColor;
    OrvColor m_backgroundHoverColor;
    OrvColor m_backgroundPressedColor;
    OrvColor m_textNormalColor;
    OrvColor m_textHoverColor;
    OrvColor m_textPressedColor;
};

#endif

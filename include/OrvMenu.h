#ifndef ORV_MENU_H
#define ORV_MENU_H

#include "OrvWidget.h"

class OrvButton;
class OrvFont;
class OrvMenu;
class OrvTimer;
struct OrvMenuDesc;

/// A column of buttons (its children, in the order added) stacked downwards
/// from its origin, all as large as the largest, under a backing quad that
/// encloses them. Action buttons call the game back on a click; sub-menu
/// buttons open another menu beside them. A menu shown as a sub-menu hides
/// itself 0.2 s after a cursor left it, unless a cursor is over it (or over
/// one of its open sub-menus) by then.
class OrvMenu : public OrvWidget
{
public:
    /// The delay of the exit timer, in seconds.
    static constexpr float kExitDelay = 0.2f;

    OrvMenu();
    /// Gives its timer back to the timer manager.
    ~OrvMenu() override;

    using OrvWidget::Create;
    /// The widget, its size, a transparent colour material of the application's
    /// shelf (OrvRendererException when the shelf has no renderer), the font,
    /// and the exit timer, not started.
    virtual void Create(OrvMenuDesc* desc);
    /// A sub-menu starts its exit timer.
    void CursorExit(OrvCursor* cursor) override;

    /// A button of type "Button_<text>" below the last one (at the origin for
    /// the first), centred text in the menu's font, whose click calls
    /// `callback` with `data`. The menu resizes when automatic size is on.
    /// New buttons are shown and enabled as the menu is.
    OrvButton* AddActionButton(const OrvUnicode& text, Callback callback, void* data);
    /// The same with a button that opens `subMenu`, whose type becomes
    /// "SubMenu_<text>" and which is hidden until opened.
    OrvButton* AddSubMenuButton(const OrvUnicode& text, OrvMenu* subMenu);
    /// Marks every child, and what hangs below it (sub-menus included), for
    /// deletion; the size stays.
    void ClearButtons();
    void SetBackgroundColor(const OrvColor& color);
    /// Every button the size of the largest; the backing quad around them all,
    /// from the first button's top-left corner to the last one's bottom-right.
    void ComputeOptimalSize();

    /// A cursor collides with the menu or with one of its open sub-menus.
    bool IsInUse() const;
    /// Hides and disables the menu and its buttons.
    void Hide();
    OrvTimer* GetExitTimer() const { return m_exitTimer; }
    OrvFont* GetFont() const { return m_font; }
    float GetFontSizeCoef() const { return m_fontSizeCoef; }

protected:
    OrvFont* m_font;
    float m_fontSizeCoef;
    OrvTimer* m_exitTimer;

private:
    template <class B, class D>
    B* AddButton(const OrvUnicode& text, D& desc);
    bool IsSubMenu() const;
};

#endif

#ifndef ORV_SUB_MENU_BUTTON_H
#define ORV_SUB_MENU_BUTTON_H

#include "OrvButton.h"

class OrvMenu;
class OrvTimer;
struct OrvSubMenuButtonDesc;

/// A button that opens a menu beside itself (its child 1, after the label):
/// at once when clicked, or when a cursor is still over it 0.2 s after it
/// entered. The sub-menu closes 0.2 s after the cursor left the button unless
/// a cursor is over the sub-menu then.
class OrvSubMenuButton : public OrvButton
{
public:
    /// The delay of both timers, in seconds.
    static constexpr float kDelay = 0.2f;

    OrvSubMenuButton();
    /// Gives its two timers back to the timer manager.
    ~OrvSubMenuButton() override;

    using OrvButton::Create;
    /// The button, then the sub-menu attached (OrvTreeNodeException when it is
    /// null or has a parent already), placed beside it, hidden and disabled;
    /// then the two timers, not started.
    virtual void Create(OrvSubMenuButtonDesc* desc);
    void CursorEntered(OrvCursor* cursor) override;
    void CursorExit(OrvCursor* cursor) override;
    void CursorPressedAndReleased(OrvCursor* cursor) override;

    /// Places child 1 beside the button, shows and enables it
    /// (OrvArrayException when there is no child 1).
    void OpenSubMenu();
    /// Hides and disables child 1.
    void CloseSubMenu();
    /// Child 1, or null.
    OrvMenu* GetSubMenu() const;

    OrvTimer* GetEnteredTimer() const { return m_enteredTimer; }
    OrvTimer* GetExitedTimer() const { return m_exitedTimer; }

private:
    void PlaceSubMenu();

    OrvTimer* m_enteredTimer;
    OrvTimer* m_exitedTimer;
};

#endif

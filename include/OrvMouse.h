#ifndef ORV_MOUSE_H
#define ORV_MOUSE_H

#include "OrvInputDevice.h"
#include "OrvVector2D.h"

enum OrvMouseButton : int
{
    MOUSE_BUTTON_LEFT = 0,
    MOUSE_BUTTON_MIDDLE = 1,
    MOUSE_BUTTON_RIGHT = 2
};

/// Position in window pixels (origin top-left, y down), the last motion, the
/// accumulated wheel steps and the three buttons.
class OrvMouse : public OrvInputDevice
{
public:
    OrvMouse();
    ~OrvMouse() override;

    float GetX() const { return m_position.X; }
    float GetY() const { return m_position.Y; }
    float GetRelativeX() const { return m_relative.X; }
    float GetRelativeY() const { return m_relative.Y; }
    int GetWheelPosition() const { return m_wheel; }
    /// +1 for the last step up, -1 down; kept until the next step.
    int GetRelativeWheelPosition() const { return m_relativeWheel; }

    /// Buttons outside 0..2 are ignored (and read as up).
    void SetButtonState(OrvMouseButton button, bool down);
    bool IsButtonDown(OrvMouseButton button) const;
    /// Position, motion and wheel to 0, buttons up; the last wheel direction stays.
    void Reset();

    static OrvUnicode GetButtonText(OrvMouseButton button);

protected:
    OrvVector2D m_position;
    OrvVector2D m_relative;
    int m_wheel;
    int m_relativeWheel;
    bool m_buttons[3];
};

#endif

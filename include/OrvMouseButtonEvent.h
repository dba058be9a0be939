#ifndef ORV_MOUSE_BUTTON_EVENT_H
#define ORV_MOUSE_BUTTON_EVENT_H

#include "OrvInputEvent.h"
#include "OrvMouse.h"

/// A mouse button went down or up.
class OrvMouseButtonEvent : public OrvInputEvent
{
public:
    OrvMouseButtonEvent();
    /// INPUT_MOUSE_BUTTON_DOWN or _UP, else OrvInputException before the mouse
    /// is touched; then the button's state is set.
    OrvMouseButtonEvent(OrvInputEventType type, OrvMouse* mouse, OrvMouseButton button);
    OrvMouseButtonEvent(const OrvMouseButtonEvent& other) = default;
    OrvMouseButtonEvent& operator=(const OrvMouseButtonEvent& other) = default;
    ~OrvMouseButtonEvent() override;

    OrvMouseButton GetButton() const { return m_button; }

private:
    OrvMouseButton m_button;
};

#endif

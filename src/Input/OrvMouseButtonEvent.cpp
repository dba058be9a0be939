#include "OrvMouseButtonEvent.h"

#include "OrvInputException.h"

OrvMouseButtonEvent::OrvMouseButtonEvent() : OrvInputEvent(), m_button(MOUSE_BUTTON_LEFT) {}

OrvMouseButtonEvent::OrvMouseButtonEvent(OrvInputEventType type, OrvMouse* mouse, OrvMouseButton button)
    : OrvInputEvent(type, mouse), m_button(button)
{
    if (type != INPUT_MOUSE_BUTTON_DOWN && type != INPUT_MOUSE_BUTTON_UP)
        ORV_THROW(OrvInputException, "Invalid event type for an input mouse button event",
                  "src/Input/OrvMouseButtonEvent");
    if (mouse != nullptr)
        mouse->SetButtonState(button, type == INPUT_MOUSE_BUTTON_DOWN);
}

OrvMouseButtonEvent::~OrvMouseButtonEvent() = default;

#include "OrvKeyboardEvent.h"

#include "OrvInputException.h"

OrvKeyboardEvent::OrvKeyboardEvent() : OrvInputEvent(), m_key(KEY_UNKNOWN), m_text("") {}

OrvKeyboardEvent::OrvKeyboardEvent(OrvInputEventType type, OrvKeyboard* keyboard, OrvKey key, const OrvUnicode& text)
    : OrvInputEvent(type, keyboard), m_key(key), m_text(text)
{
    if (type != INPUT_KEY_DOWN && type != INPUT_KEY_UP)
        ORV_THROW(OrvInputException, "Invalid event type for an input keyboard event", "src/Input/OrvKeyboardEvent");
    if (keyboard != nullptr)
        keyboard->SetKeyState(key, type == INPUT_KEY_DOWN);
}

OrvKeyboardEvent::~OrvKeyboardEvent() = default;

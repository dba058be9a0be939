#ifndef ORV_KEYBOARD_EVENT_H
#define ORV_KEYBOARD_EVENT_H

#include "OrvInputEvent.h"
#include "OrvKeyboard.h"
#include "OrvUnicode.h"

/// A key went down or up, with the character it typed (empty when none).
class OrvKeyboardEvent : public OrvInputEvent
{
public:
    OrvKeyboardEvent();
    /// INPUT_KEY_DOWN or INPUT_KEY_UP, else OrvInputException before the
    /// keyboard is touched; then the key's state is set.
    OrvKeyboardEvent(OrvInputEventType type, OrvKeyboard* keyboard, OrvKey key, const OrvUnicode& text);
    OrvKeyboardEvent(const OrvKeyboardEvent& other) = default;
    OrvKeyboardEvent& operator=(const OrvKeyboardEvent& other) = default;
    ~OrvKeyboardEvent() override;

    OrvKey GetKey() const { return m_key; }
    OrvUnicode GetUnicode() const { return m_text; }
    void SetUnicode(const OrvUnicode& text) { m_text = text; }

private:
    OrvKey m_key;
    OrvUnicode m_text;
};

#endif

#ifndef ORV_KEYBOARD_H
#define ORV_KEYBOARD_H

#include "OrvInputDevice.h"

/// The keys the engine knows; any int is held, KEY_UNKNOWN and above have no state.
enum OrvKey : int
{
    KEY_ESCAPE = 0,
    KEY_F1, KEY_F2, KEY_F3, KEY_F4, KEY_F5, KEY_F6, KEY_F7, KEY_F8, KEY_F9, KEY_F10, KEY_F11, KEY_F12, KEY_F13,
    KEY_F14, KEY_F15,
    KEY_1, KEY_2, KEY_3, KEY_4, KEY_5, KEY_6, KEY_7, KEY_8, KEY_9, KEY_0,
    KEY_A, KEY_B, KEY_C, KEY_D, KEY_E, KEY_F, KEY_G, KEY_H, KEY_I, KEY_J, KEY_K, KEY_L, KEY_M, KEY_N, KEY_O, KEY_P,
    KEY_Q, KEY_R, KEY_S, KEY_T, KEY_U, KEY_V, KEY_W, KEY_X, KEY_Y, KEY_Z,
    KEY_NUMPAD_0, KEY_NUMPAD_1, KEY_NUMPAD_2, KEY_NUMPAD_3, KEY_NUMPAD_4, KEY_NUMPAD_5, KEY_NUMPAD_6, KEY_NUMPAD_7,
    KEY_NUMPAD_8, KEY_NUMPAD_9,
    KEY_NUMPAD_MINUS, KEY_NUMPAD_PERIOD, KEY_NUMPAD_PLUS, KEY_NUMPAD_EQUALS, KEY_NUMPAD_DIVIDE, KEY_NUMPAD_MULTIPLY,
    KEY_NUMPAD_ENTER,
    KEY_UP, KEY_DOWN, KEY_LEFT, KEY_RIGHT, KEY_INSERT, KEY_DELETE, KEY_HOME, KEY_END, KEY_PAGE_UP, KEY_PAGE_DOWN,
    KEY_TAB, KEY_CAPS_LOCK, KEY_LEFT_SHIFT, KEY_LEFT_CTRL, KEY_LEFT_ALT, KEY_BACKSPACE, KEY_RETURN, KEY_RIGHT_SHIFT,
    KEY_RIGHT_ALT, KEY_RIGHT_CTRL, KEY_SPACE, KEY_MINUS, KEY_EQUALS, KEY_SEMICOLON, KEY_COLON, KEY_QUOTE,
    KEY_BACKQUOTE, KEY_BACKSLASH, KEY_SLASH, KEY_COMMA, KEY_PERIOD, KEY_NUM_LOCK, KEY_SCROLL_LOCK, KEY_SYSREQ,
    KEY_LEFT_SUPER, KEY_RIGHT_SUPER,
    KEY_UNKNOWN
};

/// The state of every key, up or down.
class OrvKeyboard : public OrvInputDevice
{
public:
    static constexpr int kKeyCount = KEY_UNKNOWN;

    OrvKeyboard();
    ~OrvKeyboard() override;

    /// Keys outside 0..104 are ignored (and read as up).
    void SetKeyState(OrvKey key, bool down);
    bool IsKeyDown(OrvKey key) const;

    /// The key's name for key-binding screens; "105" for KEY_UNKNOWN and above.
    static OrvUnicode GetKeyText(OrvKey key);

private:
    bool m_keys[kKeyCount];
};

#endif

#include "OrvKeyboard.h"

namespace
{
const char* const kKeyTexts[OrvKeyboard::kKeyCount] = {
    "0",           "F1",          "F2",          "F3",          "F4",          "F5",          "F6",
    "F7",          "F8",          "F9",          "F10",         "F11",         "F12",         "F13",
    "F14",         "F15",         "1",           "2",           "3",           "4",           "5",
    "6",           "7",           "8",           "9",           "0",           "A",           "B",
    "C",           "D",           "E",           "F",           "G",           "H",           "I",
    "J",           "K",           "L",           "M",           "N",           "O",           "P",
    "Q",           "R",           "S",           "T",           "U",           "V",           "W",
    "X",           "Y",           "Z",           "NUM PAD 0",   "NUM PAD 1",   "NUM PAD 2",   "NUM PAD 3",
    "NUM PAD 4",   "NUM PAD 5",   "NUM PAD 6",   "NUM PAD 7",   "NUM PAD 8",   "NUM PAD 9",   "NUM PAD -",
    "NUM PAD .",   "NUM PAD +",   "NUM PAD =",   "NUM PAD /",   "NUM PAD *",   "NUM PAD Return",
    "Up",          "Down",        "Left",        "Right",       "Insert",      "Delete",      "Home",
    "End",         "Page Up",     "Page Down",   "Tab",         "Caps Lock",   "Left Shift",  "Left Ctrl",
    "Left Alt",    "Backspace",   "Return",      "Right Shift", "Right Alt",   "Right Ctrl",  "Space",
    "-",           "=",           ";",           ":",           "'",           "'",           "\\",
    "/",           ",",           ".",           "Num Lock",    "Scroll Lock", "",            "",
    ""};

bool HasSlot(OrvKey key)
{
    return static_cast<int>(key) >= 0 && static_cast<int>(key) < OrvKeyboard::kKeyCount;
}
}  // namespace

OrvKeyboard::OrvKeyboard() : OrvInputDevice(), m_keys() {}

OrvKeyboard::~OrvKeyboard() = default;

void OrvKeyboard::SetKeyState(OrvKey key, bool down)
{
    if (HasSlot(key))
        m_keys[key] = down;
}

bool OrvKeyboard::IsKeyDown(OrvKey key) const
{
    return HasSlot(key) && m_keys[key];
}

OrvUnicode OrvKeyboard::GetKeyText(OrvKey key)
{
    return OrvUnicode(HasSlot(key) ? kKeyTexts[key] : "105");
}

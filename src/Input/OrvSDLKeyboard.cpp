#include "OrvSDLKeyboard.h"

#include <SDL.h>

#include "OrvInputManager.h"
#include "OrvKeyboardEvent.h"
#include "OrvSDLEventSource.h"

namespace
{
// SDL keys 8..317, each with its engine key.
struct KeyPair
{
    int sdl;
    OrvKey key;
};

const KeyPair kNamedKeys[] = {
    {SDLK_ESCAPE, KEY_ESCAPE},         {SDLK_KP_MINUS, KEY_NUMPAD_MINUS},   {SDLK_KP_PERIOD, KEY_NUMPAD_PERIOD},
    {SDLK_KP_PLUS, KEY_NUMPAD_PLUS},   {SDLK_KP_EQUALS, KEY_NUMPAD_EQUALS}, {SDLK_KP_DIVIDE, KEY_NUMPAD_DIVIDE},
    {SDLK_KP_MULTIPLY, KEY_NUMPAD_MULTIPLY}, {SDLK_KP_ENTER, KEY_NUMPAD_ENTER}, {SDLK_UP, KEY_UP},
    {SDLK_DOWN, KEY_DOWN},             {SDLK_LEFT, KEY_LEFT},               {SDLK_RIGHT, KEY_RIGHT},
    {SDLK_INSERT, KEY_INSERT},         {SDLK_DELETE, KEY_DELETE},           {SDLK_HOME, KEY_HOME},
    {SDLK_END, KEY_END},               {SDLK_PAGEUP, KEY_PAGE_UP},          {SDLK_PAGEDOWN, KEY_PAGE_DOWN},
    {SDLK_TAB, KEY_TAB},               {SDLK_CAPSLOCK, KEY_CAPS_LOCK},      {SDLK_LSHIFT, KEY_LEFT_SHIFT},
    {SDLK_LCTRL, KEY_LEFT_CTRL},       {SDLK_LALT, KEY_LEFT_ALT},           {SDLK_BACKSPACE, KEY_BACKSPACE},
    {SDLK_RETURN, KEY_RETURN},         {SDLK_RSHIFT, KEY_RIGHT_SHIFT},      {SDLK_RALT, KEY_RIGHT_ALT},
    {SDLK_RCTRL, KEY_RIGHT_CTRL},      {SDLK_SPACE, KEY_SPACE},             {SDLK_MINUS, KEY_MINUS},
    {SDLK_EQUALS, KEY_EQUALS},         {SDLK_SEMICOLON, KEY_SEMICOLON},     {SDLK_COLON, KEY_COLON},
    {SDLK_QUOTE, KEY_QUOTE},           {SDLK_BACKQUOTE, KEY_BACKQUOTE},     {SDLK_BACKSLASH, KEY_BACKSLASH},
    {SDLK_SLASH, KEY_SLASH},           {SDLK_COMMA, KEY_COMMA},             {SDLK_PERIOD, KEY_PERIOD},
    {SDLK_NUMLOCK, KEY_NUM_LOCK},      {SDLK_SCROLLOCK, KEY_SCROLL_LOCK},   {SDLK_SYSREQ, KEY_SYSREQ},
    {SDLK_LSUPER, KEY_LEFT_SUPER},     {SDLK_RSUPER, KEY_RIGHT_SUPER},
};

const int kFirstKey = 8;
const int kLastKey = 317;

// The whole table, built once: SDL key - 8 → engine key.
struct KeyTable
{
    OrvKey keys[kLastKey - kFirstKey + 1];
    KeyTable()
    {
        for (OrvKey& key : keys)
            key = KEY_UNKNOWN;
        auto set = [this](int sdl, OrvKey key) { keys[sdl - kFirstKey] = key; };
        for (const KeyPair& pair : kNamedKeys)
            set(pair.sdl, pair.key);
        for (int i = 0; i < 15; ++i)
            set(SDLK_F1 + i, static_cast<OrvKey>(KEY_F1 + i));
        for (int i = 0; i < 9; ++i)
            set(SDLK_1 + i, static_cast<OrvKey>(KEY_1 + i));
        set(SDLK_0, KEY_0);
        for (int i = 0; i < 26; ++i)
            set(SDLK_a + i, static_cast<OrvKey>(KEY_A + i));
        for (int i = 0; i < 10; ++i)
            set(SDLK_KP0 + i, static_cast<OrvKey>(KEY_NUMPAD_0 + i));
    }
};
}  // namespace

OrvSDLKeyboard::OrvSDLKeyboard() = default;

OrvSDLKeyboard::~OrvSDLKeyboard() = default;

void OrvSDLKeyboard::Create()
{
    SDL_EnableUNICODE(1);
}

void OrvSDLKeyboard::RefreshHardware() {}

OrvKey OrvSDLKeyboard::ConvertKeyCode(int sdlKey)
{
    static const KeyTable table;
    if (sdlKey < kFirstKey || sdlKey > kLastKey)
        return KEY_UNKNOWN;
    return table.keys[sdlKey - kFirstKey];
}

void OrvSDLKeyboard::Capture()
{
    // One at a time: when a listener throws, the events not yet dispatched
    // are still in SDL's queue for the next frame.
    SDL_Event taken;
    for (int i = 0; i < kEventsPerCapture; ++i)
    {
        if (OrvSDLEventSource::Take(&taken, 1, SDL_KEYDOWNMASK | SDL_KEYUPMASK) <= 0)
            break;
        const SDL_KeyboardEvent& key = taken.key;
        OrvUnicode text;
        // The typed character, as one byte of UTF-8.
        const char byte = static_cast<char>(key.keysym.unicode & 0xFF);
        if (byte != 0)
            text.SetFromUTF8(&byte, 1);
        const OrvKeyboardEvent event(key.state == SDL_PRESSED ? INPUT_KEY_DOWN : INPUT_KEY_UP, this,
                                     ConvertKeyCode(key.keysym.sym), text);
        if (m_inputManager != nullptr)
            m_inputManager->ProcessEvent(event);
    }
}

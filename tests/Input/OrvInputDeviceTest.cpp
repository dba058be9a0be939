#include <gtest/gtest.h>

#include "OrvInputException.h"
#include "OrvJoypadAxisEvent.h"
#include "OrvJoypadButtonEvent.h"
#include "OrvJoypadHatEvent.h"
#include "OrvKeyboardEvent.h"
#include "OrvMouseButtonEvent.h"
#include "OrvSDLJoypad.h"
#include "OrvSDLKeyboard.h"
#include "OrvSDLMouse.h"
#include "OrvTestBytes.h"

namespace
{
std::string Text(const OrvUnicode& text)
{
    char buffer[64] = {};
    text.ToCString(buffer, sizeof(buffer), nullptr);
    return buffer;
}
}  // namespace

TEST(OrvInputDevices, DisplayTextsOfKeysButtonsAxesAndHats)
{
    EXPECT_EQ("0", Text(OrvKeyboard::GetKeyText(KEY_ESCAPE))) << "Escape shows its value";
    EXPECT_EQ("0", Text(OrvKeyboard::GetKeyText(KEY_0)));
    EXPECT_EQ("9", Text(OrvKeyboard::GetKeyText(KEY_9)));
    EXPECT_EQ("F15", Text(OrvKeyboard::GetKeyText(KEY_F15)));
    EXPECT_EQ("Z", Text(OrvKeyboard::GetKeyText(KEY_Z)));
    EXPECT_EQ("NUM PAD Return", Text(OrvKeyboard::GetKeyText(KEY_NUMPAD_ENTER)));
    EXPECT_EQ("'", Text(OrvKeyboard::GetKeyText(KEY_QUOTE)));
    EXPECT_EQ("'", Text(OrvKeyboard::GetKeyText(KEY_BACKQUOTE)));
    EXPECT_EQ("\\", Text(OrvKeyboard::GetKeyText(KEY_BACKSLASH)));
    EXPECT_EQ("Scroll Lock", Text(OrvKeyboard::GetKeyText(KEY_SCROLL_LOCK)));
    EXPECT_EQ("", Text(OrvKeyboard::GetKeyText(KEY_SYSREQ)));
    EXPECT_EQ("", Text(OrvKeyboard::GetKeyText(KEY_RIGHT_SUPER)));
    EXPECT_EQ("105", Text(OrvKeyboard::GetKeyText(KEY_UNKNOWN)));
    EXPECT_EQ("105", Text(OrvKeyboard::GetKeyText(static_cast<OrvKey>(200))));
    EXPECT_EQ("105", Text(OrvKeyboard::GetKeyText(static_cast<OrvKey>(-1))));

    EXPECT_EQ("Middle Mouse Button", Text(OrvMouse::GetButtonText(MOUSE_BUTTON_MIDDLE)));
    EXPECT_EQ("", Text(OrvMouse::GetButtonText(static_cast<OrvMouseButton>(3))));
    EXPECT_EQ("Select Button", Text(OrvJoypad::GetButtonText(JOYPAD_BUTTON_SELECT)));
    EXPECT_EQ("", Text(OrvJoypad::GetButtonText(static_cast<OrvJoypadButton>(12))));
    EXPECT_EQ("Left Stick", Text(OrvJoypad::GetAxisText(JOYPAD_AXIS_LEFT_Y)));
    EXPECT_EQ("Right Stick", Text(OrvJoypad::GetAxisText(JOYPAD_AXIS_RIGHT_X)));
    EXPECT_EQ("Hat Left Down", Text(OrvJoypad::GetHatPositionText(HAT_LEFT_DOWN)));
    EXPECT_EQ("", Text(OrvJoypad::GetHatPositionText(static_cast<OrvJoypadHatPosition>(9))));

    EXPECT_EQ(KEY_ESCAPE, OrvSDLKeyboard::ConvertKeyCode(27));
    EXPECT_EQ(KEY_0, OrvSDLKeyboard::ConvertKeyCode('0'));
    EXPECT_EQ(KEY_A, OrvSDLKeyboard::ConvertKeyCode('a'));
    EXPECT_EQ(KEY_F12, OrvSDLKeyboard::ConvertKeyCode(293));
    EXPECT_EQ(KEY_NUMPAD_9, OrvSDLKeyboard::ConvertKeyCode(265));
    EXPECT_EQ(KEY_RIGHT, OrvSDLKeyboard::ConvertKeyCode(275));
    EXPECT_EQ(KEY_RIGHT_SUPER, OrvSDLKeyboard::ConvertKeyCode(312));
    EXPECT_EQ(KEY_UNKNOWN, OrvSDLKeyboard::ConvertKeyCode('A')) << "SDL's capitals are not keys";
    EXPECT_EQ(KEY_UNKNOWN, OrvSDLKeyboard::ConvertKeyCode(7));
    EXPECT_EQ(KEY_UNKNOWN, OrvSDLKeyboard::ConvertKeyCode(318));
}

TEST(OrvInputDevices, EventsUpdateTheirDeviceAfterCheckingTheirType)
{
    OrvSDLKeyboard keyboard;
    OrvKeyboardEvent down(INPUT_KEY_DOWN, &keyboard, KEY_A, "a");
    EXPECT_TRUE(keyboard.IsKeyDown(KEY_A));
    EXPECT_EQ("a", Text(down.GetUnicode()));
    const Thrown refused([&] { OrvKeyboardEvent wrong(INPUT_MOUSE_MOVED, &keyboard, KEY_B, ""); });
    EXPECT_EQ("Orv Input Exception | Invalid event type for an input keyboard event | src/Input/OrvKeyboardEvent",
              refused.Full());
    EXPECT_FALSE(keyboard.IsKeyDown(KEY_B)) << "refused before the device is touched";
    OrvKeyboardEvent up(INPUT_KEY_UP, &keyboard, KEY_A, "");
    EXPECT_FALSE(keyboard.IsKeyDown(KEY_A));
    OrvKeyboardEvent unknown(INPUT_KEY_DOWN, &keyboard, KEY_UNKNOWN, "");
    EXPECT_FALSE(keyboard.IsKeyDown(KEY_UNKNOWN)) << "no slot, nothing written";
    OrvKeyboardEvent copy;
    copy = down;
    EXPECT_EQ(KEY_A, copy.GetKey());

    OrvSDLMouse mouse;
    OrvMouseButtonEvent(INPUT_MOUSE_BUTTON_DOWN, &mouse, MOUSE_BUTTON_RIGHT);
    EXPECT_TRUE(mouse.IsButtonDown(MOUSE_BUTTON_RIGHT));
    EXPECT_EQ("Invalid event type for an input mouse button event | src/Input/OrvMouseButtonEvent",
              Thrown([&] { OrvMouseButtonEvent(INPUT_KEY_UP, &mouse, MOUSE_BUTTON_RIGHT); }).message + " | " +
                  Thrown([&] { OrvMouseButtonEvent(INPUT_KEY_UP, &mouse, MOUSE_BUTTON_RIGHT); }).file);
    EXPECT_TRUE(mouse.IsButtonDown(MOUSE_BUTTON_RIGHT));
    mouse.SetButtonState(static_cast<OrvMouseButton>(7), true);
    EXPECT_FALSE(mouse.IsButtonDown(static_cast<OrvMouseButton>(7)));
    mouse.Reset();
    EXPECT_FALSE(mouse.IsButtonDown(MOUSE_BUTTON_RIGHT));

    OrvSDLJoypad joypad;
    EXPECT_EQ(0.2f, joypad.GetDeadZone());
    joypad.SetDeadZone(-0.3f);
    EXPECT_EQ(0.3f, joypad.GetDeadZone());
    joypad.SetDeadZone(1.5f);
    EXPECT_EQ(1.0f, joypad.GetDeadZone());
    joypad.SetAxisValue(JOYPAD_AXIS_LEFT_X, 2.0f);
    EXPECT_EQ(1.0f, joypad.GetAxisValue(JOYPAD_AXIS_LEFT_X));
    joypad.SetAxisValue(JOYPAD_AXIS_RIGHT_Y, -7.0f);
    EXPECT_EQ(-1.0f, joypad.GetAxisValue(JOYPAD_AXIS_RIGHT_Y));
    joypad.SetAxisValue(static_cast<OrvJoypadAxis>(4), 0.5f);
    EXPECT_EQ(0.0f, joypad.GetAxisValue(static_cast<OrvJoypadAxis>(4)));

    OrvJoypadButtonEvent(INPUT_JOYPAD_BUTTON_DOWN, &joypad, JOYPAD_BUTTON_START);
    OrvJoypadHatEvent(INPUT_JOYPAD_HAT, &joypad, HAT_LEFT_UP);
    EXPECT_TRUE(joypad.IsButtonDown(JOYPAD_BUTTON_START));
    EXPECT_EQ(HAT_LEFT_UP, joypad.GetHatPosition());
    EXPECT_EQ("Invalid event type for an input joypad button event",
              Thrown([&] { OrvJoypadButtonEvent(INPUT_JOYPAD_AXIS, &joypad, JOYPAD_BUTTON_A); }).message);
    EXPECT_EQ("Invalid event type for an input joypad axis event",
              Thrown([&] { OrvJoypadAxisEvent(INPUT_JOYPAD_HAT, &joypad, JOYPAD_AXIS_LEFT_X, 0.5f); }).message);
    EXPECT_EQ("Invalid event type for an input joypad hat event | src/Input/OrvJoypadHatEvent",
              Thrown([&] { OrvJoypadHatEvent(INPUT_JOYPAD_AXIS, &joypad, HAT_DOWN); }).message + " | " +
                  Thrown([&] { OrvJoypadHatEvent(INPUT_JOYPAD_AXIS, &joypad, HAT_DOWN); }).file);
    EXPECT_EQ(HAT_LEFT_UP, joypad.GetHatPosition());
    joypad.Reset();
    EXPECT_FALSE(joypad.IsButtonDown(JOYPAD_BUTTON_START));
    EXPECT_EQ(-0.0f, joypad.GetAxisValue(JOYPAD_AXIS_RIGHT_Y));
    EXPECT_EQ(HAT_LEFT_UP, joypad.GetHatPosition()) << "the hat stays";
}

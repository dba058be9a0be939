#ifndef ORV_JOYPAD_H
#define ORV_JOYPAD_H

#include "OrvInputDevice.h"

enum OrvJoypadButton : int
{
    JOYPAD_BUTTON_X = 0,
    JOYPAD_BUTTON_A,
    JOYPAD_BUTTON_B,
    JOYPAD_BUTTON_Y,
    JOYPAD_BUTTON_L1,
    JOYPAD_BUTTON_L2,
    JOYPAD_BUTTON_L3,
    JOYPAD_BUTTON_R1,
    JOYPAD_BUTTON_R2,
    JOYPAD_BUTTON_R3,
    JOYPAD_BUTTON_START,
    JOYPAD_BUTTON_SELECT
};

enum OrvJoypadAxis : int
{
    JOYPAD_AXIS_LEFT_X = 0,
    JOYPAD_AXIS_LEFT_Y,
    JOYPAD_AXIS_RIGHT_X,
    JOYPAD_AXIS_RIGHT_Y
};

enum OrvJoypadHatPosition : int
{
    HAT_CENTERED = 0,
    HAT_UP,
    HAT_RIGHT,
    HAT_DOWN,
    HAT_LEFT,
    HAT_RIGHT_UP,
    HAT_RIGHT_DOWN,
    HAT_LEFT_UP,
    HAT_LEFT_DOWN
};

/// Two sticks (four axes in -1..1), twelve buttons and a hat. Readings within
/// the dead zone count as 0.
class OrvJoypad : public OrvInputDevice
{
public:
    static constexpr int kAxisCount = 4;
    static constexpr int kButtonCount = 12;

    OrvJoypad();
    explicit OrvJoypad(int joypadIndex);
    ~OrvJoypad() override;

    int GetJoypadIndex() const { return m_joypadIndex; }
    /// Clamped to [-1, 1]; axes outside 0..3 are ignored (and read as 0).
    void SetAxisValue(OrvJoypadAxis axis, float value);
    float GetAxisValue(OrvJoypadAxis axis) const;
    /// Buttons outside 0..11 are ignored (and read as up).
    void SetButtonState(OrvJoypadButton button, bool down);
    bool IsButtonDown(OrvJoypadButton button) const;
    void SetHatPosition(OrvJoypadHatPosition position) { m_hat = position; }
    OrvJoypadHatPosition GetHatPosition() const { return m_hat; }
    /// Stores min(|zone|, 1).
    void SetDeadZone(float zone);
    float GetDeadZone() const { return m_deadZone; }
    /// Axes to 0 and buttons up; hat, dead zone and index stay.
    void Reset();

    static OrvUnicode GetButtonText(OrvJoypadButton button);
    static OrvUnicode GetAxisText(OrvJoypadAxis axis);
    static OrvUnicode GetHatPositionText(OrvJoypadHatPosition position);

protected:
    float m_deadZone;
    int m_joypadIndex;
    float m_axes[kAxisCount];
    bool m_buttons[kButtonCount];
    OrvJoypadHatPosition m_hat;
};

#endif

#ifndef ORV_INPUT_EVENT_H
#define ORV_INPUT_EVENT_H

class OrvInputDevice;

enum OrvInputEventType : int
{
    INPUT_MOUSE_BUTTON_DOWN = 0,
    INPUT_MOUSE_BUTTON_UP = 1,
    INPUT_MOUSE_MOVED = 2,
    INPUT_MOUSE_WHEEL = 3,
    INPUT_KEY_DOWN = 4,
    INPUT_KEY_UP = 5,
    INPUT_JOYPAD_BUTTON_DOWN = 6,
    INPUT_JOYPAD_BUTTON_UP = 7,
    INPUT_JOYPAD_AXIS = 8,
    INPUT_JOYPAD_HAT = 9
};

/// One change of a device, short-lived: its producer builds it, hands it to the
/// input manager and drops it after dispatch. Building a typed event updates
/// its device's state first, so listeners already see the new state. Mouse
/// motion and wheel events are plain events: the device holds the values.
class OrvInputEvent
{
public:
    OrvInputEvent();
    OrvInputEvent(OrvInputEventType type, OrvInputDevice* device);
    OrvInputEvent(const OrvInputEvent& other) = default;
    OrvInputEvent& operator=(const OrvInputEvent& other) = default;
    virtual ~OrvInputEvent();

    OrvInputEventType GetType() const { return m_type; }
    OrvInputDevice* GetDevice() const { return m_device; }

protected:
    OrvInputEventType m_type;
    OrvInputDevice* m_device;
};

#endif

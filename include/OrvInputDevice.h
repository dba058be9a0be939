#ifndef ORV_INPUT_DEVICE_H
#define ORV_INPUT_DEVICE_H

#include "OrvUnicode.h"

class OrvInputManager;

/// A source of input events with its current state. The input manager that
/// owns it dispatches the events it produces.
class OrvInputDevice
{
public:
    OrvInputDevice();
    /// Copies the state but neither the name nor the manager link.
    OrvInputDevice(const OrvInputDevice& other);
    OrvInputDevice& operator=(const OrvInputDevice& other);
    virtual ~OrvInputDevice();

    /// Connects the device to the platform.
    virtual void Create() = 0;
    /// Turns the platform's pending input of this device into events.
    virtual void Capture() = 0;
    /// Opens the hardware again.
    virtual void RefreshHardware() = 0;

    /// The kinds of the platform's events the device takes (kTakes... bits).
    /// The input manager drops every other kind from the platform's queue
    /// each turn, so that it never fills up; a device of the game's own is
    /// assumed to read anything unless it says otherwise.
    static constexpr unsigned int kTakesKeys = 0x1;
    static constexpr unsigned int kTakesMouse = 0x2;
    static constexpr unsigned int kTakesJoypad = 0x4;
    static constexpr unsigned int kTakesAnything = 0xFFFFFFFFu;
    virtual unsigned int GetTakenEvents() const { return kTakesAnything; }

    OrvInputManager* GetInputManager() const { return m_inputManager; }
    void SetInputManager(OrvInputManager* manager) { m_inputManager = manager; }
    void SetName(const OrvUnicode& name) { m_name = name; }
    OrvUnicode GetName() const { return m_name; }

protected:
    OrvInputManager* m_inputManager;
    OrvUnicode m_name;
};

#endif

#ifndef ORV_INPUT_MANAGER_H
#define ORV_INPUT_MANAGER_H

#include "OrvTArray.h"
#include "OrvTObjectArray.h"

class OrvInputDevice;
class OrvInputEvent;
class OrvInputListner;

/// Captures the devices' input once a frame and hands every event at once to
/// every listener of its device, in the order of registration. It owns its
/// devices, but only RemoveAllDevices destroys them. When it is destroyed the
/// listeners still registered are told they no longer are.
class OrvInputManager
{
public:
    OrvInputManager();
    /// An empty manager: no devices, no listeners.
    OrvInputManager(const OrvInputManager& other);
    OrvInputManager& operator=(const OrvInputManager& other);
    virtual ~OrvInputManager();

    /// Appends (again, when present) and links the device; Create is the caller's.
    void AddDevice(OrvInputDevice* device);
    void RemoveAllDevices();
    unsigned int GetDeviceCount() const { return m_devices.GetSize(); }
    OrvInputDevice* GetDevice(unsigned int index) const { return m_devices[index]; }

    /// Once in the list; links the listener either way.
    void AddListner(OrvInputListner* listener);
    /// Keeps the order of the others; the listener's own link is not touched.
    void RemoveListner(OrvInputListner* listener);
    unsigned int GetListnerCount() const { return m_listeners.GetCount(); }

    /// The platform's queue is pumped, then each device takes its own events
    /// from it. Events that no device of this manager will ever take (window
    /// housekeeping; kinds no device names in GetTakenEvents) are dropped, so
    /// that the queue never fills up with them; quit and user events stay.
    void Capture();
    /// To every listener of the event's device; listeners added or removed on
    /// the way are taken into account.
    void ProcessEvent(const OrvInputEvent& event);
    void PrintListners() const;

private:
    void DropUntakenEvents();

    OrvTArray<OrvInputDevice> m_devices;
    OrvTObjectArray<OrvInputListner*> m_listeners;
};

#endif

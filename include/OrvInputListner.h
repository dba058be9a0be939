#ifndef ORV_INPUT_LISTNER_H
#define ORV_INPUT_LISTNER_H

#include "OrvTObjectArray.h"

class OrvInputDevice;
class OrvInputEvent;
class OrvInputManager;

/// Receives the input events of the devices it listens to. A listener that is
/// destroyed while registered leaves its manager first.
class OrvInputListner
{
public:
    OrvInputListner();
    /// A copy listens to the same devices and is registered nowhere.
    OrvInputListner(const OrvInputListner& other);
    OrvInputListner& operator=(const OrvInputListner& other);
    virtual ~OrvInputListner();

    virtual void ProcessInputEvent(const OrvInputEvent& event) = 0;

    /// Throws OrvInputException for a null device; a device may be added twice.
    void AddInputDevice(OrvInputDevice* device);
    /// The first occurrence; an unknown device is ignored.
    void RemoveInputDevice(OrvInputDevice* device);
    void RemoveAllInputDevices();
    bool IsListning(OrvInputDevice* device) const;

    OrvInputManager* GetInputManager() const { return m_inputManager; }
    void SetInputManager(OrvInputManager* manager) { m_inputManager = manager; }

protected:
    OrvInputManager* m_inputManager;
    OrvTObjectArray<OrvInputDevice*> m_devices;
};

#endif

#ifndef ORV_INPUT_LISTNER_H
#define ORV_INPUT_LISTNER_H

#include "OrvTObjectArray.h"

class OrvInputDevice;
class OrvInputEvent;
class OrvInputManager;

// Receives the input events of the devices it listens to.
class OrvInputListner
{
public:
    OrvInputListner();
    // A copy listens to the same devices and is registered nowhere.
    OrvInputListner(const OrvInputListner& other);
    OrvInputListner& operator=(const OrvInputListner& other);
    virtual ~OrvInputListner();

    virtual void ProcessInputEvent(const OrvInputEvent& event) = 0;

    OrvInputManager* GetInputManager() const { return m_inputManager; }
    void SetInputManager(OrvInputManager* manager) { m_inputManager = manager; }

protected:
    OrvInputManager* m_inputManager;
    OrvTObjectArray<OrvInputDevice*> m_devices;
};

#endif

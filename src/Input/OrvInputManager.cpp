#include "OrvInputManager.h"

#include "OrvInputDevice.h"
#include "OrvInputEvent.h"
#include "OrvInputException.h"
#include "OrvInputListner.h"
#include "OrvSDLEventPump.h"
#include "OrvSDLEventSource.h"

OrvInputManager::OrvInputManager() = default;

OrvInputManager::OrvInputManager(const OrvInputManager&) : OrvInputManager() {}

OrvInputManager& OrvInputManager::operator=(const OrvInputManager&)
{
    return *this;
}

OrvInputManager::~OrvInputManager()
{
    for (OrvInputListner* listener : m_listeners)
        if (listener->GetInputManager() == this)
            listener->SetInputManager(nullptr);
    m_devices.Destroy();
}

void OrvInputManager::AddDevice(OrvInputDevice* device)
{
    ORV_ADD_OWNED(m_devices, device, OrvInputException, "Not enough memory for another device",
                  "src/Input/OrvInputManager");
    if (device != nullptr)
        device->SetInputManager(this);
}

void OrvInputManager::RemoveAllDevices()
{
    m_devices.DeleteAll();
}

void OrvInputManager::AddListner(OrvInputListner* listener)
{
    if (!m_listeners.Contains(listener))
        m_listeners.Add(listener);
    listener->SetInputManager(this);
}

void OrvInputManager::RemoveListner(OrvInputListner* listener)
{
    const int index = m_listeners.Find(listener);
    if (index >= 0)
        m_listeners.RemoveIndex(static_cast<unsigned int>(index));
}

void OrvInputManager::Capture()
{
    OrvSDLEventPump::Pump();
    for (unsigned int i = 0; i < m_devices.GetSize(); ++i)
        if (OrvInputDevice* device = m_devices[i])
            device->Capture();
    DropUntakenEvents();
}

void OrvInputManager::DropUntakenEvents()
{
    unsigned int taken = 0;
    for (unsigned int i = 0; i < m_devices.GetSize(); ++i)
        if (const OrvInputDevice* device = m_devices[i])
            taken |= device->GetTakenEvents();
    // A replay takes nothing live: the player's keys, pointer and joypad go nowhere.
    if (OrvSDLEventSource::Replaying())
        OrvSDLEventPump::DropAllBut(0);
    else if (taken != OrvInputDevice::kTakesAnything)
        OrvSDLEventPump::DropAllBut(taken);
}

void OrvInputManager::ProcessEvent(const OrvInputEvent& event)
{
    for (unsigned int i = 0; i < m_listeners.GetCount(); ++i)
    {
        OrvInputListner* listener = m_listeners[i];
        if (listener->IsListning(event.GetDevice()))
            listener->ProcessInputEvent(event);
    }
}

void OrvInputManager::PrintListners() const {}

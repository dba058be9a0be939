#include "OrvInputListner.h"

#include "OrvInputException.h"
#include "OrvInputManager.h"

OrvInputListner::OrvInputListner() : m_inputManager(nullptr) {}

OrvInputListner::OrvInputListner(const OrvInputListner& other) : m_inputManager(nullptr), m_devices(other.m_devices) {}

OrvInputListner& OrvInputListner::operator=(const OrvInputListner& other)
{
    m_devices = other.m_devices;
    return *this;
}

OrvInputListner::~OrvInputListner()
{
    if (m_inputManager != nullptr)
        m_inputManager->RemoveListner(this);
}

void OrvInputListner::AddInputDevice(OrvInputDevice* device)
{
    if (device == nullptr)
        ORV_THROW(OrvInputException, "You tried to add an invalid device.", "src/Input/OrvInputListner");
    m_devices.Add(device);
}

void OrvInputListner::RemoveInputDevice(OrvInputDevice* device)
{
    const int index = m_devices.Find(device);
    if (index >= 0)
        m_devices.RemoveIndex(static_cast<unsigned int>(index));
}

void OrvInputListner::RemoveAllInputDevices()
{
    m_devices.RemoveAll();
}

bool OrvInputListner::IsListning(OrvInputDevice* device) const
{
    return m_devices.Contains(device);
}

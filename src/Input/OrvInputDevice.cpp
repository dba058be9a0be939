#include "OrvInputDevice.h"

OrvInputDevice::OrvInputDevice() : m_inputManager(nullptr), m_name("") {}

OrvInputDevice::OrvInputDevice(const OrvInputDevice&) : OrvInputDevice() {}

OrvInputDevice& OrvInputDevice::operator=(const OrvInputDevice&)
{
    return *this;
}

OrvInputDevice::~OrvInputDevice() = default;

#include "OrvInputListner.h"

OrvInputListner::OrvInputListner() : m_inputManager(nullptr) {}

OrvInputListner::OrvInputListner(const OrvInputListner& other) : m_inputManager(nullptr), m_devices(other.m_devices) {}

OrvInputListner& OrvInputListner::operator=(const OrvInputListner& other)
{
    m_devices = other.m_devices;
    return *this;
}

OrvInputListner::~OrvInputListner() = default;

#include "OrvInputEvent.h"

OrvInputEvent::OrvInputEvent() : m_type(INPUT_MOUSE_MOVED), m_device(nullptr) {}

OrvInputEvent::OrvInputEvent(OrvInputEventType type, OrvInputDevice* device) : m_type(type), m_device(device) {}

OrvInputEvent::~OrvInputEvent() = default;

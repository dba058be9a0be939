#include "OrvInputManager.h"

#include <SDL.h>

#include "OrvInputDevice.h"
#include "OrvInputEvent.h"
#include "OrvInputListner.h"
#include "OrvSDLJoypad.h"
#include "OrvSDLKeyboard.h"
#include "OrvSDLMouse.h"
#include "OrvInputException.h"

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
    SDL_PumpEvents();
    for (unsigned int i = 0; i < m_devices.GetSize(); ++i)
        if (OrvInputDevice* device = m_devices[i])
            device->Capture();
    DropUntakenEvents();
}

void OrvInputManager::DropUntakenEvents()
{
    Uint32 taken = 0;
    for (unsigned int i = 0; i < m_devices.GetSize(); ++i)
    {
        const OrvInputDevice* device = m_devices[i];
        if (dynamic_cast<const OrvSDLKeyboard*>(device) != nullptr)
            taken |= SDL_KEYDOWNMASK | SDL_KEYUPMASK;
        else if (dynamic_cast<const OrvSDLMouse*>(device) != nullptr)
            taken |= SDL_MOUSEMOTIONMASK | SDL_MOUSEBUTTONDOWNMASK | SDL_MOUSEBUTTONUPMASK;
        else if (dynamic_cast<const OrvSDLJoypad*>(device) != nullptr)
            taken |= SDL_JOYEVENTMASK;
        else
            // A device of the game's own may read anything.
            return;
    }
    const Uint32 kinds = SDL_ACTIVEEVENTMASK | SDL_KEYDOWNMASK | SDL_KEYUPMASK | SDL_MOUSEMOTIONMASK |
                         SDL_MOUSEBUTTONDOWNMASK | SDL_MOUSEBUTTONUPMASK | SDL_JOYEVENTMASK | SDL_SYSWMEVENTMASK |
                         SDL_VIDEORESIZEMASK | SDL_VIDEOEXPOSEMASK;
    const Uint32 drop = kinds & ~taken;
    SDL_Event events[32];
    while (SDL_PeepEvents(events, 32, SDL_GETEVENT, drop) > 0)
    {
    }
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

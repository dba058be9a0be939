#include "OrvApplication.h"

// The standard input devices of a game, made the same way for every game.

#include "OrvInputManager.h"
#include "OrvSDLJoypad.h"
#include "OrvSDLKeyboard.h"
#include "OrvSDLMouse.h"

void OrvApplication::AddStandardDevices(OrvKeyboard** keyboard, OrvMouse** mouse, OrvJoypad** joypad)
{
    OrvSDLKeyboard* const madeKeyboard = new OrvSDLKeyboard();
    OrvSDLMouse* const madeMouse = new OrvSDLMouse();
    OrvSDLJoypad* const madeJoypad = new OrvSDLJoypad(0);
    // Each is the input manager's once added (AddDevice deletes it when it
    // cannot keep it); one not added yet is still this function's.
    OrvInputDevice* const devices[] = {madeKeyboard, madeMouse, madeJoypad};
    for (unsigned int i = 0; i < 3; ++i)
    {
        try
        {
            GetInputManager()->AddDevice(devices[i]);
        }
        catch (...)
        {
            for (unsigned int j = i + 1; j < 3; ++j)
                delete devices[j];
            throw;
        }
    }
    for (OrvInputDevice* device : devices)
    {
        device->Create();
        AddInputDevice(device);
    }
    if (keyboard != nullptr)
        *keyboard = madeKeyboard;
    if (mouse != nullptr)
        *mouse = madeMouse;
    if (joypad != nullptr)
        *joypad = madeJoypad;
}

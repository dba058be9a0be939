#ifndef ORV_SDL_KEYBOARD_H
#define ORV_SDL_KEYBOARD_H

#include "OrvKeyboard.h"

/// The keyboard read from SDL's event queue, at most ten key events a frame, taken
/// from the queue one by one: the others, and any left when a listener throws,
/// wait for the next frame.
class OrvSDLKeyboard : public OrvKeyboard
{
public:
    static constexpr int kEventsPerCapture = 10;

    OrvSDLKeyboard();
    ~OrvSDLKeyboard() override;

    /// Asks SDL for the typed characters.
    void Create() override;
    void Capture() override;
    void RefreshHardware() override;
    unsigned int GetTakenEvents() const override { return kTakesKeys; }

    /// The engine's key for an SDL key (an SDLKey value); KEY_UNKNOWN for the rest.
    static OrvKey ConvertKeyCode(int sdlKey);
};

#endif

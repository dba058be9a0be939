#ifndef ORV_SDL_FOCUS_H
#define ORV_SDL_FOCUS_H

// The application's door to SDL for what the window system says about focus,
// and for the pointer's visibility.
class OrvSDLFocus
{
public:
    // The bits of GetAppState.
    static constexpr unsigned int kMouseFocus = 0x01;  // the pointer is over the window
    static constexpr unsigned int kInputFocus = 0x02;  // the window has the keyboard
    static constexpr unsigned int kActive = 0x04;      // the window is not iconified

    static unsigned int GetAppState();
    static void ShowPointer(bool shown);
};

#endif

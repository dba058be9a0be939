#ifndef ORV_SDL_RENDER_WINDOW_H
#define ORV_SDL_RENDER_WINDOW_H

#include "OrvRenderWindow.h"

struct SDL_Surface;

/// A window with an OpenGL context, opened through SDL's video mode. Create
/// initialises SDL's video and joystick subsystems; the destructor takes down
/// what Create brought up: all of SDL (SDL_Quit) when SDL was not running
/// before, otherwise only the subsystems that Create started.
///
/// A width or height of 0xFFFFFFFF asks for the desktop's current size; the
/// window then stores the size it really took. When the environment variable
/// ORV_WINDOWED is set (to anything but "" or "0"), Create opens a window even
/// where full screen is asked for, and the stored flag says false.
///
/// The window has a depth buffer and an 8-bit stencil buffer unless told
/// otherwise before Create (SetDepthAndStencil(false), or the environment
/// variable ORV_2D set to anything but "" or "0"): a 2D game needs neither,
/// and a software rasteriser fills faster without them. Without a depth
/// buffer the depth test lets everything through, so what is drawn last is
/// on top.
///
/// Failures of SDL throw OrvRendererException: without an X display (and no
/// driver named in SDL_VIDEODRIVER) "No display was found: ..." saying what to
/// do; SDL's text-mode drivers are never tried unless named. Other failures
/// (no OpenGL visual) carry SDL's own error text.
class OrvSDLRenderWindow : public OrvRenderWindow
{
public:
    /// Flags of SDL_SetVideoMode at Create and at later mode changes, without full screen.
    static constexpr unsigned int kCreateFlags = 0x60000003u;  // HWSURFACE | HWPALETTE | OPENGL | DOUBLEBUF
    static constexpr unsigned int kResetFlags = 0x20000002u;   // HWPALETTE | OPENGL
    static constexpr unsigned int kFullScreenFlag = 0x80000000u;
    /// Width or height asking for the desktop's current size.
    static constexpr unsigned int kDesktopSize = 0xFFFFFFFFu;

    OrvSDLRenderWindow();
    ~OrvSDLRenderWindow() override;

    void Create(const char* caption, unsigned int width, unsigned int height, bool fullScreen) override;
    void SwapBuffers() override;
    void ToggleFullScreen() override;
    void SetWindowSize(unsigned int width, unsigned int height) override;

    /// Asked for before Create (and kept for later video modes). Off also when
    /// ORV_2D is set.
    void SetDepthAndStencil(bool on) { m_depthAndStencil = on; }
    bool GetDepthAndStencil() const { return m_depthAndStencil; }

    /// The surface of the last video mode set; not owned, null before Create.
    SDL_Surface* GetSurface() const { return m_surface; }
    /// The flags handed to the last SDL_SetVideoMode, 0 before Create.
    unsigned int GetVideoModeFlags() const { return m_videoModeFlags; }

private:
    /// Sets the GL attributes again and the video mode with the stored size and flag.
    void ResetVideoMode();
    void SetVideoMode(int bitsPerPixel, unsigned int flags);

    SDL_Surface* m_surface;
    unsigned int m_videoModeFlags;
    bool m_depthAndStencil;
    /// What this window brought up in SDL, and so takes down again.
    bool m_startedSDL;
    unsigned int m_startedSubsystems;
};

#endif

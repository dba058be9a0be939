#include "OrvSDLRenderWindow.h"

#include <SDL.h>

#include <cstdlib>

#include "OrvGLBatch.h"
#include "OrvRendererException.h"

namespace
{
const char* const kSource = "src/Renderer/OrvSDLRenderWindow";
const char* const kNoDisplay =
    "No display was found: set DISPLAY to an X server you can reach, or play under a virtual one "
    "(scripts/run-game, or xvfb-run)";
const Uint32 kSubsystems = SDL_INIT_VIDEO | SDL_INIT_JOYSTICK;

static_assert(OrvSDLRenderWindow::kCreateFlags == (SDL_HWSURFACE | SDL_OPENGL | SDL_HWPALETTE | SDL_DOUBLEBUF),
              "video mode flags at Create");
static_assert(OrvSDLRenderWindow::kResetFlags == (SDL_OPENGL | SDL_HWPALETTE), "video mode flags at mode changes");
static_assert(OrvSDLRenderWindow::kFullScreenFlag == SDL_FULLSCREEN, "full-screen flag");

// An environment switch: set to anything but "" or "0".
bool Switched(const char* variable)
{
    const char* value = std::getenv(variable);
    return value != nullptr && value[0] != '\0' && !(value[0] == '0' && value[1] == '\0');
}

void SetGLAttributes(bool depthAndStencil)
{
    SDL_GL_SetAttribute(SDL_GL_DOUBLEBUFFER, 1);
    if (depthAndStencil)
        SDL_GL_SetAttribute(SDL_GL_STENCIL_SIZE, 8);
    else
    {
        SDL_GL_SetAttribute(SDL_GL_DEPTH_SIZE, 0);
        SDL_GL_SetAttribute(SDL_GL_STENCIL_SIZE, 0);
    }
}

// SDL's error text, copied: SDL reuses its buffer.
std::string SDLError()
{
    return SDL_GetError();
}
}  // namespace

OrvSDLRenderWindow::OrvSDLRenderWindow()
    : OrvRenderWindow(),
      m_surface(nullptr),
      m_videoModeFlags(0),
      m_depthAndStencil(true),
      m_startedSDL(false),
      m_startedSubsystems(0)
{
}

OrvSDLRenderWindow::~OrvSDLRenderWindow()
{
    if (m_startedSDL)
        SDL_Quit();
    else if (m_startedSubsystems != 0)
        SDL_QuitSubSystem(m_startedSubsystems);
}

void OrvSDLRenderWindow::Create(const char* caption, unsigned int width, unsigned int height, bool fullScreen)
{
    OrvRenderWindow::Create(caption, width, height, fullScreen);

    const Uint32 running = SDL_WasInit(SDL_INIT_EVERYTHING);
    // Without an X display SDL would fall back to whatever else it was built
    // with, down to its text-mode drivers that fill the terminal with escape
    // codes. Unless a driver is named explicitly, X11 is the only one tried.
    const char* const named = std::getenv("SDL_VIDEODRIVER");
    const bool chooseX11 = (running & SDL_INIT_VIDEO) == 0 && (named == nullptr || named[0] == '\0');
    if (chooseX11)
        setenv("SDL_VIDEODRIVER", "x11", 1);
    int started = SDL_Init(kSubsystems);
    // SDL looks for the X server by connecting and disconnecting before it
    // connects for good. An X server started without -noreset (a bare
    // xvfb-run) resets when that first client leaves and refuses the next for
    // a moment: try again a few times before saying there is no display.
    const char* const display = std::getenv("DISPLAY");
    for (int attempt = 0; started != 0 && chooseX11 && display != nullptr && display[0] != '\0' && attempt < 10;
         ++attempt)
    {
        SDL_Delay(20);
        started = SDL_Init(kSubsystems);
    }
    if (chooseX11)
        unsetenv("SDL_VIDEODRIVER");
    if (started != 0)
    {
        const std::string message = chooseX11 && (SDL_WasInit(SDL_INIT_VIDEO) == 0) ? kNoDisplay : SDLError();
        // Leave SDL as it was found: SDL_Init may have started part of it.
        if (running == 0)
            SDL_Quit();
        else
            SDL_QuitSubSystem(SDL_WasInit(kSubsystems) & ~running);
        ORV_THROW(OrvRendererException, message, kSource);
    }
    if (!m_startedSDL && m_startedSubsystems == 0)
    {
        m_startedSDL = running == 0;
        m_startedSubsystems = kSubsystems & ~running;
    }

    if (width == kDesktopSize || height == kDesktopSize)
    {
        // Only valid between SDL_Init and the first video mode.
        const SDL_VideoInfo* info = SDL_GetVideoInfo();
        const unsigned int desktopWidth = info != nullptr ? static_cast<unsigned int>(info->current_w) : 0;
        const unsigned int desktopHeight = info != nullptr ? static_cast<unsigned int>(info->current_h) : 0;
        if (width == kDesktopSize)
            m_width = desktopWidth;
        if (height == kDesktopSize)
            m_height = desktopHeight;
    }
    // Development overrides.
    if (m_fullScreen && Switched("ORV_WINDOWED"))
        m_fullScreen = false;
    if (Switched("ORV_2D"))
        m_depthAndStencil = false;

    SetGLAttributes(m_depthAndStencil);
    SetVideoMode(0, kCreateFlags | (m_fullScreen ? kFullScreenFlag : 0));
    if (!m_fullScreen)
        SDL_WM_SetCaption(m_caption, nullptr);
    SDL_ShowCursor(SDL_DISABLE);
}

void OrvSDLRenderWindow::SwapBuffers()
{
    // The frame shows everything sent for it.
    OrvGLBatch::FlushCurrent();
    SDL_GL_SwapBuffers();
}

void OrvSDLRenderWindow::ToggleFullScreen()
{
    OrvRenderWindow::ToggleFullScreen();
    ResetVideoMode();
}

void OrvSDLRenderWindow::SetWindowSize(unsigned int width, unsigned int height)
{
    OrvRenderWindow::SetWindowSize(width, height);
    ResetVideoMode();
}

void OrvSDLRenderWindow::ResetVideoMode()
{
    // The context goes with the video mode, and with it the right to draw.
    OrvGLBatch::StateChanging();
    SetGLAttributes(m_depthAndStencil);
    SetVideoMode(32, kResetFlags | (m_fullScreen ? kFullScreenFlag : 0));
}

void OrvSDLRenderWindow::SetVideoMode(int bitsPerPixel, unsigned int flags)
{
    m_videoModeFlags = flags;
    m_surface = SDL_SetVideoMode(static_cast<int>(m_width), static_cast<int>(m_height), bitsPerPixel, flags);
    if (m_surface == nullptr)
        ORV_THROW(OrvRendererException, SDLError(), kSource);
}

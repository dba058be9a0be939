#include <gtest/gtest.h>

#include <GL/gl.h>
#include <SDL.h>

#include <cstdlib>
#include <string>

#include "GLerrors.h"
#include "OrvRendererException.h"
#include "OrvSDLRenderWindow.h"

namespace
{
const char* const kCaption = "Orv window test";

// Every test starts and must end with SDL down and no override in the environment.
class OrvRenderWindowTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        unsetenv("ORV_WINDOWED");
        unsetenv("ORV_2D");
        unsetenv("SDL_VIDEODRIVER");
        ASSERT_EQ(0u, SDL_WasInit(SDL_INIT_EVERYTHING)) << "SDL left running by an earlier test";
    }
    void TearDown() override
    {
        unsetenv("ORV_WINDOWED");
        unsetenv("ORV_2D");
        unsetenv("SDL_VIDEODRIVER");
        EXPECT_EQ(0u, SDL_WasInit(SDL_INIT_EVERYTHING)) << "the window did not take SDL down";
        SDL_Quit();
    }
};

std::string Caption()
{
    char* title = nullptr;
    char* icon = nullptr;
    SDL_WM_GetCaption(&title, &icon);
    return title != nullptr ? title : "<none>";
}

// Clears the back buffer to an opaque colour and reads pixel (x, y) back as 0xRRGGBB.
unsigned int ClearAndRead(int x, int y, float red, float green, float blue)
{
    EXPECT_NE(nullptr, glGetString(GL_VERSION)) << "no current GL context";
    glClearColor(red, green, blue, 1.0f);
    glClear(GL_COLOR_BUFFER_BIT);
    unsigned char pixel[4] = {1, 2, 3, 4};
    glReadPixels(x, y, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, pixel);
    EXPECT_EQ(0u, GLerrors::Check());
    return (pixel[0] << 16) | (pixel[1] << 8) | pixel[2];
}
}  // namespace

TEST_F(OrvRenderWindowTest, WindowedCreateOpensCaptionedGLWindow)
{
    OrvSDLRenderWindow window;
    EXPECT_EQ(nullptr, window.GetSurface());
    window.Create(kCaption, 64, 48, false);
    EXPECT_EQ(kCaption, window.GetCaption()) << "stored, not copied";
    EXPECT_EQ(64u, window.GetWidth());
    EXPECT_EQ(48u, window.GetHeight());
    EXPECT_FALSE(window.GetFullScreen());
    EXPECT_EQ(0x60000003u, window.GetVideoModeFlags());
    EXPECT_EQ(SDL_INIT_VIDEO | SDL_INIT_JOYSTICK, SDL_WasInit(SDL_INIT_EVERYTHING));
    ASSERT_NE(nullptr, window.GetSurface());
    EXPECT_EQ(64, window.GetSurface()->w);
    EXPECT_EQ(48, window.GetSurface()->h);
    EXPECT_EQ(kCaption, Caption());
    EXPECT_EQ(SDL_DISABLE, SDL_ShowCursor(SDL_QUERY));
    int doubleBuffer = 0, stencil = 0;
    SDL_GL_GetAttribute(SDL_GL_DOUBLEBUFFER, &doubleBuffer);
    SDL_GL_GetAttribute(SDL_GL_STENCIL_SIZE, &stencil);
    EXPECT_EQ(1, doubleBuffer);
    EXPECT_GE(stencil, 8);

    EXPECT_EQ(0xFF0000u, ClearAndRead(0, 0, 1.0f, 0.0f, 0.0f));
    EXPECT_EQ(0x00FF00u, ClearAndRead(63, 47, 0.0f, 1.0f, 0.0f));
    window.SwapBuffers();
    EXPECT_EQ(0x0000FFu, ClearAndRead(10, 10, 0.0f, 0.0f, 1.0f));
}

TEST_F(OrvRenderWindowTest, WindowedOverrideAndFullScreenCreate)
{
    // The override opens a captioned window, and the flag says what the window is;
    // an explicit switch afterwards still goes full screen.
    setenv("ORV_WINDOWED", "1", 1);
    {
        OrvSDLRenderWindow window;
        window.Create(kCaption, 80, 60, true);
        EXPECT_FALSE(window.GetFullScreen());
        EXPECT_EQ(0x60000003u, window.GetVideoModeFlags());
        EXPECT_EQ(kCaption, Caption());
        EXPECT_EQ(0xFFFF00u, ClearAndRead(79, 59, 1.0f, 1.0f, 0.0f));
        window.ToggleFullScreen();
        EXPECT_EQ(0xA0000002u, window.GetVideoModeFlags());
    }
    // "0" is no override: full screen, caption left alone.
    setenv("ORV_WINDOWED", "0", 1);
    OrvSDLRenderWindow window;
    window.Create(kCaption, 80, 60, true);
    EXPECT_TRUE(window.GetFullScreen());
    EXPECT_EQ(0xE0000003u, window.GetVideoModeFlags());
    ASSERT_NE(nullptr, window.GetSurface());
    EXPECT_TRUE(window.GetSurface()->flags & SDL_FULLSCREEN);
    EXPECT_EQ("<none>", Caption());
    EXPECT_EQ(0x00FFFFu, ClearAndRead(0, 0, 0.0f, 1.0f, 1.0f));
}

TEST_F(OrvRenderWindowTest, AllBitsSizeTakesDesktopSize)
{
    ASSERT_EQ(0, SDL_Init(SDL_INIT_VIDEO)) << SDL_GetError();
    const int desktopWidth = SDL_GetVideoInfo()->current_w;
    const int desktopHeight = SDL_GetVideoInfo()->current_h;
    SDL_Quit();
    ASSERT_GT(desktopWidth * desktopHeight, 0);
    OrvSDLRenderWindow window;
    window.Create(kCaption, 0xFFFFFFFFu, 0xFFFFFFFFu, false);
    EXPECT_EQ(desktopWidth, static_cast<int>(window.GetWidth()));
    EXPECT_EQ(desktopHeight, static_cast<int>(window.GetHeight()));
    ASSERT_NE(nullptr, window.GetSurface());
    EXPECT_EQ(desktopWidth, window.GetSurface()->w);
    EXPECT_EQ(desktopHeight, window.GetSurface()->h);
    EXPECT_EQ(0xFF00FFu, ClearAndRead(desktopWidth - 1, desktopHeight - 1, 1.0f, 0.0f, 1.0f));
}

TEST_F(OrvRenderWindowTest, ToggleAndResizeKeepAWorkingContext)
{
    OrvSDLRenderWindow window;
    window.Create(kCaption, 64, 48, false);
    window.ToggleFullScreen();
    EXPECT_TRUE(window.GetFullScreen());
    EXPECT_EQ(0xA0000002u, window.GetVideoModeFlags());
    ASSERT_NE(nullptr, window.GetSurface());
    EXPECT_TRUE(window.GetSurface()->flags & SDL_FULLSCREEN);
    EXPECT_EQ(0xFF0000u, ClearAndRead(63, 47, 1.0f, 0.0f, 0.0f));

    window.ToggleFullScreen();
    EXPECT_FALSE(window.GetFullScreen());
    EXPECT_EQ(0x20000002u, window.GetVideoModeFlags());
    EXPECT_EQ(kCaption, Caption());
    EXPECT_EQ(0x00FF00u, ClearAndRead(0, 0, 0.0f, 1.0f, 0.0f));

    window.SetWindowSize(96, 72);
    EXPECT_EQ(96u, window.GetWidth());
    EXPECT_EQ(72u, window.GetHeight());
    EXPECT_EQ(0x20000002u, window.GetVideoModeFlags());
    ASSERT_NE(nullptr, window.GetSurface());
    EXPECT_EQ(96, window.GetSurface()->w);
    EXPECT_EQ(72, window.GetSurface()->h);
    // SDL resizes the window in place, keeping the context; Mesa's software
    // rasteriser sees the new size from the next frame on.
    window.SwapBuffers();
    EXPECT_EQ(0x0000FFu, ClearAndRead(95, 71, 0.0f, 0.0f, 1.0f));
}

TEST_F(OrvRenderWindowTest, FailingVideoThrowsSDLTextAndLeavesSDLDown)
{
    setenv("SDL_VIDEODRIVER", "nosuchdriver", 1);
    OrvSDLRenderWindow window;
    try
    {
        window.Create(kCaption, 64, 48, false);
        ADD_FAILURE() << "Create went on without a video driver";
    }
    catch (const OrvRendererException& e)
    {
        EXPECT_STRNE("", e.message);
        EXPECT_STREQ(SDL_GetError(), e.message);
        EXPECT_STREQ("src/Renderer/OrvSDLRenderWindow", e.file);
    }
    EXPECT_EQ(0u, SDL_WasInit(SDL_INIT_EVERYTHING));

    // With a driver the same window opens; SDL started by someone else stays up.
    unsetenv("SDL_VIDEODRIVER");
    ASSERT_EQ(0, SDL_Init(SDL_INIT_VIDEO)) << SDL_GetError();
    {
        OrvSDLRenderWindow other;
        other.Create(kCaption, 32, 32, false);
        EXPECT_EQ(0xFF0000u, ClearAndRead(31, 31, 1.0f, 0.0f, 0.0f));
    }
    EXPECT_EQ(SDL_INIT_VIDEO, SDL_WasInit(SDL_INIT_EVERYTHING)) << "video belonged to the caller";
    SDL_Quit();
}

TEST_F(OrvRenderWindowTest, WithoutADisplayOnlyX11IsTriedAndTheMessageSaysWhatToDo)
{
    // No X display and no driver named: SDL must not fall back to another
    // driver (a text-mode one would take over the terminal).
    const char* display = std::getenv("DISPLAY");
    const std::string saved = display != nullptr ? display : "";
    unsetenv("DISPLAY");
    OrvSDLRenderWindow window;
    std::string message;
    try
    {
        window.Create(kCaption, 64, 48, false);
    }
    catch (const OrvRendererException& e)
    {
        message = e.message;
    }
    if (display != nullptr)
        setenv("DISPLAY", saved.c_str(), 1);
    EXPECT_EQ(0u, message.find("No display was found: set DISPLAY")) << message;
    EXPECT_EQ(nullptr, std::getenv("SDL_VIDEODRIVER")) << "the choice of X11 is not left behind";
    EXPECT_EQ(0u, SDL_WasInit(SDL_INIT_EVERYTHING));
}

TEST_F(OrvRenderWindowTest, DepthAndStencilBuffersCanBeLeftOut)
{
    const auto bits = [](GLenum which) {
        GLint value = -1;
        glGetIntegerv(which, &value);
        return value;
    };
    {
        OrvSDLRenderWindow window;
        window.Create(kCaption, 64, 48, false);
        EXPECT_GE(bits(GL_DEPTH_BITS), 16);
        EXPECT_EQ(8, bits(GL_STENCIL_BITS));
        // Kept through a change of video mode.
        window.SetWindowSize(80, 60);
        EXPECT_GE(bits(GL_DEPTH_BITS), 16);
    }
    {
        OrvSDLRenderWindow window;
        window.SetDepthAndStencil(false);
        window.Create(kCaption, 64, 48, false);
        EXPECT_EQ(0, bits(GL_DEPTH_BITS));
        EXPECT_EQ(0, bits(GL_STENCIL_BITS));
        window.SetWindowSize(80, 60);
        EXPECT_EQ(0, bits(GL_DEPTH_BITS));
    }
    setenv("ORV_2D", "1", 1);
    OrvSDLRenderWindow window;
    window.Create(kCaption, 64, 48, false);
    EXPECT_FALSE(window.GetDepthAndStencil());
    EXPECT_EQ(0, bits(GL_DEPTH_BITS));
}

TEST_F(OrvRenderWindowTest, GLerrorsCheckReturnsAndClearsGLError)
{
    OrvSDLRenderWindow window;
    window.Create(kCaption, 16, 16, false);
    while (GLerrors::Check() != GL_NO_ERROR)
    {
    }
    glEnable(0xFFFF);
    EXPECT_EQ(static_cast<unsigned int>(GL_INVALID_ENUM), GLerrors::Check());
    EXPECT_EQ(static_cast<unsigned int>(GL_NO_ERROR), GLerrors::Check());
}

#ifndef ORV_WIDGET_FIXTURE_H
#define ORV_WIDGET_FIXTURE_H

// A started 800 × 600 game with a mouse, a keyboard and one registered cursor
// (a 2 × 2 quad), and what widget tests do with them: point the cursor's hot
// spot at a HUD pixel, press and release the left button, type keys through
// SDL's queue, make fonts of given metrics.

#include <gtest/gtest.h>

#include <SDL.h>

#include <memory>
#include <string>

#include "OrvCursor.h"
#include "OrvCursorDesc.h"
#include "OrvFont.h"
#include "OrvFontDesc.h"
#include "OrvGameAssetManager.h"
#include "OrvInputManager.h"
#include "OrvMouseButtonEvent.h"
#include "OrvSDLKeyboard.h"
#include "OrvSDLMouse.h"
#include "OrvTestBytes.h"
#include "OrvTestGame.h"

// An SDL mouse that can also be moved by the test: SDL takes the position of
// motion events from the pointer, which other windows on the display share.
class OrvTestMouse : public OrvSDLMouse
{
public:
    // To window pixel (x, y), y down, and every listener told.
    void MoveTo(float x, float y)
    {
        m_position.Set(x, y);
        if (m_inputManager != nullptr)
            m_inputManager->ProcessEvent(OrvInputEvent(INPUT_MOUSE_MOVED, this));
    }
};

inline std::string Text(const OrvUnicode& text)
{
    char buffer[256] = {};
    text.ToCString(buffer, sizeof(buffer), nullptr);
    return buffer;
}

class OrvWidgetTest : public ::testing::Test
{
protected:
    static constexpr unsigned int kWidth = 800;
    static constexpr unsigned int kHeight = 600;

    void SetUp() override
    {
        game.Initialise(kWidth, kHeight);
        SDL_Event drained;
        while (SDL_PollEvent(&drained))
        {
        }
        mouse = new OrvTestMouse();
        keyboard = new OrvSDLKeyboard();
        game.GetInputManager()->AddDevice(mouse);
        game.GetInputManager()->AddDevice(keyboard);
        mouse->Create();
        keyboard->Create();
        // First, so that it has moved before the widgets hear a motion.
        OrvCursorDesc desc;
        cursor = Make<OrvCursor>(desc);
        game.AddCursor(cursor);
    }
    void TearDown() override
    {
        fonts.clear();
        game.Term();
    }

    template <class T, class D>
    T* Make(D& desc)
    {
        return game.GetGameAssetManager()->CreateGameAsset<T, D>(&desc);
    }

    // The cursor's hot spot (its top-left corner) to HUD pixel (x, y), y up.
    void PointAt(float x, float y)
    {
        mouse->MoveTo(x + cursor->GetWidth() * 0.5f, static_cast<float>(kHeight) - (y - cursor->GetHeight() * 0.5f));
    }
    void Press() { LeftButton(INPUT_MOUSE_BUTTON_DOWN); }
    void Release() { LeftButton(INPUT_MOUSE_BUTTON_UP); }
    void LeftButton(OrvInputEventType type)
    {
        game.GetInputManager()->ProcessEvent(OrvMouseButtonEvent(type, mouse, MOUSE_BUTTON_LEFT));
    }
    void Click()
    {
        Press();
        Release();
    }

    // Keys through SDL's queue, taken by the next turn's capture.
    static void PushKey(SDLKey key, Uint16 unicode)
    {
        SDL_Event event = {};
        event.type = SDL_KEYDOWN;
        event.key.state = SDL_PRESSED;
        event.key.keysym.sym = key;
        event.key.keysym.unicode = unicode;
        ASSERT_EQ(0, SDL_PushEvent(&event));
        event.type = SDL_KEYUP;
        event.key.state = SDL_RELEASED;
        ASSERT_EQ(0, SDL_PushEvent(&event));
    }
    // Each character as its key (letters and digits) and one turn.
    void Type(const std::string& characters)
    {
        for (char c : characters)
            PushKey(static_cast<SDLKey>(c), static_cast<Uint16>(c));
        game.Update(0.001f);
    }
    void TypeKey(SDLKey key, Uint16 unicode = 0)
    {
        PushKey(key, unicode);
        game.Update(0.001f);
    }

    // A font of 16 × 16 white cells with the given metrics (pixels), at coefficient 1.
    OrvFont* MakeFont(unsigned int width, float spacing, unsigned int height)
    {
        const std::string name = "Font" + std::to_string(fonts.size()) + ".tga";
        SaveTGA(name, 16 * width, 16 * height, [](unsigned int, unsigned int) { return 0xFFFFFFFFu; });
        OrvFontDesc desc;
        desc.fileName = name.c_str();
        desc.imageWidth = static_cast<float>(16 * width);
        desc.imageHeight = static_cast<float>(16 * height);
        desc.symbolWidth = static_cast<float>(width);
        desc.symbolHeight = static_cast<float>(height);
        desc.symbolSpacing = spacing;
        desc.sizeCoef = 1.0f;
        fonts.emplace_back(new OrvFont());
        fonts.back()->Create(&game, desc);
        return fonts.back().get();
    }

    OrvGameFolder folder;
    OrvTestGame game;
    OrvTestMouse* mouse = nullptr;
    OrvSDLKeyboard* keyboard = nullptr;
    OrvCursor* cursor = nullptr;
    // Released before the texture manager goes.
    std::vector<std::unique_ptr<OrvFont>> fonts;
};

#endif

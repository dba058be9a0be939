#include <gtest/gtest.h>

#include <SDL.h>

#include "OrvInputManager.h"
#include "OrvKeyboard.h"
#include "OrvKeyboardEvent.h"
#include "OrvSDLJoypad.h"
#include "OrvSDLKeyboard.h"
#include "OrvSDLMouse.h"
#include "OrvTestGame.h"

namespace
{
class ListeningGame : public OrvTestGame
{
public:
    void ProcessInputEvent(const OrvInputEvent& event) override
    {
        if (event.GetType() == INPUT_KEY_DOWN)
            keysDown.push_back(static_cast<const OrvKeyboardEvent&>(event).GetKey());
    }
    std::vector<OrvKey> keysDown;
};
}  // namespace

TEST(OrvApplicationDevices, StandardDevicesAreAddedInOrderAndHeardByTheGame)
{
    OrvGameFolder folder;
    ListeningGame game;
    game.Initialise(64, 64);
    OrvKeyboard* keyboard = nullptr;
    OrvMouse* mouse = nullptr;
    OrvJoypad* joypad = nullptr;
    game.AddStandardDevices(&keyboard, &mouse, &joypad);

    OrvInputManager* input = game.GetInputManager();
    ASSERT_EQ(3u, input->GetDeviceCount());
    EXPECT_EQ(keyboard, input->GetDevice(0));
    EXPECT_EQ(mouse, input->GetDevice(1));
    EXPECT_EQ(joypad, input->GetDevice(2));
    EXPECT_NE(nullptr, dynamic_cast<OrvSDLKeyboard*>(keyboard));
    EXPECT_NE(nullptr, dynamic_cast<OrvSDLMouse*>(mouse));
    EXPECT_NE(nullptr, dynamic_cast<OrvSDLJoypad*>(joypad));
    EXPECT_TRUE(game.IsListning(keyboard) && game.IsListning(mouse) && game.IsListning(joypad));

    // Created: a key pushed into SDL's queue reaches the game through the keyboard.
    SDL_Event event = {};
    event.type = SDL_KEYDOWN;
    event.key.state = SDL_PRESSED;
    event.key.keysym.sym = SDLK_a;
    ASSERT_EQ(0, SDL_PushEvent(&event));
    game.Update(0.01f);
    EXPECT_EQ(std::vector<OrvKey>{KEY_A}, game.keysDown);
    EXPECT_TRUE(keyboard->IsKeyDown(KEY_A));
    game.Term();
}

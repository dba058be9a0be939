#include <gtest/gtest.h>

#include <SDL.h>

#include <cstdlib>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "OrvInputManager.h"
#include "OrvJoypadAxisEvent.h"
#include "OrvJoypadButtonEvent.h"
#include "OrvJoypadHatEvent.h"
#include "OrvKeyboardEvent.h"
#include "OrvMouseButtonEvent.h"
#include "OrvMouseListner.h"
#include "OrvSDLJoypad.h"
#include "OrvSDLKeyboard.h"
#include "OrvSDLMouse.h"
#include "OrvTestBytes.h"

namespace
{
// Logs "<name>:<event type>"; an optional hook runs for each event.
class Recorder : public OrvMouseListner
{
public:
    Recorder(std::vector<std::string>& log, std::string name) : m_log(log), m_name(std::move(name)) {}
    void ProcessInputEvent(const OrvInputEvent& event) override
    {
        m_log.push_back(m_name + ":" + std::to_string(event.GetType()));
        if (hook)
            hook(event);
    }
    std::function<void(const OrvInputEvent&)> hook;

private:
    std::vector<std::string>& m_log;
    std::string m_name;
};

void PushKey(int sym, bool down, Uint16 unicode = 0)
{
    SDL_Event event = {};
    event.type = down ? SDL_KEYDOWN : SDL_KEYUP;
    event.key.state = down ? SDL_PRESSED : SDL_RELEASED;
    event.key.keysym.sym = static_cast<SDLKey>(sym);
    event.key.keysym.unicode = unicode;
    ASSERT_EQ(0, SDL_PushEvent(&event));
}

void PushMouseButton(Uint8 button, bool down)
{
    SDL_Event event = {};
    event.type = down ? SDL_MOUSEBUTTONDOWN : SDL_MOUSEBUTTONUP;
    event.button.button = button;
    event.button.state = down ? SDL_PRESSED : SDL_RELEASED;
    ASSERT_EQ(0, SDL_PushEvent(&event));
}

void PushJoystick(Uint8 type, Uint8 which, Uint8 index, int value)
{
    SDL_Event event = {};
    event.type = type;
    if (type == SDL_JOYAXISMOTION)
    {
        event.jaxis.which = which;
        event.jaxis.axis = index;
        event.jaxis.value = static_cast<Sint16>(value);
    }
    else if (type == SDL_JOYHATMOTION)
    {
        event.jhat.which = which;
        event.jhat.value = static_cast<Uint8>(value);
    }
    else
    {
        event.jbutton.which = which;
        event.jbutton.button = index;
    }
    ASSERT_EQ(0, SDL_PushEvent(&event));
}

// SDL's dummy video driver: a real event queue and mouse state, no display.
class OrvInputQueueTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        setenv("SDL_VIDEODRIVER", "dummy", 1);
        ASSERT_EQ(0, SDL_Init(SDL_INIT_VIDEO | SDL_INIT_JOYSTICK)) << SDL_GetError();
        ASSERT_NE(nullptr, SDL_SetVideoMode(64, 64, 0, SDL_SWSURFACE)) << SDL_GetError();
        SDL_Event drained;
        while (SDL_PollEvent(&drained))
        {
        }
        keyboard = new OrvSDLKeyboard();
        manager.AddDevice(keyboard);
        keyboard->Create();
    }
    void TearDown() override
    {
        manager.RemoveAllDevices();
        SDL_Quit();
        unsetenv("SDL_VIDEODRIVER");
    }

    std::unique_ptr<Recorder> Listening(const char* name, OrvInputDevice* device)
    {
        std::unique_ptr<Recorder> recorder(new Recorder(log, name));
        if (device != nullptr)
            recorder->AddInputDevice(device);
        manager.AddListner(recorder.get());
        return recorder;
    }

    OrvInputManager manager;
    OrvSDLKeyboard* keyboard = nullptr;
    std::vector<std::string> log;
};

const std::string kKeyDown = ":" + std::to_string(INPUT_KEY_DOWN);
}  // namespace

TEST_F(OrvInputQueueTest, ListenersHearTheirDevicesInRegistrationOrder)
{
    auto application = Listening("app", keyboard);
    auto first = Listening("first", keyboard);
    auto deaf = Listening("deaf", nullptr);
    auto second = Listening("second", keyboard);
    manager.AddListner(first.get());
    EXPECT_EQ(4u, manager.GetListnerCount()) << "registered once";
    EXPECT_EQ(&manager, first->GetInputManager());

    PushKey(SDLK_a, true);
    manager.Capture();
    EXPECT_EQ((std::vector<std::string>{"app" + kKeyDown, "first" + kKeyDown, "second" + kKeyDown}), log);

    log.clear();
    manager.RemoveListner(first.get());
    second.reset();
    EXPECT_EQ(2u, manager.GetListnerCount()) << "a destroyed listener leaves";
    // A listener that registers another during dispatch: the newcomer hears the same event.
    std::unique_ptr<Recorder> late(new Recorder(log, "late"));
    late->AddInputDevice(keyboard);
    application->hook = [&](const OrvInputEvent&) { manager.AddListner(late.get()); };
    PushKey(SDLK_b, true);
    manager.Capture();
    EXPECT_EQ((std::vector<std::string>{"app" + kKeyDown, "late" + kKeyDown}), log);

    // Injected events go the same way.
    log.clear();
    application->hook = nullptr;
    manager.ProcessEvent(OrvKeyboardEvent(INPUT_KEY_UP, keyboard, KEY_B, ""));
    EXPECT_EQ(2u, log.size());
    EXPECT_FALSE(keyboard->IsKeyDown(KEY_B));

    EXPECT_EQ("You tried to add an invalid device.", Thrown([&] { deaf->AddInputDevice(nullptr); }).message);
    deaf->AddInputDevice(keyboard);
    deaf->AddInputDevice(keyboard);
    deaf->RemoveInputDevice(keyboard);
    EXPECT_TRUE(deaf->IsListning(keyboard)) << "one of the two stays";
    deaf->RemoveAllInputDevices();
    EXPECT_FALSE(deaf->IsListning(keyboard));
}

TEST_F(OrvInputQueueTest, TenKeysAFrameWithStateAndTextBeforeListeners)
{
    auto listener = Listening("l", keyboard);
    std::vector<bool> downWhenHeard;
    std::vector<std::string> typed;
    listener->hook = [&](const OrvInputEvent& event) {
        const auto& key = static_cast<const OrvKeyboardEvent&>(event);
        downWhenHeard.push_back(keyboard->IsKeyDown(key.GetKey()));
        char text[8] = {};
        key.GetUnicode().ToCString(text, sizeof(text), nullptr);
        typed.push_back(text);
    };
    for (int i = 0; i < 11; ++i)
        PushKey(SDLK_a + i, true, static_cast<Uint16>('a' + i));
    manager.Capture();
    EXPECT_EQ(10u, log.size()) << "ten a frame";
    EXPECT_EQ(std::vector<bool>(10, true), downWhenHeard);
    EXPECT_EQ("a", typed[0]);
    EXPECT_EQ("j", typed[9]);
    manager.Capture();
    EXPECT_EQ(11u, log.size()) << "the eleventh next frame";
    EXPECT_TRUE(keyboard->IsKeyDown(KEY_K));

    PushKey(SDLK_WORLD_5, true);
    manager.Capture();
    EXPECT_EQ(12u, log.size());
    EXPECT_FALSE(keyboard->IsKeyDown(KEY_UNKNOWN));
}

TEST_F(OrvInputQueueTest, AFailingListenerLeavesTheRestForTheNextFrame)
{
    auto listener = Listening("l", keyboard);
    int heard = 0;
    listener->hook = [&](const OrvInputEvent&) {
        if (++heard == 2)
            throw OrvException("listener failed", "tests/Input", 1);
    };
    PushKey(SDLK_1, true);
    PushKey(SDLK_2, true);
    PushKey(SDLK_3, true);
    EXPECT_THROW(manager.Capture(), OrvException);
    EXPECT_EQ(2u, log.size());
    manager.Capture();
    EXPECT_EQ(3u, log.size()) << "the third key waited in SDL's queue";
    EXPECT_TRUE(keyboard->IsKeyDown(KEY_3));
}

TEST_F(OrvInputQueueTest, MouseMotionButtonsAndWheelSteps)
{
    OrvSDLMouse* mouse = new OrvSDLMouse();
    manager.AddDevice(mouse);
    mouse->Create();
    auto listener = Listening("l", mouse);

    SDL_WarpMouse(20, 30);
    manager.Capture();
    EXPECT_EQ(20.0f, mouse->GetX());
    EXPECT_EQ(30.0f, mouse->GetY());
    SDL_WarpMouse(25, 28);
    manager.Capture();
    EXPECT_EQ(5.0f, mouse->GetRelativeX()) << "the motion since the last one";
    EXPECT_EQ(-2.0f, mouse->GetRelativeY());

    PushMouseButton(SDL_BUTTON_LEFT, true);
    PushMouseButton(SDL_BUTTON_RIGHT, true);
    PushMouseButton(SDL_BUTTON_LEFT, false);
    PushMouseButton(SDL_BUTTON_WHEELUP, true);
    PushMouseButton(SDL_BUTTON_WHEELUP, false);
    PushMouseButton(SDL_BUTTON_WHEELUP, true);
    PushMouseButton(SDL_BUTTON_WHEELDOWN, true);
    PushMouseButton(SDL_BUTTON_WHEELDOWN, false);
    manager.Capture();
    EXPECT_FALSE(mouse->IsButtonDown(MOUSE_BUTTON_LEFT));
    EXPECT_TRUE(mouse->IsButtonDown(MOUSE_BUTTON_RIGHT));
    EXPECT_EQ(1, mouse->GetWheelPosition()) << "two steps up, one down; the up events count for nothing";
    EXPECT_EQ(-1, mouse->GetRelativeWheelPosition());
    const std::string wheel = "l:" + std::to_string(INPUT_MOUSE_WHEEL);
    EXPECT_EQ(wheel, log.back());
    manager.Capture();
    EXPECT_EQ(-1, mouse->GetRelativeWheelPosition()) << "kept without wheel input";
    mouse->Reset();
    EXPECT_EQ(0, mouse->GetWheelPosition());
    EXPECT_EQ(-1, mouse->GetRelativeWheelPosition());
}

TEST_F(OrvInputQueueTest, JoypadsTakeTheirOwnEvents)
{
    OrvSDLJoypad* first = new OrvSDLJoypad(0);
    OrvSDLJoypad* second = new OrvSDLJoypad(1);
    manager.AddDevice(first);
    manager.AddDevice(second);
    first->Create();
    second->Create();
    EXPECT_EQ(nullptr, first->GetJoystick()) << "no joystick here: tolerated";
    auto listener = Listening("l", first);
    listener->AddInputDevice(second);
    std::vector<float> velocities;
    listener->hook = [&](const OrvInputEvent& event) {
        if (event.GetType() == INPUT_JOYPAD_AXIS)
            velocities.push_back(static_cast<const OrvJoypadAxisEvent&>(event).GetVelocity());
    };

    PushJoystick(SDL_JOYAXISMOTION, 0, 0, 1600);
    manager.Capture();
    EXPECT_EQ(0.0f, first->GetAxisValue(JOYPAD_AXIS_LEFT_X)) << "0.05 is inside the dead zone";
    PushJoystick(SDL_JOYAXISMOTION, 0, 0, 32767);
    PushJoystick(SDL_JOYAXISMOTION, 0, 1, -32768);
    PushJoystick(SDL_JOYAXISMOTION, 0, 4, -16000);
    manager.Capture();
    EXPECT_EQ(1.0f, first->GetAxisValue(JOYPAD_AXIS_LEFT_X));
    EXPECT_EQ(1.0f, first->GetAxisValue(JOYPAD_AXIS_LEFT_Y)) << "axis 1 is turned over";
    EXPECT_EQ(-0.5f, first->GetAxisValue(JOYPAD_AXIS_RIGHT_Y));
    EXPECT_EQ((std::vector<float>{0.0f, 1.0f, 1.0f, -0.5f}), velocities);

    const size_t heard = log.size();
    PushJoystick(SDL_JOYAXISMOTION, 0, 2, 6000);
    manager.Capture();
    EXPECT_TRUE(first->IsButtonDown(JOYPAD_BUTTON_L2));
    EXPECT_FALSE(first->IsButtonDown(JOYPAD_BUTTON_R2));
    PushJoystick(SDL_JOYAXISMOTION, 0, 2, -6000);
    manager.Capture();
    EXPECT_TRUE(first->IsButtonDown(JOYPAD_BUTTON_R2));
    EXPECT_FALSE(first->IsButtonDown(JOYPAD_BUTTON_L2));
    PushJoystick(SDL_JOYAXISMOTION, 0, 2, 0);
    manager.Capture();
    EXPECT_FALSE(first->IsButtonDown(JOYPAD_BUTTON_R2));
    EXPECT_EQ(heard, log.size()) << "the triggers send no events";

    PushJoystick(SDL_JOYHATMOTION, 0, 0, SDL_HAT_RIGHTUP);
    PushJoystick(SDL_JOYBUTTONDOWN, 0, 6, 0);
    PushJoystick(SDL_JOYBUTTONDOWN, 0, 10, 0);
    PushJoystick(SDL_JOYBUTTONDOWN, 1, 0, 0);
    manager.Capture();
    EXPECT_EQ(HAT_RIGHT_UP, first->GetHatPosition());
    EXPECT_TRUE(first->IsButtonDown(JOYPAD_BUTTON_SELECT));
    EXPECT_TRUE(second->IsButtonDown(JOYPAD_BUTTON_A)) << "joystick 1's event went back to the queue for joypad 1";
    EXPECT_FALSE(first->IsButtonDown(JOYPAD_BUTTON_A));
    EXPECT_EQ(heard + 3, log.size()) << "button 10 is ignored";
}

// A run driven by events pushed into SDL's queue is recorded, then replayed
// while other events keep arriving in the queue: the replay hears what the
// recorded run heard, turn by turn, with the same frame times and rand(), and
// ends by itself after the last turn.
#include <gtest/gtest.h>

#include <SDL.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "OrvGameAsset.h"
#include "OrvGameAssetDesc.h"
#include "OrvGameAssetManager.h"
#include "OrvKeyboardEvent.h"
#include "OrvMouse.h"
#include "OrvMouseButtonEvent.h"
#include "OrvTestGame.h"

namespace
{
constexpr unsigned int kTurns = 10;

// Adds the frame time the world was updated with to its game's trace.
class FrameClock : public OrvGameAsset
{
public:
    void Update(float seconds) override
    {
        OrvGameAsset::Update(seconds);
        char text[32];
        std::snprintf(text, sizeof(text), " s=%.9g", seconds);
        *line += text;
    }
    std::string* line = nullptr;
};

class TracingGame : public OrvTestGame
{
public:
    // `key` is what the pushed events type (a replay types another key,
    // which it must not hear); the game exits after `stopAt` turns, or a
    // replay ends it.
    TracingGame(SDLKey key, unsigned int stopAt) : m_key(key), m_stopAt(stopAt) {}

    void OnInitialise() override
    {
        OrvTestGame::OnInitialise();
        AddStandardDevices(nullptr, &m_mouse, nullptr);
        OrvGameAssetDesc desc;
        FrameClock* clock = GetGameAssetManager()->CreateGameAsset<FrameClock, OrvGameAssetDesc>(&desc);
        clock->AttachTo(GetWorldRoot());
        clock->line = &m_line;
    }

    void Update(float seconds) override
    {
        Push(m_turn);
        // The game's own Update hears the turn's time as the engine does.
        char text[32];
        std::snprintf(text, sizeof(text), " game=%.9g", seconds);
        m_line = text;
        OrvApplication::Update(seconds);
        trace.push_back("turn " + std::to_string(GetSessionTurn()) + m_line + " rand=" + std::to_string(std::rand()));
        if (++m_turn == m_stopAt)
            Exit();
    }

    void ProcessInputEvent(const OrvInputEvent& event) override
    {
        if (event.GetType() == INPUT_KEY_DOWN)
        {
            const OrvKeyboardEvent& key = static_cast<const OrvKeyboardEvent&>(event);
            m_line += " key=" + std::to_string(key.GetKey()) + "/" + std::to_string(key.GetUnicode().Length());
        }
        else if (event.GetType() == INPUT_MOUSE_MOVED)
            m_line += " moved=" + std::to_string(static_cast<int>(m_mouse->GetX())) + "," +
                      std::to_string(static_cast<int>(m_mouse->GetY()));
        else if (event.GetType() == INPUT_MOUSE_BUTTON_DOWN)
            m_line += " button=" + std::to_string(static_cast<const OrvMouseButtonEvent&>(event).GetButton());
    }

    std::vector<std::string> trace;

private:
    void Push(unsigned int turn) const
    {
        SDL_Event event = {};
        switch (turn)
        {
        case 1:
        case 2:
            event.type = turn == 1 ? SDL_KEYDOWN : SDL_KEYUP;
            event.key.state = turn == 1 ? SDL_PRESSED : SDL_RELEASED;
            event.key.keysym.sym = m_key;
            event.key.keysym.unicode = turn == 1 ? static_cast<Uint16>(m_key) : 0;
            break;
        case 3:
            event.type = SDL_MOUSEMOTION;
            event.motion.x = static_cast<Uint16>(m_key);
            event.motion.y = 30;
            event.motion.xrel = 5;
            break;
        case 4:
            event.type = SDL_MOUSEBUTTONDOWN;
            event.button.button = m_key == SDLK_a ? SDL_BUTTON_LEFT : SDL_BUTTON_RIGHT;
            event.button.state = SDL_PRESSED;
            break;
        default:
            return;
        }
        SDL_PushEvent(&event);
    }

    SDLKey m_key;
    unsigned int m_stopAt;
    OrvMouse* m_mouse = nullptr;
    std::string m_line;
    unsigned int m_turn = 0;
};
}  // namespace

TEST(OrvSessionReplay, AReplayHearsTheRecordedRunAndNotTheLiveQueue)
{
    OrvGameFolder folder;
    const std::string session = "session.xml";

    TracingGame live(SDLK_a, kTurns);
    live.SetRecordFile(session);
    live.Run();
    ASSERT_EQ(kTurns, live.trace.size());
    const std::string heard = live.trace[1] + live.trace[3] + live.trace[4];
    for (const char* part : {" key=", " moved=", " button="})
        EXPECT_NE(std::string::npos, heard.find(part)) << "the live run heard" << part << ": " << heard;

    // Ended by the replay, or by the game well after it should have been.
    TracingGame replay(SDLK_z, 4 * kTurns);
    replay.SetReplayFile(session);
    replay.Run();
    EXPECT_EQ(live.trace, replay.trace);

    // Played twice in a row, rand() seeded once: the second pass hears the
    // same input with other numbers (its first turn, which in the first pass
    // also hears the window's state, aside).
    TracingGame twice(SDLK_z, 4 * kTurns);
    twice.SetReplayFile(session);
    twice.SetReplayPasses(2);
    twice.Run();
    ASSERT_EQ(2 * kTurns, twice.trace.size());
    bool randomAgain = true;
    for (unsigned int i = 1; i < kTurns; ++i)
    {
        const std::string& first = twice.trace[i];
        const std::string& second = twice.trace[kTurns + i];
        EXPECT_EQ(first, live.trace[i]);
        EXPECT_EQ("turn " + std::to_string(kTurns + i), second.substr(0, second.find(' ', 5)));
        EXPECT_EQ(first.substr(first.find(' ', 5), first.find(" rand=") - first.find(' ', 5)),
                  second.substr(second.find(' ', 5), second.find(" rand=") - second.find(' ', 5)));
        randomAgain &= first.substr(first.find(" rand=")) == second.substr(second.find(" rand="));
    }
    EXPECT_FALSE(randomAgain);
}

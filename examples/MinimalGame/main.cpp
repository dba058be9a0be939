// The smallest game: it counts its turns, ends after a few seconds measured by
// one of the engine's timers, and reports what it saw.
#include <cstdio>
#include <cstdlib>

#include "OrvApplication.h"
#include "OrvException.h"
#include "OrvTimerManager.h"

namespace
{
class MinimalGame : public OrvApplication
{
public:
    explicit MinimalGame(float seconds) : m_seconds(seconds) {}

    unsigned long Turns() const { return m_turns; }
    int Ticks() const { return m_ticks; }

protected:
    void OnInitialise() override
    {
        OrvTimer* timer = GetTimerManager()->AddTimer();
        timer->SetTimeLimit(m_seconds);
        timer->SetTickCallBack([](OrvTimer*, void* game) { ++static_cast<MinimalGame*>(game)->m_ticks; }, this);
        timer->SetEndCallBack([](OrvTimer*, void* game) { static_cast<MinimalGame*>(game)->Exit(); }, this);
        timer->Start();
    }

    void OnTerminate() override {}

    void Update(float seconds) override
    {
        OrvApplication::Update(seconds);
        ++m_turns;
    }

    void OnRenderWorld() override {}
    void OnRenderHUD() override {}

private:
    float m_seconds;
    unsigned long m_turns = 0;
    int m_ticks = 0;
};
}

int main(int argc, char** argv)
{
    const float seconds = argc > 1 ? static_cast<float>(std::atof(argv[1])) : 2.0f;
    MinimalGame game(seconds);
    try
    {
        game.Run();
    }
    catch (const OrvException& e)
    {
        std::fprintf(stderr, "%s: %s (%s:%d)\n", e.name, e.message, e.file, e.line);
        return 1;
    }
    std::printf("MinimalGame: %lu turns in %.1f s, %d timer ticks\n", game.Turns(), seconds, game.Ticks());
    return 0;
}

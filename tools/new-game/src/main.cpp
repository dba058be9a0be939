// @GAME_NAME@: the arrow keys move the walker, Escape ends the game.
//
//   @GAME_NAME@ [--turns N] [--windowed]
//
// Run it from its build folder, where it finds MediaPaths.xml. --turns ends
// the game after N turns (its test plays 60); --windowed opens a window
// instead of the full screen, as ORV_WINDOWED=1 does.
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>

#include <OrvEngine/OrvException.h>
#include "@GAME_NAME@Game.h"

namespace
{
// A whole number of turns from 1 to a million.
bool ParseTurns(const char* text, unsigned int& turns)
{
    char* end = nullptr;
    const long value = std::strtol(text, &end, 10);
    if (end == text || *end != '\0' || value < 1 || value > 1000000)
        return false;
    turns = static_cast<unsigned int>(value);
    return true;
}
}  // namespace

int main(int argc, char** argv)
{
    unsigned int turns = 0;
    for (int i = 1; i < argc; ++i)
    {
        if (std::strcmp(argv[i], "--windowed") == 0)
            setenv("ORV_WINDOWED", "1", 1);
        else if (!(std::strcmp(argv[i], "--turns") == 0 && i + 1 < argc && ParseTurns(argv[++i], turns)))
        {
            std::fprintf(stderr, "Usage: %s [--turns N] [--windowed]\n", argv[0]);
            return 2;
        }
    }

    @GAME_NAME@Game game(turns);
    try
    {
        game.Run();
    }
    catch (const OrvException& e)
    {
        std::fprintf(stderr, "@GAME_NAME@: %s: %s (%s:%d)\n", e.name, e.message, e.file, e.line);
        return 1;
    }
    catch (const std::exception& e)
    {
        std::fprintf(stderr, "@GAME_NAME@: %s\n", e.what());
        return 1;
    }
    const OrvVector3D at = game.GetWalkerPosition();
    std::printf("@GAME_NAME@: %u turns, the walker at %d, %d\n", game.GetTurns(), static_cast<int>(at.X),
                static_cast<int>(at.Y));
    return 0;
}

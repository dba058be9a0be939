// The Tarnwick, the engine's sample game.
//
//   Tarnwick [--demo] [--frames N] [--round SECONDS] [--save FOLDER]
//
// Run it from its build folder (it reads MediaPaths.xml and Tarnwick.vbf
// there). ORV_WINDOWED=1 opens a window instead of the full screen. --demo
// plays itself through SDL, one sixtieth of a second a turn, saves PNG
// screenshots and a report in the save folder, and prints the frame times.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <numeric>
#include <string>

#include "OrvException.h"
#include "TarnwickGame.h"

namespace
{
// The most memory the process held at once (VmHWM), in kB; 0 where Linux does not say.
long PeakMemoryKB()
{
    FILE* status = std::fopen("/proc/self/status", "r");
    if (status == nullptr)
        return 0;
    char line[256];
    long peak = 0;
    while (std::fgets(line, sizeof(line), status) != nullptr)
        if (std::sscanf(line, "VmHWM: %ld", &peak) == 1)
            break;
    std::fclose(status);
    return peak;
}

void PrintFrameTimes(const TarnwickGame& game)
{
    std::vector<double> times = game.GetTurnTimes();
    if (times.empty())
        return;
    const double total = std::accumulate(times.begin(), times.end(), 0.0);
    std::sort(times.begin(), times.end());
    std::printf("Tarnwick: %u turns in %.2f s: %.1f frames a second; frame time mean %.2f ms, median %.2f ms, "
                "95th percentile %.2f ms, longest %.2f ms\n",
                game.GetTurns(), total, static_cast<double>(times.size()) / total, 1000.0 * total / times.size(),
                1000.0 * times[times.size() / 2], 1000.0 * times[times.size() * 95 / 100], 1000.0 * times.back());
}
}  // namespace

int main(int argc, char** argv)
{
    GameOptions options;
    for (int i = 1; i < argc; ++i)
    {
        const bool hasValue = i + 1 < argc;
        if (std::strcmp(argv[i], "--demo") == 0)
            options.demo = true;
        else if (std::strcmp(argv[i], "--frames") == 0 && hasValue)
            options.frames = static_cast<unsigned int>(std::strtoul(argv[++i], nullptr, 10));
        else if (std::strcmp(argv[i], "--round") == 0 && hasValue)
            options.roundSeconds = static_cast<float>(std::atof(argv[++i]));
        else if (std::strcmp(argv[i], "--save") == 0 && hasValue)
            options.saveDir = argv[++i];
        else
        {
            std::fprintf(stderr, "Usage: %s [--demo] [--frames N] [--round SECONDS] [--save FOLDER]\n", argv[0]);
            return 2;
        }
    }
    if (options.demo)
    {
        // The demo's round is short and its length fixed: it always plays the same.
        options.roundSeconds = 5.0f;
        if (options.frames == 0)
            options.frames = 520;
    }
    TarnwickGame game(options);
    try
    {
        game.Run();
    }
    catch (const OrvException& e)
    {
        std::fprintf(stderr, "Tarnwick: %s: %s (%s:%d)\n", e.name, e.message, e.file, e.line);
        return 1;
    }
    catch (const std::exception& e)
    {
        std::fprintf(stderr, "Tarnwick: %s\n", e.what());
        return 1;
    }
    PrintFrameTimes(game);
    std::printf("Tarnwick: last score %d%s%s; peak memory %.1f MB\n", game.GetScore(),
                game.GetLastName().empty() ? "" : ", kept for ", game.GetLastName().c_str(), PeakMemoryKB() / 1024.0);
    return 0;
}

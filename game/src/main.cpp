// The Tarnwick, the engine's sample game.
//
//   Tarnwick [--demo] [--frames N] [--round SECONDS] [--save FOLDER] [--memory-log FILE]
//
// Run it from its build folder (it reads MediaPaths.xml and Tarnwick.vbf
// there). ORV_WINDOWED=1 opens a window instead of the full screen. --demo
// replays the recorded demo beside it (TarnwickDemo.xml), one sixtieth of a
// second a turn, saves PNG screenshots and a report in the save folder, and
// prints the frame times; given more than its 521 turns it plays the
// recording again, round after round.
// --memory-log writes "turn rss_kB" every 1,000 turns and at the last.
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <filesystem>
#include <limits>
#include <string>

#include <OrvEngine/OrvException.h>
#include "TarnwickGame.h"

namespace
{
// A whole positive number of turns; anything else (signs, fractions, trailing text, overflow) is refused.
bool ParseTurns(const char* text, unsigned int& turns)
{
    if (text[0] < '0' || text[0] > '9')
        return false;
    errno = 0;
    char* end = nullptr;
    const unsigned long value = std::strtoul(text, &end, 10);
    if (errno != 0 || *end != '\0' || value == 0 || value > std::numeric_limits<unsigned int>::max())
        return false;
    turns = static_cast<unsigned int>(value);
    return true;
}

// A finite positive number of seconds.
bool ParseSeconds(const char* text, float& seconds)
{
    errno = 0;
    char* end = nullptr;
    const double value = std::strtod(text, &end);
    if (end == text || *end != '\0' || errno != 0 || !std::isfinite(value) || value <= 0.0 ||
        value > std::numeric_limits<float>::max())
        return false;
    seconds = static_cast<float>(value);
    return true;
}

void PrintFrameTimes(const TarnwickGame& game)
{
    const TurnTimes& times = game.GetTurnTimes();
    if (times.Count() == 0)
        return;
    const double total = times.Total();
    std::printf("Tarnwick: %u turns in %.2f s: %.1f frames a second; frame time mean %.2f ms, median %.2f ms, "
                "95th percentile %.2f ms, longest %.2f ms\n",
                game.GetTurns(), total, times.Count() / total, 1000.0 * total / times.Count(),
                1000.0 * times.Quantile(0.5), 1000.0 * times.Quantile(0.95), 1000.0 * times.Longest());
}
}  // namespace

int main(int argc, char** argv)
{
    GameOptions options;
    const char* memoryLogPath = nullptr;
    bool usable = true;
    for (int i = 1; i < argc && usable; ++i)
    {
        const bool hasValue = i + 1 < argc && argv[i + 1][0] != '\0';
        if (std::strcmp(argv[i], "--demo") == 0)
            options.demo = true;
        else if (std::strcmp(argv[i], "--frames") == 0 && hasValue)
            usable = ParseTurns(argv[++i], options.frames);
        else if (std::strcmp(argv[i], "--round") == 0 && hasValue)
            usable = ParseSeconds(argv[++i], options.roundSeconds);
        else if (std::strcmp(argv[i], "--save") == 0 && hasValue)
        {
            // The scores, screenshots and report go there at the end of a round: a folder the game can
            // write, made (with its parents) when it does not exist yet.
            options.saveDir = argv[++i];
            std::error_code error;
            std::filesystem::create_directories(options.saveDir, error);
            struct stat folder;
            usable = !error && stat(options.saveDir.c_str(), &folder) == 0 && S_ISDIR(folder.st_mode) &&
                     access(options.saveDir.c_str(), W_OK) == 0;
            if (!usable)
                std::fprintf(stderr, "Tarnwick: %s: %s\n", options.saveDir.c_str(),
                             error ? error.message().c_str() : "not a folder the game can write");
        }
        else if (std::strcmp(argv[i], "--memory-log") == 0 && hasValue)
            memoryLogPath = argv[++i];
        else
            usable = false;
    }
    // Opened before the window: a log that cannot be written is a bad value like any other.
    FILE* memoryLog = usable && memoryLogPath != nullptr ? std::fopen(memoryLogPath, "w") : nullptr;
    if (usable && memoryLogPath != nullptr && memoryLog == nullptr)
    {
        std::fprintf(stderr, "Tarnwick: %s: %s\n", memoryLogPath, std::strerror(errno));
        usable = false;
    }
    if (!usable)
    {
        std::fprintf(stderr,
                     "Usage: %s [--demo] [--frames N] [--round SECONDS] [--save FOLDER] [--memory-log FILE]\n",
                     argv[0]);
        return 2;
    }
    options.memoryLog = memoryLog;
    if (options.demo)
    {
        // The demo's round is short and its length fixed: it always plays the same.
        options.roundSeconds = 5.0f;
    }
    TarnwickGame game(options);
    int status = 0;
    try
    {
        game.Run();
    }
    catch (const OrvException& e)
    {
        std::fprintf(stderr, "Tarnwick: %s: %s (%s:%d)\n", e.name, e.message, e.file, e.line);
        status = 1;
    }
    catch (const std::exception& e)
    {
        std::fprintf(stderr, "Tarnwick: %s\n", e.what());
        status = 1;
    }
    if (memoryLog != nullptr)
        std::fclose(memoryLog);
    if (status != 0)
        return status;
    PrintFrameTimes(game);
    const bool kept = !game.GetLastName().empty();
    std::printf("Tarnwick: last score %d%s%s; peak memory %.1f MB\n", kept ? game.GetLastScore() : game.GetScore(),
                kept ? ", kept for " : "", game.GetLastName().c_str(),
                TarnwickGame::MemoryStatusKB("VmHWM") / 1024.0);
    return 0;
}

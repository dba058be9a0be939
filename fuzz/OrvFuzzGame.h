#ifndef ORV_FUZZ_GAME_H
#define ORV_FUZZ_GAME_H

// A started game for the targets that read sprite documents: the sprite
// manager turns what it reads into textures, so it needs a window and a GL
// context (an X display: scripts/headless or xvfb-run gives one). The game is
// started once per process, in the scratch folder, with a media path list
// that puts the scratch folder first and the engine's media (its shaders)
// after it, and a small sprite sheet "Tiles.tga" that seed inputs refer to.

#include <initializer_list>
#include <string>
#include <unistd.h>
#include <utility>

#include "OrvApplication.h"
#include "OrvFileManager.h"
#include "OrvFuzz.h"
#include "OrvSpriteManager.h"
#include "OrvTGAImageFile.h"
#include "OrvTextureManager.h"

#if __has_include(<sanitizer/lsan_interface.h>)
#include <sanitizer/lsan_interface.h>
#define ORV_FUZZ_HAS_LSAN 1
#endif

namespace orvfuzz
{
class FuzzGame : public OrvApplication
{
public:
    void OnInitialise() override {}
    void OnTerminate() override {}
    void OnRenderWorld() override {}
    void OnRenderHUD() override {}
};

// What the game holds between inputs; an input must leave it as it found it.
struct GameBaseline
{
    unsigned int files = 0;
    unsigned int textures = 0;
};

// A 32 x 32 sheet of four 16 x 16 tiles, written as the engine writes TGA files.
inline void SaveTiles(const std::string& path)
{
    class Tiles : public OrvTGAImageFile
    {
    public:
        Tiles()
        {
            SetImageTypeCode(2);
            SetImagePixelSize(32);
            SetWidth(32);
            SetHeight(32);
            ResetImageData();
            for (unsigned int i = 0; i < 32 * 32; ++i)
            {
                const unsigned int tile = ((i % 32) / 16) + 2 * ((i / 32) / 16);
                m_data[4 * i] = static_cast<unsigned char>(tile * 80);
                m_data[4 * i + 1] = static_cast<unsigned char>(255 - tile * 80);
                m_data[4 * i + 2] = 128;
                m_data[4 * i + 3] = 255;
            }
        }
    } tiles;
    OrvFileManager files;
    tiles.Create(&files, 1);
    tiles.Save(path.c_str(), OrvFile::SAVE_DEFAULT);
    tiles.Close();
}

// The game, started on the first call. `extraFiles` are written into the
// scratch folder first, as (name, content) pairs.
inline FuzzGame& Game(std::initializer_list<std::pair<const char*, const char*>> extraFiles = {})
{
    static FuzzGame* const game = [&] {
        const std::string& dir = ScratchDir();
        const std::string paths = "<MediaPaths>\n  <Path>" + dir + "</Path>\n  <Path>" ORV_MEDIA_DIR
                                  "</Path>\n</MediaPaths>\n";
        const std::string mediaPaths = dir + "/MediaPaths.xml";
        if (!WriteFile(mediaPaths, paths.data(), paths.size()))
            SetupFailed("cannot write MediaPaths.xml");
        for (const auto& file : extraFiles)
            if (!WriteFile(dir + "/" + file.first, file.second, std::string(file.second).size()))
                SetupFailed("cannot write a file the target needs");
        SaveTiles(dir + "/Tiles.tga");

        setenv("ORV_WINDOWED", "1", 1);
        setenv("ALSOFT_DRIVERS", "null", 0);
        // The game reads its media path list from the working folder; libFuzzer
        // reads corpora and writes artifacts relative to the first one, so the
        // detour lasts only as long as the start.
        char previous[4096];
        if (getcwd(previous, sizeof(previous)) == nullptr || chdir(dir.c_str()) != 0)
            SetupFailed("cannot enter the scratch folder");
#ifdef ORV_FUZZ_HAS_LSAN
        // What X11, Mesa and SDL allocate while the game starts is theirs.
        __lsan_disable();
#endif
        FuzzGame* started = new FuzzGame();
        try
        {
            started->Initialise(64, 64);
        }
        catch (const OrvException& e)
        {
            std::fprintf(stderr, "orvfuzz: the game does not start (%s: %s); is there a display?\n", e.name,
                         e.message);
            std::abort();
        }
#ifdef ORV_FUZZ_HAS_LSAN
        __lsan_enable();
#endif
        if (chdir(previous) != 0)
            SetupFailed("cannot return to the working folder");
        return started;
    }();
    return *game;
}

inline GameBaseline Baseline(const FuzzGame& game)
{
    GameBaseline baseline;
    baseline.files = game.GetFileManager()->GetFileCount();
    baseline.textures = game.GetTextureManager()->GetTextureCount();
    return baseline;
}

// Lets go of everything one input made: nothing uses its sprites and
// animations, so CleanUp must take them and then their textures; the files
// the input had registered are forgotten.
inline void ForgetInput(FuzzGame& game, const GameBaseline& baseline)
{
    game.GetSpriteManager()->CleanUp();
    game.GetTextureManager()->CleanUp();
    if (game.GetSpriteManager()->GetSpriteCount() != 0 || game.GetSpriteManager()->GetSpriteAnimationCount() != 0)
        Finding("the sprite manager kept sprites or animations nothing uses");
    if (game.GetTextureManager()->GetTextureCount() != baseline.textures)
        Finding("textures of the sprites cleaned up are still held");
    OrvFileManager* files = game.GetFileManager();
    while (files->GetFileCount() > baseline.files)
        files->DeleteOrvFile(files->GetFileAt(files->GetFileCount() - 1));
}
} // namespace orvfuzz

#endif

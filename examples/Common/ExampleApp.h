#ifndef ORV_EXAMPLE_APP_H
#define ORV_EXAMPLE_APP_H

// What every example shares: its command line, the clock that ends it, the
// screenshot of its last frame, the standard devices, quads, textures and
// fonts. An example derives from ExampleApp, calls ExampleApp::OnInitialise
// first in its own, and hands its class to RunExample from main:
//
//   EXAMPLE [SECONDS] [--windowed] [--demo] [--screenshot FILE]
//
// SECONDS (0, the default, runs until Escape) ends the example after that
// long; --windowed opens a window instead of the full screen (as
// ORV_WINDOWED=1 does); --demo replays the example's recorded demo; --screenshot
// keeps the last frame drawn in a 32-bit TGA file, or a PNG file for a name
// ending in .png. An example's demo is a recorded session, NAMEDemo.xml in its
// folder: recorded with ORV_RECORD=file, replayed with --demo.

#include <string>
#include <vector>

#include <OrvEngine/OrvApplication.h>
#include <OrvEngine/OrvColor.h>
#include <OrvEngine/OrvColorMaterial.h>
#include <OrvEngine/OrvColoredTextureMaterial.h>
#include <OrvEngine/OrvGameAsset.h>
#include <OrvEngine/OrvGameAssetDesc.h>
#include <OrvEngine/OrvGameAssetManager.h>
#include <OrvEngine/OrvKeyboard.h>
#include <OrvEngine/OrvVector3D.h>

class OrvFont;
class OrvMaterial;
class OrvMesh;
class OrvSDLJoypad;
class OrvSDLKeyboard;
class OrvSDLMouse;
class OrvTexture;

struct ExampleOptions
{
    float seconds = 0.0f;
    bool demo = false;
    std::string screenshot;
};

class ExampleApp : public OrvApplication
{
public:
    ExampleApp(const char* name, const ExampleOptions& options) : m_name(name), m_options(options)
    {
        if (options.demo)
            SetReplayFile(std::string(name) + "Demo.xml");
    }
    const char* GetName() const { return m_name; }

protected:
    // Starts the clock that ends the example.
    void OnInitialise() override;
    // Releases the textures and fonts the helpers made; an example that
    // overrides it calls it last.
    void OnTerminate() override;
    void OnRenderWorld() override {}
    void OnRenderHUD() override {}
    // Escape ends the example.
    void ProcessInputEvent(const OrvInputEvent& event) override;
    // The frame of the last turn is the one kept.
    void RenderHUD() override;

    const ExampleOptions& Options() const { return m_options; }

    // A keyboard, a mouse and the first joypad, created, given to the input
    // manager (which owns them) and heard by the example.
    void AddStandardDevices();
    OrvSDLKeyboard* GetKeyboard() const { return m_keyboard; }
    OrvSDLMouse* GetMouse() const;
    OrvSDLJoypad* GetJoypad() const { return m_joypad; }

    // An asset of class T made from its record (any record the class takes),
    // under `parent` unless that is null.
    template <class T, class D>
    T* Make(D& desc, OrvGameAsset* parent)
    {
        T* asset = GetGameAssetManager()->CreateGameAsset<T, D>(&desc);
        if (parent != nullptr)
            asset->AttachTo(parent);
        return asset;
    }
    // An asset of class T made from a plain record, under `parent`.
    template <class T = OrvGameAsset>
    T* Spawn(OrvGameAsset* parent, const OrvVector3D& position)
    {
        OrvGameAssetDesc desc;
        desc.position = position;
        return Make<T>(desc, parent);
    }
    // A width × height quad around the origin, texture (0, 0) at its lower
    // left, drawn with `material` (the mesh owns it).
    OrvMesh* MakeQuad(float width, float height, OrvMaterial* material) const;
    OrvColorMaterial* MakeColor(const OrvColor& color) const;
    // The image found along the media paths, tinted.
    OrvColoredTextureMaterial* MakeTextured(const char* image, const OrvColor& tint = OrvColor(255, 255, 255, 255));
    // The image found along the media paths, held until termination.
    OrvTexture* LoadTexture(const char* image);
    // A font made by "orvmedia font" (16 × 16 cells of `cell` pixels),
    // deleted at termination.
    OrvFont* LoadFont(const char* image, unsigned int cell, float sizeCoef);

    // "<name>: <text>" on the standard output, at once.
    void Report(const char* format, ...) const __attribute__((format(printf, 2, 3)));

private:
    void SaveScreenshot() const;

    const char* m_name;
    ExampleOptions m_options;
    OrvSDLKeyboard* m_keyboard = nullptr;
    OrvSDLMouse* m_mouse = nullptr;
    OrvSDLJoypad* m_joypad = nullptr;
    std::vector<OrvTexture*> m_textures;
    std::vector<OrvFont*> m_fonts;
};

// Reads the command line; false (after printing the usage) when it is wrong.
bool ParseExampleOptions(int argc, char** argv, ExampleOptions& options);
// Runs the example; the engine's exceptions are reported. The exit status.
int RunExampleGame(ExampleApp& game);

template <class Game>
int RunExample(int argc, char** argv)
{
    ExampleOptions options;
    if (!ParseExampleOptions(argc, argv, options))
        return 2;
    Game game(options);
    return RunExampleGame(game);
}

#endif

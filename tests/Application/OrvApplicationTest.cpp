#include <gtest/gtest.h>

#include <SDL.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <string>
#include <vector>

#include "OrvApplication.h"
#include "OrvAxisAlignedBox.h"
#include "OrvGameAsset.h"
#include "OrvGameAssetDesc.h"
#include "OrvGameAssetManager.h"
#include "OrvInputEvent.h"
#include "OrvInputManager.h"
#include "OrvSDLKeyboard.h"
#include "OrvColor.h"
#include "OrvColoredTextureMaterial.h"
#include "OrvEffect.h"
#include "OrvMaterialShelf.h"
#include "OrvPass.h"
#include "OrvShaderRuntime.h"
#include "OrvTestGame.h"
#include "OrvTexture.h"
#include "OrvTextureManager.h"
#include "OrvFileException.h"
#include "OrvFileManager.h"
#include "OrvTestBytes.h"
#include "OrvRendererException.h"
#include "OrvTimerManager.h"

namespace
{
// A working directory holding the media path list that start-up reads.
// The game's window opens windowed.
struct GameDir : OrvScratchDir
{
    // The engine's shaders must be found: the screen box draws with one.
    explicit GameDir(const std::string& mediaPaths = "<MediaPaths>\n  <Path>" + std::string(ORV_MEDIA_DIR) +
                                                     "</Path>\n</MediaPaths>\n")
    {
        Write("MediaPaths.xml", mediaPaths);
        setenv("ORV_WINDOWED", "1", 1);
    }
};

// A game whose hooks and slots record the order in which the engine calls them.
class RecordingGame : public OrvApplication
{
public:
    std::vector<std::string> calls, focus; // focus: the focus, mouse and activity hooks
    std::vector<float> steps;
    std::vector<bool> pausedDuringUpdate;
    size_t exitAtTurn = 3;
    bool throwInRenderWorld = false, pauseOnInitialise = false;
    int timerEnds = 0;
    unsigned int appStateAtFirstUpdate = 0;

    void Initialise(unsigned int width, unsigned int height) override
    {
        calls.push_back("Initialise " + std::to_string(width) + "x" + std::to_string(height));
        OrvApplication::Initialise(width, height);
    }
    void OnInitialise() override
    {
        calls.push_back("OnInitialise");
        EXPECT_NE(nullptr, GetTimerManager()) << "managers exist before the game's hook";
        OrvTimer* timer = GetTimerManager()->AddTimer();
        timer->SetTimeLimit(0.0f);
        timer->SetEndCallBack([](OrvTimer*, void* game) { ++static_cast<RecordingGame*>(game)->timerEnds; }, this);
        timer->Start();
        if (pauseOnInitialise)
            SetPaused(true);
    }
    void Update(float seconds) override
    {
        if (steps.empty())
            appStateAtFirstUpdate = SDL_GetAppState();
        steps.push_back(seconds);
        pausedDuringUpdate.push_back(GetPaused());
        calls.push_back("Update");
        OrvApplication::Update(seconds);
        if (steps.size() == exitAtTurn)
            Exit();
    }
    void RenderWorld() override
    {
        calls.push_back("RenderWorld");
        OrvApplication::RenderWorld();
    }
    void OnRenderWorld() override
    {
        calls.push_back("OnRenderWorld");
        if (throwInRenderWorld)
            throw OrvRendererException("boom", "tests/Application", 1);
    }
    void RenderHUD() override
    {
        calls.push_back("RenderHUD");
        OrvApplication::RenderHUD();
    }
    void OnRenderHUD() override { calls.push_back("OnRenderHUD"); }
    void Term() override
    {
        calls.push_back("Term");
        OrvApplication::Term();
    }
    void OnTerminate() override { calls.push_back("OnTerminate"); }
    void OnGainedMouseCoverage() override { focus.push_back("GainedMouse"); }
    void OnLostMouseCoverage() override { focus.push_back("LostMouse"); }
    void OnGainedInputFocus() override
    {
        focus.push_back("GainedFocus");
        OrvApplication::OnGainedInputFocus();
    }
    void OnLostInputFocus() override { focus.push_back("LostFocus"); }
    void OnBecameActive() override { focus.push_back("Active"); }
    void OnBecameInactive() override { focus.push_back("Inactive"); }
};
}

TEST(OrvApplication, RunsInitialiseTurnsAndTermInOrder)
{
    GameDir dir;
    RecordingGame game;
    EXPECT_FALSE(game.UpdateScreenBox()) << "nothing to measure before Initialise";
    game.Run();

    const std::vector<std::string> turn = {"Update", "RenderWorld", "OnRenderWorld", "RenderHUD", "OnRenderHUD"};
    std::vector<std::string> expected = {"Initialise 4294967295x4294967295", "OnInitialise"};
    for (int i = 0; i < 3; ++i)
        expected.insert(expected.end(), turn.begin(), turn.end());
    expected.insert(expected.end(), {"Term", "OnTerminate"});
    EXPECT_EQ(expected, game.calls) << "Exit() during Update still completes that turn";

    for (float dt : game.steps)
        EXPECT_GT(dt, 0.0f) << "a turn runs only once the clock has advanced";
    EXPECT_EQ(1, game.timerEnds) << "timers advance with the turns";
    EXPECT_EQ(nullptr, game.GetTimerManager()) << "Term releases the timer manager";
    EXPECT_FALSE(game.IsRunning());
}

TEST(OrvApplication, ASecondRunStartsAfreshAndTermLeavesNothingDangling)
{
    GameDir dir;
    RecordingGame game;
    game.Run();
    ASSERT_NE(nullptr, game.GetMaterialShelf()) << "the shelf outlives Term";
    EXPECT_EQ(nullptr, game.GetMaterialShelf()->GetRenderer()) << "and lets go of the renderer Term deleted";

    game.calls.clear();
    game.steps.clear();
    game.Run();
    EXPECT_EQ(3u, game.steps.size()) << "a second Run plays again";
    EXPECT_EQ("OnTerminate", game.calls.back());

    game.Initialise(32, 32);
    EXPECT_EQ(1, game.GetWorldRoot()->GetID()) << "with a fresh game asset manager";
    const Thrown again([&] { game.Initialise(32, 32); });
    EXPECT_EQ("You tried to initialise an application that is already running", again.message);
    game.Term();
}

TEST(OrvApplication, AnExceptionInAHookLeavesRunWithoutTerm)
{
    GameDir dir;
    RecordingGame game;
    game.throwInRenderWorld = true;
    EXPECT_THROW(game.Run(), OrvRendererException);
    EXPECT_EQ("OnRenderWorld", game.calls.back());
    EXPECT_EQ(game.calls.end(), std::find(game.calls.begin(), game.calls.end(), "Term"));
    EXPECT_NE(nullptr, game.GetTimerManager()) << "left for the destructor to release";
}

TEST(OrvApplication, PauseStopsOnlyTheWorldUpdate)
{
    GameDir dir;
    RecordingGame game;
    game.pauseOnInitialise = true;
    game.exitAtTurn = 4;
    game.Run();
    ASSERT_FALSE(game.pausedDuringUpdate.empty());
    EXPECT_FALSE(game.pausedDuringUpdate[0]) << "start-up ends unpaused, whatever the game set before";

    RecordingGame paused;
    paused.Initialise(640, 480);
    paused.SetPaused(true);
    OrvTimer* timer = paused.GetTimerManager()->AddTimer();
    timer->SetTimeLimit(1000.0f);
    timer->Start();
    paused.Update(0.25f);
    paused.RenderWorld();
    paused.RenderHUD();
    EXPECT_FLOAT_EQ(0.25f, timer->GetCurrentSeconds()) << "timers go on while paused";
    EXPECT_EQ("OnRenderHUD", paused.calls.back()) << "both trees still render while paused";
    EXPECT_TRUE(paused.GetPaused()) << "a turn does not clear the pause";
    paused.Term();
}

TEST(OrvApplication, FocusChangesReportAllThreePairs)
{
    GameDir dir;
    RecordingGame game;
    game.exitAtTurn = 2;
    game.Run();

    const unsigned int state = game.appStateAtFirstUpdate;
    ASSERT_NE(0u, state) << "SDL reports some focus bit for a fresh window";
    std::vector<std::string> expected = {
        (state & SDL_APPMOUSEFOCUS) ? "GainedMouse" : "LostMouse",
        (state & SDL_APPINPUTFOCUS) ? "GainedFocus" : "LostFocus",
        (state & SDL_APPACTIVE) ? "Active" : "Inactive",
    };
    // Other windows on the same display may take the focus later on: only the
    // first report is certain.
    ASSERT_GE(game.focus.size(), 3u);
    EXPECT_EQ(expected, std::vector<std::string>(game.focus.begin(), game.focus.begin() + 3))
        << "reported on the first turn, since the remembered state starts at 0";
    EXPECT_EQ(0u, game.focus.size() % 3) << "always the three pairs together";
}

TEST(OrvApplication, CursorListKeepsDuplicatesAndChecksIndices)
{
    RecordingGame game;
    OrvCursor* cursor = reinterpret_cast<OrvCursor*>(&game);
    game.AddCursor(cursor);
    game.AddCursor(cursor);
    EXPECT_EQ(2u, game.GetCursorCount());
    EXPECT_EQ(cursor, game.GetCursor(1));
    EXPECT_EQ("Orv Array Exception | The index at which you are trying to access an element is out of bounds | "
              "template/OrvTObjectArray",
              Thrown([&] { game.GetCursor(2); }).Full());
}

TEST(OrvApplication, StartUpReadsTheMediaPathList)
{
    GameDir dir("<MediaPaths>\n  <Path>gfx</Path>\n  <Anything>snd/</Anything>\n  <Path>" +
                std::string(ORV_MEDIA_DIR) + "</Path>\n</MediaPaths>\n");
    RecordingGame game;
    game.Initialise(640, 480);
    OrvFileManager* files = game.GetFileManager();
    ASSERT_NE(nullptr, files);
    ASSERT_EQ(3u, files->GetMediaPathCount());
    EXPECT_TRUE(files->GetMediaPath(0) == "gfx/");
    EXPECT_TRUE(files->GetMediaPath(1) == "snd/");
    EXPECT_NE(nullptr, files->GetFile("MediaPaths.xml")) << "the list stays registered";
    game.Term();
    EXPECT_EQ(nullptr, game.GetFileManager());

    OrvScratchDir empty;
    RecordingGame lost;
    EXPECT_THROW(lost.Run(), OrvFileException) << "no media path list, no start";
}

namespace
{
// Checks, at each hook of start-up and shutdown, what exists already.
class StartUpProbe : public OrvTestGame
{
public:
    std::vector<std::string> seen;

    void LoadMediaPaths() override
    {
        seen.push_back(std::string("media paths: window ") + Has(GetMainWindow()) + ", files " +
                       Has(GetFileManager()) + ", renderer " + Has(GetRenderer()));
        OrvTestGame::LoadMediaPaths();
    }
    void OnInitialise() override
    {
        OrvTestGame::OnInitialise();
        OrvRenderer* renderer = GetRenderer();
        seen.push_back(std::string("initialise: set up ") + Has(renderer && renderer->GetInitialized()) +
                       ", viewport " + std::to_string(renderer->GetViewportWidth()) + "x" +
                       std::to_string(renderer->GetViewportHeight()) + ", textures " +
                       Has(GetTextureManager()->GetRenderer() == renderer) + ", shelf " +
                       Has(GetMaterialShelf()->GetRenderer() == renderer));
    }
    void Update(float seconds) override
    {
        OrvTestGame::Update(seconds);
        Exit();
    }
    void OnTerminate() override
    {
        seen.push_back(std::string("terminate: renderer ") + Has(GetRenderer()) + ", window " + Has(GetMainWindow()));
    }

private:
    static const char* Has(bool present) { return present ? "yes" : "no"; }
    static const char* Has(const void* object) { return Has(object != nullptr); }
};
}  // namespace

// The size of the display the tests run on, as the window will find it.
std::string DesktopSize()
{
    if (SDL_Init(SDL_INIT_VIDEO) != 0)
        return "no display";
    const SDL_VideoInfo* info = SDL_GetVideoInfo();
    const std::string size =
        info != nullptr ? std::to_string(info->current_w) + "x" + std::to_string(info->current_h) : "unknown";
    SDL_Quit();
    return size;
}

TEST(OrvApplication, RenderingManagersAreMadeAndReleasedInOrder)
{
    OrvGameFolder folder;
    const std::string desktop = DesktopSize();
    StartUpProbe game;
    game.Run();
    const std::vector<std::string> expected = {
        "media paths: window yes, files yes, renderer no",
        "initialise: set up yes, viewport " + desktop + ", textures yes, shelf yes",
        "terminate: renderer yes, window yes",
    };
    EXPECT_EQ(expected, game.seen) << "the renderer is set up to the size the window took";
    EXPECT_EQ(nullptr, game.GetRenderer());
    EXPECT_EQ(nullptr, game.GetMainWindow());
    EXPECT_EQ(nullptr, game.GetTextureManager());
    EXPECT_NE(nullptr, game.GetMaterialShelf()) << "the shelf lives until the destructor";
    EXPECT_EQ(0u, SDL_WasInit(SDL_INIT_VIDEO)) << "the window took SDL down";
}

TEST(OrvApplication, FullScreenSwitchRebuildsEffectsAndTextures)
{
    OrvGameFolder folder;
    OrvQuadColoursImage::SaveAs("Quad.tga");
    OrvTestGame game;
    game.Initialise(64, 64);
    OrvRenderer* renderer = game.GetRenderer();
    OrvTexture* texture = game.GetTextureManager()->CreateTexture();
    texture->AddUser();
    texture->SetMipMapMethod(MIPMAP_NEAREST);
    OrvTGAImageFile* image = game.GetFileManager()->GetOrLoad<OrvTGAImageFile>("Quad.tga");
    texture->SetDataFromImage(image);
    game.GetFileManager()->DeleteOrvFile(image);
    OrvColoredTextureMaterial material(renderer, texture, OrvColor(1.0f, 1.0f, 1.0f, 1.0f));
    const CGprogram before = material.GetPass(0)->GetEffect()->GetVSProgram();

    game.SetFullScreen(false);
    EXPECT_EQ(before, material.GetPass(0)->GetEffect()->GetVSProgram()) << "already windowed: nothing happens";

    for (bool fullScreen : {true, false})
    {
        const unsigned int files = game.GetFileManager()->GetFileCount();
        game.SetFullScreen(fullScreen);
        EXPECT_EQ(fullScreen, game.GetFullScreen());
        EXPECT_NE(before, material.GetPass(0)->GetEffect()->GetVSProgram()) << "programs of the new context";
        EXPECT_EQ(files, game.GetFileManager()->GetFileCount()) << "the reloaded image is released";

        LoadPixelProjection(*renderer, 64, 64);
        renderer->PreRender();
        material.ActivatePass(0);
        DrawQuad(*renderer, 0, 0, 64, 64);
        EXPECT_TRUE(PixelIs(16, 16, 0xFF0000)) << "full screen " << fullScreen;
        EXPECT_TRUE(PixelIs(48, 48, 0xFFFFFF));
    }
    texture->RemoveUser();
    game.Term();
}

namespace
{
// Counts its updates and draws; marks itself for deletion on request.
class Counter : public OrvGameAsset
{
public:
    void Update(float seconds) override
    {
        ++updates;
        OrvGameAsset::Update(seconds);
    }
    void RenderElements() const override { ++const_cast<Counter*>(this)->draws; }
    int updates = 0, draws = 0;
};

Counter* AddCounter(OrvApplication& game, OrvGameAsset* parent)
{
    OrvGameAssetDesc desc;
    Counter* counter = game.GetGameAssetManager()->CreateGameAsset<Counter, OrvGameAssetDesc>(&desc);
    counter->AttachTo(parent);
    return counter;
}
}  // namespace

TEST(OrvApplication, TheTreesUpdateAndDrawAroundTheirRoots)
{
    OrvGameFolder folder;
    OrvTestGame game;
    EXPECT_FALSE(game.UpdateScreenBox()) << "no camera, no box before Initialise";
    game.Initialise(64, 48);
    EXPECT_EQ(1, game.GetWorldRoot()->GetID());
    EXPECT_EQ(2, game.GetHUDRoot()->GetID());
    EXPECT_EQ(3, game.GetDebugRoot()->GetID());
    EXPECT_TRUE(game.GetHUDRoot()->GetName() == "OrthographicRoot");

    // The box on z = 0: tan of the field of view value as it stands, times the distance.
    const float t = std::tan(45.0f);
    const OrvVector3D corner = game.GetScreenBox()->GetWorldMaximum();
    EXPECT_FLOAT_EQ(t * 870.0f * 0.5f, corner.X);
    EXPECT_FLOAT_EQ(t * 870.0f / (64.0f / 48.0f) * 0.5f, corner.Y);

    Counter* world = AddCounter(game, game.GetWorldRoot());
    Counter* hud = AddCounter(game, game.GetHUDRoot());
    game.SetPaused(true);
    game.Update(0.1f);
    game.RenderWorld();
    game.RenderHUD();
    EXPECT_EQ(0, world->updates) << "paused: the world stands still";
    EXPECT_EQ(1, hud->updates);
    EXPECT_EQ(1, world->draws) << "but is still drawn";
    EXPECT_EQ(OrvVector3D(32, 24, 0), game.GetHUDRoot()->GetPosition()) << "the HUD's origin is the viewport's centre";
    EXPECT_EQ(32.0f, hud->GetWorldPosition().X);

    world->SetMesh(SquareMesh(game.GetRenderer(), 10, OrvColor()));
    world->RefreshPosition(true);
    Counter* far = AddCounter(game, game.GetWorldRoot());
    far->SetMesh(SquareMesh(game.GetRenderer(), 10, OrvColor()));
    far->SetPosition(OrvVector3D(5000, 0, 0));
    const OrvTObjectArray<OrvGameAsset*> seen = game.GetOnScreenGameAssets();
    ASSERT_EQ(1u, seen.GetCount());
    EXPECT_EQ(world, seen[0]);

    // Debug markers: deleting one that is not a debug child changes nothing.
    Counter* marker = AddCounter(game, game.GetDebugRoot());
    game.DeleteDebugGameAsset(world);
    EXPECT_FALSE(world->GetToDelete());
    game.RenderDebugGameAssets(false);
    EXPECT_FALSE(marker->GetRender());
    game.DeleteAllDebugGameAssets();
    EXPECT_TRUE(marker->GetToDelete());
    EXPECT_EQ(0u, game.GetDebugRoot()->GetChildCount());

    // A deletion marked during the update is carried out before anything is drawn.
    far->DeleteThisGameAsset();
    const unsigned int count = game.GetGameAssetManager()->GetGameAssetCount();
    game.RenderWorld();
    EXPECT_EQ(count - 2, game.GetGameAssetManager()->GetGameAssetCount());
    game.Term();
    EXPECT_EQ(nullptr, game.GetWorldRoot()) << "Term destroys the game's assets before the managers they use";
    EXPECT_EQ(0u, game.GetGameAssetManager()->GetGameAssetCount());
}

// Two overlapping HUD squares, siblings in one parent: the first nearer the
// viewer (z -0.1, red), the second farther (z -0.5, blue) but drawn later.
// The colour at the centre with and without the window's depth buffer.
unsigned int OverlapColour(bool depthAndStencil)
{
    OrvGameFolder folder;
    OrvTestGame game;
    game.SetDepthAndStencil(depthAndStencil);
    game.Initialise(64, 64);
    OrvGameAssetManager* assets = game.GetGameAssetManager();
    OrvGameAssetDesc desc;
    desc.position.Set(0.0f, 0.0f, -0.5f);
    OrvGameAsset* parent = assets->CreateGameAsset<OrvGameAsset, OrvGameAssetDesc>(&desc);
    parent->AttachTo(game.GetHUDRoot());
    const float depths[2] = {0.4f, 0.0f};
    const OrvColor colours[2] = {OrvColor(1.0f, 0.0f, 0.0f, 1.0f), OrvColor(0.0f, 0.0f, 1.0f, 1.0f)};
    for (int i = 0; i < 2; ++i)
    {
        desc.position.Set(0.0f, 0.0f, depths[i]);
        OrvGameAsset* square = assets->CreateGameAsset<OrvGameAsset, OrvGameAssetDesc>(&desc);
        square->SetMesh(SquareMesh(game.GetRenderer(), 32.0f, colours[i]));
        square->AttachTo(parent);
    }
    game.GetRenderer()->PreRender();
    game.RenderWorld();
    game.RenderHUD();
    const unsigned int colour = PixelAt(32, 32);
    game.Term();
    return colour;
}

TEST(OrvApplication, WithoutADepthBufferWhatIsDrawnLastIsOnTop)
{
    EXPECT_EQ(0xFF0000u, OverlapColour(true)) << "the depth test keeps the nearer square";
    EXPECT_EQ(0x0000FFu, OverlapColour(false)) << "the tree order decides";
}

TEST(OrvApplication, TheApplicationListensFirstAndLetsGoAtTerm)
{
    class Listening : public OrvTestGame
    {
    public:
        void ProcessInputEvent(const OrvInputEvent& event) override { heard.push_back(event.GetType()); }
        std::vector<int> heard;
    };
    OrvGameFolder folder;
    Listening game;
    game.Initialise(32, 32);
    OrvInputManager* input = game.GetInputManager();
    ASSERT_EQ(1u, input->GetListnerCount());
    EXPECT_EQ(input, static_cast<OrvInputListner&>(game).GetInputManager());
    OrvSDLKeyboard* keyboard = new OrvSDLKeyboard();
    input->AddDevice(keyboard);
    keyboard->Create();
    game.AddInputDevice(keyboard);

    SDL_Event key = {};
    key.type = SDL_KEYDOWN;
    key.key.state = SDL_PRESSED;
    key.key.keysym.sym = SDLK_ESCAPE;
    SDL_PushEvent(&key);
    game.Update(0.01f);
    EXPECT_EQ(std::vector<int>{INPUT_KEY_DOWN}, game.heard) << "captured at the start of the update";
    game.Term();
    EXPECT_EQ(nullptr, game.GetInputManager());
    EXPECT_EQ(nullptr, static_cast<OrvInputListner&>(game).GetInputManager());
}

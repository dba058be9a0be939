#ifndef ORV_APPLICATION_H
#define ORV_APPLICATION_H

#include <memory>
#include <string>
#include <vector>

#include "OrvInputListner.h"
#include "OrvTObjectArray.h"

class OrvAxisAlignedBox;
class OrvCamera;
class OrvColor;
class OrvCursor;
class OrvFileManager;
class OrvGameAsset;
class OrvGameAssetManager;
class OrvInputManager;
class OrvJoypad;
class OrvKeyboard;
class OrvMessageManager;
class OrvMaterialShelf;
class OrvMouse;
class OrvRenderWindow;
class OrvRenderer;
class OrvSessionDriver;
class OrvSoundManager;
class OrvSpriteManager;
class OrvTextureManager;
class OrvTimerManager;
class OrvVector3D;
class OrvWidget;

/// Root object of a game. A game derives from it, implements the four hooks,
/// builds one instance and calls Run(): the engine then owns the thread until
/// Exit() is called. The application owns every manager.
class OrvApplication : public OrvInputListner
{
public:
    OrvApplication();
    OrvApplication(const OrvApplication&) = delete;
    OrvApplication& operator=(const OrvApplication&) = delete;
    ~OrvApplication() override;

    /// The application of an engine object that knows its own (a manager, a
    /// renderer), or null when there is no object: the one way the engine's
    /// parts reach the application they belong to.
    template <class Owner>
    static OrvApplication* Of(const Owner* owner)
    {
        return owner != nullptr ? owner->GetApplication() : nullptr;
    }

    void ProcessInputEvent(const OrvInputEvent& event) override;

    /// The devices nearly every game wants, in one call from OnInitialise
    /// (before widgets, which listen to the first keyboard and mouse): the
    /// platform's keyboard, mouse and first joypad, added to the input
    /// manager in that order, created, and heard by this application. Each
    /// pointer given receives its device; the input manager owns them.
    void AddStandardDevices(OrvKeyboard** keyboard = nullptr, OrvMouse** mouse = nullptr,
                            OrvJoypad** joypad = nullptr);
    /// Ends the loop after the current turn.
    virtual void Exit();
    virtual bool GetIsLoading() const;
    virtual void SetPaused(bool paused);
    virtual void Initialise(unsigned int width, unsigned int height);
    virtual void Term();
    virtual void OnInitialise() = 0;
    virtual void OnTerminate() = 0;
    virtual void Update(float seconds);
    virtual void RenderWorld();
    virtual void RenderHUD();
    virtual void OnRenderWorld() = 0;
    virtual void OnRenderHUD() = 0;
    virtual void LoadMediaPaths();
    virtual void OnGainedMouseCoverage();
    virtual void OnLostMouseCoverage();
    virtual void OnGainedInputFocus();
    virtual void OnLostInputFocus();
    virtual void OnBecameActive();
    virtual void OnBecameInactive();

    /// Records this run into a session file (OrvSession): rand()'s seed, and
    /// every turn's frame time and input. ORV_RECORD=file does the same (ORV_SEED
    /// chooses the number rand() starts from). Set before Run().
    void SetRecordFile(const std::string& file) { m_recordFile = file; }
    /// Plays a recorded session instead of the live devices: rand() seeded as
    /// recorded, each turn with its recorded frame time and input, as fast as
    /// the machine draws, then Exit() after the last turn. ORV_REPLAY=file does
    /// the same. A bad file is refused with OrvFileException naming it and the turn.
    void SetReplayFile(const std::string& file) { m_replayFile = file; }
    /// During a replay, saves the frames of these turns (counted from 0) as
    /// FOLDER/turn-NNNNN.png. ORV_REPLAY_SHOTS=10,200 and ORV_SHOT_DIR=folder
    /// do the same.
    void SetReplayScreenshots(const std::vector<unsigned int>& turns, const std::string& folder);
    /// Plays the replayed session this many times in a row (0: until the game
    /// exits), for soak tests; rand() is seeded once, and the turns keep
    /// counting across passes. ORV_REPLAY_PASSES=n does the same. A session
    /// meant to be repeated ends in the state it began in.
    void SetReplayPasses(unsigned int passes) { m_replayPasses = passes; }
    /// The turn being run, counted from 0, while a session records or replays.
    unsigned int GetSessionTurn() const;

    /// Initialises, runs turns until Exit(), terminates. Exceptions pass through
    /// without Term(); the destructor still releases what remains.
    void Run();

    bool GetPaused() const { return m_paused; }
    void SetIsLoading(bool loading) { m_loading = loading; }
    void SetLoadingPercent(float percent) { m_loadingPercent = percent; }
    float GetLoadingPercent() const { return m_loadingPercent; }
    bool IsRunning() const { return m_running; }

    OrvGameAssetManager* GetGameAssetManager() const { return m_gameAssetManager.get(); }
    OrvRenderer* GetRenderer() const { return m_renderer.get(); }
    OrvCamera* GetWorldCamera() const { return m_worldCamera.get(); }
    OrvCamera* GetHUDCamera() const { return m_hudCamera.get(); }
    OrvMessageManager* GetMessageManager() const { return m_messageManager.get(); }
    OrvInputManager* GetInputManager() const { return m_inputManagerOwned.get(); }
    OrvSoundManager* GetSoundManager() const { return m_soundManager.get(); }
    OrvSpriteManager* GetSpriteManager() const { return m_spriteManager.get(); }
    /// The perspective tree's root and the head-up display's (pixels, origin
    /// at the viewport's centre while it is drawn).
    OrvGameAsset* GetWorldRoot() const { return m_worldRoot; }
    OrvGameAsset* GetHUDRoot() const { return m_hudRoot; }
    OrvGameAsset* GetDebugRoot() const { return m_debugRoot; }
    OrvAxisAlignedBox* GetScreenBox() const { return m_screenBox.get(); }
    OrvFileManager* GetFileManager() const { return m_fileManager.get(); }
    OrvTextureManager* GetTextureManager() const { return m_textureManager.get(); }
    OrvTimerManager* GetTimerManager() const { return m_timerManager.get(); }
    OrvMaterialShelf* GetMaterialShelf() const { return m_materialShelf.get(); }
    OrvRenderWindow* GetMainWindow() const { return m_window.get(); }

    /// Switches the window to or from full screen; the renderer is set up
    /// again, the effects declared anew and the textures reloaded, for the GL
    /// context was replaced. Nothing happens when the window is already so.
    void SetFullScreen(bool fullScreen);
    /// The window's own flag; false without a window.
    bool GetFullScreen() const;
    /// Waits until OpenGL has finished every command.
    void SyncWithGL();

    /// Whether the window opened by Initialise has depth and stencil buffers:
    /// on by default. A 2D game turns it off before Run() (or sets ORV_2D=1):
    /// a software rasteriser then fills much faster, and what is drawn later
    /// (the tree order) is on top.
    void SetDepthAndStencil(bool on) { m_depthAndStencil = on; }
    bool GetDepthAndStencil() const { return m_depthAndStencil; }

    /// The screen box is the part of the plane z = 0 that the world camera sees;
    /// false while the camera or the box is missing.
    bool UpdateScreenBox();
    /// The direct children of the world root that are on screen, in child order.
    OrvTObjectArray<OrvGameAsset*> GetOnScreenGameAssets() const;

    /// Debug markers live under their own root, drawn after the world tree.
    /// A debug sprite is a widget with a flat colour, its quad scaled by `size`
    /// (2 × size wide); throws OrvRendererException when the material shelf
    /// has no renderer. Deleting an asset that is not a debug child does nothing.
    OrvWidget* CreateDebugSprite(const OrvVector3D& position, const OrvColor& color, float size);
    void DeleteDebugGameAsset(OrvGameAsset* asset);
    void DeleteAllDebugGameAssets();
    void RenderDebugGameAssets(bool render);

    /// Cursors are updated after the game trees and drawn on top of the HUD;
    /// the list does not own them.
    void AddCursor(OrvCursor* cursor);
    OrvCursor* GetCursor(unsigned int index) const;
    unsigned int GetCursorCount() const;

private:
    void ReportFocusChanges();
    /// Makes the session recorder or player asked for, if any.
    void StartSession();
    OrvGameAsset* CreateRoot(const char* name);
    /// Destroys every game asset, the roots included.
    void DestroyGameAssets();
    /// The one way the engine is taken down, by Term and by the destructor:
    /// the game's assets first (they lean on every manager), then the
    /// managers in the reverse of their making. Term keeps the game asset
    /// manager and the material shelf (the shelf then knows no renderer);
    /// the destructor releases everything.
    void Release(bool keepAssetManagerAndShelf);

    /// Owned parts, declared in the order they are made, each after what it
    /// leans on: released in reverse, nothing outlives what it uses. The game
    /// asset manager comes last so that the assets go first.
    std::unique_ptr<OrvRenderWindow> m_window;
    std::unique_ptr<OrvFileManager> m_fileManager;
    std::unique_ptr<OrvSessionDriver> m_session;
    std::unique_ptr<OrvRenderer> m_renderer;
    std::unique_ptr<OrvCamera> m_worldCamera;
    std::unique_ptr<OrvCamera> m_hudCamera;
    std::unique_ptr<OrvTextureManager> m_textureManager;
    std::unique_ptr<OrvMaterialShelf> m_materialShelf;
    std::unique_ptr<OrvMessageManager> m_messageManager;
    /// The listener's own link (m_inputManager) points at it while the
    /// application is registered.
    std::unique_ptr<OrvInputManager> m_inputManagerOwned;
    std::unique_ptr<OrvSpriteManager> m_spriteManager;
    std::unique_ptr<OrvTimerManager> m_timerManager;
    std::unique_ptr<OrvSoundManager> m_soundManager;
    std::unique_ptr<OrvAxisAlignedBox> m_screenBox;
    std::unique_ptr<OrvGameAssetManager> m_gameAssetManager;

    OrvGameAsset* m_worldRoot;
    OrvGameAsset* m_hudRoot;
    OrvGameAsset* m_debugRoot;
    bool m_running;
    bool m_loading;
    float m_loadingPercent;
    OrvTObjectArray<OrvCursor*> m_cursors;
    bool m_paused;
    unsigned int m_previousAppState;
    unsigned int m_currentAppState;
    bool m_depthAndStencil;
    std::string m_recordFile;
    std::string m_replayFile;
    unsigned int m_replayPasses = 1;
    std::vector<unsigned int> m_shotTurns;
    std::string m_shotFolder;
};

#endif

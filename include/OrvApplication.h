#ifndef ORV_APPLICATION_H
#define ORV_APPLICATION_H

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
class OrvMessageManager;
class OrvMaterialShelf;
class OrvRenderWindow;
class OrvRenderer;
class OrvSoundManager;
class OrvSpriteManager;
class OrvTextureManager;
class OrvTimerManager;
class OrvVector3D;
class OrvWidget;

// Root object of a game. A game derives from it, implements the four hooks,
// builds one instance and calls Run(): the engine then owns the thread until
// Exit() is called. The application owns every manager.
class OrvApplication : public OrvInputListner
{
public:
    OrvApplication();
    OrvApplication(const OrvApplication&) = delete;
    OrvApplication& operator=(const OrvApplication&) = delete;
    ~OrvApplication() override;

    void ProcessInputEvent(const OrvInputEvent& event) override;
    // Ends the loop after the current turn.
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

    // Initialises, runs turns until Exit(), terminates. Exceptions pass through
    // without Term(); the destructor still releases what remains.
    void Run();

    bool GetPaused() const { return m_paused; }
    void SetIsLoading(bool loading) { m_loading = loading; }
    void SetLoadingPercent(float percent) { m_loadingPercent = percent; }
    float GetLoadingPercent() const { return m_loadingPercent; }
    bool IsRunning() const { return m_running; }

    OrvGameAssetManager* GetGameAssetManager() const { return m_gameAssetManager; }
    OrvRenderer* GetRenderer() const { return m_renderer; }
    OrvCamera* GetWorldCamera() const { return m_worldCamera; }
    OrvCamera* GetHUDCamera() const { return m_hudCamera; }
    OrvMessageManager* GetMessageManager() const { return m_messageManager; }
    OrvInputManager* GetInputManager() const { return m_inputManagerOwned; }
    OrvSoundManager* GetSoundManager() const { return m_soundManager; }
    OrvSpriteManager* GetSpriteManager() const { return m_spriteManager; }
    // The perspective tree's root and the head-up display's (pixels, origin
    // at the viewport's centre while it is drawn).
    OrvGameAsset* GetWorldRoot() const { return m_worldRoot; }
    OrvGameAsset* GetHUDRoot() const { return m_hudRoot; }
    OrvGameAsset* GetDebugRoot() const { return m_debugRoot; }
    OrvAxisAlignedBox* GetScreenBox() const { return m_screenBox; }
    OrvFileManager* GetFileManager() const { return m_fileManager; }
    OrvTextureManager* GetTextureManager() const { return m_textureManager; }
    OrvTimerManager* GetTimerManager() const { return m_timerManager; }
    OrvMaterialShelf* GetMaterialShelf() const { return m_materialShelf; }
    OrvRenderWindow* GetMainWindow() const { return m_window; }

    // Switches the window to or from full screen; the renderer is set up
    // again, the effects declared anew and the textures reloaded, for the GL
    // context was replaced. Nothing happens when the window is already so.
    void SetFullScreen(bool fullScreen);
    // The window's own flag; false without a window.
    bool GetFullScreen() const;
    // Waits until OpenGL has finished every command.
    void SyncWithGL();

    // Whether the window opened by Initialise has depth and stencil buffers:
    // on by default. A 2D game turns it off before Run() (or sets ORV_2D=1):
    // a software rasteriser then fills much faster, and what is drawn later
    // (the tree order) is on top.
    void SetDepthAndStencil(bool on) { m_depthAndStencil = on; }
    bool GetDepthAndStencil() const { return m_depthAndStencil; }

    // The screen box is the part of the plane z = 0 that the world camera sees;
    // false while the camera or the box is missing.
    bool UpdateScreenBox();
    // The direct children of the world root that are on screen, in child order.
    OrvTObjectArray<OrvGameAsset*> GetOnScreenGameAssets() const;

    // Debug markers live under their own root, drawn after the world tree.
    // A debug sprite is a widget with a flat colour, its quad scaled by `size`
    // (2 × size wide); throws OrvRendererException when the material shelf
    // has no renderer. Deleting an asset that is not a debug child does nothing.
    OrvWidget* CreateDebugSprite(const OrvVector3D& position, const OrvColor& color, float size);
    void DeleteDebugGameAsset(OrvGameAsset* asset);
    void DeleteAllDebugGameAssets();
    void RenderDebugGameAssets(bool render);

    // Cursors are updated after the game trees and drawn on top of the HUD;
    // the list does not own them.
    void AddCursor(OrvCursor* cursor);
    OrvCursor* GetCursor(unsigned int index) const;
    unsigned int GetCursorCount() const;

private:
    void ReportFocusChanges();
    OrvGameAsset* CreateRoot(const char* name);
    // Destroys every game asset, the roots included.
    void DestroyGameAssets();

    OrvGameAssetManager* m_gameAssetManager;
    OrvRenderer* m_renderer;
    OrvCamera* m_worldCamera;
    OrvCamera* m_hudCamera;
    OrvFileManager* m_fileManager;
    OrvTextureManager* m_textureManager;
    OrvSpriteManager* m_spriteManager;
    OrvTimerManager* m_timerManager;
    // The one the application owns; the listener's own link (m_inputManager)
    // points at it while the application is registered.
    OrvInputManager* m_inputManagerOwned;
    OrvMaterialShelf* m_materialShelf;
    OrvMessageManager* m_messageManager;
    OrvSoundManager* m_soundManager;
    OrvRenderWindow* m_window;
    OrvGameAsset* m_worldRoot;
    OrvGameAsset* m_hudRoot;
    OrvGameAsset* m_debugRoot;
    bool m_running;
    bool m_loading;
    float m_loadingPercent;
    OrvTObjectArray<OrvCursor*> m_cursors;
    OrvAxisAlignedBox* m_screenBox;
    bool m_paused;
    unsigned int m_previousAppState;
    unsigned int m_currentAppState;
    bool m_depthAndStencil;
};

#endif

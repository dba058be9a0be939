#ifndef ORV_APPLICATION_H
#define ORV_APPLICATION_H

#include "OrvInputListner.h"
#include "OrvTObjectArray.h"

class OrvCursor;
class OrvFileManager;
class OrvMaterialShelf;
class OrvRenderWindow;
class OrvRenderer;
class OrvTextureManager;
class OrvTimerManager;

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

    OrvRenderer* GetRenderer() const { return m_renderer; }
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

    // The screen box is the part of the plane z = 0 that the world camera sees;
    // false while the camera or the box is missing.
    bool UpdateScreenBox();

    // Cursors are updated after the game trees and drawn on top of the HUD;
    // the list does not own them.
    void AddCursor(OrvCursor* cursor);
    OrvCursor* GetCursor(unsigned int index) const;
    unsigned int GetCursorCount() const;

private:
    void ReportFocusChanges();

    OrvRenderer* m_renderer;
    OrvFileManager* m_fileManager;
    OrvTextureManager* m_textureManager;
    OrvTimerManager* m_timerManager;
    OrvMaterialShelf* m_materialShelf;
    OrvRenderWindow* m_window;
    bool m_running;
    bool m_loading;
    float m_loadingPercent;
    OrvTObjectArray<OrvCursor*> m_cursors;
    bool m_paused;
    unsigned int m_previousAppState;
    unsigned int m_currentAppState;
};

#endif

#ifndef ORV_APPLICATION_H
#define ORV_APPLICATION_H

#include "OrvInputListner.h"
#include "OrvTObjectArray.h"

class OrvCursor;
class OrvFileManager;
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

    OrvFileManager* GetFileManager() const { return m_fileManager; }
    OrvTimerManager* GetTimerManager() const { return m_timerManager; }

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

    OrvFileManager* m_fileManager;
    OrvTimerManager* m_timerManager;
    bool m_running;
    bool m_loading;
    float m_loadingPercent;
    OrvTObjectArray<OrvCursor*> m_cursors;
    bool m_paused;
    unsigned int m_previousAppState;
    unsigned int m_currentAppState;
};

#endif

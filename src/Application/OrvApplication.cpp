#include "OrvApplication.h"

#include <SDL.h>

#include "OrvFileManager.h"
#include "OrvTime.h"
#include "OrvTimerManager.h"
#include "OrvXMLElement.h"
#include "OrvXMLFile.h"

namespace
{
template <class T>
void DeleteAndNull(T*& object)
{
    delete object;
    object = nullptr;
}
}

OrvApplication::OrvApplication()
    : m_fileManager(nullptr),
      m_timerManager(nullptr),
      m_running(false),
      m_loading(false),
      m_loadingPercent(0.0f),
      m_paused(false),
      m_previousAppState(0),
      m_currentAppState(0)
{
}

OrvApplication::~OrvApplication()
{
    // Order of release: screen box, sound, timers, sprites, input, messages,
    // material shelf, textures, HUD camera, world camera, the roots through the
    // game asset manager, the manager itself, renderer, files, window.
    DeleteAndNull(m_timerManager);
    DeleteAndNull(m_fileManager);
    m_cursors.RemoveAll();
}

void OrvApplication::ProcessInputEvent(const OrvInputEvent&) {}

void OrvApplication::Exit()
{
    m_running = false;
}

bool OrvApplication::GetIsLoading() const
{
    return m_loading;
}

void OrvApplication::SetPaused(bool paused)
{
    m_paused = paused;
}

void OrvApplication::Run()
{
    Initialise(0xFFFFFFFFu, 0xFFFFFFFFu);
    OrvTime last;
    last.SetAsTimeFromProgramStart();
    const OrvTime minimumSpan;
    OrvTime now;
    while (m_running)
    {
        now.SetAsTimeFromProgramStart();
        const OrvTime span = now - last;
        // No frame cap and no sleep: a turn runs as soon as the clock advances.
        if (!(span > minimumSpan))
            continue;
        Update(span.Get());
        // Renderer PreRender.
        RenderWorld();
        RenderHUD();
        // Window SwapBuffers, renderer PostRender, sound manager Update.
        last = now;
        // Game asset manager CleanUp, texture manager CleanUp.
    }
    Term();
}

void OrvApplication::Initialise(unsigned int /*width*/, unsigned int /*height*/)
{
    // Window (full screen).
    m_fileManager = new OrvFileManager();
    LoadMediaPaths();
    // Then: renderer Setup, game asset manager, the three roots, the two cameras,
    // texture manager, material shelf, message manager, input manager with this
    // application as first listener, sprite manager, then:
    m_timerManager = new OrvTimerManager();
    // Sound manager.
    OnInitialise();
    // Screen box, then UpdateScreenBox().
    m_running = true;
    m_paused = false;
}

void OrvApplication::Term()
{
    m_cursors.RemoveAll();
    // Screen box.
    OnTerminate();
    // Sound manager.
    DeleteAndNull(m_timerManager);
    // Sprite manager, input manager, message manager, texture manager, HUD
    // camera, world camera, the three roots, renderer.
    if (m_fileManager != nullptr)
    {
        m_fileManager->DeleteAllFiles();
        DeleteAndNull(m_fileManager);
    }
    // Window.
}

void OrvApplication::Update(float seconds)
{
    ReportFocusChanges();
    // Input capture.
    if (m_timerManager != nullptr)
        m_timerManager->Update(seconds);
    // World tree unless paused, HUD tree, cursors, messages.
}

void OrvApplication::RenderWorld()
{
    // Deferred deletions, world camera perspective.
    OnRenderWorld();
    // World tree, debug tree, model stack back to identity.
}

void OrvApplication::RenderHUD()
{
    // Deferred deletions, HUD camera orthographic, HUD root at the viewport centre.
    OnRenderHUD();
    // HUD tree, cursors on top, model stack back to identity.
}

void OrvApplication::LoadMediaPaths()
{
    // Every child of the root gives one media path, in document order; the
    // names of the elements are not examined.
    OrvXMLFile* paths = m_fileManager->GetOrLoad<OrvXMLFile>("MediaPaths.xml");
    const OrvXMLElement* root = paths != nullptr ? paths->GetXMLRoot() : nullptr;
    if (root == nullptr)
        return;
    for (unsigned int i = 0; i < root->GetChildCount(); ++i)
        m_fileManager->AddMediaPath(root->GetChild(i)->GetContent());
}

void OrvApplication::ReportFocusChanges()
{
    m_currentAppState = SDL_GetAppState() & 0xFFu;
    if (m_currentAppState == m_previousAppState)
        return;
    // Every pair is reported on any change, also for bits that did not change.
    if (m_currentAppState & SDL_APPMOUSEFOCUS)
        OnGainedMouseCoverage();
    else
        OnLostMouseCoverage();
    if (m_currentAppState & SDL_APPINPUTFOCUS)
        OnGainedInputFocus();
    else
        OnLostInputFocus();
    if (m_currentAppState & SDL_APPACTIVE)
        OnBecameActive();
    else
        OnBecameInactive();
    m_previousAppState = m_currentAppState;
}

void OrvApplication::OnGainedMouseCoverage() {}

void OrvApplication::OnLostMouseCoverage() {}

void OrvApplication::OnGainedInputFocus()
{
    SDL_ShowCursor(0);
}

void OrvApplication::OnLostInputFocus()
{
    SDL_ShowCursor(1);
}

void OrvApplication::OnBecameActive() {}

void OrvApplication::OnBecameInactive() {}

bool OrvApplication::UpdateScreenBox()
{
    // Needs the world camera and the screen box.
    return false;
}

void OrvApplication::AddCursor(OrvCursor* cursor)
{
    m_cursors.Add(cursor);
}

OrvCursor* OrvApplication::GetCursor(unsigned int index) const
{
    return m_cursors[index];
}

unsigned int OrvApplication::GetCursorCount() const
{
    return m_cursors.GetCount();
}

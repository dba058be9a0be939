#include "OrvApplication.h"

#include <GL/gl.h>
#include <SDL.h>

#include "OrvEffectManager.h"
#include "OrvFileManager.h"
#include "OrvMaterialShelf.h"
#include "OrvOpenGLRenderer.h"
#include "OrvSDLRenderWindow.h"
#include "OrvTextureManager.h"
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
    : m_renderer(nullptr),
      m_fileManager(nullptr),
      m_textureManager(nullptr),
      m_timerManager(nullptr),
      m_materialShelf(nullptr),
      m_window(nullptr),
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
    DeleteAndNull(m_materialShelf);
    DeleteAndNull(m_textureManager);
    DeleteAndNull(m_renderer);
    DeleteAndNull(m_fileManager);
    DeleteAndNull(m_window);
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
        m_renderer->PreRender();
        RenderWorld();
        RenderHUD();
        m_window->SwapBuffers();
        m_renderer->PostRender();
        // Sound manager Update.
        last = now;
        // Game asset manager CleanUp.
        m_textureManager->CleanUp();
    }
    Term();
}

void OrvApplication::Initialise(unsigned int width, unsigned int height)
{
    m_window = new OrvSDLRenderWindow();
    m_window->Create("The Tarnwick", width, height, true);
    m_fileManager = new OrvFileManager();
    LoadMediaPaths();
    m_renderer = new OrvOpenGLRenderer(this);
    // The window knows the size it really took (the desktop's for 0xFFFFFFFF).
    m_renderer->Setup(0, 0, m_window->GetWidth(), m_window->GetHeight());
    // Game asset manager, the three roots, the two cameras.
    m_textureManager = new OrvTextureManager(m_renderer);
    m_materialShelf = new OrvMaterialShelf();
    m_materialShelf->Init(m_renderer);
    // Message manager, input manager with this application as first listener,
    // sprite manager.
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
    // Sprite manager, input manager, message manager.
    if (m_textureManager != nullptr)
    {
        m_textureManager->CleanUp();
        DeleteAndNull(m_textureManager);
    }
    // HUD camera, world camera, the three roots.
    DeleteAndNull(m_renderer);
    if (m_fileManager != nullptr)
    {
        m_fileManager->DeleteAllFiles();
        DeleteAndNull(m_fileManager);
    }
    DeleteAndNull(m_window);
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
    // World tree, debug tree.
    if (m_renderer != nullptr)
        m_renderer->LoadIdentityMatrix(TRANS_MATRIX_MODEL);
}

void OrvApplication::RenderHUD()
{
    // Deferred deletions, HUD camera orthographic, HUD root at the viewport centre.
    OnRenderHUD();
    // HUD tree, cursors on top.
    if (m_renderer != nullptr)
        m_renderer->LoadIdentityMatrix(TRANS_MATRIX_MODEL);
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

void OrvApplication::SetFullScreen(bool fullScreen)
{
    if (m_window == nullptr || m_window->GetFullScreen() == fullScreen)
        return;
    m_window->ToggleFullScreen();
    if (m_renderer != nullptr)
    {
        m_renderer->Setup(m_renderer->GetViewportOriginX(), m_renderer->GetViewportOriginY(),
                          m_renderer->GetViewportWidth(), m_renderer->GetViewportHeight());
        if (m_renderer->GetEffectManager() != nullptr)
            m_renderer->GetEffectManager()->RedeclareEffects();
    }
    if (m_textureManager != nullptr)
        m_textureManager->ReloadTextures();
}

bool OrvApplication::GetFullScreen() const
{
    return m_window != nullptr && m_window->GetFullScreen();
}

void OrvApplication::SyncWithGL()
{
    glFinish();
}

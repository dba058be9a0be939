#include "OrvApplication.h"

#include <GL/gl.h>
#include <SDL.h>

#include <cmath>

#include "OrvAxisAlignedBox.h"
#include "OrvCamera.h"
#include "OrvColor.h"
#include "OrvColorMaterial.h"
#include "OrvCursor.h"
#include "OrvEffectManager.h"
#include "OrvFileManager.h"
#include "OrvGameAsset.h"
#include "OrvGameAssetDesc.h"
#include "OrvGameAssetManager.h"
#include "OrvInputManager.h"
#include "OrvMaterialShelf.h"
#include "OrvMessageManager.h"
#include "OrvOpenGLRenderer.h"
#include "OrvSDLRenderWindow.h"
#include "OrvSoundManager.h"
#include "OrvSpriteManager.h"
#include "OrvTextureManager.h"
#include "OrvTime.h"
#include "OrvTimerManager.h"
#include "OrvWidget.h"
#include "OrvWidgetDesc.h"
#include "OrvXMLElement.h"
#include "OrvXMLFile.h"

namespace
{
// The world and HUD cameras start here.
const OrvVector3D kCameraPosition(0.0f, 0.0f, 870.0f);

// The renderer batches for the length of one render pass, and is left as it
// was found (and flushed) when the pass ends, also by an exception.
class BatchingPass
{
public:
    explicit BatchingPass(OrvRenderer* renderer)
        : m_renderer(renderer), m_was(renderer != nullptr && renderer->GetBatching())
    {
        if (m_renderer != nullptr)
            m_renderer->SetBatching(true);
    }
    ~BatchingPass()
    {
        if (m_renderer != nullptr)
            m_renderer->SetBatching(m_was);
    }
    BatchingPass(const BatchingPass&) = delete;
    BatchingPass& operator=(const BatchingPass&) = delete;

    // Draws what was collected: a game's hook, or the next part of the
    // frame, sees everything drawn before it.
    void Flush()
    {
        if (m_renderer != nullptr)
            m_renderer->Flush();
    }

private:
    OrvRenderer* m_renderer;
    bool m_was;
};
}  // namespace

OrvApplication::OrvApplication()
    : m_worldRoot(nullptr),
      m_hudRoot(nullptr),
      m_debugRoot(nullptr),
      m_running(false),
      m_loading(false),
      m_loadingPercent(0.0f),
      m_paused(false),
      m_previousAppState(0),
      m_currentAppState(0),
      m_depthAndStencil(true)
{
}

OrvApplication::~OrvApplication()
{
    Release(false);
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
        m_soundManager->Update();
        last = now;
        m_gameAssetManager->CleanUp();
        m_textureManager->CleanUp();
    }
    Term();
}

void OrvApplication::Initialise(unsigned int width, unsigned int height)
{
    if (m_window != nullptr)
        ORV_THROW(OrvException, "You tried to initialise an application that is already running",
                  "src/Application/OrvApplication");
    OrvSDLRenderWindow* window = new OrvSDLRenderWindow();
    m_window.reset(window);
    window->SetDepthAndStencil(m_depthAndStencil);
    m_window->Create("The Tarnwick", width, height, true);
    m_fileManager.reset(new OrvFileManager());
    LoadMediaPaths();
    m_renderer.reset(new OrvOpenGLRenderer(this));
    // The window knows the size it really took (the desktop's for 0xFFFFFFFF).
    m_renderer->Setup(0, 0, m_window->GetWidth(), m_window->GetHeight());
    // A second Run starts from fresh ones (the last Term kept them).
    m_gameAssetManager.reset(new OrvGameAssetManager(this));
    m_worldRoot = CreateRoot("PerspectiveRoot");
    m_hudRoot = CreateRoot("OrthographicRoot");
    m_debugRoot = CreateRoot("DebugGameAssetRoot");
    m_worldCamera.reset(new OrvCamera(this, kCameraPosition));
    m_hudCamera.reset(new OrvCamera(this, kCameraPosition));
    m_textureManager.reset(new OrvTextureManager(m_renderer.get()));
    m_materialShelf.reset(new OrvMaterialShelf());
    m_materialShelf->Init(m_renderer.get());
    m_messageManager.reset(new OrvMessageManager());
    m_inputManagerOwned.reset(new OrvInputManager());
    m_inputManagerOwned->AddListner(this);
    m_spriteManager.reset(new OrvSpriteManager(this));
    m_timerManager.reset(new OrvTimerManager());
    m_soundManager.reset(new OrvSoundManager(this));
    OnInitialise();
    m_screenBox.reset(new OrvAxisAlignedBox(m_renderer.get()));
    UpdateScreenBox();
    m_running = true;
    m_paused = false;
}

void OrvApplication::Term()
{
    m_cursors.RemoveAll();
    m_screenBox.reset();
    OnTerminate();
    Release(true);
}

void OrvApplication::Release(bool keepAssetManagerAndShelf)
{
    DestroyGameAssets();
    if (!keepAssetManagerAndShelf)
        m_gameAssetManager.reset();
    m_screenBox.reset();
    m_soundManager.reset();
    m_timerManager.reset();
    if (m_spriteManager != nullptr)
        m_spriteManager->CleanUp();
    m_spriteManager.reset();
    if (m_inputManagerOwned != nullptr)
    {
        m_inputManagerOwned->RemoveListner(this);
        m_inputManagerOwned->RemoveAllDevices();
    }
    m_inputManagerOwned.reset();
    m_inputManager = nullptr;
    if (m_messageManager != nullptr)
        m_messageManager->DeleteAllMessages();
    m_messageManager.reset();
    if (keepAssetManagerAndShelf)
    {
        // The shelf outlives the renderer it made materials for.
        if (m_materialShelf != nullptr)
            m_materialShelf->Init(nullptr);
    }
    else
        m_materialShelf.reset();
    if (m_textureManager != nullptr)
        m_textureManager->CleanUp();
    m_textureManager.reset();
    m_hudCamera.reset();
    m_worldCamera.reset();
    m_renderer.reset();
    if (m_fileManager != nullptr)
        m_fileManager->DeleteAllFiles();
    m_fileManager.reset();
    m_window.reset();
}

OrvGameAsset* OrvApplication::CreateRoot(const char* name)
{
    OrvGameAssetDesc desc;
    desc.name = name;
    return m_gameAssetManager->CreateGameAsset<OrvGameAsset, OrvGameAssetDesc>(&desc);
}

void OrvApplication::DestroyGameAssets()
{
    // Every asset goes while the managers it may lean on (sprites, textures,
    // input, messages, the material shelf) still exist.
    if (m_gameAssetManager != nullptr)
        m_gameAssetManager->DeleteGameAssets();
    m_worldRoot = nullptr;
    m_hudRoot = nullptr;
    m_debugRoot = nullptr;
}

void OrvApplication::Update(float seconds)
{
    ReportFocusChanges();
    if (m_inputManagerOwned != nullptr)
        m_inputManagerOwned->Capture();
    if (m_timerManager != nullptr)
        m_timerManager->Update(seconds);
    if (!m_paused && m_worldRoot != nullptr)
        m_worldRoot->Update(seconds);
    if (m_hudRoot != nullptr)
        m_hudRoot->Update(seconds);
    for (unsigned int i = 0; i < m_cursors.GetCount(); ++i)
        m_cursors[i]->Update(seconds);
    if (m_messageManager != nullptr)
        m_messageManager->Update(seconds);
}

void OrvApplication::RenderWorld()
{
    if (m_gameAssetManager != nullptr)
        m_gameAssetManager->MonitorCleanUp();
    if (m_worldCamera != nullptr)
        m_worldCamera->ActivatePerspective();
    BatchingPass pass(m_renderer.get());
    OnRenderWorld();
    pass.Flush();
    if (m_worldRoot != nullptr)
        m_worldRoot->Render();
    pass.Flush();
    if (m_debugRoot != nullptr)
        m_debugRoot->Render();
    pass.Flush();
    if (m_renderer != nullptr)
        m_renderer->LoadIdentityMatrix(TRANS_MATRIX_MODEL);
}

void OrvApplication::RenderHUD()
{
    if (m_gameAssetManager != nullptr)
        m_gameAssetManager->MonitorCleanUp();
    if (m_hudCamera != nullptr)
        m_hudCamera->ActivateOthographic();
    if (m_hudRoot != nullptr && m_renderer != nullptr)
        m_hudRoot->SetPosition(OrvVector3D(static_cast<float>(m_renderer->GetViewportWidth()) * 0.5f,
                                           static_cast<float>(m_renderer->GetViewportHeight()) * 0.5f, 0.0f));
    BatchingPass pass(m_renderer.get());
    OnRenderHUD();
    pass.Flush();
    if (m_hudRoot != nullptr)
        m_hudRoot->Render();
    pass.Flush();
    // Cursors on top.
    for (unsigned int i = 0; i < m_cursors.GetCount(); ++i)
        m_cursors[i]->Render();
    pass.Flush();
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
    if (m_worldCamera == nullptr || m_screenBox == nullptr)
        return false;
    const float z = m_worldCamera->GetPosition().Z;
    const float t = std::tan(m_worldCamera->GetFOVY());
    const float hx = t * z * 0.5f;
    const float hy = (t * z / m_worldCamera->GetAspectRatio()) * 0.5f;
    m_screenBox->SetExtents(OrvVector3D(-hx, -hy, 0.0f), OrvVector3D(hx, hy, 0.0f));
    return true;
}

OrvTObjectArray<OrvGameAsset*> OrvApplication::GetOnScreenGameAssets() const
{
    OrvTObjectArray<OrvGameAsset*> onScreen;
    if (m_worldRoot == nullptr)
        return onScreen;
    for (OrvGameAsset* child : m_worldRoot->GetChildren())
        if (child->IsOnScreen())
            onScreen.Add(child);
    return onScreen;
}

OrvWidget* OrvApplication::CreateDebugSprite(const OrvVector3D& position, const OrvColor& color, float size)
{
    if (m_gameAssetManager == nullptr || m_debugRoot == nullptr)
        return nullptr;
    OrvWidgetDesc desc;
    desc.position = position;
    desc.scale.Set(size, size, size);
    OrvWidget* sprite = m_gameAssetManager->CreateGameAsset<OrvWidget, OrvWidgetDesc>(&desc);
    try
    {
        sprite->UseColorMaterial(color);
    }
    catch (...)
    {
        m_gameAssetManager->DeleteGameAsset(sprite);
        throw;
    }
    m_debugRoot->AddChild(sprite);
    return sprite;
}

void OrvApplication::DeleteDebugGameAsset(OrvGameAsset* asset)
{
    if (m_debugRoot == nullptr || asset == nullptr || !m_debugRoot->GetChildren().Contains(asset))
        return;
    m_debugRoot->RemoveChild(asset);
    m_gameAssetManager->DeleteGameAsset(asset);
}

void OrvApplication::DeleteAllDebugGameAssets()
{
    if (m_debugRoot == nullptr)
        return;
    for (OrvGameAsset* child : m_debugRoot->GetChildren())
        m_gameAssetManager->DeleteGameAsset(child);
    m_debugRoot->GetChildren().RemoveAll();
}

void OrvApplication::RenderDebugGameAssets(bool render)
{
    if (m_debugRoot != nullptr)
        m_debugRoot->SetRender(render, true);
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
    if (m_renderer != nullptr)
        m_renderer->Flush();
    glFinish();
}

#include "OrvApplication.h"

// How an application is put together and taken apart: the managers it owns,
// made in Initialise in the order they depend on each other and released in
// the reverse order by one path (Term and the destructor). The turn itself is
// in OrvApplicationLoop.cpp, focus reports in OrvApplicationFocus.cpp, debug
// markers and cursors in OrvApplicationDebug.cpp.

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
#include "OrvSessionDriver.h"
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
    // A replay draws at the size it was recorded at, in a window, whatever
    // the desktop's size: the recorded pointer lands where it did.
    StartSession();
    unsigned int replayWidth = 0, replayHeight = 0;
    if (m_session != nullptr && m_session->ReplayWindow(replayWidth, replayHeight))
    {
        if (m_window->GetFullScreen())
            m_window->ToggleFullScreen();
        if (m_window->GetWidth() != replayWidth || m_window->GetHeight() != replayHeight)
            m_window->SetWindowSize(replayWidth, replayHeight);
    }
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
    if (m_session != nullptr)
        m_session->DevicesReady(m_inputManagerOwned.get(), m_renderer->GetViewportWidth(),
                                m_renderer->GetViewportHeight());
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
    m_session.reset();
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
        m_renderer->Finish();
}

#include "OrvApplication.h"

// The engine's turn: Run drives Update, the world and HUD passes, the swap,
// the sound update and the clean-ups until Exit; a game that owns its loop
// calls the same pieces.

#include <cmath>

#include "OrvAxisAlignedBox.h"
#include "OrvCamera.h"
#include "OrvCursor.h"
#include "OrvGameAsset.h"
#include "OrvGameAssetManager.h"
#include "OrvInputManager.h"
#include "OrvMessageManager.h"
#include "OrvRenderWindow.h"
#include "OrvRenderer.h"
#include "OrvSessionDriver.h"
#include "OrvSoundManager.h"
#include "OrvTextureManager.h"
#include "OrvTime.h"
#include "OrvTimerManager.h"

namespace
{
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
        // A replayed turn runs with its recorded frame time, the game's
        // Update included.
        Update(m_session != nullptr ? m_session->NextTurnSeconds(span.Get()) : span.Get());
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

void OrvApplication::Update(float seconds)
{
    // A replayed turn runs with its recorded frame time.
    if (m_session != nullptr)
        seconds = m_session->BeginTurn(seconds);
    ReportFocusChanges();
    if (m_inputManagerOwned != nullptr)
        m_inputManagerOwned->Capture();
    if (m_session != nullptr)
        m_session->InputTaken();
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
    if (m_session != nullptr && m_renderer != nullptr)
    {
        m_session->FrameDrawn(m_renderer->GetViewportWidth(), m_renderer->GetViewportHeight());
        if (m_session->Ended())
            Exit();
    }
    if (m_renderer != nullptr)
        m_renderer->LoadIdentityMatrix(TRANS_MATRIX_MODEL);
}

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

#include "OrvWidget.h"

#include "OrvApplication.h"
#include "OrvAxisAlignedBox.h"
#include "OrvColor.h"
#include "OrvColorMaterial.h"
#include "OrvCursor.h"
#include "OrvGameAssetManager.h"
#include "OrvInputEvent.h"
#include "OrvInputManager.h"
#include "OrvMaterialShelf.h"
#include "OrvMouse.h"
#include "OrvSpriteAnimationMesh.h"
#include "OrvSpriteAnimationPlayer.h"
#include "OrvSpriteManager.h"
#include "OrvVector2D.h"
#include "OrvVertex.h"
#include "OrvWidgetDesc.h"

OrvWidgetDesc::OrvWidgetDesc() : OrvMovingGameAssetDesc(), listenToCursors(true), autoSize(true) {}

OrvWidget::OrvWidget()
    : OrvMovingGameAsset(), OrvInputListner(), m_enterCallback(nullptr), m_enterData(nullptr),
      m_exitCallback(nullptr), m_exitData(nullptr), m_pressedAndReleasedCallback(nullptr),
      m_pressedAndReleasedData(nullptr), m_player(nullptr), m_listenToCursors(true), m_autoSize(true)
{
}

OrvWidget::~OrvWidget()
{
    delete m_player;
    ReleaseMaterial();
}

OrvApplication* OrvWidget::GetApplication() const
{
    return OrvApplication::Of(m_manager);
}

void OrvWidget::Create(OrvWidgetDesc* desc)
{
    OrvMovingGameAsset::Create(desc);
    ReleaseMaterial();
    delete m_mesh;
    m_mesh = new OrvSpriteAnimationMesh(GetRenderer());
    // The box follows the asset from now on.
    RefreshPosition(true);
    delete m_player;
    m_player = new OrvSpriteAnimationPlayer();
    m_listenToCursors = desc->listenToCursors;
    m_autoSize = desc->autoSize;
    if (!m_listenToCursors)
        return;
    AddInputDevice(FindFirstDevice([](const OrvInputDevice* d) { return dynamic_cast<const OrvMouse*>(d) != nullptr; }));
    // A mouse was found: there is an input manager.
    GetApplication()->GetInputManager()->AddListner(this);
}

OrvInputDevice* OrvWidget::FindFirstDevice(bool (*isKind)(const OrvInputDevice*)) const
{
    OrvApplication* application = GetApplication();
    OrvInputManager* input = application != nullptr ? application->GetInputManager() : nullptr;
    for (unsigned int i = 0; input != nullptr && i < input->GetDeviceCount(); ++i)
        if (isKind(input->GetDevice(i)))
            return input->GetDevice(i);
    return nullptr;
}

void OrvWidget::Update(float seconds)
{
    OrvMovingGameAsset::Update(seconds);
    // Without an animation (labels, buttons, menus) the quad keeps its size.
    if (m_player == nullptr || m_player->GetSpriteAnimation() == nullptr)
        return;
    m_player->AddTime(seconds);
    if (auto* quad = dynamic_cast<OrvSpriteAnimationMesh*>(m_mesh))
        quad->SetSpriteAnimationFrame(m_player->GetCurrentFrame(), m_player->GetMirrorX(), m_player->GetMirrorY());
}

void OrvWidget::SetEnabled(bool enabled, bool recursive)
{
    OrvMovingGameAsset::SetEnabled(enabled, recursive);
    m_overCursors.RemoveAll();
    m_pressedCursors.RemoveAll();
}

void OrvWidget::ProcessInputEvent(const OrvInputEvent& event)
{
    if (!m_enabled || !m_listenToCursors)
        return;
    switch (event.GetType())
    {
    case INPUT_MOUSE_MOVED: MouseMoved(); break;
    case INPUT_MOUSE_BUTTON_DOWN: MouseButtonDown(); break;
    case INPUT_MOUSE_BUTTON_UP: MouseButtonUp(); break;
    default: break;
    }
}

// The notifications may change the lists (a callback that disables the
// widget empties them): every step reads them again.
void OrvWidget::MouseMoved()
{
    OrvApplication* application = GetApplication();
    if (application == nullptr)
        return;
    for (unsigned int i = 0; i < application->GetCursorCount(); ++i)
    {
        OrvCursor* cursor = application->GetCursor(i);
        if (static_cast<OrvWidget*>(cursor) == this)
            continue;
        const bool over = cursor->IsOver(this);
        const bool known = m_overCursors.Contains(cursor);
        if (!over && known)
        {
            CursorExit(cursor);
            Forget(m_overCursors, cursor);
            Forget(m_pressedCursors, cursor);
        }
        else if (over && !known)
        {
            CursorEntered(cursor);
            m_overCursors.Add(cursor);
        }
    }
}

void OrvWidget::MouseButtonDown()
{
    for (unsigned int i = 0; i < m_overCursors.GetCount(); ++i)
    {
        OrvCursor* cursor = m_overCursors[i];
        CursorPressed(cursor);
        m_pressedCursors.Add(cursor);
    }
}

void OrvWidget::MouseButtonUp()
{
    for (unsigned int i = 0; i < m_overCursors.GetCount(); ++i)
    {
        OrvCursor* cursor = m_overCursors[i];
        CursorReleased(cursor);
        if (!m_pressedCursors.Contains(cursor))
            continue;
        CursorPressedAndReleased(cursor);
        Forget(m_pressedCursors, cursor);
    }
}

void OrvWidget::Forget(OrvTObjectArray<OrvCursor*>& cursors, OrvCursor* cursor)
{
    const int index = cursors.Find(cursor);
    if (index >= 0)
        cursors.RemoveIndex(static_cast<unsigned int>(index));
}

void OrvWidget::CursorEntered(OrvCursor* cursor)
{
    if (m_enterCallback != nullptr)
        m_enterCallback(this, cursor, m_enterData);
}

void OrvWidget::CursorExit(OrvCursor* cursor)
{
    if (m_exitCallback != nullptr)
        m_exitCallback(this, cursor, m_exitData);
}

void OrvWidget::CursorPressed(OrvCursor*) {}

void OrvWidget::CursorReleased(OrvCursor*) {}

void OrvWidget::CursorPressedAndReleased(OrvCursor* cursor)
{
    if (m_pressedAndReleasedCallback != nullptr)
        m_pressedAndReleasedCallback(this, cursor, m_pressedAndReleasedData);
}

void OrvWidget::SetEnterCallback(Callback callback, void* userData)
{
    m_enterCallback = callback;
    m_enterData = userData;
}

void OrvWidget::SetExitCallback(Callback callback, void* userData)
{
    m_exitCallback = callback;
    m_exitData = userData;
}

void OrvWidget::SetPressedAndReleasedCallback(Callback callback, void* userData)
{
    m_pressedAndReleasedCallback = callback;
    m_pressedAndReleasedData = userData;
}

void OrvWidget::SetQuadX(float half)
{
    for (unsigned int i = 0; m_mesh != nullptr && i < 4 && i < m_mesh->GetVertexCount(); ++i)
    {
        OrvVertex* vertex = m_mesh->GetVertex(i);
        vertex->SetPosition(OrvVector3D(i < 2 ? -half : half, vertex->GetPosition().Y, 0.0f));
    }
}

void OrvWidget::SetQuadY(float half)
{
    for (unsigned int i = 0; m_mesh != nullptr && i < 4 && i < m_mesh->GetVertexCount(); ++i)
    {
        OrvVertex* vertex = m_mesh->GetVertex(i);
        vertex->SetPosition(OrvVector3D(vertex->GetPosition().X, i == 0 || i == 3 ? -half : half, 0.0f));
    }
}

void OrvWidget::SetWidth(float width)
{
    m_autoSize = false;
    SetQuadX(width * 0.5f);
    if (m_mesh != nullptr)
        m_mesh->BuildBoundingVolumes();
}

void OrvWidget::SetHeight(float height)
{
    m_autoSize = false;
    SetQuadY(height * 0.5f);
    if (m_mesh != nullptr)
        m_mesh->BuildBoundingVolumes();
}

void OrvWidget::SetDimension(const OrvVector2D& dimension)
{
    m_autoSize = false;
    SetQuadX(dimension.X * 0.5f);
    SetQuadY(dimension.Y * 0.5f);
    if (m_mesh != nullptr)
        m_mesh->BuildBoundingVolumes();
}

float OrvWidget::GetWidth() const
{
    if (m_mesh == nullptr)
        return 0.0f;
    const OrvAxisAlignedBox* box = m_mesh->GetBoundingBox();
    return box->GetWorldMaximum().X - box->GetWorldMinimum().X;
}

float OrvWidget::GetHeight() const
{
    if (m_mesh == nullptr)
        return 0.0f;
    const OrvAxisAlignedBox* box = m_mesh->GetBoundingBox();
    return box->GetWorldMaximum().Y - box->GetWorldMinimum().Y;
}

void OrvWidget::SetQuad(float left, float bottom, float right, float top)
{
    if (m_mesh == nullptr)
        return;
    // Four corners are kept and moved; any other count is made anew.
    if (m_mesh->GetVertexCount() != 4)
    {
        m_mesh->ClearVertices();
        for (int i = 0; i < 4; ++i)
            m_mesh->AddVertex(new OrvVertex());
    }
    const float corners[4][2] = {{left, bottom}, {left, top}, {right, top}, {right, bottom}};
    for (unsigned int i = 0; i < 4; ++i)
    {
        OrvVertex* vertex = m_mesh->GetVertex(i);
        vertex->SetPosition(OrvVector3D(corners[i][0], corners[i][1], 0.0f));
        vertex->SetUV(OrvVector2D(0.0f, 0.0f));
        vertex->SetNormal(OrvVector3D(0.0f, 1.0f, 0.0f));
    }
    m_mesh->BuildBoundingVolumes();
}

void OrvWidget::PlaySpriteAnimation(const OrvUnicode& name, bool mirrorX, bool mirrorY)
{
    OrvApplication* application = GetApplication();
    if (application == nullptr || application->GetSpriteManager() == nullptr || m_player == nullptr)
        return;
    m_player->SetSpriteAnimation(application->GetSpriteManager()->ImportSpriteAnimation(name), mirrorX, mirrorY);
    m_player->SetNextSpriteAnimation(nullptr, false, false);
    m_player->SetIsPlaying(true);
}

void OrvWidget::PlaySpriteAnimation(const OrvUnicode& name, bool mirrorX, bool mirrorY, const OrvUnicode& nextName,
                                    bool nextMirrorX, bool nextMirrorY)
{
    PlaySpriteAnimation(name, mirrorX, mirrorY);
    OrvApplication* application = GetApplication();
    if (application == nullptr || application->GetSpriteManager() == nullptr || m_player == nullptr)
        return;
    m_player->SetNextSpriteAnimation(application->GetSpriteManager()->ImportSpriteAnimation(nextName), nextMirrorX,
                                     nextMirrorY);
}

void OrvWidget::PlaySpriteAnimation(const OrvUnicode& name, const OrvUnicode& nextName, bool nextMirrorX,
                                    bool nextMirrorY)
{
    PlaySpriteAnimation(name, false, false, nextName, nextMirrorX, nextMirrorY);
}

OrvColorMaterial* OrvWidget::UseColorMaterial(const OrvColor& color)
{
    OrvApplication* application = GetApplication();
    OrvMaterialShelf* shelf = application != nullptr ? application->GetMaterialShelf() : nullptr;
    if (shelf == nullptr)
        ORV_THROW(OrvRendererException, OrvMaterialShelf::kNoRendererMessage, "include/OrvMaterialShelf");
    if (m_mesh == nullptr)
        return nullptr;
    OrvColorMaterial* material = shelf->CreateMaterial<OrvColorMaterial>();
    material->SetColor(color);
    ReleaseMaterial();
    m_mesh->SetMaterial(material);
    return material;
}

OrvColorMaterial* OrvWidget::GetColorMaterial() const
{
    return m_mesh != nullptr ? dynamic_cast<OrvColorMaterial*>(m_mesh->GetMaterial()) : nullptr;
}

void OrvWidget::ReleaseMaterial()
{
    OrvMaterial* material = m_mesh != nullptr ? m_mesh->GetMaterial() : nullptr;
    if (material == nullptr)
        return;
    // The mesh's own from the moment it was set; one the shelf made leaves
    // the shelf's list as it goes.
    delete material;
    m_mesh->SetMaterial(nullptr);
}

bool OrvWidget::IsAnyCursorColliding() const
{
    OrvApplication* application = GetApplication();
    if (application == nullptr || m_mesh == nullptr || !m_enabled)
        return false;
    // The boxes alone, in world space: the asset's quick test on local
    // positions would compare a widget placed in its parent (the HUD root,
    // a menu) with a cursor placed in pixels.
    for (unsigned int i = 0; i < application->GetCursorCount(); ++i)
    {
        const OrvCursor* cursor = application->GetCursor(i);
        if (cursor->GetEnabled() && cursor->GetMesh() != nullptr &&
            m_mesh->GetBoundingBox()->IsColliding(cursor->GetMesh()->GetBoundingBox()))
            return true;
    }
    return false;
}

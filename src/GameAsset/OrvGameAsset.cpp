#include "OrvGameAsset.h"

#include "OrvApplication.h"
#include "OrvAxisAlignedBox.h"
#include "OrvGameAssetDesc.h"
#include "OrvGameAssetManager.h"
#include "OrvGameAssetState.h"
#include "OrvMaterial.h"
#include "OrvMesh.h"
#include "OrvMessage.h"
#include "OrvMessageException.h"
#include "OrvMessageManager.h"
#include "OrvPass.h"
#include "OrvRenderer.h"

namespace
{
const char* const kSource = "src/GameAsset/OrvGameAsset";

// The mesh's pass of that index, or null.
OrvPass* MaterialPass(const OrvMesh* mesh, unsigned int pass)
{
    const OrvMaterial* material = mesh != nullptr ? mesh->GetMaterial() : nullptr;
    if (material == nullptr || pass >= material->GetPassCount())
        return nullptr;
    return material->GetPass(pass);
}
}  // namespace

OrvGameAsset::OrvGameAsset()
    : OrvTTreeNode<OrvGameAsset>(),
      CSelfBind<OrvGameAsset>(this),
      m_manager(nullptr),
      m_id(0),
      m_name(""),
      m_type(""),
      m_render(true),
      m_enabled(true),
      m_toDelete(false),
      m_lastRotation(0.0f),
      m_mesh(nullptr),
      m_stateMachine(nullptr),
      m_position(0.0f, 0.0f, 0.0f),
      m_scale(1.0f, 1.0f, 1.0f),
      m_rotation(0.0f)
{
}

OrvGameAsset::~OrvGameAsset()
{
    // Messages still on their way here would reach a destroyed asset.
    OrvApplication* application = OrvApplication::Of(m_manager);
    if (application != nullptr && application->GetMessageManager() != nullptr)
        application->GetMessageManager()->ForgetReceiver(this);
    Unbind();
    delete m_mesh;
    delete m_stateMachine;
}

void OrvGameAsset::SetParent(OrvGameAsset* parent)
{
    m_parent = parent;
    RefreshPosition(true);
}

OrvRenderer* OrvGameAsset::GetRenderer() const
{
    OrvApplication* application = OrvApplication::Of(m_manager);
    return application != nullptr ? application->GetRenderer() : nullptr;
}

void OrvGameAsset::Create(OrvGameAssetDesc* desc)
{
    m_manager = desc->manager;
    m_id = desc->ID;
    m_name = desc->name;
    m_type = desc->type;
    m_position = desc->position;
    m_scale = desc->scale;
    m_rotation = desc->rotation;
    m_render = desc->render;
    m_enabled = desc->enabled;
    delete m_stateMachine;
    m_stateMachine = new OrvTStateMachine<OrvGameAsset>();

    m_translationMatrix = OrvMatrix::CreateIdentity(4);
    m_rotationMatrix = OrvMatrix::CreateIdentity(4);
    m_scaleMatrix = OrvMatrix::CreateIdentity(4);
    m_localMatrix = OrvMatrix::CreateIdentity(4);
    m_currentMatrix = OrvMatrix::CreateIdentity(4);
    m_translationMatrix.Translate(m_position);
    m_lastPosition = m_position;
    m_rotationMatrix.Rotate(m_rotation);
    m_lastRotation = m_rotation;
    m_scaleMatrix.Scale(m_scale);
    m_lastScale = m_scale;
    m_localMatrix.SetProduct(m_translationMatrix, m_rotationMatrix);
    m_localMatrix.SetProduct(m_localMatrix, m_scaleMatrix);
    RefreshPosition(true);
}

namespace
{
// Column 4 of a matrix that the position translates: what identity then
// Translate leaves there (0 + each component) and so also what the products
// T × R × S put in the local matrix's column 4.
void SetTranslation(OrvMatrix& matrix, const OrvVector3D& p)
{
    matrix.Set(1, 4, 0.0f + p.X);
    matrix.Set(2, 4, 0.0f + p.Y);
    matrix.Set(3, 4, 0.0f + p.Z);
}

// local = T × R × S without the two products: with T a translation, R a
// rotation about Z and S a scale, the upper 3 × 3 block is R's with its
// columns scaled, column 4 is the translation, row 4 is (0, 0, 0, 1). Every
// element equals the one the products give (the terms they add are zeros).
void ComposeLocal(OrvMatrix& local, const OrvMatrix& rotation, const OrvVector3D& position,
                  const OrvVector3D& scale)
{
    const float factors[3] = {scale.X, scale.Y, scale.Z};
    for (int column = 1; column <= 3; ++column)
    {
        for (int row = 1; row <= 3; ++row)
            local.Set(row, column, rotation.Get(row, column) * factors[column - 1]);
        local.Set(4, column, 0.0f);
    }
    SetTranslation(local, position);
    local.Set(4, 4, 1.0f);
}

// Column 4 of parent × local: each element summed from zero in the
// product's order, so equal to the product's bit for bit.
void SetTranslationColumn(OrvMatrix& current, const OrvMatrix& parent, const OrvMatrix& local)
{
    for (int row = 1; row <= 4; ++row)
    {
        float sum = 0.0f;
        for (int k = 1; k <= 4; ++k)
            sum += parent.Get(row, k) * local.Get(k, 4);
        current.Set(row, 4, sum);
    }
}
}  // namespace

void OrvGameAsset::RefreshPosition(bool force)
{
    // Everything written below lies in blocks of its own: asked for at once,
    // their cache misses overlap instead of following one another.
    OrvAxisAlignedBox* box = m_mesh != nullptr ? m_mesh->GetBoundingBox() : nullptr;
    if (box != nullptr)
    {
        const char* lines = reinterpret_cast<const char*>(box);
        for (std::size_t offset = 0; offset < sizeof(OrvAxisAlignedBox); offset += 64)
            __builtin_prefetch(lines + offset, 1);
    }
    __builtin_prefetch(m_translationMatrix.GetValues(), 1);
    __builtin_prefetch(m_localMatrix.GetValues(), 1);
    __builtin_prefetch(m_currentMatrix.GetValues(), 1);
    const bool moved = m_position != m_lastPosition;
    const bool turned = m_rotation != m_lastRotation;
    const bool resized = m_scale != m_lastScale;
    const bool changed = moved || turned || resized;
    if (moved)
    {
        SetTranslation(m_translationMatrix, m_position);
        m_lastPosition = m_position;
    }
    if (turned)
    {
        m_rotationMatrix.SetIdentity();
        m_rotationMatrix.Rotate(m_rotation);
        m_lastRotation = m_rotation;
    }
    if (resized)
    {
        m_scaleMatrix.SetIdentity();
        m_scaleMatrix.Scale(m_scale);
        m_lastScale = m_scale;
    }
    // A move alone changes only column 4 of the local and world matrices.
    if (turned || resized)
        ComposeLocal(m_localMatrix, m_rotationMatrix, m_position, m_scale);
    else if (moved)
        SetTranslation(m_localMatrix, m_position);

    if (m_parent == nullptr)
    {
        m_currentMatrix = m_localMatrix;
        m_worldPosition = m_position;
    }
    else
    {
        if (force || turned || resized)
            m_currentMatrix.SetProduct(m_parent->m_currentMatrix, m_localMatrix);
        else if (moved)
            SetTranslationColumn(m_currentMatrix, m_parent->m_currentMatrix, m_localMatrix);
        // The position transformed by the parent: the sums that make column 4.
        m_worldPosition.Set(m_currentMatrix.Get(1, 4), m_currentMatrix.Get(2, 4), m_currentMatrix.Get(3, 4));
    }

    if (box != nullptr)
    {
        box->SetPosition(m_worldPosition);
        // (1, 1, 1) transformed by the scale matrix.
        box->SetScale(m_scale);
    }

    for (OrvGameAsset* child : m_children)
        child->RefreshPosition(force || changed);
}

void OrvGameAsset::SetPosition(OrvVector3D position)
{
    if (position == m_position)
        return;
    m_position = position;
    RefreshPosition(false);
}

void OrvGameAsset::SetScale(OrvVector3D scale)
{
    if (scale == m_scale)
        return;
    m_scale = scale;
    RefreshPosition(false);
}

void OrvGameAsset::SetRotation(float rotation)
{
    if (rotation == m_rotation)
        return;
    m_rotation = rotation;
    if (m_mesh != nullptr)
        m_mesh->BuildBoundingVolumes();
    RefreshPosition(false);
}

OrvMatrix OrvGameAsset::ComputeTranslationMatrix()
{
    OrvMatrix matrix = m_parent != nullptr ? m_parent->ComputeTranslationMatrix() : OrvMatrix::CreateIdentity(4);
    matrix.Translate(m_position);
    return matrix;
}

OrvMatrix OrvGameAsset::ComputeRotationMatrix()
{
    OrvMatrix matrix = m_parent != nullptr ? m_parent->ComputeRotationMatrix() : OrvMatrix::CreateIdentity(4);
    matrix.Rotate(m_rotation);
    return matrix;
}

OrvMatrix OrvGameAsset::ComputeScaleMatrix()
{
    OrvMatrix matrix = m_parent != nullptr ? m_parent->ComputeScaleMatrix() : OrvMatrix::CreateIdentity(4);
    matrix.Scale(m_scale);
    return matrix;
}

void OrvGameAsset::Update(float seconds)
{
    HandleFrameMessages();
    if (m_stateMachine != nullptr)
        m_stateMachine->Update(seconds);
    // By index, re-reading the count: an update may attach or detach children.
    for (unsigned int i = 0; i < m_children.GetCount(); ++i)
        m_children[i]->Update(seconds);
}

void OrvGameAsset::Render()
{
    RenderSubtree(true);
}

void OrvGameAsset::RenderSubtree(bool drawMesh)
{
    OrvRenderer* renderer = GetRenderer();
    // The asset's cached world matrix goes straight on top of the model
    // stack (one copy, not a copy of the parent's first).
    if (renderer != nullptr)
        renderer->PushMatrix(TRANS_MATRIX_MODEL, m_currentMatrix);
    const float z = m_position.Z;
    for (unsigned int i = 0; i < m_children.GetCount(); ++i)
        if (m_children[i]->m_position.Z < z)
        {
            PrefetchChildren(i);
            m_children[i]->Render();
        }
    if (m_render)
    {
        if (drawMesh && m_mesh != nullptr)
            m_mesh->Render();
        RenderElements();
    }
    for (unsigned int i = 0; i < m_children.GetCount(); ++i)
        if (!(m_children[i]->m_position.Z < z))
        {
            PrefetchChildren(i);
            m_children[i]->Render();
        }
    if (renderer != nullptr)
        renderer->DiscardMatrix(TRANS_MATRIX_MODEL);
}

void OrvGameAsset::PrefetchChildren(unsigned int index) const
{
    // Child index + 2d gets stage kPrefetchStages - d: the farther ahead, the
    // earlier in its chain of objects. Two children apart, each step has
    // about the time of two children's drawing to arrive.
    const unsigned int count = m_children.GetCount();
    for (unsigned int d = 1; d <= kPrefetchStages && index + 2 * d < count; ++d)
        m_children[index + 2 * d]->PrefetchForRender(kPrefetchStages - d);
}

void OrvGameAsset::PrefetchForRender(unsigned int stage) const
{
    if (stage == 0)
    {
        const char* object = reinterpret_cast<const char*>(this);
        for (std::size_t offset = 0; offset < sizeof(OrvGameAsset); offset += 64)
            __builtin_prefetch(object + offset);
    }
    else if (stage == 1)
    {
        __builtin_prefetch(m_currentMatrix.GetValues());
        __builtin_prefetch(m_mesh);
    }
    else if (m_mesh != nullptr)
        m_mesh->Prefetch(stage - 2);
}

void OrvGameAsset::RenderElements() const {}

void OrvGameAsset::HandleFrameMessages()
{
    if (m_frameMessages.GetCount() == 0)
        return;
    OrvApplication* application = OrvApplication::Of(m_manager);
    OrvMessageManager* messages = application != nullptr ? application->GetMessageManager() : nullptr;
    // One at a time off the front: a refused message, and those after it,
    // stay in the list; none of those handled does.
    while (m_frameMessages.GetCount() > 0)
    {
        OrvMessage* message = m_frameMessages[0];
        HandleMessage(message);
        m_frameMessages.RemoveIndex(0);
        if (messages != nullptr)
            messages->DeleteMessage(message);
    }
    m_frameMessages.RemoveAll();
}

void OrvGameAsset::HandleMessage(OrvMessage* message)
{
    if (message->GetReceiver() == nullptr || message->GetReceiver()->GetID() != m_id)
        ORV_THROW(OrvMessageException, "A game asset received a message that it shouldn't have !", kSource);
    if (m_stateMachine == nullptr)
        return;
    if (OrvGameAssetState* global = dynamic_cast<OrvGameAssetState*>(m_stateMachine->GetGlobalState()))
        global->OnMessage(message);
    if (OrvGameAssetState* current = dynamic_cast<OrvGameAssetState*>(m_stateMachine->GetCurrentState()))
        current->OnMessage(message);
}

void OrvGameAsset::ReceiveMessage(OrvMessage* message)
{
    m_frameMessages.Add(message);
}

bool OrvGameAsset::AttachTo(OrvGameAsset* newParent)
{
    if (newParent == nullptr)
        return m_parent == nullptr;
    if (m_parent == newParent)
        return true;
    if (m_parent != nullptr)
        m_parent->RemoveChild(this);
    newParent->AddChild(this);
    return m_parent == newParent;
}

void OrvGameAsset::Detach()
{
    if (m_parent != nullptr)
        m_parent->RemoveChild(this);
}

bool OrvGameAsset::DeleteThisGameAsset()
{
    if (m_manager == nullptr)
        return false;
    Detach();
    m_manager->DeleteGameAsset(this);
    return true;
}

void OrvGameAsset::DeleteAllChildren()
{
    for (unsigned int i = 0; i < m_children.GetCount(); ++i)
        if (m_manager != nullptr)
            m_manager->DeleteGameAsset(m_children[i]);
    m_children.RemoveAll();
}

void OrvGameAsset::SetRender(bool render, bool recursive)
{
    m_render = render;
    if (recursive)
        for (OrvGameAsset* child : m_children)
            child->SetRender(render, true);
}

void OrvGameAsset::SetEnabled(bool enabled, bool recursive)
{
    m_enabled = enabled;
    if (recursive)
        for (OrvGameAsset* child : m_children)
            child->SetEnabled(enabled, true);
}

void OrvGameAsset::SetRenderAndEnabled(bool on)
{
    SetRender(on, true);
    SetEnabled(on, true);
}

void OrvGameAsset::SetToDelete(bool toDelete, bool recursive)
{
    m_toDelete = toDelete;
    // The manager's clean-ups look at the list only when told.
    if (toDelete && m_manager != nullptr)
        m_manager->NoteMarked();
    if (recursive)
        for (OrvGameAsset* child : m_children)
            child->SetToDelete(toDelete, true);
}

void OrvGameAsset::SetRenderBoundingBox(bool render, bool recursive)
{
    if (m_mesh != nullptr)
        m_mesh->SetRenderBoundingBox(render);
    if (recursive)
        for (OrvGameAsset* child : m_children)
            child->SetRenderBoundingBox(render, true);
}

void OrvGameAsset::SetBoundingBoxColor(const OrvColor& color, bool recursive)
{
    if (m_mesh != nullptr)
        m_mesh->GetBoundingBox()->SetRenderColor(color);
    if (recursive)
        for (OrvGameAsset* child : m_children)
            child->SetBoundingBoxColor(color, true);
}

bool OrvGameAsset::SetMaterialMipMapAndWrapParameters(MIPMAP_METHOD mipmap, WRAP_METHOD wrap, unsigned int pass)
{
    OrvPass* chosen = MaterialPass(m_mesh, pass);
    if (chosen == nullptr)
        return false;
    const bool mipmapSet = chosen->SetMipMapMethod(mipmap);
    const bool wrapSet = chosen->SetWrapMethod(wrap);
    return mipmapSet && wrapSet;
}

bool OrvGameAsset::SetMaterialMipMapParameters(MIPMAP_METHOD mipmap, unsigned int pass)
{
    OrvPass* chosen = MaterialPass(m_mesh, pass);
    return chosen != nullptr && chosen->SetMipMapMethod(mipmap);
}

bool OrvGameAsset::SetMaterialWrapParameters(WRAP_METHOD wrap, unsigned int pass)
{
    OrvPass* chosen = MaterialPass(m_mesh, pass);
    return chosen != nullptr && chosen->SetWrapMethod(wrap);
}

bool OrvGameAsset::IsOnScreen() const
{
    OrvApplication* application = OrvApplication::Of(m_manager);
    OrvAxisAlignedBox* screen = application != nullptr ? application->GetScreenBox() : nullptr;
    return m_mesh != nullptr && screen != nullptr && m_mesh->GetBoundingBox()->IsColliding(screen);
}

bool OrvGameAsset::IsColliding(OrvGameAsset* other, bool) const
{
    if (other == nullptr || m_mesh == nullptr || other->m_mesh == nullptr || !m_enabled || !other->m_enabled)
        return false;
    const float distanceSquared = (other->m_position - m_position).LengthSquared();
    if (m_mesh->GetBoundingRadiusSquared() + other->m_mesh->GetBoundingRadiusSquared() < distanceSquared)
        return false;
    return m_mesh->GetBoundingBox()->IsColliding(other->m_mesh->GetBoundingBox());
}

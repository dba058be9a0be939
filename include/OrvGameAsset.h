#ifndef ORV_GAME_ASSET_H
#define ORV_GAME_ASSET_H

#include "CSelfBind.h"
#include "OrvMatrix.h"
#include "OrvTObjectArray.h"
#include "OrvTStateMachine.h"
#include "OrvTTreeNode.h"
#include "OrvTexture.h"
#include "OrvUnicode.h"
#include "OrvVector3D.h"

class OrvColor;
class OrvGameAssetManager;
struct OrvGameAssetDesc;
class OrvMesh;
class OrvMessage;
class OrvRenderer;

/// The engine's scene node and game object: a place in a tree, a local
/// position, rotation (about Z, degrees) and scale with cached matrices, an
/// optional mesh (owned), a state machine (owned) and the messages received
/// this frame. Created only through the game asset manager, which owns it and
/// destroys it once marked for deletion. Parents do not own their children.
/// Game assets are not copied.
class OrvGameAsset : public OrvTTreeNode<OrvGameAsset>, public CSelfBind<OrvGameAsset>
{
public:
    OrvGameAsset();
    OrvGameAsset(const OrvGameAsset&) = delete;
    OrvGameAsset& operator=(const OrvGameAsset&) = delete;
    /// Releases the mesh, the state machine and the message list; the message
    /// manager destroys the messages addressed to it that it still holds.
    ~OrvGameAsset() override;

    /// Stores the parent and refreshes the position with force.
    void SetParent(OrvGameAsset* parent) override;
    /// Detaches the asset and marks it and its subtree for deletion; false
    /// without a manager.
    virtual bool DeleteThisGameAsset();
    virtual void Create(OrvGameAssetDesc* desc);
    /// Frame messages, the state machine's turn, then the children.
    virtual void Update(float seconds);
    /// Rebuilds what changed of the matrices and carries the world transform
    /// down the whole subtree in this one call.
    virtual void RefreshPosition(bool force);
    /// Children behind (lower Z) first, then the mesh and elements, then the rest.
    virtual void Render();
    virtual void HandleFrameMessages();
    /// Throws OrvMessageException for a message whose receiver has another ID.
    virtual void HandleMessage(OrvMessage* message);
    virtual void SetRender(bool render, bool recursive);
    virtual void SetEnabled(bool enabled, bool recursive);
    /// Extra drawing of derived classes (text, decorations); nothing here.
    virtual void RenderElements() const;

    int GetID() const { return m_id; }
    const OrvUnicode& GetName() const { return m_name; }
    void SetName(const OrvUnicode& name) { m_name = name; }
    const OrvUnicode& GetType() const { return m_type; }
    void SetType(const OrvUnicode& type) { m_type = type; }
    OrvGameAssetManager* GetGameAssetManager() const { return m_manager; }
    OrvTStateMachine<OrvGameAsset>* GetStateMachine() const { return m_stateMachine; }
    OrvMesh* GetMesh() const { return m_mesh; }
    /// The asset owns the mesh from then on; a previous one is not deleted.
    void SetMesh(OrvMesh* mesh) { m_mesh = mesh; }
    bool GetRender() const { return m_render; }
    bool GetEnabled() const { return m_enabled; }
    bool GetToDelete() const { return m_toDelete; }

    OrvVector3D GetPosition() const { return m_position; }
    OrvVector3D GetWorldPosition() const { return m_worldPosition; }
    OrvVector3D GetScale() const { return m_scale; }
    float GetRotation() const { return m_rotation; }
    /// An equal value changes nothing.
    void SetPosition(OrvVector3D position);
    void SetScale(OrvVector3D scale);
    void SetRotation(float rotation);
    OrvMatrix GetCurrentTransformationMatrix() const { return m_currentMatrix; }
    const OrvMatrix& GetLocalMatrix() const { return m_localMatrix; }
    /// From the stored values up the parents, not from the caches.
    OrvMatrix ComputeTranslationMatrix();
    OrvMatrix ComputeRotationMatrix();
    OrvMatrix ComputeScaleMatrix();

    bool AttachTo(OrvGameAsset* newParent);
    void Detach();
    /// Marks every child's subtree for deletion and empties the child list.
    void DeleteAllChildren();

    void SetRenderAndEnabled(bool on);
    /// Marking tells the manager, whose next clean-up destroys the asset.
    void SetToDelete(bool toDelete, bool recursive);
    void SetRenderBoundingBox(bool render, bool recursive);
    void SetBoundingBoxColor(const OrvColor& color, bool recursive);

    bool SetMaterialMipMapAndWrapParameters(MIPMAP_METHOD mipmap, WRAP_METHOD wrap, unsigned int pass);
    bool SetMaterialMipMapParameters(MIPMAP_METHOD mipmap, unsigned int pass);
    bool SetMaterialWrapParameters(WRAP_METHOD wrap, unsigned int pass);

    /// The mesh's box meets the application's screen box; false without a mesh.
    bool IsOnScreen() const;
    /// Both enabled with meshes, near enough by bounding radii, boxes meeting.
    bool IsColliding(OrvGameAsset* other, bool unused) const;

    /// Keeps the message for the next HandleFrameMessages.
    void ReceiveMessage(OrvMessage* message);
    unsigned int GetFrameMessageCount() const { return m_frameMessages.GetCount(); }

    bool operator==(const OrvGameAsset& other) const { return m_id == other.m_id; }
    bool operator!=(const OrvGameAsset& other) const { return m_id != other.m_id; }

protected:
    /// The application's renderer, or null.
    OrvRenderer* GetRenderer() const;
    /// Render's work: the children behind, the mesh when asked and the
    /// elements while visible, the other children; in the asset's transform.
    void RenderSubtree(bool drawMesh);

private:
    /// Drawing thousands of assets is bound by memory, not by arithmetic:
    /// each one's data sits in a chain of objects (asset, matrix, mesh,
    /// vertices and material, pass), each a cache miss. While one child is
    /// drawn, the next ones are asked for, each a step further along its
    /// chain, so that their misses overlap with the work instead of adding up.
    static const unsigned int kPrefetchStages = 5;
    void PrefetchChildren(unsigned int index) const;
    void PrefetchForRender(unsigned int stage) const;

protected:

    OrvGameAssetManager* m_manager;
    int m_id;
    OrvUnicode m_name;
    OrvUnicode m_type;
    bool m_render;
    bool m_enabled;
    /// Changed only through SetToDelete, which tells the manager.
    bool m_toDelete;
    OrvVector3D m_lastPosition;
    OrvVector3D m_lastScale;
    float m_lastRotation;
    OrvMesh* m_mesh;
    OrvTStateMachine<OrvGameAsset>* m_stateMachine;
    OrvMatrix m_translationMatrix;
    OrvMatrix m_rotationMatrix;
    OrvMatrix m_scaleMatrix;
    OrvMatrix m_localMatrix;
    OrvMatrix m_currentMatrix;
    OrvTObjectArray<OrvMessage*> m_frameMessages;
    OrvVector3D m_position;
    OrvVector3D m_worldPosition;
    OrvVector3D m_scale;
    float m_rotation;
};

#endif

#include "OrvSpriteAnimationMesh.h"

#include <cmath>

#include "OrvColor.h"
#include "OrvColoredTextureMaterial.h"
#include "OrvSprite.h"
#include "OrvSpriteAnimationFrame.h"
#include "OrvTexture.h"
#include "OrvVertex.h"

OrvSpriteAnimationMesh::OrvSpriteAnimationMesh(OrvRenderer* renderer) : OrvMesh(renderer), m_frame(nullptr)
{
    const float corners[4][4] = {{-1, -1, 0, 0}, {-1, 1, 0, 1}, {1, 1, 1, 1}, {1, -1, 1, 0}};
    for (const auto& c : corners)
        AddVertex(new OrvVertex(OrvVector3D(c[0], c[1], 0), OrvVector2D(c[2], c[3]), OrvVector3D(0, 1, 0)));
    BuildBoundingVolumes();
    SetMaterial(new OrvColoredTextureMaterial(renderer, nullptr, OrvColor(1.0f, 1.0f, 1.0f, 1.0f)));
}

OrvSpriteAnimationMesh::~OrvSpriteAnimationMesh() = default;

void OrvSpriteAnimationMesh::SetSpriteAnimationFrame(OrvSpriteAnimationFrame* frame, bool mirrorX, bool mirrorY)
{
    if (frame == nullptr || frame->GetSprite() == nullptr)
        return;
    const OrvSprite* sprite = frame->GetSprite();
    m_frame = frame;
    const OrvVector2D size = sprite->GetDimension();
    const OrvVector2D origin = sprite->GetOrigin();
    OrvTexture* texture = sprite->GetTexture();
    const OrvVector2D textureSize = texture != nullptr ? texture->GetDimesion() : OrvVector2D(1.0f, 1.0f);

    const float hw = std::fabs(size.X * 0.5f);
    const float hh = std::fabs(size.Y * 0.5f);
    const float sx = mirrorX ? origin.X + size.X : origin.X;
    const float sy = mirrorY ? origin.Y + size.Y : origin.Y;
    const float dx = mirrorX ? -size.X : size.X;
    const float dy = mirrorY ? -size.Y : size.Y;
    // A texture without size yet (never given an image) maps to nothing.
    const float inverseW = textureSize.X != 0.0f ? 1.0f / textureSize.X : 0.0f;
    const float inverseH = textureSize.Y != 0.0f ? 1.0f / textureSize.Y : 0.0f;
    const OrvVector2D a(sx * inverseW, 1.0f - sy * inverseH);
    const OrvVector2D b((sx + dx) * inverseW, 1.0f - (sy + dy) * inverseH);

    OrvVector2D offset = frame->GetSpriteOffset();
    if (mirrorX)
        offset.X = -offset.X;
    if (mirrorY)
        offset.Y = -offset.Y;
    const float corners[4][4] = {{offset.X - hw, offset.Y - hh, a.X, b.Y},
                                 {offset.X - hw, offset.Y + hh, a.X, a.Y},
                                 {offset.X + hw, offset.Y + hh, b.X, a.Y},
                                 {offset.X + hw, offset.Y - hh, b.X, b.Y}};
    for (unsigned int i = 0; i < 4 && i < GetVertexCount(); ++i)
    {
        GetVertex(i)->SetPosition(OrvVector3D(corners[i][0], corners[i][1], 0.0f));
        GetVertex(i)->SetUV(OrvVector2D(corners[i][2], corners[i][3]));
    }
    BuildBoundingVolumes();
    // A mesh without renderer has a material without pass, so no texture to set.
    auto* material = dynamic_cast<OrvColoredTextureMaterial*>(GetMaterial());
    if (material != nullptr && material->GetPassCount() > 0)
        material->SetTexture(texture);
}

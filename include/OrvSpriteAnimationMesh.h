#ifndef ORV_SPRITE_ANIMATION_MESH_H
#define ORV_SPRITE_ANIMATION_MESH_H

#include "OrvMesh.h"

class OrvSpriteAnimationFrame;

/// The quad showing one frame of a sprite animation: the sprite's size in world
/// units, centred on the frame's offset, its texture coordinates on the
/// sprite's rectangle (texel rows counted from the image's top). Mirroring
/// swaps the texture coordinates (and the offset's sign), not the positions.
class OrvSpriteAnimationMesh : public OrvMesh
{
public:
    /// A 2 × 2 quad around the origin, with a white coloured-texture material.
    explicit OrvSpriteAnimationMesh(OrvRenderer* renderer);
    ~OrvSpriteAnimationMesh() override;

    /// Nothing happens for a null frame or a frame without sprite.
    void SetSpriteAnimationFrame(OrvSpriteAnimationFrame* frame, bool mirrorX, bool mirrorY);
    OrvSpriteAnimationFrame* GetSpriteAnimationFrame() const { return m_frame; }

private:
    OrvSpriteAnimationFrame* m_frame;
};

#endif

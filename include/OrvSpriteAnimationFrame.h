#ifndef ORV_SPRITE_ANIMATION_FRAME_H
#define ORV_SPRITE_ANIMATION_FRAME_H

#include "OrvVector2D.h"

class OrvSprite;

/// One frame of an animation: a sprite (not owned), its offset, and a free
/// point a game may attach things to.
class OrvSpriteAnimationFrame
{
public:
    OrvSpriteAnimationFrame();
    OrvSpriteAnimationFrame(OrvSprite* sprite, OrvVector2D offset, OrvVector2D customPosition);
    /// Copies carry the custom position too.
    OrvSpriteAnimationFrame(const OrvSpriteAnimationFrame& other) = default;
    OrvSpriteAnimationFrame& operator=(const OrvSpriteAnimationFrame& other) = default;
    virtual ~OrvSpriteAnimationFrame();

    void SetSprite(OrvSprite* sprite) { m_sprite = sprite; }
    OrvSprite* GetSprite() const { return m_sprite; }
    void SetSpriteOffset(OrvVector2D offset) { m_offset = offset; }
    OrvVector2D GetSpriteOffset() const { return m_offset; }
    void SetCustomPosition(OrvVector2D position) { m_customPosition = position; }
    OrvVector2D GetCustomPosition() const { return m_customPosition; }

private:
    OrvSprite* m_sprite;
    OrvVector2D m_offset;
    OrvVector2D m_customPosition;
};

#endif

#include "OrvSpriteAnimationFrame.h"

OrvSpriteAnimationFrame::OrvSpriteAnimationFrame() : m_sprite(nullptr) {}

OrvSpriteAnimationFrame::OrvSpriteAnimationFrame(OrvSprite* sprite, OrvVector2D offset, OrvVector2D customPosition)
    : m_sprite(sprite), m_offset(offset), m_customPosition(customPosition)
{
}

OrvSpriteAnimationFrame::~OrvSpriteAnimationFrame() = default;

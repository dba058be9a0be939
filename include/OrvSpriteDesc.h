#ifndef ORV_SPRITE_DESC_H
#define ORV_SPRITE_DESC_H

#include "OrvUnicode.h"
#include "OrvVector2D.h"

class OrvTexture;

/// What a sprite is created from: a name and a rectangle of a texture, in pixels.
struct OrvSpriteDesc
{
    OrvSpriteDesc();

    OrvUnicode name;
    OrvTexture* texture;
    OrvVector2D origin;
    OrvVector2D dimension;
};

#endif

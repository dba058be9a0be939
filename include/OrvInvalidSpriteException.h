#ifndef ORV_INVALID_SPRITE_EXCEPTION_H
#define ORV_INVALID_SPRITE_EXCEPTION_H

#include "OrvException.h"

/// Display name: "Orv Invalid Sprite Exception".
ORV_DECLARE_EXCEPTION(OrvInvalidSpriteException);

#endif

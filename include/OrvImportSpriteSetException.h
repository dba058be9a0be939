#ifndef ORV_IMPORT_SPRITE_SET_EXCEPTION_H
#define ORV_IMPORT_SPRITE_SET_EXCEPTION_H

#include "OrvException.h"

/// Display name: "Orv Import Sprite Set Exception".
ORV_DECLARE_EXCEPTION(OrvImportSpriteSetException);

#endif

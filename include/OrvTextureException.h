#ifndef ORV_TEXTURE_EXCEPTION_H
#define ORV_TEXTURE_EXCEPTION_H

#include "OrvException.h"

/// Display name: "Orv Texture Exception".
ORV_DECLARE_EXCEPTION(OrvTextureException);

#endif

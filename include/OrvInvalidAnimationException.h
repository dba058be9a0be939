#ifndef ORV_INVALID_ANIMATION_EXCEPTION_H
#define ORV_INVALID_ANIMATION_EXCEPTION_H

#include "OrvException.h"

/// Display name: "Orv Invalid Animation Exception".
ORV_DECLARE_EXCEPTION(OrvInvalidAnimationException);

#endif

#ifndef ORV_SOUND_EXCEPTION_H
#define ORV_SOUND_EXCEPTION_H

#include "OrvException.h"

/// Display name: "Orv Sound Exception".
ORV_DECLARE_EXCEPTION(OrvSoundException);

#endif

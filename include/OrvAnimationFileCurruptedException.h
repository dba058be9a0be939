#ifndef ORV_ANIMATION_FILE_CURRUPTED_EXCEPTION_H
#define ORV_ANIMATION_FILE_CURRUPTED_EXCEPTION_H

#include "OrvException.h"

/// Display name: "Orv Animation File Currupted Exception".
ORV_DECLARE_EXCEPTION(OrvAnimationFileCurruptedException);

#endif

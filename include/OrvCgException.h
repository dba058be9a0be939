#ifndef ORV_CG_EXCEPTION_H
#define ORV_CG_EXCEPTION_H

#include "OrvException.h"

/// Display name: "Orv Cg Exception".
ORV_DECLARE_EXCEPTION(OrvCgException);

#endif

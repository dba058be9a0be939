#ifndef ORV_ARRAY_EXCEPTION_H
#define ORV_ARRAY_EXCEPTION_H

#include "OrvException.h"

/// Display name: "Orv Array Exception".
ORV_DECLARE_EXCEPTION(OrvArrayException);

#endif

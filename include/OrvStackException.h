#ifndef ORV_STACK_EXCEPTION_H
#define ORV_STACK_EXCEPTION_H

#include "OrvException.h"

/// Display name: "Orv Stack Exception".
ORV_DECLARE_EXCEPTION(OrvStackException);

#endif

#ifndef ORV_INPUT_EXCEPTION_H
#define ORV_INPUT_EXCEPTION_H

#include "OrvException.h"

/// Display name: "Orv Input Exception".
ORV_DECLARE_EXCEPTION(OrvInputException);

#endif

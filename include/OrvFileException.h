#ifndef ORV_FILE_EXCEPTION_H
#define ORV_FILE_EXCEPTION_H

#include "OrvException.h"

/// Display name: "Orv File Exception".
ORV_DECLARE_EXCEPTION(OrvFileException);

#endif

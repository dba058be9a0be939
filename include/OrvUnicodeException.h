#ifndef ORV_UNICODE_EXCEPTION_H
#define ORV_UNICODE_EXCEPTION_H

#include "OrvException.h"

/// Display name: "Orv Unicode Exception".
ORV_DECLARE_EXCEPTION(OrvUnicodeException);

#endif

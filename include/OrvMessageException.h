#ifndef ORV_MESSAGE_EXCEPTION_H
#define ORV_MESSAGE_EXCEPTION_H

#include "OrvException.h"

/// Display name: "Orv Message Exception".
ORV_DECLARE_EXCEPTION(OrvMessageException);

#endif

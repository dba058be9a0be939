#ifndef ORV_SINGLETON_EXCEPTION_H
#define ORV_SINGLETON_EXCEPTION_H

#include "OrvException.h"

/// Display name: "Orv Singleton Exception".
ORV_DECLARE_EXCEPTION(OrvSingletonException);

#endif

#ifndef ORV_RENDERER_EXCEPTION_H
#define ORV_RENDERER_EXCEPTION_H

#include "OrvException.h"

/// Display name: "Orv Renderer Exception".
ORV_DECLARE_EXCEPTION(OrvRendererException);

#endif

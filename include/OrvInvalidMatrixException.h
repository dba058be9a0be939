#ifndef ORV_INVALID_MATRIX_EXCEPTION_H
#define ORV_INVALID_MATRIX_EXCEPTION_H

#include "OrvException.h"

/// Display name: "Orv Invalid Matrix Exception".
ORV_DECLARE_EXCEPTION(OrvInvalidMatrixException);

#endif

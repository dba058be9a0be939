#ifndef ORV_TREE_NODE_EXCEPTION_H
#define ORV_TREE_NODE_EXCEPTION_H

#include "OrvException.h"

/// Display name: "Orv Tree Node Exception".
ORV_DECLARE_EXCEPTION(OrvTreeNodeException);

#endif

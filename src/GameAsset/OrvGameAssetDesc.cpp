#include "OrvGameAssetDesc.h"

OrvGameAssetDesc::OrvGameAssetDesc()
    : manager(nullptr), ID(0), name(""), type(""), position(0.0f, 0.0f, 0.0f), scale(1.0f, 1.0f, 1.0f),
      rotation(0.0f), render(true), enabled(true)
{
}

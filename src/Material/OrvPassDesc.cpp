#include "OrvPassDesc.h"

OrvPassDesc::OrvPassDesc()
    : Renderer(nullptr), Flags(1), VSPath(""), FSPath(""), SrcBlendFactor(BLEND_FACTOR_ZERO),
      DstBlendFactor(BLEND_FACTOR_DST_COLOR)
{
}

OrvPassDesc::~OrvPassDesc() = default;

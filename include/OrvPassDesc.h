#ifndef ORV_PASS_DESC_H
#define ORV_PASS_DESC_H

#include "OrvRenderer.h"
#include "OrvUnicode.h"

/// What a pass is created from: its renderer, its shader source paths and its
/// blend function.
class OrvPassDesc
{
public:
    OrvPassDesc();
    virtual ~OrvPassDesc();

    OrvRenderer* Renderer;
    /// Copied into the pass; no operation reads it.
    int Flags;
    OrvUnicode VSPath;
    OrvUnicode FSPath;
    OrvBlendFactor SrcBlendFactor;
    OrvBlendFactor DstBlendFactor;
};

#endif

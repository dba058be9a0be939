#ifndef ORV_GL_PASS_STATE_H
#define ORV_GL_PASS_STATE_H

// Private to the OpenGL renderer: what activating a pass sets in GL (its
// programs, blend function, textures and their filter and wrap), so that an
// activation can be compared with the one before it.

#include "OrvEffect.h"
#include "OrvPass.h"

struct OrvGLPassState
{
    const OrvEffect* effect = nullptr;
    CGprogram vs = nullptr;
    CGprogram fs = nullptr;
    OrvBlendFactor source = BLEND_FACTOR_ZERO;
    OrvBlendFactor destination = BLEND_FACTOR_ZERO;
    const OrvTexture* textures[2] = {nullptr, nullptr};
    MIPMAP_METHOD mipmap = MIPMAP_NEAREST;
    WRAP_METHOD wrap = WRAP_REPEAT;

    // The pass's state; its effect must not be null.
    static OrvGLPassState Of(const OrvPass& pass)
    {
        OrvGLPassState state;
        state.effect = pass.GetEffect();
        state.vs = state.effect->GetVSProgram();
        state.fs = state.effect->GetFSProgram();
        state.source = pass.GetSrcBlendFactor();
        state.destination = pass.GetDstBlendFactor();
        state.textures[0] = pass.GetTextureUnit(TEXTURE_UNIT_0);
        state.textures[1] = pass.GetTextureUnit(TEXTURE_UNIT_1);
        state.mipmap = pass.GetMipMapMethod();
        state.wrap = pass.GetWrapMethod();
        return state;
    }

    bool operator==(const OrvGLPassState& other) const
    {
        return effect == other.effect && vs == other.vs && fs == other.fs && source == other.source &&
               destination == other.destination && textures[0] == other.textures[0] &&
               textures[1] == other.textures[1] && mipmap == other.mipmap && wrap == other.wrap;
    }
};

#endif

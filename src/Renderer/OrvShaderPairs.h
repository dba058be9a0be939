#ifndef ORV_SHADER_PAIRS_H
#define ORV_SHADER_PAIRS_H

// Private to the shader runtime: GLSL links a vertex and a fragment shader
// into one program, so each pair of programs bound together gets its own GL
// program, linked on first use and kept until one of its programs is
// unloaded or destroyed. A pair may lack one of its stages (-1) when that
// stage's profile is off.

namespace OrvCgRuntime
{
// Makes the bound programs of the enabled stages the ones that draw: finds or
// links their pair, uses it (unless in use already) and brings its uniforms
// up to date. A pair that does not link raises CG_LINK_ERROR.
void Resolve();

// Deletes every pair the program belongs to.
void DropPairsOf(int slot);
// The program is no longer bound on its stage.
void Unbind(int slot);
}  // namespace OrvCgRuntime

#endif

#ifndef ORV_SHADER_UNIFORMS_H
#define ORV_SHADER_UNIFORMS_H

// Private to the shader runtime: parameter values live in their programs and
// reach the uniforms of the linked pair in use. Each uniform remembers what
// GL holds and the stamp of the value it came from, so that a value already
// there is not uploaded again (unless caching is off).

namespace OrvCgRuntime
{
// Brings the uniforms of the pair in use up to the values of its programs.
void Flush(int pair);

// After the value of parameter `index` of program `slot` changed: it reaches
// GL at once when its program belongs to the pair in use, else when a pair
// containing it is next bound.
void Apply(int slot, int index);
}  // namespace OrvCgRuntime

#endif

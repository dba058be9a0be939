#include "OrvShaderUniforms.h"

#include <cstring>

#include "OrvGLBatch.h"
#include "OrvGLEntryPoints.h"
#include "OrvShaderPairs.h"
#include "OrvShaderRuntimeState.h"

namespace OrvCgRuntime
{
namespace
{
bool SameValue(ValueKind kind, const Value& a, const Value& b)
{
    switch (kind)
    {
    case kValueFloat1: return a.floats[0] == b.floats[0];
    case kValueFloat4: return std::memcmp(a.floats, b.floats, 4 * sizeof(float)) == 0;
    case kValueMatrix4: return std::memcmp(a.floats, b.floats, 16 * sizeof(float)) == 0;
    case kValueInt1: return a.integer == b.integer;
    default: return true;
    }
}

// Uploads a parameter's value to a uniform of the pair in use.
void Upload(Uniform& uniform, const Parameter& parameter)
{
    if (g.caching && uniform.known && SameValue(parameter.kind, uniform.uploaded, parameter.value))
    {
        uniform.uploadedSerial = parameter.serial;
        return;
    }
    OrvGLBatch::StateChanging();
    switch (parameter.kind)
    {
    case kValueFloat1: OrvGL::glUniform1f(uniform.location, parameter.value.floats[0]); break;
    case kValueFloat4: OrvGL::glUniform4fv(uniform.location, 1, parameter.value.floats); break;
    case kValueMatrix4: OrvGL::glUniformMatrix4fv(uniform.location, 1, GL_FALSE, parameter.value.floats); break;
    case kValueInt1: OrvGL::glUniform1i(uniform.location, parameter.value.integer); break;
    default: return;
    }
    ++g.stats.uniformCalls;
    uniform.uploaded = parameter.value;
    uniform.known = true;
    uniform.uploadedSerial = parameter.serial;
}

// The latest-set parameter that feeds a uniform; null when none was ever set.
const Parameter* Source(const Pair& pair, const Uniform& uniform)
{
    const Parameter* latest = nullptr;
    for (int stage = kVertex; stage <= kFragment; ++stage)
    {
        if (uniform.parameter[stage] < 0)
            continue;
        const Parameter& parameter = g.programs[pair.program[stage]].parameters[uniform.parameter[stage]];
        if (parameter.serial != 0 && (latest == nullptr || parameter.serial > latest->serial))
            latest = &parameter;
    }
    return latest;
}
}  // namespace

void Flush(int index)
{
    Pair& pair = g.pairs[index];
    for (Uniform& uniform : pair.uniforms)
    {
        const Parameter* source = Source(pair, uniform);
        if (source == nullptr || (g.caching && source->serial == uniform.uploadedSerial))
            continue;
        Upload(uniform, *source);
    }
}

void Apply(int slot, int index)
{
    const int stage = g.programs[slot].stage;
    if (g.pending && g.enabled[stage] && g.bound[stage] == slot)
        Resolve();
    if (g.current < 0 || !g.currentKnown || g.glLoadCount != OrvGL::LoadCount())
        return;
    Pair& pair = g.pairs[g.current];
    if (pair.program[stage] != slot)
        return;
    const int uniform = pair.uniformOf[stage][index];
    if (uniform < 0)
        return;
    const Parameter* source = Source(pair, pair.uniforms[uniform]);
    if (source != nullptr)
        Upload(pair.uniforms[uniform], *source);
}
}  // namespace OrvCgRuntime

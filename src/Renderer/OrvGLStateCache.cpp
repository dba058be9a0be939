#include "OrvGLStateCache.h"

#include <GL/gl.h>

#include <vector>

#include "OrvGLBatch.h"
#include "OrvGLEntryPoints.h"

namespace
{
const unsigned int kUnits = 2;
// Texture names above this are never remembered.
const unsigned int kMaxRememberedName = 1u << 16;
const unsigned int kUnknown = 0xFFFFFFFFu;

struct State
{
    bool caching = true;
    OrvGLStateCache::Stats stats = {0, 0, 0, 0};
    unsigned int blendSource = kUnknown;
    unsigned int blendDestination = kUnknown;
    unsigned int activeUnit = kUnknown;
    unsigned int bound[kUnits] = {kUnknown, kUnknown};
    // Per texture name: 0 unknown, else 1 + the filter and wrap in use.
    std::vector<unsigned int> parameters;
};

State& TheState()
{
    static State state;
    return state;
}

unsigned int ParameterKey(int filter, int wrap)
{
    return 1u + ((static_cast<unsigned int>(filter) & 0xFFFFu) << 16) + (static_cast<unsigned int>(wrap) & 0xFFFFu);
}

void ActiveTexture(State& state, unsigned int unit)
{
    if (state.caching && state.activeUnit == unit)
        return;
    OrvGLBatch::StateChanging();
    OrvGL::glActiveTexture(GL_TEXTURE0 + unit);
    state.activeUnit = unit;
    ++state.stats.activeTextureCalls;
}

void Bind(State& state, unsigned int unit, unsigned int name)
{
    if (state.caching && unit < kUnits && state.bound[unit] == name)
        return;
    OrvGLBatch::StateChanging();
    glBindTexture(GL_TEXTURE_2D, name);
    if (unit < kUnits)
        state.bound[unit] = name;
    else
        // The active unit is not known, so neither is what either unit holds.
        for (unsigned int& bound : state.bound)
            bound = kUnknown;
    ++state.stats.bindTextureCalls;
}
}  // namespace

void OrvGLStateCache::Invalidate()
{
    OrvGLBatch::StateChanged();
    State& state = TheState();
    state.blendSource = kUnknown;
    state.blendDestination = kUnknown;
    state.activeUnit = kUnknown;
    for (unsigned int& name : state.bound)
        name = kUnknown;
    state.parameters.assign(state.parameters.size(), 0u);
}

void OrvGLStateCache::BlendFunc(unsigned int source, unsigned int destination)
{
    State& state = TheState();
    if (state.caching && state.blendSource == source && state.blendDestination == destination)
        return;
    OrvGLBatch::StateChanging();
    glBlendFunc(source, destination);
    state.blendSource = source;
    state.blendDestination = destination;
    ++state.stats.blendFuncCalls;
}

void OrvGLStateCache::SetTextureUnit(unsigned int unit, unsigned int name, int filter, int wrap)
{
    State& state = TheState();
    const unsigned int key = ParameterKey(filter, wrap);
    const bool known = name < state.parameters.size() && state.parameters[name] == key;
    if (state.caching && unit < kUnits && state.bound[unit] == name && known)
        return;
    ActiveTexture(state, unit);
    Bind(state, unit, name);
    if (state.caching && known)
        return;
    OrvGLBatch::StateChanging();
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, filter);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, filter);
    glTexParameterf(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, static_cast<GLfloat>(wrap));
    glTexParameterf(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, static_cast<GLfloat>(wrap));
    state.stats.texParameterCalls += 4;
    if (name >= kMaxRememberedName)
        return;
    if (name >= state.parameters.size())
        state.parameters.resize(name + 1, 0u);
    state.parameters[name] = key;
}

void OrvGLStateCache::BindTextureOnActiveUnit(unsigned int name)
{
    State& state = TheState();
    Bind(state, state.activeUnit, name);
}

void OrvGLStateCache::ForgetTexture(unsigned int name)
{
    OrvGLBatch::StateChanged();
    State& state = TheState();
    if (name < state.parameters.size())
        state.parameters[name] = 0u;
    // A deleted texture leaves its units bound to texture 0.
    for (unsigned int& bound : state.bound)
        if (bound == name)
            bound = 0;
}

void OrvGLStateCache::SetCaching(bool enabled)
{
    TheState().caching = enabled;
    Invalidate();
}

bool OrvGLStateCache::GetCaching()
{
    return TheState().caching;
}

const OrvGLStateCache::Stats& OrvGLStateCache::GetStats()
{
    return TheState().stats;
}

void OrvGLStateCache::ResetStats()
{
    TheState().stats = Stats{0, 0, 0, 0};
}

#include "OrvShaderPairs.h"

#include <cstddef>
#include <string>
#include <vector>

#include "OrvShaderGL.h"
#include "OrvShaderHandles.h"
#include "OrvShaderUniforms.h"

namespace OrvCgRuntime
{
namespace
{
void DropPair(int index)
{
    Pair& pair = g.pairs[index];
    if (g.current == index)
    {
        // Deleting the program in use would only defer its deletion.
        if (OrvGL::EntryPointsLoaded())
            UseProgram(0);
        g.current = -1;
        g.currentKnown = true;
    }
    for (int stage = kVertex; stage <= kFragment; ++stage)
    {
        if (pair.program[stage] < 0)
            continue;
        std::vector<int>& list = g.programs[pair.program[stage]].pairs;
        for (std::size_t i = 0; i < list.size(); ++i)
            if (list[i] == index)
            {
                list.erase(list.begin() + static_cast<std::ptrdiff_t>(i));
                break;
            }
        pair.uniformOf[stage].clear();
    }
    // After a change of GL context the name may be gone already.
    if (OrvGL::EntryPointsLoaded() && OrvGL::glIsProgram(pair.glProgram))
        OrvGL::glDeleteProgram(pair.glProgram);
    pair.alive = false;
    pair.glProgram = 0;
    pair.program[kVertex] = pair.program[kFragment] = -1;
    pair.uniforms.clear();
}

int FindPair(int vs, int fs)
{
    const std::vector<int>& list = g.programs[vs >= 0 ? vs : fs].pairs;
    for (int index : list)
        if (g.pairs[index].program[kVertex] == vs && g.pairs[index].program[kFragment] == fs)
            return index;
    return -1;
}

int FindParameterIndex(int slot, const std::string& name)
{
    if (slot < 0)
        return -1;
    const std::vector<Parameter>& parameters = g.programs[slot].parameters;
    for (std::size_t i = 0; i < parameters.size(); ++i)
        if (parameters[i].name == name)
            return static_cast<int>(i);
    return -1;
}

// Links the pair; -1 (after raising) when GL refuses it.
int LinkPair(int vs, int fs)
{
    const GLuint glProgram = OrvGL::glCreateProgram();
    if (vs >= 0)
        OrvGL::glAttachShader(glProgram, g.programs[vs].shader);
    if (fs >= 0)
        OrvGL::glAttachShader(glProgram, g.programs[fs].shader);
    OrvGL::glLinkProgram(glProgram);
    ++g.stats.links;
    GLint linked = GL_FALSE;
    OrvGL::glGetProgramiv(glProgram, GL_LINK_STATUS, &linked);
    if (linked != GL_TRUE)
    {
        std::string log = ProgramLog(glProgram);
        OrvGL::glDeleteProgram(glProgram);
        Raise(CG_LINK_ERROR, log.empty() ? FixedErrorText(CG_LINK_ERROR) : log);
        return -1;
    }

    const int index = static_cast<int>(FreeSlot(g.pairs));
    Pair& pair = g.pairs[index];
    pair.alive = true;
    pair.glProgram = glProgram;
    pair.program[kVertex] = vs;
    pair.program[kFragment] = fs;
    for (int stage = kVertex; stage <= kFragment; ++stage)
    {
        const int slot = pair.program[stage];
        pair.uniformOf[stage].assign(slot >= 0 ? g.programs[slot].parameters.size() : 0, -1);
    }
    ForEachActiveUniform(glProgram, [&](const std::string& name, GLenum) {
        Uniform uniform = {};
        uniform.location = OrvGL::glGetUniformLocation(glProgram, name.c_str());
        uniform.parameter[kVertex] = FindParameterIndex(vs, name);
        uniform.parameter[kFragment] = FindParameterIndex(fs, name);
        uniform.uploadedSerial = 0;
        uniform.known = false;
        if (uniform.location < 0 || (uniform.parameter[kVertex] < 0 && uniform.parameter[kFragment] < 0))
            return;
        for (int stage = kVertex; stage <= kFragment; ++stage)
            if (uniform.parameter[stage] >= 0)
                pair.uniformOf[stage][uniform.parameter[stage]] = static_cast<int>(pair.uniforms.size());
        pair.uniforms.push_back(uniform);
    });
    if (vs >= 0)
        g.programs[vs].pairs.push_back(index);
    if (fs >= 0)
        g.programs[fs].pairs.push_back(index);
    return index;
}
}  // namespace

void Resolve()
{
    g.pending = false;
    if (!OrvGL::EntryPointsLoaded())
        return;
    SyncGLContext();
    const int vs = g.enabled[kVertex] ? g.bound[kVertex] : -1;
    const int fs = g.enabled[kFragment] ? g.bound[kFragment] : -1;
    int index = -1;
    if (vs >= 0 || fs >= 0)
    {
        index = FindPair(vs, fs);
        if (index < 0)
            index = LinkPair(vs, fs);
        if (index < 0)
            return;
    }
    if (index != g.current || !g.currentKnown || !g.caching)
    {
        UseProgram(index >= 0 ? g.pairs[index].glProgram : 0);
        g.current = index;
        g.currentKnown = true;
    }
    if (index >= 0)
        Flush(index);
}

void DropPairsOf(int slot)
{
    while (!g.programs[slot].pairs.empty())
        DropPair(g.programs[slot].pairs.back());
}

void Unbind(int slot)
{
    for (int stage = kVertex; stage <= kFragment; ++stage)
        if (g.bound[stage] == slot)
            g.bound[stage] = -1;
}
}  // namespace OrvCgRuntime

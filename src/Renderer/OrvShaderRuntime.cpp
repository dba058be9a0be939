#include "OrvShaderRuntime.h"

#include <cstddef>
#include <string>
#include <vector>

#include "OrvGLBatch.h"
#include "OrvShaderGL.h"
#include "OrvShaderHandles.h"
#include "OrvShaderPairs.h"
#include "OrvShaderSource.h"

// The cg* functions of contexts, errors, programs, binding and statistics;
// the parameters' are in OrvShaderParameters.cpp.

using namespace OrvCgRuntime;

namespace
{
void DestroyProgramSlot(int slot)
{
    DropPairsOf(slot);
    Unbind(slot);
    Program& program = g.programs[slot];
    if (OrvGL::EntryPointsLoaded() && OrvGL::glIsShader(program.shader))
        OrvGL::glDeleteShader(program.shader);
    std::vector<int>& owned = g.contexts[program.context].programs;
    for (std::size_t i = 0; i < owned.size(); ++i)
        if (owned[i] == slot)
        {
            owned.erase(owned.begin() + static_cast<std::ptrdiff_t>(i));
            break;
        }
    program.alive = false;
    ++program.generation;
    program.shader = 0;
    program.loaded = false;
    program.context = -1;
    program.parameters.clear();
}

int StageOf(CGprofile profile)
{
    if (profile == CG_PROFILE_ARBVP1)
        return kVertex;
    if (profile == CG_PROFILE_ARBFP1)
        return kFragment;
    return -1;
}
}  // namespace

// ---------------------------------------------------------------- contexts

CGcontext cgCreateContext()
{
    const std::size_t slot = FreeSlot(g.contexts);
    Context& context = g.contexts[slot];
    context.alive = true;
    context.programs.clear();
    return ContextHandle(static_cast<int>(slot));
}

void cgDestroyContext(CGcontext handle)
{
    // What the renderer bound last may no longer be bound.
    OrvGLBatch::StateChanged();
    const int slot = ContextSlot(handle);
    if (slot < 0)
    {
        Raise(CG_INVALID_CONTEXT_HANDLE_ERROR);
        return;
    }
    while (!g.contexts[slot].programs.empty())
        DestroyProgramSlot(g.contexts[slot].programs.back());
    g.contexts[slot].alive = false;
    ++g.contexts[slot].generation;
}

// ---------------------------------------------------------------- errors

void cgSetErrorCallback(CGerrorCallbackFunc callback)
{
    g.callback = callback;
}

CGerrorCallbackFunc cgGetErrorCallback()
{
    return g.callback;
}

CGerror cgGetError()
{
    const CGerror error = g.pendingError;
    g.pendingError = CG_NO_ERROR;
    return error;
}

const char* cgGetErrorString(CGerror error)
{
    if (error != CG_NO_ERROR && error == g.lastError && !g.lastText.empty())
        return g.lastText.c_str();
    return FixedErrorText(error);
}

// ---------------------------------------------------------------- programs

CGprogram cgCreateProgram(CGcontext handle, CGenum sourceKind, const char* source, CGprofile profile,
                          const char* entry, const char** arguments)
{
    const int context = ContextSlot(handle);
    if (context < 0)
    {
        Raise(CG_INVALID_CONTEXT_HANDLE_ERROR);
        return nullptr;
    }
    if (sourceKind != CG_SOURCE)
    {
        Raise(CG_INVALID_ENUMERANT_ERROR, "Source kind " + std::to_string(sourceKind) + " is not CG_SOURCE");
        return nullptr;
    }
    const int stage = StageOf(profile);
    if (stage < 0)
    {
        Raise(CG_UNKNOWN_PROFILE_ERROR, "Unknown profile " + std::to_string(profile));
        return nullptr;
    }
    if (entry == nullptr)
        entry = "main";
    const bool identifier = OrvShaderSource::IsIdentifier(entry);
    if (source == nullptr || !identifier || (arguments != nullptr && arguments[0] != nullptr))
    {
        Raise(CG_INVALID_PARAMETER_ERROR, source == nullptr ? "No program text"
                                          : !identifier     ? "The entry name is not an identifier"
                                                            : "Compiler arguments are not supported");
        return nullptr;
    }
    if (!EnsureGL())
    {
        Raise(CG_GL_UNAVAILABLE_ERROR);
        return nullptr;
    }

    OrvShaderSource prepared;
    std::string error;
    if (!prepared.Prepare(source, stage == kVertex, entry, error))
    {
        Raise(CG_COMPILER_ERROR, error);
        return nullptr;
    }
    GLuint shader = 0;
    std::vector<Parameter> parameters;
    if (!CompileStage(stage, prepared, shader, parameters))
        return nullptr;
    if (parameters.size() > kMaxParameters || g.programs.size() >= kMaxSlots)
    {
        OrvGL::glDeleteShader(shader);
        Raise(CG_COMPILER_ERROR, "Too many programs or parameters");
        return nullptr;
    }

    const int slot = static_cast<int>(FreeSlot(g.programs));
    Program& program = g.programs[slot];
    program.alive = true;
    program.context = context;
    program.stage = stage;
    program.shader = shader;
    program.loaded = false;
    program.parameters.swap(parameters);
    program.pairs.clear();
    g.contexts[context].programs.push_back(slot);
    return ProgramHandle(slot);
}

void cgGLLoadProgram(CGprogram handle)
{
    const int slot = ProgramSlot(handle);
    if (slot < 0)
    {
        Raise(CG_INVALID_PROGRAM_HANDLE_ERROR);
        return;
    }
    g.programs[slot].loaded = true;
}

void cgGLUnloadProgram(CGprogram handle)
{
    const int slot = ProgramSlot(handle);
    if (slot < 0)
    {
        Raise(CG_INVALID_PROGRAM_HANDLE_ERROR);
        return;
    }
    DropPairsOf(slot);
    Unbind(slot);
    g.programs[slot].loaded = false;
}

void cgDestroyProgram(CGprogram handle)
{
    // What the renderer bound last may no longer be bound.
    OrvGLBatch::StateChanged();
    const int slot = ProgramSlot(handle);
    if (slot < 0)
    {
        Raise(CG_INVALID_PROGRAM_HANDLE_ERROR);
        return;
    }
    DestroyProgramSlot(slot);
}

// ---------------------------------------------------------------- binding

void cgGLEnableProfile(CGprofile profile)
{
    // What the renderer bound last may no longer be bound.
    OrvGLBatch::StateChanged();
    const int stage = StageOf(profile);
    if (stage < 0)
    {
        Raise(CG_UNKNOWN_PROFILE_ERROR, "Unknown profile " + std::to_string(profile));
        return;
    }
    if (!g.enabled[stage])
    {
        g.enabled[stage] = true;
        g.pending = true;
    }
}

void cgGLDisableProfile(CGprofile profile)
{
    // What the renderer bound last may no longer be bound.
    OrvGLBatch::StateChanged();
    const int stage = StageOf(profile);
    if (stage < 0)
    {
        Raise(CG_UNKNOWN_PROFILE_ERROR, "Unknown profile " + std::to_string(profile));
        return;
    }
    g.enabled[stage] = false;
    Resolve();
}

void cgGLBindProgram(CGprogram handle)
{
    // What the renderer bound last may no longer be bound.
    OrvGLBatch::StateChanged();
    const int slot = ProgramSlot(handle);
    if (slot < 0)
    {
        Raise(CG_INVALID_PROGRAM_HANDLE_ERROR);
        return;
    }
    if (!g.programs[slot].loaded)
    {
        Raise(CG_PROGRAM_NOT_LOADED_ERROR);
        return;
    }
    const int stage = g.programs[slot].stage;
    g.bound[stage] = slot;
    // A pass binds its vertex program, then its fragment program: the pair is
    // made current with the second, so no half-changed pair is ever linked.
    if (stage == kFragment || !g.enabled[kFragment])
        Resolve();
    else
        g.pending = true;
}

// ---------------------------------------------------------------- statistics

const OrvShaderRuntimeStats& OrvShaderRuntimeGetStats()
{
    return g.stats;
}

void OrvShaderRuntimeResetStats()
{
    g.stats = OrvShaderRuntimeStats{0, 0, 0, 0};
}

void OrvShaderRuntimeSetCaching(bool enabled)
{
    // What the renderer bound last may no longer be bound.
    OrvGLBatch::StateChanged();
    g.caching = enabled;
}

bool OrvShaderRuntimeGetCaching()
{
    return g.caching;
}

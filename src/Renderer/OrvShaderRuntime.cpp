#include "OrvShaderRuntime.h"

#include "OrvGLBatch.h"

#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

// Handles are numbers, not addresses: a slot index and the slot's generation,
// so a handle to something destroyed is refused instead of being followed.
//   context, program: ((slot + 1) << 24) | (generation & 0xFFFFFF)
//   parameter:        (program handle << 16) | parameter index
static_assert(sizeof(std::uintptr_t) >= 8, "handles pack 64 bits into a pointer");

namespace
{
const int kVertex = 0;
const int kFragment = 1;
const std::uintptr_t kGenerationMask = 0xFFFFFF;
const std::size_t kMaxSlots = 0xFFFFFE;
const std::size_t kMaxParameters = 0xFFFF;

// Which setter (and which glUniform*) a parameter takes.
enum ValueKind
{
    kValueNone,
    kValueFloat1,
    kValueFloat4,
    kValueMatrix4,
    kValueInt1
};

struct Value
{
    float floats[16];
    int integer;
};

struct Parameter
{
    std::string name;
    CGtype type;
    ValueKind kind;
    Value value;
    // Stamp of the latest set (0: never set; GL starts every uniform at 0 too).
    unsigned long serial;
};

struct Program
{
    bool alive = false;
    std::uintptr_t generation = 0;
    int context = -1;
    int stage = kVertex;
    GLuint shader = 0;
    bool loaded = false;
    std::vector<Parameter> parameters;
    std::vector<int> pairs;  // linked pairs that contain this program
};

// One active uniform of a linked pair, fed by the parameter of the same name
// in its vertex program, its fragment program, or both (the latest set wins).
struct Uniform
{
    GLint location;
    int parameter[2];
    unsigned long uploadedSerial;
    bool known;  // `uploaded` holds what GL has
    Value uploaded;
};

struct Pair
{
    bool alive = false;
    int program[2] = {-1, -1};
    GLuint glProgram = 0;
    std::vector<Uniform> uniforms;
    std::vector<int> uniformOf[2];  // stage's parameter index -> uniform index, -1 when inactive
};

struct Context
{
    bool alive = false;
    std::uintptr_t generation = 0;
    std::vector<int> programs;
};

struct Runtime
{
    std::vector<Context> contexts;
    std::vector<Program> programs;
    std::vector<Pair> pairs;

    CGerrorCallbackFunc callback = nullptr;
    CGerror pendingError = CG_NO_ERROR;
    CGerror lastError = CG_NO_ERROR;
    std::string lastText;

    bool enabled[2] = {false, false};
    int bound[2] = {-1, -1};
    bool pending = false;  // the bound pair has not been made current yet
    int current = -1;      // pair in use; -1: GL program 0
    bool currentKnown = false;
    unsigned int glLoadCount = 0;

    bool caching = true;
    unsigned long serialCounter = 0;
    OrvShaderRuntimeStats stats = {0, 0, 0, 0};
};

Runtime g;

// ---------------------------------------------------------------- errors

const char* FixedErrorText(CGerror error)
{
    switch (error)
    {
    case CG_NO_ERROR: return "No error";
    case CG_COMPILER_ERROR: return "The program could not be compiled";
    case CG_LINK_ERROR: return "The vertex and fragment programs could not be linked";
    case CG_INVALID_CONTEXT_HANDLE_ERROR: return "Invalid context handle";
    case CG_INVALID_PROGRAM_HANDLE_ERROR: return "Invalid program handle";
    case CG_INVALID_PARAM_HANDLE_ERROR: return "Invalid parameter handle";
    case CG_INVALID_ENUMERANT_ERROR: return "Invalid enumerant";
    case CG_UNKNOWN_PROFILE_ERROR: return "Unknown profile";
    case CG_PROGRAM_NOT_LOADED_ERROR: return "The program is not loaded";
    case CG_INVALID_VALUE_TYPE_ERROR: return "The value does not fit the parameter's type";
    case CG_INVALID_PARAMETER_ERROR: return "Invalid argument";
    case CG_GL_UNAVAILABLE_ERROR: return "No current OpenGL 2.0 context";
    default: return "Unknown error";
    }
}

// Records the error and hands it to the callback, which may throw: callers
// leave everything consistent before raising and do nothing after.
void Raise(CGerror error, std::string text)
{
    g.pendingError = error;
    g.lastError = error;
    g.lastText = std::move(text);
    if (g.callback != nullptr)
        g.callback();
}

void Raise(CGerror error)
{
    Raise(error, FixedErrorText(error));
}

// ---------------------------------------------------------------- handles

std::uintptr_t Pack(std::size_t slot, std::uintptr_t generation)
{
    return ((static_cast<std::uintptr_t>(slot) + 1) << 24) | (generation & kGenerationMask);
}

// Slot of a packed context or program handle, or -1.
template <typename Record>
int Unpack(std::uintptr_t packed, const std::vector<Record>& records)
{
    const std::uintptr_t high = packed >> 24;
    if (high == 0 || high > records.size())
        return -1;
    const std::size_t slot = static_cast<std::size_t>(high - 1);
    const Record& record = records[slot];
    if (!record.alive || (record.generation & kGenerationMask) != (packed & kGenerationMask))
        return -1;
    return static_cast<int>(slot);
}

int ContextSlot(CGcontext context)
{
    return Unpack(reinterpret_cast<std::uintptr_t>(context), g.contexts);
}

int ProgramSlot(CGprogram program)
{
    return Unpack(reinterpret_cast<std::uintptr_t>(program), g.programs);
}

CGprogram ProgramHandle(int slot)
{
    return reinterpret_cast<CGprogram>(Pack(slot, g.programs[slot].generation));
}

// The parameter behind a handle, with its program's slot and its index; null when stale.
Parameter* FindParameter(CGparameter parameter, int& slot, int& index)
{
    const std::uintptr_t packed = reinterpret_cast<std::uintptr_t>(parameter);
    slot = Unpack(packed >> 16, g.programs);
    if (slot < 0)
        return nullptr;
    index = static_cast<int>(packed & 0xFFFF);
    std::vector<Parameter>& parameters = g.programs[slot].parameters;
    if (static_cast<std::size_t>(index) >= parameters.size())
        return nullptr;
    return &parameters[index];
}

template <typename Record>
std::size_t FreeSlot(std::vector<Record>& records)
{
    for (std::size_t i = 0; i < records.size(); ++i)
        if (!records[i].alive)
            return i;
    records.emplace_back();
    return records.size() - 1;
}

// ---------------------------------------------------------------- GL helpers

// A new set of entry points means a new (or re-made) GL context: what the
// runtime believed bound no longer holds.
void SyncGLContext()
{
    if (g.glLoadCount != OrvGL::LoadCount())
    {
        g.glLoadCount = OrvGL::LoadCount();
        g.currentKnown = false;
    }
}

bool EnsureGL()
{
    if (!OrvGL::EntryPointsLoaded() && !OrvGL::LoadEntryPoints())
        return false;
    SyncGLContext();
    return true;
}

std::string ShaderLog(GLuint shader)
{
    GLint length = 0;
    OrvGL::glGetShaderiv(shader, GL_INFO_LOG_LENGTH, &length);
    std::string log(length > 0 ? static_cast<std::size_t>(length) : 0, '\0');
    if (length > 0)
        OrvGL::glGetShaderInfoLog(shader, length, nullptr, &log[0]);
    log.resize(std::strlen(log.c_str()));
    return log;
}

std::string ProgramLog(GLuint program)
{
    GLint length = 0;
    OrvGL::glGetProgramiv(program, GL_INFO_LOG_LENGTH, &length);
    std::string log(length > 0 ? static_cast<std::size_t>(length) : 0, '\0');
    if (length > 0)
        OrvGL::glGetProgramInfoLog(program, length, nullptr, &log[0]);
    log.resize(std::strlen(log.c_str()));
    return log;
}

void UseProgram(GLuint program)
{
    // Geometry waiting for the draw was sent for the program in use.
    OrvGLBatch::StateChanging();
    OrvGL::glUseProgram(program);
    ++g.stats.useProgramCalls;
}

void MapType(GLenum glType, CGtype& type, ValueKind& kind)
{
    kind = kValueNone;
    switch (glType)
    {
    case GL_FLOAT: type = CG_FLOAT; kind = kValueFloat1; break;
    case GL_FLOAT_VEC2: type = CG_FLOAT2; break;
    case GL_FLOAT_VEC3: type = CG_FLOAT3; break;
    case GL_FLOAT_VEC4: type = CG_FLOAT4; kind = kValueFloat4; break;
    case GL_FLOAT_MAT2: type = CG_FLOAT2x2; break;
    case GL_FLOAT_MAT3: type = CG_FLOAT3x3; break;
    case GL_FLOAT_MAT4: type = CG_FLOAT4x4; kind = kValueMatrix4; break;
    case GL_INT: type = CG_INT; kind = kValueInt1; break;
    case GL_INT_VEC2: type = CG_INT2; break;
    case GL_INT_VEC3: type = CG_INT3; break;
    case GL_INT_VEC4: type = CG_INT4; break;
    case GL_BOOL: type = CG_BOOL; kind = kValueInt1; break;
    case GL_SAMPLER_1D: type = CG_SAMPLER1D; kind = kValueInt1; break;
    case GL_SAMPLER_2D: type = CG_SAMPLER2D; kind = kValueInt1; break;
    case GL_SAMPLER_3D: type = CG_SAMPLER3D; kind = kValueInt1; break;
    case GL_SAMPLER_CUBE: type = CG_SAMPLERCUBE; kind = kValueInt1; break;
    default: type = CG_UNKNOWN_TYPE; break;
    }
}

bool IsSampler(CGtype type)
{
    return type == CG_SAMPLER1D || type == CG_SAMPLER2D || type == CG_SAMPLER3D || type == CG_SAMPLERCUBE;
}

// Visits the active uniforms of a linked GL program that the source declared
// (GL's own gl_* state is left out), by name without any "[0]" of an array.
template <typename Visit>
void ForEachActiveUniform(GLuint program, Visit visit)
{
    GLint count = 0;
    GLint longest = 0;
    OrvGL::glGetProgramiv(program, GL_ACTIVE_UNIFORMS, &count);
    OrvGL::glGetProgramiv(program, GL_ACTIVE_UNIFORM_MAX_LENGTH, &longest);
    std::vector<GLchar> buffer(static_cast<std::size_t>(longest > 0 ? longest : 1) + 1, '\0');
    for (GLint i = 0; i < count; ++i)
    {
        GLsizei length = 0;
        GLint size = 0;
        GLenum glType = 0;
        OrvGL::glGetActiveUniform(program, static_cast<GLuint>(i), static_cast<GLsizei>(buffer.size()), &length,
                                  &size, &glType, buffer.data());
        std::string name(buffer.data(), static_cast<std::size_t>(length));
        if (name.compare(0, 3, "gl_") == 0)
            continue;
        if (name.size() > 3 && name.compare(name.size() - 3, 3, "[0]") == 0)
            name.resize(name.size() - 3);
        visit(name, glType);
    }
}

// ---------------------------------------------------------------- sources

bool IsIdentifier(const char* text)
{
    if (text == nullptr || !((*text >= 'A' && *text <= 'Z') || (*text >= 'a' && *text <= 'z') || *text == '_'))
        return false;
    for (const char* c = text; *c != '\0'; ++c)
        if (!((*c >= 'A' && *c <= 'Z') || (*c >= 'a' && *c <= 'z') || (*c >= '0' && *c <= '9') || *c == '_'))
            return false;
    return true;
}

// The runtime writes the #version line itself. A "#version 120" in the source
// is blanked in `copy` (keeping line numbers); any other version is refused
// with a message in the compiler's style. Returns false when refused.
bool StripVersion(const char* source, std::string& copy, bool& copied, std::string& error)
{
    copied = false;
    int line = 1;
    for (const char* start = source; *start != '\0'; ++line)
    {
        const char* end = std::strchr(start, '\n');
        if (end == nullptr)
            end = start + std::strlen(start);
        const char* c = start;
        while (c < end && (*c == ' ' || *c == '\t'))
            ++c;
        if (c < end && *c == '#')
        {
            ++c;
            while (c < end && (*c == ' ' || *c == '\t'))
                ++c;
            if (end - c >= 7 && std::strncmp(c, "version", 7) == 0)
            {
                c += 7;
                while (c < end && (*c == ' ' || *c == '\t'))
                    ++c;
                const char* number = c;
                while (c < end && *c >= '0' && *c <= '9')
                    ++c;
                const std::string version(number, c);
                while (c < end && (*c == ' ' || *c == '\t' || *c == '\r'))
                    ++c;
                if (version != "120" || c != end)
                {
                    error = "0:" + std::to_string(line) + "(1): error: the source asks for #version " +
                            std::string(number, end) +
                            ": sources are GLSL 1.20 and the runtime writes the #version line itself\n";
                    return false;
                }
                if (!copied)
                {
                    copy = source;
                    copied = true;
                }
                const std::size_t offset = static_cast<std::size_t>(start - source);
                copy.replace(offset, static_cast<std::size_t>(end - start), static_cast<std::size_t>(end - start), ' ');
            }
        }
        start = *end == '\0' ? end : end + 1;
    }
    return true;
}

// ---------------------------------------------------------------- pairs

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

void DropPairsOf(int slot)
{
    while (!g.programs[slot].pairs.empty())
        DropPair(g.programs[slot].pairs.back());
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

// Brings the uniforms of the pair in use up to the values of its programs.
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

// Makes the bound programs of the enabled stages the ones that draw.
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

void Unbind(int slot)
{
    for (int stage = kVertex; stage <= kFragment; ++stage)
        if (g.bound[stage] == slot)
            g.bound[stage] = -1;
}

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

// ---------------------------------------------------------------- setters

const char* SetterTypeName(ValueKind kind)
{
    switch (kind)
    {
    case kValueFloat1: return "float";
    case kValueFloat4: return "float4";
    case kValueMatrix4: return "float4x4";
    default: return "int, bool or sampler";
    }
}

// The parameter a setter of `kind` may write, or null after raising.
Parameter* Writable(CGparameter handle, ValueKind kind, const char* setter, int& slot, int& index)
{
    Parameter* parameter = FindParameter(handle, slot, index);
    if (parameter == nullptr)
    {
        Raise(CG_INVALID_PARAM_HANDLE_ERROR);
        return nullptr;
    }
    if (parameter->kind != kind)
    {
        Raise(CG_INVALID_VALUE_TYPE_ERROR, std::string(setter) + ": parameter \"" + parameter->name +
                                               "\" does not take a " + SetterTypeName(kind) + " value");
        return nullptr;
    }
    return parameter;
}

// After a parameter's value changed: it reaches GL at once when its program
// belongs to the pair in use, else when a pair containing it is next bound.
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
}  // namespace

// ---------------------------------------------------------------- contexts

CGcontext cgCreateContext()
{
    const std::size_t slot = FreeSlot(g.contexts);
    Context& context = g.contexts[slot];
    context.alive = true;
    context.programs.clear();
    return reinterpret_cast<CGcontext>(Pack(slot, context.generation));
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
    if (source == nullptr || !IsIdentifier(entry) || (arguments != nullptr && arguments[0] != nullptr))
    {
        Raise(CG_INVALID_PARAMETER_ERROR, source == nullptr       ? "No program text"
                                          : !IsIdentifier(entry) ? "The entry name is not an identifier"
                                                                 : "Compiler arguments are not supported");
        return nullptr;
    }
    if (!EnsureGL())
    {
        Raise(CG_GL_UNAVAILABLE_ERROR);
        return nullptr;
    }

    std::string copy;
    bool copied = false;
    std::string error;
    if (!StripVersion(source, copy, copied, error))
    {
        Raise(CG_COMPILER_ERROR, error);
        return nullptr;
    }
    std::string preamble = stage == kVertex ? "#version 120\n#define ORV_VERTEX 1\n"
                                            : "#version 120\n#define ORV_FRAGMENT 1\n";
    if (std::strcmp(entry, "main") != 0)
        preamble += std::string("#define ") + entry + " main\n";
    // GLSL before 1.30 counts "#line N" as the line before line N + 1.
    preamble += "#line 0\n";
    const GLchar* strings[2] = {preamble.c_str(), copied ? copy.c_str() : source};

    const GLuint shader = OrvGL::glCreateShader(stage == kVertex ? GL_VERTEX_SHADER : GL_FRAGMENT_SHADER);
    OrvGL::glShaderSource(shader, 2, strings, nullptr);
    OrvGL::glCompileShader(shader);
    ++g.stats.compiles;
    GLint compiled = GL_FALSE;
    OrvGL::glGetShaderiv(shader, GL_COMPILE_STATUS, &compiled);
    if (compiled != GL_TRUE)
    {
        std::string log = ShaderLog(shader);
        OrvGL::glDeleteShader(shader);
        Raise(CG_COMPILER_ERROR, log.empty() ? FixedErrorText(CG_COMPILER_ERROR) : log);
        return nullptr;
    }

    // The stage linked on its own: proves the entry exists and tells which
    // parameters this stage itself uses.
    const GLuint survey = OrvGL::glCreateProgram();
    OrvGL::glAttachShader(survey, shader);
    OrvGL::glLinkProgram(survey);
    ++g.stats.links;
    GLint linked = GL_FALSE;
    OrvGL::glGetProgramiv(survey, GL_LINK_STATUS, &linked);
    if (linked != GL_TRUE)
    {
        std::string log = ProgramLog(survey);
        OrvGL::glDeleteProgram(survey);
        OrvGL::glDeleteShader(shader);
        Raise(CG_COMPILER_ERROR, log.empty() ? FixedErrorText(CG_COMPILER_ERROR) : log);
        return nullptr;
    }
    std::vector<Parameter> parameters;
    ForEachActiveUniform(survey, [&](const std::string& name, GLenum glType) {
        Parameter parameter;
        parameter.name = name;
        MapType(glType, parameter.type, parameter.kind);
        std::memset(&parameter.value, 0, sizeof(parameter.value));
        parameter.serial = 0;
        if (IsSampler(parameter.type))
        {
            // Texture unit from the digit ending the name; uploaded when linked.
            const char last = name.empty() ? '\0' : name.back();
            parameter.value.integer = last >= '0' && last <= '9' ? last - '0' : 0;
            parameter.serial = ++g.serialCounter;
        }
        parameters.push_back(parameter);
    });
    OrvGL::glDeleteProgram(survey);
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

// ---------------------------------------------------------------- parameters

CGparameter cgGetNamedParameter(CGprogram handle, const char* name)
{
    const int slot = ProgramSlot(handle);
    if (slot < 0)
    {
        Raise(CG_INVALID_PROGRAM_HANDLE_ERROR);
        return nullptr;
    }
    if (name == nullptr)
        return nullptr;
    const std::vector<Parameter>& parameters = g.programs[slot].parameters;
    for (std::size_t i = 0; i < parameters.size(); ++i)
        if (parameters[i].name == name)
            return reinterpret_cast<CGparameter>((Pack(slot, g.programs[slot].generation) << 16) | i);
    return nullptr;
}

CGtype cgGetParameterType(CGparameter handle)
{
    if (handle == nullptr)
        return CG_UNKNOWN_TYPE;
    int slot = -1;
    int index = -1;
    const Parameter* parameter = FindParameter(handle, slot, index);
    if (parameter == nullptr)
    {
        Raise(CG_INVALID_PARAM_HANDLE_ERROR);
        return CG_UNKNOWN_TYPE;
    }
    return parameter->type;
}

namespace
{
// Stores a value through `write` into a parameter of the expected kind, then
// uploads it when its pair draws. `values` must not be null.
template <class Write>
void SetValue(CGparameter handle, ValueKind kind, const char* operation, const void* values, Write write)
{
    int slot = -1;
    int index = -1;
    Parameter* parameter = Writable(handle, kind, operation, slot, index);
    if (parameter == nullptr)
        return;
    if (values == nullptr)
    {
        Raise(CG_INVALID_PARAMETER_ERROR, std::string(operation) + ": no values");
        return;
    }
    write(parameter->value);
    parameter->serial = ++g.serialCounter;
    // Whoever remembered this parameter's value must look again.
    OrvGLBatch::StateChanged();
    Apply(slot, index);
}
}

void cgSetParameter1f(CGparameter handle, float value)
{
    SetValue(handle, kValueFloat1, "cgSetParameter1f", &value, [value](auto& v) { v.floats[0] = value; });
}

void cgSetParameter4fv(CGparameter handle, const float* values)
{
    SetValue(handle, kValueFloat4, "cgSetParameter4fv", values,
             [values](auto& v) { std::memcpy(v.floats, values, 4 * sizeof(float)); });
}

void cgSetParameter1i(CGparameter handle, int value)
{
    SetValue(handle, kValueInt1, "cgSetParameter1i", &value, [value](auto& v) { v.integer = value; });
}

void cgSetMatrixParameterfc(CGparameter handle, const float* columnMajor)
{
    SetValue(handle, kValueMatrix4, "cgSetMatrixParameterfc", columnMajor,
             [columnMajor](auto& v) { std::memcpy(v.floats, columnMajor, 16 * sizeof(float)); });
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

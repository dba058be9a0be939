#ifndef ORV_SHADER_RUNTIME_STATE_H
#define ORV_SHADER_RUNTIME_STATE_H

// Private to the shader runtime: everything it knows, in one object shared by
// its files (handles, programs, pairs, uniforms and the cg* functions). One GL
// context and one thread, as the runtime's public header says.

#include <GL/gl.h>

#include <cstdint>
#include <string>
#include <vector>

#include "OrvShaderRuntime.h"

namespace OrvCgRuntime
{
const int kVertex = 0;
const int kFragment = 1;

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

extern Runtime g;

// The text cgGetErrorString gives for an error that brought none of its own.
const char* FixedErrorText(CGerror error);

// Records the error and hands it to the callback, which may throw: callers
// leave everything consistent before raising and do nothing after.
void Raise(CGerror error, std::string text);
void Raise(CGerror error);
}  // namespace OrvCgRuntime

#endif

#ifndef ORV_SHADER_RUNTIME_H
#define ORV_SHADER_RUNTIME_H

// The engine's shader runtime: contexts, vertex and fragment programs, their
// parameters and their binding, built on OpenGL 2.0 GLSL.
//
// A program's source is GLSL 1.20 text holding both entry functions of an
// effect. The runtime compiles it once per stage after a short preamble of its
// own: "#version 120" (a "#version 120" line in the source is blanked, any
// other version is refused), the stage macro ORV_VERTEX or ORV_FRAGMENT for the
// source to test with #ifdef, and "#define <entry> main". Line numbers in the
// compiler's log are those of the source itself.
//
// Binding: the vertex and the fragment program in use are linked into one GL
// program per pair, on first use, and cached. A vertex bind takes effect with
// the fragment bind that follows it (or at once when the fragment profile is
// off); a fragment bind takes effect at once. Parameter values are kept per
// program and reach every linked pair that contains the program; a value set on
// a program of the pair in use is uploaded at once, others when their pair is
// next bound. Redundant glUseProgram calls and uniform uploads are skipped.
//
// Failures: every failing operation records its error and calls the error
// callback during the failing call (the engine's callback throws); without a
// callback the operation returns a null handle or does nothing. The runtime
// is used from one thread, the one that owns the GL context.

typedef struct OrvCgContextHandle* CGcontext;
typedef struct OrvCgProgramHandle* CGprogram;
typedef struct OrvCgParameterHandle* CGparameter;
typedef int CGerror;
typedef int CGtype;
typedef int CGprofile;
typedef int CGenum;
typedef void (*CGerrorCallbackFunc)(void);

/// Error codes.
const CGerror CG_NO_ERROR = 0;
const CGerror CG_COMPILER_ERROR = 1;                // a stage did not compile; the text is the compiler's log
const CGerror CG_LINK_ERROR = 2;                    // a vertex/fragment pair did not link; the text is the linker's log
const CGerror CG_INVALID_CONTEXT_HANDLE_ERROR = 3;  // null, destroyed or foreign context
const CGerror CG_INVALID_PROGRAM_HANDLE_ERROR = 4;  // null or destroyed program
const CGerror CG_INVALID_PARAM_HANDLE_ERROR = 5;    // parameter of a destroyed program, or a forged one
const CGerror CG_INVALID_ENUMERANT_ERROR = 6;       // a source kind other than CG_SOURCE
const CGerror CG_UNKNOWN_PROFILE_ERROR = 7;         // neither the vertex nor the fragment profile
const CGerror CG_PROGRAM_NOT_LOADED_ERROR = 8;      // binding a program that is not loaded
const CGerror CG_INVALID_VALUE_TYPE_ERROR = 9;      // a setter that does not fit the parameter's type
const CGerror CG_INVALID_PARAMETER_ERROR = 10;      // no source text, a bad entry name, compiler arguments
const CGerror CG_GL_UNAVAILABLE_ERROR = 11;         // no current OpenGL 2.0 context

/// Source kind and profiles.
const CGenum CG_SOURCE = 4112;
const CGprofile CG_PROFILE_ARBVP1 = 6150;  // vertex programs
const CGprofile CG_PROFILE_ARBFP1 = 7000;  // fragment programs

/// Parameter types. The setters take: CG_FLOAT cgSetParameter1f; CG_FLOAT4
/// cgSetParameter4fv; CG_FLOAT4x4 cgSetMatrixParameterfc; CG_INT, CG_BOOL and
/// the samplers cgSetParameter1i. Other types can be looked up but not set.
const CGtype CG_UNKNOWN_TYPE = 0;
const CGtype CG_FLOAT = 1045;
const CGtype CG_FLOAT2 = 1046;
const CGtype CG_FLOAT3 = 1047;
const CGtype CG_FLOAT4 = 1048;
const CGtype CG_FLOAT2x2 = 1054;
const CGtype CG_FLOAT3x3 = 1059;
const CGtype CG_FLOAT4x4 = 1064;
const CGtype CG_SAMPLER1D = 1065;
const CGtype CG_SAMPLER2D = 1066;
const CGtype CG_SAMPLER3D = 1067;
const CGtype CG_SAMPLERCUBE = 1069;
const CGtype CG_INT = 1093;
const CGtype CG_INT2 = 1094;
const CGtype CG_INT3 = 1095;
const CGtype CG_INT4 = 1096;
const CGtype CG_BOOL = 1114;

/// Contexts. Destroying a context destroys its programs and their linked pairs.
CGcontext cgCreateContext();
void cgDestroyContext(CGcontext context);

/// Errors. cgGetError returns the pending error and clears it; cgGetErrorString
/// returns the text of the latest error of that code (the driver's log for
/// compile and link errors), valid until the next error.
void cgSetErrorCallback(CGerrorCallbackFunc callback);
CGerrorCallbackFunc cgGetErrorCallback();
CGerror cgGetError();
const char* cgGetErrorString(CGerror error);

/// Programs. `arguments` must be null or an empty (null-terminated) list; a
/// null `entry` stands for "main". Sampler parameters start on the texture unit
/// that ends their name ("in_t2dTexture1": unit 1), unit 0 when no digit ends it.
CGprogram cgCreateProgram(CGcontext context, CGenum sourceKind, const char* source, CGprofile profile,
                          const char* entry, const char** arguments);
void cgGLLoadProgram(CGprogram program);
void cgGLUnloadProgram(CGprogram program);
void cgDestroyProgram(CGprogram program);

/// Binding.
void cgGLEnableProfile(CGprofile profile);
void cgGLDisableProfile(CGprofile profile);
void cgGLBindProgram(CGprogram program);

/// Parameters: a null handle when the program has no active parameter of that
/// name; a null handle's type is CG_UNKNOWN_TYPE.
CGparameter cgGetNamedParameter(CGprogram program, const char* name);
CGtype cgGetParameterType(CGparameter parameter);
void cgSetParameter1f(CGparameter parameter, float value);
void cgSetParameter4fv(CGparameter parameter, const float* values);
void cgSetParameter1i(CGparameter parameter, int value);
void cgSetMatrixParameterfc(CGparameter parameter, const float* columnMajor);

/// Counters of the GL work done by the runtime, and the switch that turns its
/// redundancy checks off (every bind then calls glUseProgram, every set and
/// every bind uploads).
struct OrvShaderRuntimeStats
{
    unsigned long useProgramCalls;
    unsigned long uniformCalls;  // glUniform* of every kind
    unsigned long compiles;      // stages compiled
    unsigned long links;         // GL programs linked (pairs and the per-stage parameter survey)
};

const OrvShaderRuntimeStats& OrvShaderRuntimeGetStats();
void OrvShaderRuntimeResetStats();
void OrvShaderRuntimeSetCaching(bool enabled);
bool OrvShaderRuntimeGetCaching();

#endif

#include "OrvShaderGL.h"

#include <cstring>

#include "OrvGLBatch.h"
#include "OrvShaderSource.h"

namespace OrvCgRuntime
{
namespace
{
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

Parameter SurveyedParameter(const std::string& name, GLenum glType)
{
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
    return parameter;
}
}  // namespace

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

bool CompileStage(int stage, const OrvShaderSource& source, GLuint& shader, std::vector<Parameter>& parameters)
{
    const GLchar* strings[2] = {source.GetPreamble().c_str(), source.GetText()};
    shader = OrvGL::glCreateShader(stage == kVertex ? GL_VERTEX_SHADER : GL_FRAGMENT_SHADER);
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
        return false;
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
        return false;
    }
    ForEachActiveUniform(survey, [&](const std::string& name, GLenum glType) {
        parameters.push_back(SurveyedParameter(name, glType));
    });
    OrvGL::glDeleteProgram(survey);
    return true;
}
}  // namespace OrvCgRuntime

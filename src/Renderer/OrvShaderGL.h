#ifndef ORV_SHADER_GL_H
#define ORV_SHADER_GL_H

// Private to the shader runtime: its work with GL itself, compiling a stage,
// linking logs, the program in use and the survey of a program's uniforms.

#include <string>
#include <vector>

#include "OrvGLEntryPoints.h"
#include "OrvShaderRuntimeState.h"

class OrvShaderSource;

namespace OrvCgRuntime
{
// A new set of entry points means a new (or re-made) GL context: what the
// runtime believed bound no longer holds.
void SyncGLContext();
// Loads the entry points unless loaded; false without a GL 2.0 context.
bool EnsureGL();

std::string ProgramLog(GLuint program);
// glUseProgram, counted, after drawing what was collected for the old program.
void UseProgram(GLuint program);

// Compiles one stage of a prepared source and surveys the parameters it uses
// itself (samplers start on the unit that ends their name). False after
// raising CG_COMPILER_ERROR with the driver's log, nothing left behind.
bool CompileStage(int stage, const OrvShaderSource& source, GLuint& shader, std::vector<Parameter>& parameters);

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
}  // namespace OrvCgRuntime

#endif

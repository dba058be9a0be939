#ifndef ORV_GL_ENTRY_POINTS_H
#define ORV_GL_ENTRY_POINTS_H

// Private to the renderer: the OpenGL 2.0 entry points the engine calls,
// fetched with SDL_GL_GetProcAddress. They live in this namespace so as not to
// take the names that libGL itself exports.

#include <GL/gl.h>
#include <GL/glext.h>

namespace OrvGL
{
// Fetches every entry point; needs a current context of OpenGL 2.0 or later.
// Returns false (and leaves the entry points null) otherwise. The renderer
// calls it at set-up and again whenever the window's GL context was replaced;
// the shader runtime calls it on first use when nobody did.
bool LoadEntryPoints();
// True once LoadEntryPoints has succeeded.
bool EntryPointsLoaded();
// Counts the successful LoadEntryPoints calls: the shader runtime forgets what
// it believes bound when this changes.
unsigned int LoadCount();

extern PFNGLACTIVETEXTUREPROC glActiveTexture;
extern PFNGLCREATESHADERPROC glCreateShader;
extern PFNGLSHADERSOURCEPROC glShaderSource;
extern PFNGLCOMPILESHADERPROC glCompileShader;
extern PFNGLGETSHADERIVPROC glGetShaderiv;
extern PFNGLGETSHADERINFOLOGPROC glGetShaderInfoLog;
extern PFNGLDELETESHADERPROC glDeleteShader;
extern PFNGLISSHADERPROC glIsShader;
extern PFNGLCREATEPROGRAMPROC glCreateProgram;
extern PFNGLATTACHSHADERPROC glAttachShader;
extern PFNGLLINKPROGRAMPROC glLinkProgram;
extern PFNGLGETPROGRAMIVPROC glGetProgramiv;
extern PFNGLGETPROGRAMINFOLOGPROC glGetProgramInfoLog;
extern PFNGLDELETEPROGRAMPROC glDeleteProgram;
extern PFNGLISPROGRAMPROC glIsProgram;
extern PFNGLUSEPROGRAMPROC glUseProgram;
extern PFNGLGETACTIVEUNIFORMPROC glGetActiveUniform;
extern PFNGLGETUNIFORMLOCATIONPROC glGetUniformLocation;
extern PFNGLUNIFORM1FPROC glUniform1f;
extern PFNGLUNIFORM4FVPROC glUniform4fv;
extern PFNGLUNIFORM1IPROC glUniform1i;
extern PFNGLUNIFORMMATRIX4FVPROC glUniformMatrix4fv;
}  // namespace OrvGL

#endif

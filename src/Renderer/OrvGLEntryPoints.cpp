#include "OrvGLEntryPoints.h"

#include <SDL.h>

#include <cstdlib>

namespace OrvGL
{
PFNGLACTIVETEXTUREPROC glActiveTexture = nullptr;
PFNGLCREATESHADERPROC glCreateShader = nullptr;
PFNGLSHADERSOURCEPROC glShaderSource = nullptr;
PFNGLCOMPILESHADERPROC glCompileShader = nullptr;
PFNGLGETSHADERIVPROC glGetShaderiv = nullptr;
PFNGLGETSHADERINFOLOGPROC glGetShaderInfoLog = nullptr;
PFNGLDELETESHADERPROC glDeleteShader = nullptr;
PFNGLISSHADERPROC glIsShader = nullptr;
PFNGLCREATEPROGRAMPROC glCreateProgram = nullptr;
PFNGLATTACHSHADERPROC glAttachShader = nullptr;
PFNGLLINKPROGRAMPROC glLinkProgram = nullptr;
PFNGLGETPROGRAMIVPROC glGetProgramiv = nullptr;
PFNGLGETPROGRAMINFOLOGPROC glGetProgramInfoLog = nullptr;
PFNGLDELETEPROGRAMPROC glDeleteProgram = nullptr;
PFNGLISPROGRAMPROC glIsProgram = nullptr;
PFNGLUSEPROGRAMPROC glUseProgram = nullptr;
PFNGLGETACTIVEUNIFORMPROC glGetActiveUniform = nullptr;
PFNGLGETUNIFORMLOCATIONPROC glGetUniformLocation = nullptr;
PFNGLUNIFORM1FPROC glUniform1f = nullptr;
PFNGLUNIFORM4FVPROC glUniform4fv = nullptr;
PFNGLUNIFORM1IPROC glUniform1i = nullptr;
PFNGLUNIFORMMATRIX4FVPROC glUniformMatrix4fv = nullptr;

namespace
{
bool g_loaded = false;
unsigned int g_loadCount = 0;

// The context's version is at least 2.0 ("major.minor..." leads the string).
bool ContextIsGL2()
{
    const GLubyte* version = ::glGetString(GL_VERSION);
    if (version == nullptr)
        return false;
    return std::atoi(reinterpret_cast<const char*>(version)) >= 2;
}

template <typename Pointer>
bool Fetch(Pointer& entry, const char* name)
{
    entry = reinterpret_cast<Pointer>(SDL_GL_GetProcAddress(name));
    return entry != nullptr;
}

bool FetchAll()
{
    bool ok = true;
    ok = Fetch(glActiveTexture, "glActiveTexture") && ok;
    ok = Fetch(glCreateShader, "glCreateShader") && ok;
    ok = Fetch(glShaderSource, "glShaderSource") && ok;
    ok = Fetch(glCompileShader, "glCompileShader") && ok;
    ok = Fetch(glGetShaderiv, "glGetShaderiv") && ok;
    ok = Fetch(glGetShaderInfoLog, "glGetShaderInfoLog") && ok;
    ok = Fetch(glDeleteShader, "glDeleteShader") && ok;
    ok = Fetch(glIsShader, "glIsShader") && ok;
    ok = Fetch(glCreateProgram, "glCreateProgram") && ok;
    ok = Fetch(glAttachShader, "glAttachShader") && ok;
    ok = Fetch(glLinkProgram, "glLinkProgram") && ok;
    ok = Fetch(glGetProgramiv, "glGetProgramiv") && ok;
    ok = Fetch(glGetProgramInfoLog, "glGetProgramInfoLog") && ok;
    ok = Fetch(glDeleteProgram, "glDeleteProgram") && ok;
    ok = Fetch(glIsProgram, "glIsProgram") && ok;
    ok = Fetch(glUseProgram, "glUseProgram") && ok;
    ok = Fetch(glGetActiveUniform, "glGetActiveUniform") && ok;
    ok = Fetch(glGetUniformLocation, "glGetUniformLocation") && ok;
    ok = Fetch(glUniform1f, "glUniform1f") && ok;
    ok = Fetch(glUniform4fv, "glUniform4fv") && ok;
    ok = Fetch(glUniform1i, "glUniform1i") && ok;
    ok = Fetch(glUniformMatrix4fv, "glUniformMatrix4fv") && ok;
    return ok;
}

void ClearAll()
{
    glActiveTexture = nullptr;
    glCreateShader = nullptr;
    glShaderSource = nullptr;
    glCompileShader = nullptr;
    glGetShaderiv = nullptr;
    glGetShaderInfoLog = nullptr;
    glDeleteShader = nullptr;
    glIsShader = nullptr;
    glCreateProgram = nullptr;
    glAttachShader = nullptr;
    glLinkProgram = nullptr;
    glGetProgramiv = nullptr;
    glGetProgramInfoLog = nullptr;
    glDeleteProgram = nullptr;
    glIsProgram = nullptr;
    glUseProgram = nullptr;
    glGetActiveUniform = nullptr;
    glGetUniformLocation = nullptr;
    glUniform1f = nullptr;
    glUniform4fv = nullptr;
    glUniform1i = nullptr;
    glUniformMatrix4fv = nullptr;
}
}  // namespace

bool LoadEntryPoints()
{
    // Without a current GL 2.0 context the addresses SDL hands out are not
    // usable, even where it hands some out.
    if (!ContextIsGL2() || !FetchAll())
    {
        ClearAll();
        g_loaded = false;
        return false;
    }
    g_loaded = true;
    ++g_loadCount;
    return true;
}

bool EntryPointsLoaded()
{
    return g_loaded;
}

unsigned int LoadCount()
{
    return g_loadCount;
}
}  // namespace OrvGL

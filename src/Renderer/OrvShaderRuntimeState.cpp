#include "OrvShaderRuntimeState.h"

#include <utility>

namespace OrvCgRuntime
{
Runtime g;

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
}  // namespace OrvCgRuntime

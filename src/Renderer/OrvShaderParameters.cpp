#include "OrvShaderRuntime.h"

#include <cstring>
#include <string>
#include <vector>

#include "OrvGLBatch.h"
#include "OrvShaderHandles.h"
#include "OrvShaderUniforms.h"

// The cg* functions of parameters: lookup, type and the four setters.

using namespace OrvCgRuntime;

namespace
{
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
}  // namespace

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
            return ParameterHandle(slot, i);
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

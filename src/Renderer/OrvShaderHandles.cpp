#include "OrvShaderHandles.h"

#include <cstdint>

static_assert(sizeof(std::uintptr_t) >= 8, "handles pack 64 bits into a pointer");

namespace OrvCgRuntime
{
namespace
{
const std::uintptr_t kGenerationMask = 0xFFFFFF;

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
}  // namespace

int ContextSlot(CGcontext context)
{
    return Unpack(reinterpret_cast<std::uintptr_t>(context), g.contexts);
}

int ProgramSlot(CGprogram program)
{
    return Unpack(reinterpret_cast<std::uintptr_t>(program), g.programs);
}

CGcontext ContextHandle(int slot)
{
    return reinterpret_cast<CGcontext>(Pack(static_cast<std::size_t>(slot), g.contexts[slot].generation));
}

CGprogram ProgramHandle(int slot)
{
    return reinterpret_cast<CGprogram>(Pack(static_cast<std::size_t>(slot), g.programs[slot].generation));
}

CGparameter ParameterHandle(int slot, std::size_t index)
{
    return reinterpret_cast<CGparameter>((Pack(static_cast<std::size_t>(slot), g.programs[slot].generation) << 16) |
                                         index);
}

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
}  // namespace OrvCgRuntime

#ifndef ORV_SHADER_HANDLES_H
#define ORV_SHADER_HANDLES_H

// Private to the shader runtime. Handles are numbers, not addresses: a slot
// index and the slot's generation, so a handle to something destroyed is
// refused instead of being followed.
//   context, program: ((slot + 1) << 24) | (generation & 0xFFFFFF)
//   parameter:        (program handle << 16) | parameter index

#include <cstddef>
#include <vector>

#include "OrvShaderRuntimeState.h"

namespace OrvCgRuntime
{
// Slots stop here so that a packed program handle still leaves 16 bits for
// the parameter index.
const std::size_t kMaxSlots = 0xFFFFFE;
const std::size_t kMaxParameters = 0xFFFF;

// Slot of a live context or program, or -1 for a null, stale or forged handle.
int ContextSlot(CGcontext context);
int ProgramSlot(CGprogram program);

CGcontext ContextHandle(int slot);
CGprogram ProgramHandle(int slot);
CGparameter ParameterHandle(int slot, std::size_t index);

// The parameter behind a handle, with its program's slot and its index; null when stale.
Parameter* FindParameter(CGparameter parameter, int& slot, int& index);

// The first dead record, or a new one at the end.
template <typename Record>
std::size_t FreeSlot(std::vector<Record>& records)
{
    for (std::size_t i = 0; i < records.size(); ++i)
        if (!records[i].alive)
            return i;
    records.emplace_back();
    return records.size() - 1;
}
}  // namespace OrvCgRuntime

#endif

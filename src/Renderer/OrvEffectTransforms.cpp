#include "OrvEffectTransforms.h"

#include <cstring>

const float OrvEffectTransforms::kIdentity[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};

float* OrvEffectTransforms::Of(const OrvEffect* effect, const float* inUse)
{
    for (unsigned int i = 0; i < m_count; ++i)
        if (m_slots[i].effect == effect)
            return m_slots[i].values;
    unsigned int slot = m_count;
    if (slot < kSlots)
        ++m_count;
    else
    {
        slot = m_next;
        if (m_slots[slot].values == inUse)
            slot = (slot + 1) % kSlots;
        m_next = (slot + 1) % kSlots;
    }
    m_slots[slot].effect = effect;
    std::memcpy(m_slots[slot].values, kIdentity, sizeof(kIdentity));
    return m_slots[slot].values;
}

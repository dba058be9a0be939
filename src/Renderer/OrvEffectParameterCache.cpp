#include "OrvEffectParameterCache.h"

#include <cstdint>
#include <cstring>

unsigned int OrvEffectParameterCache::SlotOf(const OrvEffect* effect, const char* name)
{
    const std::uintptr_t key = reinterpret_cast<std::uintptr_t>(effect) ^ (reinterpret_cast<std::uintptr_t>(name) * 31u);
    return static_cast<unsigned int>((key ^ (key >> 7) ^ (key >> 17)) % kSlots);
}

OrvEffectParameterCache::Entry* OrvEffectParameterCache::Find(const OrvEffect* effect, CGprogram vs, CGprogram fs,
                                                              const char* name)
{
    Entry& entry = m_entries[SlotOf(effect, name)];
    if (entry.effect != effect || entry.vs != vs || entry.fs != fs || entry.nameAddress != name ||
        std::strcmp(entry.name.c_str(), name) != 0)
        return nullptr;
    return &entry;
}

OrvEffectParameterCache::Entry& OrvEffectParameterCache::Store(const OrvEffect* effect, CGprogram vs, CGprogram fs,
                                                               const char* name, CGparameter parameter,
                                                               CGtype type, bool modelView)
{
    Entry& entry = m_entries[SlotOf(effect, name)];
    entry = Entry();
    entry.effect = effect;
    entry.vs = vs;
    entry.fs = fs;
    entry.nameAddress = name;
    entry.name = name;
    entry.parameter = parameter;
    entry.type = type;
    entry.modelView = modelView;
    return entry;
}

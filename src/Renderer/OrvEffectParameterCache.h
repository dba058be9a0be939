#ifndef ORV_EFFECT_PARAMETER_CACHE_H
#define ORV_EFFECT_PARAMETER_CACHE_H

// Private to the OpenGL renderer: what it learnt about each (effect, name)
// pair that it was asked to set, so that setting a parameter costs a table
// probe and a comparison instead of a search by name in the shader runtime.
//
// Why: every sprite's pass hands its effect a colour, a model-view and a
// projection, by name. Found by name each time, with the runtime's handle
// checks and upload bookkeeping, that was most of a sprite's cost. Here a
// parameter is found once; a value equal to the one set last is not set
// again while nobody but the renderer touched GL state or shader parameters
// (the renderer's era has not moved on).
//
// Entries are keyed by the effect, its two programs (handles carry a
// generation, so programs declared anew never match old entries) and the
// name's address, and checked against a copy of the name. One table of a few
// dozen entries; a colliding pair takes the slot over.

#include <string>

typedef struct OrvCgProgramHandle* CGprogram;
typedef struct OrvCgParameterHandle* CGparameter;
typedef int CGtype;
class OrvEffect;

class OrvEffectParameterCache
{
public:
    struct Entry
    {
        const OrvEffect* effect = nullptr;
        CGprogram vs = nullptr;
        CGprogram fs = nullptr;
        const char* nameAddress = nullptr;
        std::string name;
        CGparameter parameter = nullptr;
        CGtype type = 0;
        // The model-view parameter: it keeps an identity, set once.
        bool modelView = false;
        bool identitySet = false;
        // The value set last through this entry, and the renderer's era then
        // (0: none).
        float value[16] = {};
        unsigned long valueEra = 0;
    };

    // The entry of that effect (with these programs) and name, or null.
    Entry* Find(const OrvEffect* effect, CGprogram vs, CGprogram fs, const char* name);
    // Takes the pair's slot over for a parameter found by name.
    Entry& Store(const OrvEffect* effect, CGprogram vs, CGprogram fs, const char* name, CGparameter parameter,
                 CGtype type, bool modelView);

private:
    static const unsigned int kSlots = 64;
    static unsigned int SlotOf(const OrvEffect* effect, const char* name);

    Entry m_entries[kSlots];
};

#endif

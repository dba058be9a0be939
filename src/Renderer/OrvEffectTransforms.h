#ifndef ORV_EFFECT_TRANSFORMS_H
#define ORV_EFFECT_TRANSFORMS_H

// Private to the OpenGL renderer: the model-view matrix last handed to each
// effect, which is what that effect's vertices are transformed by on the CPU.
// A shader keeps the value of a parameter per program, so the renderer keeps
// the model-view per effect in the same way: handing one effect a model-view
// does not move what another effect draws.
//
// A few slots, found by scanning: a frame uses a handful of effects. When all
// are taken, the next one in turn is given up (never the one in use); an
// effect without a slot starts from the identity, and every pass hands its
// effect a model-view on activation anyway.
class OrvEffect;

class OrvEffectTransforms
{
public:
    // The slot of `effect`, taken (holding the identity) when it has none;
    // `inUse` is never given up.
    float* Of(const OrvEffect* effect, const float* inUse);

    static const float kIdentity[16];

private:
    struct Slot
    {
        const OrvEffect* effect;
        float values[16];
    };
    static const unsigned int kSlots = 8;

    Slot m_slots[kSlots] = {};
    unsigned int m_count = 0;
    unsigned int m_next = 0;
};

#endif

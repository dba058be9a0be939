#ifndef ORV_OPENGL_RENDERER_STATE_H
#define ORV_OPENGL_RENDERER_STATE_H

// Private to the OpenGL renderer: its batch, and what it remembers of the GL
// state it set, so that thousands of sprites sharing one look cost a
// comparison each instead of a round of state changes.
//
// What the renderer remembers holds only while nobody else changes GL state
// or shader parameters. The state caches, the shader runtime and textures
// count every change they make (OrvGLBatch::StateChanges); the renderer notes
// the count after each change of its own. A different count means someone
// else changed something: a new era begins, and nothing remembered from an
// earlier era counts.

#include "OrvEffectParameterCache.h"
#include "OrvEffectTransforms.h"
#include "OrvGLBatch.h"
#include "OrvGLPassState.h"

struct OrvOpenGLRendererState
{
    OrvGLBatch batch;
    OrvEffectParameterCache parameters;
    OrvEffectTransforms transforms;
    // The transform of the effect whose pass was activated last: the one
    // vertices take.
    const float* transform = OrvEffectTransforms::kIdentity;
    // Between a Begin that the batch accepted and its End.
    bool bracketOpen = false;
    // The pass applied last, and the era it belongs to.
    OrvGLPassState pass;
    unsigned long passEra = 0;
    unsigned long era = 1;
    // The count of state changes right after the renderer's last own change.
    unsigned long knownChanges = 0;

    // True when only the renderer changed GL state since its last change;
    // otherwise starts a new era.
    bool StateIsOurs()
    {
        if (OrvGLBatch::StateChanges() == knownChanges)
            return true;
        ++era;
        knownChanges = OrvGLBatch::StateChanges();
        return false;
    }
    // The renderer has just changed state itself.
    void NoteOwnChanges() { knownChanges = OrvGLBatch::StateChanges(); }
};

#endif

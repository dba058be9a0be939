#ifndef ORV_GL_BATCH_H
#define ORV_GL_BATCH_H

// Private to the OpenGL renderer: the vertices sent between Begin and End,
// already transformed, collected in one array and drawn with one
// glDrawArrays per flush.
//
// Why: drawing a sprite through immediate mode costs ten GL calls and one
// draw of its own, and the driver's work per draw dwarfs the four vertices.
// Collected, thousands of sprites that share their GL state go out in one
// draw. The price is that anything changing GL state (a program, a uniform,
// the blend function, a texture binding or its contents) must first draw what
// was collected under the old state: the state caches and the shader runtime
// call FlushCurrent() before every GL call that changes something, and the
// renderer flushes at the ends of frames and passes.
//
// Quads and separate lines from consecutive brackets go out together; a line
// strip or loop is drawn on its own at its End. An incomplete last primitive
// of a bracket is dropped, as immediate mode drops it. While deferring is off
// every End draws at once.
//
// One GL context and one thread, like the caches: the renderer that set up
// the context last owns the batch that FlushCurrent() reaches.

#include <GL/gl.h>

#include <vector>

class OrvGLBatch
{
public:
    // Quads and lines go out when this many vertices are waiting.
    static const unsigned int kCapacity = 16384;

    OrvGLBatch();
    ~OrvGLBatch();
    OrvGLBatch(const OrvGLBatch&) = delete;
    OrvGLBatch& operator=(const OrvGLBatch&) = delete;

    // Makes this batch the one FlushCurrent() draws (after flushing the
    // previous one).
    void MakeCurrent();
    // Draws what the current batch holds, if anything. Cheap when nothing waits.
    static void FlushCurrent()
    {
        if (s_current != nullptr && s_current->m_count != 0)
            s_current->Flush();
    }
    // Called just before GL state changes (by the caches, the shader runtime,
    // textures, video modes): draws what waits, and counts the change.
    static void StateChanging()
    {
        ++s_stateChanges;
        FlushCurrent();
    }
    // Changes that bypass the draw (program bindings, texture names) only count.
    static void StateChanged() { ++s_stateChanges; }
    // How many times state changed so far: while it stays the same, what the
    // renderer set last is still what GL holds.
    static unsigned long StateChanges() { return s_stateChanges; }

    void Begin(GLenum primitive);
    // A vertex already in clip-ready coordinates (x, y, z, w) and its texture
    // coordinates.
    void Add(float x, float y, float z, float w, float u, float v)
    {
        if (m_count == m_capacity)
            MakeRoom();
        float* slot = &m_vertices[static_cast<std::size_t>(m_count) * kFloatsPerVertex];
        slot[0] = x;
        slot[1] = y;
        slot[2] = z;
        slot[3] = w;
        slot[4] = u;
        slot[5] = v;
        ++m_count;
    }
    void End();
    // Draws the complete primitives that wait, in one draw call; the open
    // bracket's unfinished one stays for the vertices still to come.
    void Flush();

    void SetDeferring(bool deferring);
    bool GetDeferring() const { return m_deferring; }
    // Draw calls made so far.
    unsigned long GetDrawCalls() const { return m_drawCalls; }

private:
    static const unsigned int kFloatsPerVertex = 6;

    // Drops the open bracket's unfinished primitive.
    void CloseBracket();
    // The array is full: flushes, or grows for a strip or loop.
    void MakeRoom();
    // Vertices a primitive of the open bracket takes: 4 for quads, 2 for
    // lines, 0 for strips and loops (drawn whole at End).
    unsigned int PrimitiveSize() const;

    static OrvGLBatch* s_current;
    static unsigned long s_stateChanges;

    std::vector<float> m_vertices;
    unsigned int m_capacity;
    unsigned int m_count;
    // Where the open bracket's vertices start.
    unsigned int m_bracketStart;
    GLenum m_primitive;
    bool m_deferring;
    unsigned long m_drawCalls;
};

#endif

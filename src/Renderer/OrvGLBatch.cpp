#include "OrvGLBatch.h"

#include <cstring>

OrvGLBatch* OrvGLBatch::s_current = nullptr;
unsigned long OrvGLBatch::s_stateChanges = 0;

OrvGLBatch::OrvGLBatch()
    : m_vertices(static_cast<std::size_t>(kCapacity) * kFloatsPerVertex),
      m_capacity(kCapacity),
      m_count(0),
      m_bracketStart(0),
      m_primitive(GL_QUADS),
      m_deferring(false),
      m_drawCalls(0)
{
}

OrvGLBatch::~OrvGLBatch()
{
    // What waits belongs to a context that may be gone already: dropped.
    if (s_current == this)
        s_current = nullptr;
}

void OrvGLBatch::MakeCurrent()
{
    if (s_current == this)
        return;
    FlushCurrent();
    s_current = this;
}

unsigned int OrvGLBatch::PrimitiveSize() const
{
    switch (m_primitive)
    {
    case GL_QUADS: return 4;
    case GL_LINES: return 2;
    default: return 0;
    }
}

void OrvGLBatch::CloseBracket()
{
    const unsigned int size = PrimitiveSize();
    if (size != 0)
        m_count -= (m_count - m_bracketStart) % size;
    m_bracketStart = m_count;
}

void OrvGLBatch::Begin(GLenum primitive)
{
    // A bracket left open loses its unfinished primitive, as at its End.
    CloseBracket();
    // Only quads after quads and lines after lines share a draw.
    if (m_count != 0 && (primitive != m_primitive || PrimitiveSize() == 0))
        Flush();
    m_primitive = primitive;
    m_bracketStart = m_count;
}

void OrvGLBatch::End()
{
    CloseBracket();
    if (!m_deferring || PrimitiveSize() == 0)
        Flush();
}

void OrvGLBatch::Flush()
{
    // Inside a bracket the unfinished primitive stays for the vertices to come.
    const unsigned int size = PrimitiveSize();
    const unsigned int unfinished = size != 0 ? (m_count - m_bracketStart) % size : 0;
    const unsigned int complete = m_count - unfinished;
    if (complete != 0)
    {
        const GLsizei stride = static_cast<GLsizei>(kFloatsPerVertex * sizeof(float));
        glEnableClientState(GL_VERTEX_ARRAY);
        glVertexPointer(4, GL_FLOAT, stride, m_vertices.data());
        glEnableClientState(GL_TEXTURE_COORD_ARRAY);
        glTexCoordPointer(2, GL_FLOAT, stride, m_vertices.data() + 4);
        glDrawArrays(m_primitive, 0, static_cast<GLsizei>(complete));
        // Left enabled, the arrays would point a game's own draws at this
        // buffer.
        glDisableClientState(GL_TEXTURE_COORD_ARRAY);
        glDisableClientState(GL_VERTEX_ARRAY);
        ++m_drawCalls;
    }
    if (unfinished != 0)
        std::memmove(m_vertices.data(), &m_vertices[static_cast<std::size_t>(complete) * kFloatsPerVertex],
                     static_cast<std::size_t>(unfinished) * kFloatsPerVertex * sizeof(float));
    m_count = unfinished;
    m_bracketStart = 0;
}

void OrvGLBatch::MakeRoom()
{
    if (PrimitiveSize() != 0)
    {
        Flush();
        return;
    }
    // A strip or loop is one primitive: it must go out whole.
    m_capacity *= 2;
    m_vertices.resize(static_cast<std::size_t>(m_capacity) * kFloatsPerVertex);
}

void OrvGLBatch::SetDeferring(bool deferring)
{
    if (!deferring)
        Flush();
    m_deferring = deferring;
}

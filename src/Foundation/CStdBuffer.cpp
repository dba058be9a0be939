#include "CStdBuffer.h"

#include <cstdlib>
#include <cstring>

#include "OrvBlockStorage.h"

namespace
{
// 32-bit sizes: anything larger cannot be held.
const unsigned long kMaxBytes = 0xFFFFFFFFul;
}

CStdBuffer::CStdBuffer() : m_prependSize(32), m_capacity(0), m_size(0), m_data(nullptr) {}

CStdBuffer::CStdBuffer(const CStdBuffer& other) : CStdBuffer()
{
    *this = other;
}

CStdBuffer::~CStdBuffer()
{
    Destroy();
}

bool CStdBuffer::SetPrependSize(unsigned long n)
{
    if ((n & (n - 1)) != 0 || n > kMaxBytes)
        return false;
    m_prependSize = static_cast<unsigned int>(n);
    return true;
}

bool CStdBuffer::SetCapacity(unsigned long n)
{
    return orv_detail::ResizeBlock(m_data, m_capacity, m_size, n, m_prependSize);
}

bool CStdBuffer::SetSize(unsigned long n)
{
    if (n == m_size)
        return true;
    if (!SetCapacity(n))
        return false;
    m_size = static_cast<unsigned int>(n);
    return true;
}

bool CStdBuffer::ShrinkCapacityToContent()
{
    if (m_capacity == 0 || m_capacity - m_size <= m_prependSize)
        return true;
    return SetCapacity(m_size);
}

void CStdBuffer::Destroy()
{
    std::free(m_data);
    m_data = nullptr;
    m_capacity = 0;
    m_size = 0;
}

bool CStdBuffer::MemCopy(unsigned long offset, const void* source, unsigned long count)
{
    if (source == nullptr || count == 0 || m_data == nullptr || m_size == 0 || offset >= m_size)
        return false;
    const unsigned long room = m_size - offset;
    std::memmove(m_data + offset, source, count < room ? count : room);
    return true;
}

unsigned char* CStdBuffer::operator[](unsigned long i) const
{
    return (m_data != nullptr && i < m_size) ? m_data + i : nullptr;
}

CStdBuffer& CStdBuffer::operator=(const CStdBuffer& other)
{
    if (this != &other && SetSize(other.m_size) && m_size != 0)
        std::memcpy(m_data, other.m_data, m_size);
    return *this;
}

CStdBuffer& CStdBuffer::operator+=(const CStdBuffer& other)
{
    if (other.m_size == 0)
        return *this;
    const unsigned long otherSize = other.m_size;
    const unsigned long base = m_size;
    if (this == &other)
    {
        CStdBuffer copy(other);
        return *this += copy;
    }
    if (SetSize(base + otherSize))
        std::memcpy(m_data + base, other.m_data, otherSize);
    return *this;
}

#ifndef C_UNICODE_BUFFER_H
#define C_UNICODE_BUFFER_H

#include <cstdlib>
#include <cstring>

#include "OrvBlockStorage.h"

/// Growable buffer of character units held in one raw block, reallocated in
/// blocks of 32 units. Its size counts the units in use, a terminator included.
template <class T>
class CUnicodeBuffer
{
public:
    CUnicodeBuffer() : m_granularity(32), m_capacity(0), m_size(0), m_data(nullptr) {}
    ~CUnicodeBuffer() { Destroy(); }

    bool SetCapacity(unsigned int n)
    {
        return orv_detail::ResizeBlock(m_data, m_capacity, m_size, n, m_granularity);
    }

    bool SetSize(unsigned int n)
    {
        if (n == m_size)
            return true;
        if (!SetCapacity(n))
            return false;
        if (n > m_size)
            std::memset(m_data + m_size, 0, static_cast<std::size_t>(n - m_size) * sizeof(T));
        m_size = n;
        return true;
    }

    void Destroy()
    {
        std::free(m_data);
        m_data = nullptr;
        m_capacity = 0;
        m_size = 0;
    }

    bool MemCopy(unsigned int byteOffset, const void* source, unsigned int byteCount)
    {
        const std::size_t used = static_cast<std::size_t>(m_size) * sizeof(T);
        if (source == nullptr || byteCount == 0 || m_data == nullptr || byteOffset >= used)
            return false;
        std::size_t count = used - byteOffset;
        if (byteCount < count)
            count = byteCount;
        if (count == 0)
            return false;
        std::memmove(reinterpret_cast<unsigned char*>(m_data) + byteOffset, source, count);
        return true;
    }

    T* operator[](unsigned int i) const { return (m_data != nullptr && i < m_size) ? m_data + i : nullptr; }

    /// Takes the other's block; the other is left empty (size 0).
    CUnicodeBuffer& operator=(CUnicodeBuffer&& other) noexcept
    {
        if (this != &other)
        {
            Destroy();
            Steal(other);
        }
        return *this;
    }

    CUnicodeBuffer& operator=(const CUnicodeBuffer& other)
    {
        if (this != &other && SetSize(other.m_size) && m_size != 0)
            std::memcpy(m_data, other.m_data, static_cast<std::size_t>(m_size) * sizeof(T));
        return *this;
    }

    /// Appends the other's units over this buffer's terminator.
    CUnicodeBuffer& operator+=(const CUnicodeBuffer& other)
    {
        if (other.m_size <= 1)
            return *this;
        const unsigned int otherSize = other.m_size;
        const unsigned int base = (m_size == 0) ? 0 : m_size - 1;
        if (otherSize > 0xFFFFFFFFu - base)
            return *this;
        if (this == &other)
        {
            CUnicodeBuffer copy;
            copy = other;
            return *this += copy;
        }
        if (SetSize(base + otherSize))
            std::memcpy(m_data + base, other.m_data, static_cast<std::size_t>(otherSize) * sizeof(T));
        return *this;
    }

    unsigned int GetSize() const { return m_size; }
    unsigned int GetCapacity() const { return m_capacity; }

protected:
    CUnicodeBuffer(const CUnicodeBuffer&) = delete;
    CUnicodeBuffer(CUnicodeBuffer&& other) noexcept : m_granularity(32), m_capacity(0), m_size(0), m_data(nullptr)
    {
        Steal(other);
    }

    void Steal(CUnicodeBuffer& other) noexcept
    {
        m_granularity = other.m_granularity;
        m_capacity = other.m_capacity;
        m_size = other.m_size;
        m_data = other.m_data;
        other.m_capacity = 0;
        other.m_size = 0;
        other.m_data = nullptr;
    }

    unsigned int m_granularity;
    unsigned int m_capacity;
    unsigned int m_size;
    T* m_data;
};

#endif

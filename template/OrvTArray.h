#ifndef ORV_T_ARRAY_H
#define ORV_T_ARRAY_H

#include <cstdlib>
#include <cstring>

#include "OrvBlockStorage.h"

/// List of pointers to polymorphic objects held in one raw block that grows and
/// shrinks in blocks of `granularity` slots by reallocation, so element objects
/// never move. It owns its elements only through Delete and DeleteAll.
/// Never throws: failures answer false or null and leave the old storage.
template <class T>
class OrvTArray
{
public:
    OrvTArray() : m_granularity(32), m_capacity(0), m_size(0), m_data(nullptr) {}
    OrvTArray(const OrvTArray& other) : OrvTArray() { *this = other; }
    virtual ~OrvTArray() { Destroy(); }

    bool SetCapacity(unsigned long n)
    {
        return orv_detail::ResizeBlock(m_data, m_capacity, m_size, n, m_granularity);
    }

    bool SetSize(unsigned long n)
    {
        if (n == m_size)
            return true;
        if (!SetCapacity(n))
            return false;
        if (n > m_size)
            std::memset(m_data + m_size, 0, (n - m_size) * sizeof(T*));
        m_size = static_cast<unsigned int>(n);
        return true;
    }

    void Add(T* p, bool unique)
    {
        if (unique && Find(p) >= 0)
            return;
        if (SetSize(m_size + 1ul))
            m_data[m_size - 1] = p;
    }

    /// Add without the uniqueness check, telling whether the pointer was
    /// taken (false: the array could not grow and nothing changed).
    bool Append(T* p)
    {
        const unsigned int size = m_size;
        Add(p, false);
        return m_size != size;
    }

    T* Remove(T* p)
    {
        const long index = Find(p);
        if (index < 0)
            return nullptr;
        Remove(static_cast<unsigned long>(index));
        return p;
    }

    T* Remove(unsigned long index)
    {
        if (index >= m_size)
            return nullptr;
        T* p = m_data[index];
        if (index + 1 < m_size)
            MemCopy(index * sizeof(T*), m_data + index + 1, (m_size - index - 1) * sizeof(T*));
        return SetSize(m_size - 1ul) ? p : nullptr;
    }

    void Delete(T* p) { delete Remove(p); }
    void Delete(unsigned long index) { delete Remove(index); }

    void DeleteAll()
    {
        for (unsigned int i = 0; i < m_size; ++i)
            delete m_data[i];
        Destroy();
    }

    void Destroy()
    {
        std::free(m_data);
        m_data = nullptr;
        m_capacity = 0;
        m_size = 0;
    }

    /// Raw copy into the used part of the storage; never writes past it.
    bool MemCopy(unsigned long byteOffset, const void* source, unsigned long byteCount)
    {
        const unsigned long used = m_size * sizeof(T*);
        if (source == nullptr || byteCount == 0 || m_data == nullptr || m_size == 0 || byteOffset >= used)
            return false;
        const unsigned long count = (byteCount < used - byteOffset) ? byteCount : used - byteOffset;
        std::memmove(reinterpret_cast<unsigned char*>(m_data) + byteOffset, source, count);
        return true;
    }

    T* operator[](unsigned long index) const
    {
        return (m_data == nullptr || index >= m_size) ? nullptr : m_data[index];
    }

    /// Copies the pointers, not the objects.
    OrvTArray& operator=(const OrvTArray& other)
    {
        if (this != &other && SetSize(other.m_size))
            MemCopy(0, other.m_data, m_size * sizeof(T*));
        return *this;
    }

    /// Index of the first slot equal to p, or -1.
    long Find(const T* p) const
    {
        for (unsigned int i = 0; i < m_size; ++i)
            if (m_data[i] == p)
                return static_cast<long>(i);
        return -1;
    }

    unsigned int GetSize() const { return m_size; }
    /// The block of pointers itself (null when empty).
    T* const* GetData() const { return m_data; }
    unsigned int GetCapacity() const { return m_capacity; }
    unsigned int GetGranularity() const { return m_granularity; }

private:
    unsigned int m_granularity;
    unsigned int m_capacity;
    unsigned int m_size;
    T** m_data;
};

// An owner appends an object handed over to it with this: when its array
// cannot grow, the object is destroyed and the owner's refusal thrown, so
// that nothing handed over is ever lost. (The array itself never throws.)
#define ORV_ADD_OWNED(array, object, ExceptionType, message, file) \
    do                                                              \
    {                                                               \
        if (!(array).Append(object))                                \
        {                                                           \
            delete (object);                                        \
            ORV_THROW(ExceptionType, message, file);                \
        }                                                           \
    } while (false)

#endif

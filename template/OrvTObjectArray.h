#ifndef ORV_T_OBJECT_ARRAY_H
#define ORV_T_OBJECT_ARRAY_H

#include <new>
#include <utility>

#include "OrvArrayException.h"

/// Value array of constructed elements. Its capacity follows its count in steps
/// of `step` elements: it grows by one step when an element finds it full and
/// shrinks by one step when a removal leaves more than a step free. Index errors
/// throw OrvArrayException and leave the array unchanged.
///
/// The capacity is a promise, not the storage: the storage is allocated on the
/// first element (an XML element or a game asset without children costs
/// nothing), grows by doubling at least to the capacity, and elements move into
/// it rather than being copied, so that N appends cost N moves in all instead
/// of N²/step copies. A storage twice larger than the capacity is given back.
template <class T>
class OrvTObjectArray
{
public:
    OrvTObjectArray() : m_data(nullptr), m_storage(0), m_count(0), m_capacity(32), m_step(32) {}

    OrvTObjectArray(const OrvTObjectArray& other)
        : m_data(nullptr), m_storage(0), m_count(0), m_capacity(other.m_capacity), m_step(other.m_step)
    {
        CopyElements(other);
    }

    OrvTObjectArray& operator=(const OrvTObjectArray& other)
    {
        if (this != &other)
        {
            OrvTObjectArray copy(other);
            Swap(copy);
        }
        return *this;
    }

    virtual ~OrvTObjectArray() { delete[] m_data; }

    void Add(const T& x)
    {
        const unsigned int capacity = m_count >= m_capacity ? m_capacity + m_step : m_capacity;
        if (m_count >= m_storage)
        {
            // x may live inside the storage that moves.
            T copy = x;
            Reserve(m_count + 1, capacity);
            m_capacity = capacity;
            m_data[m_count++] = std::move(copy);
            return;
        }
        m_capacity = capacity;
        m_data[m_count++] = x;
    }

    void Insert(unsigned int index, const T& x)
    {
        if (index > m_count)
            ORV_THROW(OrvArrayException, "The index at which you are trying to insert an element is out of bounds",
                                    "template/OrvTObjectArray");
        T copy = x;
        const unsigned int capacity = m_count >= m_capacity ? m_capacity + m_step : m_capacity;
        if (m_count >= m_storage)
            Reserve(m_count + 1, capacity);
        m_capacity = capacity;
        for (unsigned int i = m_count; i > index; --i)
            m_data[i] = std::move(m_data[i - 1]);
        ++m_count;
        m_data[index] = std::move(copy);
    }

    void Set(unsigned int index, const T& x)
    {
        if (index >= m_count)
            ORV_THROW(OrvArrayException, "The index at which you are trying to set an element is out of bounds",
                                    "template/OrvTObjectArray");
        m_data[index] = x;
    }

    T& operator[](unsigned int index)
    {
        CheckAccess(index);
        return m_data[index];
    }

    const T& operator[](unsigned int index) const
    {
        CheckAccess(index);
        return m_data[index];
    }

    T RemoveIndex(unsigned int index)
    {
        if (index >= m_count)
            ORV_THROW(OrvArrayException, "The index at which you are trying to remove an element is out of bounds",
                                    "template/OrvTObjectArray");
        T removed = std::move(m_data[index]);
        --m_count;
        for (unsigned int i = index; i < m_count; ++i)
            m_data[i] = std::move(m_data[i + 1]);
        // The vacated slot lets go of what it held.
        m_data[m_count] = T();
        if (m_capacity > m_step && m_count < m_capacity - m_step)
        {
            m_capacity -= m_step;
            if (m_storage > 2 * m_capacity)
                Reallocate(m_capacity);
        }
        return removed;
    }

    void RemoveAll()
    {
        if (m_storage <= m_step)
        {
            // At most one step: emptied in place, without a new block.
            for (unsigned int i = 0; i < m_count; ++i)
                m_data[i] = T();
        }
        else
        {
            delete[] m_data;
            m_data = nullptr;
            m_storage = 0;
        }
        m_count = 0;
        m_capacity = m_step;
    }

    unsigned int GetCount() const { return m_count; }
    unsigned int GetCapacity() const { return m_capacity; }
    unsigned int GetStep() const { return m_step; }

    /// Index of the first element equal to x, or -1.
    int Find(const T& x) const
    {
        for (unsigned int i = 0; i < m_count; ++i)
            if (m_data[i] == x)
                return static_cast<int>(i);
        return -1;
    }

    bool Contains(const T& x) const { return Find(x) >= 0; }

    T* begin() { return m_data; }
    T* end() { return m_data + m_count; }
    const T* begin() const { return m_data; }
    const T* end() const { return m_data + m_count; }

private:
    void CheckAccess(unsigned int index) const
    {
        if (index >= m_count)
            ORV_THROW(OrvArrayException, "The index at which you are trying to access an element is out of bounds",
                                    "template/OrvTObjectArray");
    }

    /// Storage for at least `needed` elements: doubled, and never less than
    /// the capacity about to be promised.
    void Reserve(unsigned int needed, unsigned int capacity)
    {
        unsigned int storage = m_storage > 0x7FFFFFFFu ? needed : m_storage * 2;
        if (storage < capacity)
            storage = capacity;
        if (storage < needed)
            storage = needed;
        Reallocate(storage);
    }

    /// New storage of `storage` elements; the elements move over. Throws
    /// std::bad_alloc, leaving the array as it was, when it cannot be had.
    void Reallocate(unsigned int storage)
    {
        T* fresh = new T[storage]();
        for (unsigned int i = 0; i < m_count; ++i)
            fresh[i] = std::move(m_data[i]);
        delete[] m_data;
        m_data = fresh;
        m_storage = storage;
    }

    void CopyElements(const OrvTObjectArray& other)
    {
        if (other.m_count == 0)
            return;
        m_data = new T[other.m_count]();
        m_storage = other.m_count;
        for (unsigned int i = 0; i < other.m_count; ++i)
            m_data[i] = other.m_data[i];
        m_count = other.m_count;
    }

    void Swap(OrvTObjectArray& other)
    {
        std::swap(m_data, other.m_data);
        std::swap(m_storage, other.m_storage);
        std::swap(m_count, other.m_count);
        std::swap(m_capacity, other.m_capacity);
        std::swap(m_step, other.m_step);
    }

    T* m_data;
    /// Elements the storage holds; 0 before the first element.
    unsigned int m_storage;
    unsigned int m_count;
    unsigned int m_capacity;
    unsigned int m_step;
};

#endif

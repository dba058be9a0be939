#ifndef ORV_T_OBJECT_ARRAY_H
#define ORV_T_OBJECT_ARRAY_H

#include "OrvArrayException.h"

// Value array of constructed elements that grows and shrinks by `step` elements,
// copying them by assignment. Index errors throw OrvArrayException and leave the
// array unchanged.
template <class T>
class OrvTObjectArray
{
public:
    OrvTObjectArray() : m_data(new T[32]()), m_count(0), m_capacity(32), m_step(32) {}

    OrvTObjectArray(const OrvTObjectArray& other)
        : m_data(new T[other.m_capacity]()), m_count(other.m_count), m_capacity(other.m_capacity), m_step(other.m_step)
    {
        for (unsigned int i = 0; i < m_count; ++i)
            m_data[i] = other.m_data[i];
    }

    OrvTObjectArray& operator=(const OrvTObjectArray& other)
    {
        if (this != &other)
        {
            T* fresh = new T[other.m_capacity]();
            for (unsigned int i = 0; i < other.m_count; ++i)
                fresh[i] = other.m_data[i];
            delete[] m_data;
            m_data = fresh;
            m_count = other.m_count;
            m_capacity = other.m_capacity;
            m_step = other.m_step;
        }
        return *this;
    }

    virtual ~OrvTObjectArray() { delete[] m_data; }

    void Add(const T& x)
    {
        if (m_count >= m_capacity)
        {
            // x may live inside the block that grows.
            const T copy = x;
            Reallocate(m_capacity + m_step);
            m_data[m_count++] = copy;
            return;
        }
        m_data[m_count++] = x;
    }

    void Insert(unsigned int index, const T& x)
    {
        if (index > m_count)
            ORV_THROW(OrvArrayException, "The index at which you are trying to insert an element is out of bounds",
                                    "template/OrvTObjectArray");
        const T copy = x;
        if (m_count >= m_capacity)
            Reallocate(m_capacity + m_step);
        for (unsigned int i = m_count; i > index; --i)
            m_data[i] = m_data[i - 1];
        ++m_count;
        m_data[index] = copy;
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
        T removed = m_data[index];
        --m_count;
        for (unsigned int i = index; i < m_count; ++i)
            m_data[i] = m_data[i + 1];
        if (m_capacity > m_step && m_count < m_capacity - m_step)
            Reallocate(m_capacity - m_step);
        return removed;
    }

    void RemoveAll()
    {
        if (m_capacity == m_step)
        {
            // Already one step: emptied in place, without a new block.
            for (unsigned int i = 0; i < m_count; ++i)
                m_data[i] = T();
            m_count = 0;
            return;
        }
        T* fresh = new T[m_step]();
        delete[] m_data;
        m_data = fresh;
        m_count = 0;
        m_capacity = m_step;
    }

    unsigned int GetCount() const { return m_count; }
    unsigned int GetCapacity() const { return m_capacity; }
    unsigned int GetStep() const { return m_step; }

    // Index of the first element equal to x, or -1.
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

    void Reallocate(unsigned int capacity)
    {
        T* fresh = new T[capacity]();
        for (unsigned int i = 0; i < m_count; ++i)
            fresh[i] = m_data[i];
        delete[] m_data;
        m_data = fresh;
        m_capacity = capacity;
    }

    T* m_data;
    unsigned int m_count;
    unsigned int m_capacity;
    unsigned int m_step;
};

#endif

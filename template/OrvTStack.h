#ifndef ORV_T_STACK_H
#define ORV_T_STACK_H

#include "OrvStackException.h"

/// Fixed-capacity stack. A new stack holds one default element.
template <class T>
class OrvTStack
{
public:
    explicit OrvTStack(unsigned int capacity) : m_data(new T[capacity]()), m_capacity(capacity), m_top(0)
    {
        if (capacity == 0)
            m_top = -1;
    }
    OrvTStack(const OrvTStack& other) : m_data(new T[other.m_capacity]()), m_capacity(other.m_capacity), m_top(other.m_top)
    {
        for (int i = 0; i <= m_top; ++i)
            m_data[i] = other.m_data[i];
    }
    OrvTStack& operator=(const OrvTStack& other)
    {
        if (this != &other)
        {
            T* fresh = new T[other.m_capacity]();
            for (int i = 0; i <= other.m_top; ++i)
                fresh[i] = other.m_data[i];
            delete[] m_data;
            m_data = fresh;
            m_capacity = other.m_capacity;
            m_top = other.m_top;
        }
        return *this;
    }
    ~OrvTStack() { delete[] m_data; }

    void Push(const T& x)
    {
        if (m_top + 1 >= static_cast<int>(m_capacity))
            ORV_THROW(OrvStackException, "You tried to push a full stack", "template/OrvTStack");
        m_data[++m_top] = x;
    }

    T Pop()
    {
        if (m_top < 0)
            ORV_THROW(OrvStackException, "You tried to pop an empty stack", "template/OrvTStack");
        return m_data[m_top--];
    }

    /// Pop without returning the element.
    void Discard()
    {
        if (m_top < 0)
            ORV_THROW(OrvStackException, "You tried to pop an empty stack", "template/OrvTStack");
        --m_top;
    }

    T& Peek()
    {
        if (m_top < 0)
            ORV_THROW(OrvStackException, "You tried to peek a empty stack", "template/OrvTStack");
        return m_data[m_top];
    }

    const T& Peek() const { return const_cast<OrvTStack*>(this)->Peek(); }

    /// Index of the top element, -1 when empty.
    int GetTop() const { return m_top; }
    unsigned int GetCapacity() const { return m_capacity; }

private:
    T* m_data;
    unsigned int m_capacity;
    int m_top;
};

#endif

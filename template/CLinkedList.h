#ifndef C_LINKED_LIST_H
#define C_LINKED_LIST_H

/// Intrusive doubly linked list of polymorphic links. T exposes the fields
/// m_prev and m_next to the list (friend CLinkedList<T>). The destructor unlinks
/// and deletes every link still in the list.
template <class T>
class CLinkedList
{
public:
    CLinkedList() : m_head(nullptr), m_tail(nullptr), m_count(0) {}
    CLinkedList(const CLinkedList&) : CLinkedList() {}
    CLinkedList& operator=(const CLinkedList&) { return *this; }

    virtual ~CLinkedList()
    {
        T* link = m_head;
        for (unsigned int i = 0; link != nullptr && i < m_count; ++i)
        {
            T* next = link->m_next;
            Detach(link);
            delete link;
            link = next;
        }
        m_head = m_tail = nullptr;
        m_count = 0;
    }

    T* GetHead() const { return m_head; }
    T* GetTail() const { return m_tail; }
    unsigned int GetCount() const { return m_count; }

protected:
    /// Overridable by lists whose links know more about their container.
    virtual void Detach(T* link)
    {
        link->m_prev = nullptr;
        link->m_next = nullptr;
    }

    T* m_head;
    T* m_tail;
    unsigned int m_count;
};

#endif

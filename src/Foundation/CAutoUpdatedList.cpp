#include "CAutoUpdatedList.h"

CAutoUpdatedList::CAutoUpdatedList() : m_object(nullptr) {}

CAutoUpdatedList::CAutoUpdatedList(const CAutoUpdatedList&) : CLinkedList<CAutoUpdatedLink>(), m_object(nullptr) {}

CAutoUpdatedList& CAutoUpdatedList::operator=(const CAutoUpdatedList&)
{
    return *this;
}

CAutoUpdatedList::~CAutoUpdatedList()
{
    // The links survive, detached; the base then finds the list empty.
    while (m_head != nullptr && Remove(m_head))
    {
    }
    if (m_head != nullptr)
        RemoveAll(false);
}

bool CAutoUpdatedList::SetObject(void* object)
{
    if (m_object != nullptr || object == nullptr)
        return false;
    m_object = object;
    return true;
}

bool CAutoUpdatedList::Add(CAutoUpdatedLink* link)
{
    if (link == nullptr)
        return false;
    if (link->m_container != nullptr)
        return link->m_container == this;
    if (link->m_prev != nullptr || link->m_next != nullptr)
        return false;
    link->m_prev = m_tail;
    if (m_tail != nullptr)
        m_tail->m_next = link;
    else
        m_head = link;
    m_tail = link;
    ++m_count;
    link->m_container = this;
    return true;
}

bool CAutoUpdatedList::Remove(CAutoUpdatedLink* link)
{
    if (link == nullptr || link->m_container != this)
        return false;
    if (m_count == 0 || m_head == nullptr || m_tail == nullptr)
        return false;
    if (m_count >= 2 && link->m_prev == nullptr && link->m_next == nullptr)
        return false;
    if (m_head == link)
        m_head = link->m_next;
    if (m_tail == link)
        m_tail = link->m_prev;
    if (link->m_prev != nullptr)
        link->m_prev->m_next = link->m_next;
    if (link->m_next != nullptr)
        link->m_next->m_prev = link->m_prev;
    --m_count;
    Detach(link);
    return true;
}

bool CAutoUpdatedList::IsConsistent() const
{
    if (m_count == 0)
        return m_head == nullptr && m_tail == nullptr;
    if (m_head == nullptr || m_tail == nullptr || m_head->m_prev != nullptr || m_tail->m_next != nullptr)
        return false;
    unsigned int seen = 0;
    for (const CAutoUpdatedLink* link = m_head; link != nullptr; link = link->m_next)
    {
        if (++seen > m_count)
            return false;
        if (link->m_prev != nullptr && link->m_prev->m_next != link)
            return false;
        if (link->m_next != nullptr && link->m_next->m_prev != link)
            return false;
        if (link->m_next == nullptr && link != m_tail)
            return false;
    }
    return seen == m_count;
}

bool CAutoUpdatedList::RemoveAll(bool check)
{
    if (check && !IsConsistent())
        return false;
    if (m_count == 0)
        return false;
    CAutoUpdatedLink* link = m_head;
    for (unsigned int i = 0; link != nullptr && i < m_count; ++i)
    {
        CAutoUpdatedLink* next = link->m_next;
        Detach(link);
        link = next;
    }
    m_head = m_tail = nullptr;
    m_count = 0;
    return true;
}

void CAutoUpdatedList::Detach(CAutoUpdatedLink* link)
{
    link->m_prev = nullptr;
    link->m_next = nullptr;
    link->m_container = nullptr;
}

#ifndef C_AUTO_UPDATED_LINK_H
#define C_AUTO_UPDATED_LINK_H

#include "CLinkedList.h"

class CAutoUpdatedList;

/// Back reference held by an object B that refers to an owner A: the link sits
/// in A's CAutoUpdatedList. When B dies the link leaves A's list; when A dies
/// the list detaches the link, whose container then reads null.
class CAutoUpdatedLink
{
public:
    CAutoUpdatedLink();
    /// A copy starts outside every list.
    CAutoUpdatedLink(const CAutoUpdatedLink& other);
    CAutoUpdatedLink& operator=(const CAutoUpdatedLink& other);
    virtual ~CAutoUpdatedLink();

    bool SetObject(void* object);
    void* GetObject() const { return m_object; }
    /// The owner object of the list this link is in, or null.
    void* GetContainer() const;
    CAutoUpdatedList* GetList() const { return m_container; }

private:
    friend class CAutoUpdatedList;
    friend class CLinkedList<CAutoUpdatedLink>;

    CAutoUpdatedList* m_container;
    CAutoUpdatedLink* m_prev;
    CAutoUpdatedLink* m_next;
    void* m_object;
};

#endif

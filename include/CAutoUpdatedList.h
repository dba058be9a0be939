#ifndef C_AUTO_UPDATED_LIST_H
#define C_AUTO_UPDATED_LIST_H

#include "CAutoUpdatedLink.h"
#include "CLinkedList.h"

/// List of the links that refer to the object owning the list. The links stay
/// alive when the list dies: they are detached, not deleted.
class CAutoUpdatedList : public CLinkedList<CAutoUpdatedLink>
{
public:
    CAutoUpdatedList();
    /// A copy starts empty, with no object.
    CAutoUpdatedList(const CAutoUpdatedList& other);
    /// Leaves this list unchanged.
    CAutoUpdatedList& operator=(const CAutoUpdatedList& other);
    ~CAutoUpdatedList() override;

    bool SetObject(void* object);
    void* GetObject() const { return m_object; }

    bool Add(CAutoUpdatedLink* link);
    bool Remove(CAutoUpdatedLink* link);
    /// Detaches every link; with check, an inconsistent list is left untouched.
    bool RemoveAll(bool check);

protected:
    void Detach(CAutoUpdatedLink* link) override;

private:
    bool IsConsistent() const;

    void* m_object;
};

#endif

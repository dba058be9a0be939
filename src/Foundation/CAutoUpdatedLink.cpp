#include "CAutoUpdatedLink.h"

#include "CAutoUpdatedList.h"

CAutoUpdatedLink::CAutoUpdatedLink() : m_container(nullptr), m_prev(nullptr), m_next(nullptr), m_object(nullptr) {}

CAutoUpdatedLink::CAutoUpdatedLink(const CAutoUpdatedLink&) : CAutoUpdatedLink() {}

CAutoUpdatedLink& CAutoUpdatedLink::operator=(const CAutoUpdatedLink&)
{
    return *this;
}

CAutoUpdatedLink::~CAutoUpdatedLink()
{
    if (m_container != nullptr)
        m_container->Remove(this);
}

bool CAutoUpdatedLink::SetObject(void* object)
{
    if (m_object != nullptr || object == nullptr)
        return false;
    m_object = object;
    return true;
}

void* CAutoUpdatedLink::GetContainer() const
{
    return m_container != nullptr ? m_container->GetObject() : nullptr;
}

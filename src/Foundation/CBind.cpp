#include "CBind.h"

CBind::CBind() : m_object(nullptr), m_partner(nullptr) {}

CBind::CBind(const CBind&) : CBind() {}

CBind& CBind::operator=(const CBind&)
{
    return *this;
}

CBind::~CBind()
{
    Unbind();
}

bool CBind::SetObject(void* object)
{
    if (m_object != nullptr || object == nullptr)
        return false;
    m_object = object;
    return true;
}

bool CBind::Bind(CBind* other)
{
    if (m_partner == nullptr && other != nullptr && other != this && other->m_partner == nullptr)
    {
        m_partner = other;
        other->m_partner = this;
    }
    return other != nullptr && m_partner == other && other->m_partner == this;
}

bool CBind::Unbind()
{
    if (m_partner == nullptr)
        return true;
    const bool mutual = m_partner->m_partner == this;
    if (mutual)
        m_partner->m_partner = nullptr;
    m_partner = nullptr;
    return mutual;
}

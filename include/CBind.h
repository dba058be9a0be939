#ifndef C_BIND_H
#define C_BIND_H

/// One side of a one-to-one mutual reference. Each side stands for an object;
/// a side that dies unbinds its partner.
class CBind
{
public:
    CBind();
    /// A copy stands for nothing and is bound to nothing.
    CBind(const CBind& other);
    CBind& operator=(const CBind& other);
    virtual ~CBind();

    bool SetObject(void* object);
    void* GetObject() const { return m_object; }
    bool Bind(CBind* other);
    bool Unbind();
    bool Binded() const { return m_partner != nullptr; }
    void* GetBindedObject() const { return m_partner != nullptr ? m_partner->m_object : nullptr; }
    CBind* GetPartner() const { return m_partner; }

private:
    void* m_object;
    CBind* m_partner;
};

#endif

#include "OrvXMLElement.h"

#include <vector>

OrvXMLElement::OrvXMLElement() : OrvTTreeNode<OrvXMLElement>(), m_name(""), m_content("") {}

OrvXMLElement::OrvXMLElement(const OrvUnicode& name, const OrvUnicode& content)
    : OrvTTreeNode<OrvXMLElement>(), m_name(name), m_content(content)
{
}

OrvXMLElement::OrvXMLElement(const OrvXMLElement& other)
    : OrvTTreeNode<OrvXMLElement>(), m_name(other.m_name), m_content(other.m_content)
{
    CopyAttributesFrom(other);
}

OrvXMLElement& OrvXMLElement::operator=(const OrvXMLElement& other)
{
    if (this != &other)
    {
        m_name = other.m_name;
        m_content = other.m_content;
        m_attributes.DeleteAll();
        CopyAttributesFrom(other);
    }
    return *this;
}

OrvXMLElement::~OrvXMLElement()
{
    DeleteAllChildren();
    m_attributes.DeleteAll();
}

void OrvXMLElement::CopyAttributesFrom(const OrvXMLElement& other)
{
    const unsigned int count = other.m_attributes.GetSize();
    for (unsigned int i = 0; i < count; ++i)
    {
        const OrvXMLAttribute* source = other.m_attributes[i];
        OrvXMLAttribute* copy = (source != nullptr) ? new OrvXMLAttribute(*source) : nullptr;
        const unsigned int before = m_attributes.GetSize();
        m_attributes.Add(copy, false);
        if (m_attributes.GetSize() == before)
            delete copy;
    }
}

OrvXMLElement* OrvXMLElement::SearchChildNamed(const OrvUnicode& name) const
{
    for (OrvXMLElement* child : m_children)
    {
        if (child != nullptr && child->m_name == name)
            return child;
    }
    return nullptr;
}

void OrvXMLElement::DeleteAllChildren()
{
    // Walks down the last children with an explicit path rather than by
    // recursion, so that a very deep tree cannot exhaust the stack. A child is
    // destroyed once its own children are gone.
    std::vector<OrvXMLElement*> path;
    OrvXMLElement* node = this;
    for (;;)
    {
        const unsigned int count = node->m_children.GetCount();
        if (count != 0)
        {
            OrvXMLElement* last = node->m_children[count - 1];
            if (last != nullptr && last->m_children.GetCount() != 0)
            {
                path.push_back(node);
                node = last;
                continue;
            }
            node->m_children.RemoveIndex(count - 1);
            if (last != nullptr)
            {
                last->SetParent(nullptr);
                delete last;
            }
            continue;
        }
        if (path.empty())
            return;
        OrvXMLElement* parent = path.back();
        path.pop_back();
        parent->m_children.RemoveIndex(parent->m_children.GetCount() - 1);
        node->SetParent(nullptr);
        delete node;
        node = parent;
    }
}

#ifndef ORV_XML_ELEMENT_H
#define ORV_XML_ELEMENT_H

#include "OrvTArray.h"
#include "OrvTTreeNode.h"
#include "OrvUnicode.h"
#include "OrvXMLAttribute.h"

/// One element of an XML document: a name, a text content, attributes (owned)
/// and child elements (owned: destroying an element destroys its subtree).
class OrvXMLElement : public OrvTTreeNode<OrvXMLElement>
{
public:
    OrvXMLElement();
    OrvXMLElement(const OrvUnicode& name, const OrvUnicode& content);
    /// Copies name, attributes and content; parent and children are not copied.
    OrvXMLElement(const OrvXMLElement& other);
    OrvXMLElement& operator=(const OrvXMLElement& other);
    ~OrvXMLElement() override;

    void SetName(const OrvUnicode& name) { m_name = name; }
    const OrvUnicode& GetName() const { return m_name; }
    void SetContent(const OrvUnicode& content) { m_content = content; }
    const OrvUnicode& GetContent() const { return m_content; }

    /// The element owns the attributes it holds.
    OrvTArray<OrvXMLAttribute>& GetAttributes() { return m_attributes; }
    const OrvTArray<OrvXMLAttribute>& GetAttributes() const { return m_attributes; }

    /// First direct child (in child order) of exactly that name, or null.
    OrvXMLElement* SearchChildNamed(const OrvUnicode& name) const;
    /// Destroys every child and its subtree, the last child first.
    void DeleteAllChildren();

private:
    friend class OrvXMLFile;

    void CopyAttributesFrom(const OrvXMLElement& other);

    OrvUnicode m_name;
    OrvTArray<OrvXMLAttribute> m_attributes;
    OrvUnicode m_content;
};

#endif

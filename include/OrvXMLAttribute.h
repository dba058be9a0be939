#ifndef ORV_XML_ATTRIBUTE_H
#define ORV_XML_ATTRIBUTE_H

#include "OrvUnicode.h"

/// A name and a value attached to an XML element. The reader never fills
/// attributes and the writer never prints them; they travel with the element.
class OrvXMLAttribute
{
public:
    OrvXMLAttribute();
    OrvXMLAttribute(const OrvUnicode& name, const OrvUnicode& value);
    OrvXMLAttribute(const OrvXMLAttribute& other);
    OrvXMLAttribute& operator=(const OrvXMLAttribute& other);
    virtual ~OrvXMLAttribute();

    void SetName(const OrvUnicode& name) { m_name = name; }
    const OrvUnicode& GetName() const { return m_name; }
    void SetValue(const OrvUnicode& value) { m_value = value; }
    const OrvUnicode& GetValue() const { return m_value; }

private:
    OrvUnicode m_name;
    OrvUnicode m_value;
};

#endif

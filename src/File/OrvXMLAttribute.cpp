#include "OrvXMLAttribute.h"

OrvXMLAttribute::OrvXMLAttribute() : m_name(""), m_value("") {}

OrvXMLAttribute::OrvXMLAttribute(const OrvUnicode& name, const OrvUnicode& value) : m_name(name), m_value(value) {}

OrvXMLAttribute::OrvXMLAttribute(const OrvXMLAttribute& other) : m_name(other.m_name), m_value(other.m_value) {}

OrvXMLAttribute& OrvXMLAttribute::operator=(const OrvXMLAttribute& other)
{
    if (this != &other)
    {
        m_name = other.m_name;
        m_value = other.m_value;
    }
    return *this;
}

OrvXMLAttribute::~OrvXMLAttribute() {}

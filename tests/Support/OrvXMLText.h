#ifndef ORV_XML_TEXT_H
#define ORV_XML_TEXT_H

// Reading what a game wrote in an XML report or score table, for checks.

#include <string>

#include "OrvUnicode.h"
#include "OrvXMLElement.h"

// The text as narrow characters (at most 255 of them).
inline std::string Text(const OrvUnicode& text)
{
    char buffer[256] = {};
    text.ToCString(buffer, sizeof(buffer), nullptr);
    return buffer;
}

// The content of the element's first child of that name, "(missing)" without one.
inline std::string Child(const OrvXMLElement* element, const char* name)
{
    const OrvXMLElement* child = element != nullptr ? element->SearchChildNamed(name) : nullptr;
    return child != nullptr ? Text(child->GetContent()) : std::string("(missing)");
}

#endif

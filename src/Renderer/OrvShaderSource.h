#ifndef ORV_SHADER_SOURCE_H
#define ORV_SHADER_SOURCE_H

// Private to the shader runtime: the text of one stage as it goes to the GL
// compiler. Pure text work, no GL.
//
// The runtime writes the #version line itself, so the preamble is
// "#version 120", the stage macro (ORV_VERTEX or ORV_FRAGMENT, for the source
// to test with #ifdef), "#define <entry> main" unless the entry is main
// already, and "#line 0" so that the compiler's log counts the source's own
// lines. A "#version 120" line in the source is blanked (the line stays, so
// line numbers hold); any other version is refused.

#include <string>

class OrvShaderSource
{
public:
    // Prepares `source` (not null) for the vertex stage, or the fragment stage
    // when `vertex` is false, with `entry` (an identifier) as its entry. False,
    // with a message in the compiler's style in `error`, when the source asks
    // for a version other than 120.
    bool Prepare(const char* source, bool vertex, const char* entry, std::string& error);

    const std::string& GetPreamble() const { return m_preamble; }
    // The source, or its copy when a #version line had to be blanked. Valid
    // while the source given to Prepare and this object live.
    const char* GetText() const { return m_copied ? m_copy.c_str() : m_source; }

    // A C identifier: a letter or '_', then letters, digits and '_'. Null is none.
    static bool IsIdentifier(const char* text);

private:
    bool BlankVersion(std::string& error);

    const char* m_source = nullptr;
    std::string m_copy;
    bool m_copied = false;
    std::string m_preamble;
};

#endif

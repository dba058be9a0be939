#include "OrvShaderSource.h"

#include <cstring>

namespace
{
bool IsBlank(char c)
{
    return c == ' ' || c == '\t';
}
}  // namespace

bool OrvShaderSource::IsIdentifier(const char* text)
{
    if (text == nullptr || !((*text >= 'A' && *text <= 'Z') || (*text >= 'a' && *text <= 'z') || *text == '_'))
        return false;
    for (const char* c = text; *c != '\0'; ++c)
        if (!((*c >= 'A' && *c <= 'Z') || (*c >= 'a' && *c <= 'z') || (*c >= '0' && *c <= '9') || *c == '_'))
            return false;
    return true;
}

bool OrvShaderSource::Prepare(const char* source, bool vertex, const char* entry, std::string& error)
{
    m_source = source;
    m_copy.clear();
    m_copied = false;
    m_preamble.clear();
    if (!BlankVersion(error))
        return false;
    m_preamble = vertex ? "#version 120\n#define ORV_VERTEX 1\n" : "#version 120\n#define ORV_FRAGMENT 1\n";
    if (std::strcmp(entry, "main") != 0)
        m_preamble += std::string("#define ") + entry + " main\n";
    // GLSL before 1.30 counts "#line N" as the line before line N + 1.
    m_preamble += "#line 0\n";
    return true;
}

// The source is copied only when a line must be blanked: most sources have
// no #version line and go to GL as they are.
bool OrvShaderSource::BlankVersion(std::string& error)
{
    int line = 1;
    for (const char* start = m_source; *start != '\0'; ++line)
    {
        const char* end = std::strchr(start, '\n');
        if (end == nullptr)
            end = start + std::strlen(start);
        const char* c = start;
        while (c < end && IsBlank(*c))
            ++c;
        if (c < end && *c == '#')
        {
            ++c;
            while (c < end && IsBlank(*c))
                ++c;
            if (end - c >= 7 && std::strncmp(c, "version", 7) == 0)
            {
                c += 7;
                while (c < end && IsBlank(*c))
                    ++c;
                const char* number = c;
                while (c < end && *c >= '0' && *c <= '9')
                    ++c;
                const std::string version(number, c);
                while (c < end && (IsBlank(*c) || *c == '\r'))
                    ++c;
                if (version != "120" || c != end)
                {
                    error = "0:" + std::to_string(line) + "(1): error: the source asks for #version " +
                            std::string(number, end) +
                            ": sources are GLSL 1.20 and the runtime writes the #version line itself\n";
                    return false;
                }
                if (!m_copied)
                {
                    m_copy = m_source;
                    m_copied = true;
                }
                const std::size_t offset = static_cast<std::size_t>(start - m_source);
                m_copy.replace(offset, static_cast<std::size_t>(end - start), static_cast<std::size_t>(end - start),
                               ' ');
            }
        }
        start = *end == '\0' ? end : end + 1;
    }
    return true;
}

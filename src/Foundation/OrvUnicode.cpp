#include "OrvUnicode.h"

// The string itself: construction, comparison, search and concatenation.
// Conversions (UTF-8, numbers, formatting, narrow text) are in
// OrvUnicodeConversion.cpp.

#include <cstring>
#include <utility>

namespace
{
// A narrow byte becomes a unit as a signed 8-bit value: 0xE9 gives 0xFFE9.
inline char16_t WidenByte(char c)
{
    return static_cast<char16_t>(static_cast<short>(static_cast<signed char>(c)));
}
}  // namespace

// ---------------------------------------------------------------------------
// Construction and assignment

OrvUnicode::OrvUnicode() : CUnicodeBuffer<char16_t>() {}

OrvUnicode::OrvUnicode(const char* s) : CUnicodeBuffer<char16_t>()
{
    *this = s;
}

OrvUnicode::OrvUnicode(const OrvUnicode& other) : CUnicodeBuffer<char16_t>()
{
    *this = other;
}

OrvUnicode::OrvUnicode(OrvUnicode&& other) noexcept : CUnicodeBuffer<char16_t>(std::move(other))
{
    // As a copy would: the terminator is always there.
    AppendNullCharIfMissing();
}

OrvUnicode::OrvUnicode(int value) : CUnicodeBuffer<char16_t>()
{
    *this = value;
}

OrvUnicode::OrvUnicode(float value) : CUnicodeBuffer<char16_t>()
{
    *this = value;
}

OrvUnicode::~OrvUnicode()
{
    Destroy();
}

OrvUnicode& OrvUnicode::operator=(const char* s)
{
    if (s == nullptr)
        return *this;
    const std::size_t length = std::strlen(s);
    if (length >= 0xFFFFFFFFu)
        return *this;
    const unsigned int units = static_cast<unsigned int>(length) + 1;
    if (!SetSize(units))
        return *this;
    for (std::size_t i = 0; i < length; ++i)
        m_data[i] = WidenByte(s[i]);
    m_data[length] = 0;
    return *this;
}

OrvUnicode& OrvUnicode::operator=(const OrvUnicode& other)
{
    CUnicodeBuffer<char16_t>::operator=(other);
    AppendNullCharIfMissing();
    return *this;
}

OrvUnicode& OrvUnicode::operator=(OrvUnicode&& other) noexcept
{
    CUnicodeBuffer<char16_t>::operator=(std::move(other));
    AppendNullCharIfMissing();
    return *this;
}

void OrvUnicode::AppendNullCharIfMissing()
{
    if (m_size == 0 || m_data[m_size - 1] == 0)
        return;
    const unsigned int last = m_size;
    if (SetSize(last + 1))
        m_data[last] = 0;
}

void OrvUnicode::Clear()
{
    Destroy();
}

// ---------------------------------------------------------------------------
// Comparison

bool OrvUnicode::operator==(const OrvUnicode& other) const
{
    if (m_size != other.m_size)
        return false;
    if (m_size == 0)
        return true;
    return std::memcmp(m_data, other.m_data, static_cast<std::size_t>(m_size) * sizeof(char16_t)) == 0;
}

bool OrvUnicode::operator!=(const OrvUnicode& other) const
{
    return !(*this == other);
}

bool OrvUnicode::operator==(const char* s) const
{
    if (s == nullptr)
        return false;
    const std::size_t length = std::strlen(s);
    if (static_cast<std::size_t>(m_size) != length + 1)
        return false;
    for (std::size_t i = 0; i <= length; ++i)
    {
        if (m_data[i] != WidenByte(s[i]))
            return false;
    }
    return true;
}

bool OrvUnicode::operator!=(const char* s) const
{
    return !(*this == s);
}

int OrvUnicode::Compare(const OrvUnicode& other) const
{
    const unsigned int n = (m_size < other.m_size) ? m_size : other.m_size;
    unsigned int i = 0;
    while (i < n && m_data[i] == other.m_data[i])
        ++i;
    return static_cast<int>(i);
}

// ---------------------------------------------------------------------------
// Queries and editing

unsigned int OrvUnicode::Length() const
{
    if (m_size == 0)
        return 0;
    return (m_data[m_size - 1] == 0) ? m_size - 1 : m_size;
}

const char16_t* OrvUnicode::GetDatas(unsigned int& byteSize) const
{
    byteSize = (m_data == nullptr) ? 0 : m_size * static_cast<unsigned int>(sizeof(char16_t));
    return m_data;
}

bool OrvUnicode::Trunk(unsigned int n)
{
    if (n >= m_size)
        return true;
    if (!SetSize(n))
        m_size = n;
    if (n != 0)
        m_data[n - 1] = 0;
    return true;
}

bool OrvUnicode::SubUnicode(OrvUnicode& out, unsigned int start, unsigned int count) const
{
    if (start >= m_size || count == 0)
        return false;
    if (&out == this)
    {
        const OrvUnicode source(*this);
        return source.SubUnicode(out, start, count);
    }
    const unsigned long long last = static_cast<unsigned long long>(start) + count - 1;
    const unsigned int end = (last < m_size - 1) ? static_cast<unsigned int>(last) : m_size - 1;
    const unsigned int units = end - start + 1;
    if (units == 0xFFFFFFFFu || !out.SetSize(units + 1))
        return false;
    std::memcpy(out.m_data, m_data + start, static_cast<std::size_t>(units) * sizeof(char16_t));
    out.m_data[units] = 0;
    return true;
}

bool OrvUnicode::Search(const char* needle, unsigned int& position, unsigned int start) const
{
    position = 0xFFFFFFFFu;
    if (needle == nullptr || needle[0] == '\0' || start >= m_size)
        return false;
    const std::size_t length = std::strlen(needle);
    const char16_t first = WidenByte(needle[0]);
    const char16_t lastUnit = WidenByte(needle[length - 1]);
    for (std::size_t i = start; i + length <= m_size; ++i)
    {
        if (m_data[i] != first || m_data[i + length - 1] != lastUnit)
            continue;
        std::size_t k = 1;
        while (k < length && m_data[i + k] == WidenByte(needle[k]))
            ++k;
        if (k == length)
        {
            position = static_cast<unsigned int>(i);
            return true;
        }
    }
    return false;
}

bool OrvUnicode::Search(const OrvUnicode& needle, unsigned int& position, unsigned int start) const
{
    position = 0xFFFFFFFFu;
    if (needle.m_size <= 1 || start >= m_size)
        return false;
    const std::size_t length = needle.m_size - 1;
    const char16_t* const n = needle.m_data;
    for (std::size_t i = start; i + length <= m_size; ++i)
    {
        if (m_data[i] != n[0] || m_data[i + length - 1] != n[length - 1])
            continue;
        if (std::memcmp(m_data + i, n, length * sizeof(char16_t)) == 0)
        {
            position = static_cast<unsigned int>(i);
            return true;
        }
    }
    return false;
}

OrvUnicode& OrvUnicode::operator+=(const OrvUnicode& other)
{
    if (other.m_size != 0 && other.m_data[0] != 0)
        CUnicodeBuffer<char16_t>::operator+=(other);
    return *this;
}

OrvUnicode& OrvUnicode::operator+=(const char* s)
{
    const OrvUnicode tail(s);
    return *this += tail;
}

OrvUnicode OrvUnicode::operator+(const char* s) const
{
    OrvUnicode result(*this);
    result += s;
    return result;
}

OrvUnicode OrvUnicode::operator+(const OrvUnicode& other) const
{
    OrvUnicode result(*this);
    result += other;
    return result;
}

// ---------------------------------------------------------------------------
// Number casts

OrvUnicode::operator int() const
{
    return CastToInt();
}

OrvUnicode::operator float() const
{
    return CastToFloat();
}

void OrvUnicode::UnitTests() {}

#include "OrvUnicode.h"

#include <utility>

#include <cerrno>
#include <climits>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <limits>

#define ORV_FF8 255, 255, 255, 255, 255, 255, 255, 255
#define ORV_FF64 ORV_FF8, ORV_FF8, ORV_FF8, ORV_FF8, ORV_FF8, ORV_FF8, ORV_FF8, ORV_FF8

// Constant-initialised so that the table holds its unmapped markers before any
// code of the process runs, whatever the order of static constructors.
unsigned char g_def_code_page[256] = {ORV_FF64, ORV_FF64, ORV_FF64, ORV_FF64};
bool g_b_def_code_page_initialized = false;

#undef ORV_FF64
#undef ORV_FF8

namespace
{
// Number conversions go through fixed stack buffers of this many bytes.
const unsigned int kNumberBufferBytes = 128;

// A narrow byte becomes a unit as a signed 8-bit value: 0xE9 gives 0xFFE9.
inline char16_t WidenByte(char c)
{
    return static_cast<char16_t>(static_cast<short>(static_cast<signed char>(c)));
}

inline char NarrowUnit(char16_t unit)
{
    return (unit <= 0x7F) ? static_cast<char>(unit) : '?';
}

inline bool IsContinuation(unsigned char b)
{
    return (b & 0xC0) == 0x80;
}

int LeadClass(unsigned char lead)
{
    if (lead < 0x90)
        return 1;
    if (lead < 0xC0)
        return -1;
    if (lead < 0xE0)
        return 2;
    if (lead < 0xF0)
        return 3;
    return 4;
}

// Code of a sequence of the given class whose following bytes are known to be
// continuation bytes.
unsigned int DecodeSequence(const unsigned char* b, int codeClass)
{
    switch (codeClass)
    {
    case 1:
        return b[0];
    case 2:
        return ((b[0] & 0x1Fu) << 6) | (b[1] & 0x3Fu);
    case 3:
        return ((b[0] & 0x0Fu) << 12) | ((b[1] & 0x3Fu) << 6) | (b[2] & 0x3Fu);
    default:
        return ((b[0] & 0x0Fu) << 18) | ((b[1] & 0x3Fu) << 12) | ((b[2] & 0x3Fu) << 6) | (b[3] & 0x3Fu);
    }
}

bool FollowersValid(const unsigned char* b, int codeClass)
{
    for (int i = 1; i < codeClass; ++i)
    {
        if (!IsContinuation(b[i]))
            return false;
    }
    return true;
}

// Narrows the first min(size, 128) units into a zero-terminated number buffer.
void FillNumberBuffer(const char16_t* data, unsigned int size, char (&buffer)[kNumberBufferBytes])
{
    const unsigned int n = (size < kNumberBufferBytes) ? size : kNumberBufferBytes;
    for (unsigned int i = 0; i < n; ++i)
        buffer[i] = NarrowUnit(data[i]);
    buffer[(n == 0) ? 0 : n - 1] = '\0';
}

// Raw block released on scope exit.
template <class T>
struct ScopedBlock
{
    explicit ScopedBlock(std::size_t count) : ptr(static_cast<T*>(std::calloc(count, sizeof(T)))) {}
    ~ScopedBlock() { std::free(ptr); }
    ScopedBlock(const ScopedBlock&) = delete;
    ScopedBlock& operator=(const ScopedBlock&) = delete;
    T* ptr;
};
} // namespace

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

OrvUnicode& OrvUnicode::operator=(int value)
{
    char buffer[kNumberBufferBytes];
    std::snprintf(buffer, sizeof(buffer), "%d", value);
    return *this = static_cast<const char*>(buffer);
}

OrvUnicode& OrvUnicode::operator=(float value)
{
    char buffer[kNumberBufferBytes];
    std::snprintf(buffer, sizeof(buffer), "%f", static_cast<double>(value));
    return *this = static_cast<const char*>(buffer);
}

void OrvUnicode::SetFromFloat(float value, unsigned int decimals)
{
    const char format[] = {'%', '.', static_cast<char>('0' + (decimals < 9 ? decimals : 9)), 'f', '\0'};
    char buffer[kNumberBufferBytes];
    std::snprintf(buffer, sizeof(buffer), format, static_cast<double>(value));
    *this = static_cast<const char*>(buffer);
}

bool OrvUnicode::SetFromUTF8(const char* bytes, unsigned int length)
{
    if (bytes == nullptr || length == 0 || length == 0xFFFFFFFFu)
        return false;
    const unsigned char* pos = reinterpret_cast<const unsigned char*>(bytes);
    const unsigned char* const end = pos + length;

    // A UTF-32 signature is refused before anything is touched.
    if (length >= 4 && pos[0] == 0xFF && pos[1] == 0xFE && pos[2] == 0x00 && pos[3] == 0x00)
        return false;
    if (!SetSize(length + 1))
        return false;
    if (length >= 3 && pos[0] == 0xEF && pos[1] == 0xBB && pos[2] == 0xBF)
        pos += 3;

    unsigned int out = 0;
    unsigned int errors = 0;
    while (pos < end)
    {
        const int codeClass = LeadClass(*pos);
        if (codeClass < 0 || static_cast<std::ptrdiff_t>(codeClass) > end - pos)
        {
            ++errors;
            break;
        }
        if (!FollowersValid(pos, codeClass))
        {
            ++errors;
            ++pos;
            continue;
        }
        const unsigned int code = DecodeSequence(pos, codeClass);
        // Codes beyond the 16-bit range cannot be held in one unit.
        m_data[out++] = (code <= 0xFFFF) ? static_cast<char16_t>(code) : static_cast<char16_t>(0xFFFD);
        pos += codeClass;
    }

    m_data[out] = 0;
    if (!SetSize(out + 1))
        m_size = out + 1;
    return errors == 0;
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

OrvUnicode* OrvUnicode::WNPrintf(unsigned int maxUnits, const OrvUnicode& format, ...)
{
    if (maxUnits == 0 || maxUnits == 0xFFFFFFFFu)
        return nullptr;

    // The format is widened to the platform's wide characters before this
    // string is resized, so that formatting with itself as format works.
    const std::size_t formatUnits = (format.m_size == 0) ? 1 : static_cast<std::size_t>(format.m_size) + 1;
    ScopedBlock<wchar_t> wideFormat(formatUnits);
    if (wideFormat.ptr == nullptr)
        return nullptr;
    for (unsigned int i = 0; i < format.m_size; ++i)
        wideFormat.ptr[i] = static_cast<wchar_t>(format.m_data[i]);

    // One more unit than allowed: the formatter always keeps room for its
    // terminator, and the block is zeroed so a cut output stays terminated.
    const std::size_t outputUnits = static_cast<std::size_t>(maxUnits) + 1;
    ScopedBlock<wchar_t> output(outputUnits);
    if (output.ptr == nullptr || !SetSize(maxUnits))
        return nullptr;

    va_list args;
#if defined(__clang__)
    // The format is the last named parameter and arrives by reference; on the
    // engine's targets va_start locates the variable arguments without it.
#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wvarargs"
#endif
    va_start(args, format);
#if defined(__clang__)
#pragma clang diagnostic pop
#endif
    std::vswprintf(output.ptr, outputUnits, wideFormat.ptr, args);
    va_end(args);

    // The output stops at its first zero unit; a full output gets a terminator
    // of its own after the maxUnits units.
    unsigned int produced = 0;
    while (produced < maxUnits && output.ptr[produced] != 0)
    {
        m_data[produced] = static_cast<char16_t>(output.ptr[produced]);
        ++produced;
    }
    if (!SetSize(produced + 1))
        return nullptr;
    m_data[produced] = 0;
    return this;
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

bool OrvUnicode::ToCString(char* buffer, unsigned int bufferSize, unsigned int* written) const
{
    if (buffer == nullptr || bufferSize == 0)
        return false;
    if (written != nullptr)
        *written = 0;
    const unsigned int n = (m_size < bufferSize) ? m_size : bufferSize;
    for (unsigned int i = 0; i < n; ++i)
        buffer[i] = NarrowUnit(m_data[i]);
    buffer[(n == 0) ? 0 : n - 1] = '\0';
    if (written != nullptr)
        *written = n;
    return true;
}

// ---------------------------------------------------------------------------
// Number casts

OrvUnicode::operator int() const
{
    return CastToInt();
}

int OrvUnicode::CastToInt() const
{
    char buffer[kNumberBufferBytes];
    FillNumberBuffer(m_data, m_size, buffer);
    const long value = std::strtol(buffer, nullptr, 10);
    if (value > INT_MAX)
        return INT_MAX;
    if (value < INT_MIN)
        return INT_MIN;
    return static_cast<int>(value);
}

OrvUnicode::operator float() const
{
    return CastToFloat();
}

float OrvUnicode::CastToFloat() const
{
    char buffer[kNumberBufferBytes];
    FillNumberBuffer(m_data, m_size, buffer);
    const double value = std::strtod(buffer, nullptr);
    const double limit = static_cast<double>(std::numeric_limits<float>::max());
    if (value > limit)
        return std::numeric_limits<float>::infinity();
    if (value < -limit)
        return -std::numeric_limits<float>::infinity();
    return static_cast<float>(value);
}

void OrvUnicode::UnitTests() {}

// ---------------------------------------------------------------------------
// UTF-8 helpers

int UTF8_GetCodeLen(const char& lead)
{
    return LeadClass(static_cast<unsigned char>(lead));
}

unsigned int UTF8_Decode(const unsigned char* bytes)
{
    if (bytes == nullptr)
        return 0xFFFFFFFFu;
    const int codeClass = LeadClass(bytes[0]);
    if (codeClass < 0 || !FollowersValid(bytes, codeClass))
        return 0xFFFFFFFFu;
    return DecodeSequence(bytes, codeClass);
}

int GetBOM(const unsigned char* bytes, unsigned int& length)
{
    if (bytes == nullptr)
    {
        length = 0xFFFFFFFFu;
        return -1;
    }
    const int codeClass = LeadClass(bytes[0]);
    length = static_cast<unsigned int>(codeClass);
    if (codeClass == 3 && bytes[0] == 0xEF && bytes[1] == 0xBB && bytes[2] == 0xBF)
        return 0xEFBBBF;
    if (codeClass == 4 && bytes[0] == 0xFF && bytes[1] == 0xFE && bytes[2] == 0x00 && bytes[3] == 0x00)
        return -131072; // 0xFFFE0000 read as a signed 32-bit value
    return -1;
}

bool InitDefCodePage()
{
    if (g_b_def_code_page_initialized)
        return true;
    g_b_def_code_page_initialized = true;
    for (unsigned int code = 32; code < 256; ++code)
        g_def_code_page[code] = static_cast<unsigned char>(code - 31);
    return true;
}

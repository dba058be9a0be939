#include "OrvUnicode.h"

// What turns an OrvUnicode into other representations and back: UTF-8,
// numbers, printf-style formatting and narrow C strings, and the UTF-8 and
// code page helpers beside the class.

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

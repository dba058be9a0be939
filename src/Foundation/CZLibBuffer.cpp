#include "CZLibBuffer.h"

#include <zlib.h>

namespace
{
const unsigned long kHeaderSize = 8;
const unsigned long kMaxRatio = 1040;
}

CZLibBuffer::CZLibBuffer() = default;
CZLibBuffer::~CZLibBuffer() = default;

unsigned int CZLibBuffer::Compress(const unsigned char* source, unsigned long length, int level)
{
    // Room for zlib's worst case, so that one call always suffices.
    const unsigned long bound =
        length + 20 + static_cast<unsigned long>(static_cast<double>(length) * static_cast<double>(0.1f));
    if (!SetSize(bound))
        return 0;
    m_data[0] = '7';
    m_data[1] = 'z';
    m_data[2] = 0;
    m_data[3] = 0;
    m_data[4] = static_cast<unsigned char>(length & 0xFF);
    m_data[5] = static_cast<unsigned char>((length >> 8) & 0xFF);
    m_data[6] = static_cast<unsigned char>((length >> 16) & 0xFF);
    m_data[7] = static_cast<unsigned char>((length >> 24) & 0xFF);
    uLongf compressedLength = bound - kHeaderSize;
    if (compress2(m_data + kHeaderSize, &compressedLength, source, length, level) != Z_OK)
    {
        Destroy();
        return 0;
    }
    m_size = static_cast<unsigned int>(kHeaderSize + compressedLength);
    return 2;
}

namespace
{
bool IsEnvelope(const unsigned char* source, unsigned long length)
{
    return source != nullptr && length >= kHeaderSize + 1 && source[0] == '7' && source[1] == 'z';
}
}  // namespace

unsigned long CZLibBuffer::DeclaredLength(const unsigned char* source, unsigned long length)
{
    if (!IsEnvelope(source, length))
        return 0;
    return static_cast<unsigned long>(source[4]) | (static_cast<unsigned long>(source[5]) << 8) |
           (static_cast<unsigned long>(source[6]) << 16) | (static_cast<unsigned long>(source[7]) << 24);
}

unsigned long CZLibBuffer::MaxUncompressedLength(unsigned long length)
{
    return length <= kHeaderSize ? 0 : (length - kHeaderSize) * kMaxRatio + kMaxRatio;
}

unsigned int CZLibBuffer::Uncompress(const unsigned char* source, unsigned long length)
{
    if (source == nullptr || length == 0)
        return 0;
    if (!IsEnvelope(source, length))
        return 1;
    const unsigned long n = DeclaredLength(source, length);
    // A larger declared length belongs to a damaged envelope, refused before
    // allocating for it.
    if (n > MaxUncompressedLength(length))
    {
        Destroy();
        return 0;
    }
    if (!SetSize(n) || m_size != n)
        return 1;
    unsigned char none = 0;
    uLongf produced = n;
    if (uncompress(n != 0 ? m_data : &none, &produced, source + kHeaderSize, length - kHeaderSize) != Z_OK)
    {
        Destroy();
        return 0;
    }
    m_size = static_cast<unsigned int>(produced);
    return 2;
}

bool CZLibBuffer::CheckConsistency() const
{
    return (m_capacity == 0) == (m_data == nullptr);
}

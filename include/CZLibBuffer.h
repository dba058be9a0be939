#ifndef C_ZLIB_BUFFER_H
#define C_ZLIB_BUFFER_H

#include "CStdBuffer.h"

/// Byte buffer holding the result of compressing or uncompressing with zlib.
/// Compressed data travels in an envelope: "7z", two zero bytes, the
/// uncompressed length (32-bit little-endian), then the zlib stream.
class CZLibBuffer : public CStdBuffer
{
public:
    CZLibBuffer();
    ~CZLibBuffer();

    /// 2 on success, 0 on failure (the buffer is then empty).
    unsigned int Compress(const unsigned char* source, unsigned long length, int level);
    /// 2 when the source was an envelope and is now uncompressed here, 1 when it
    /// is not an envelope (plain bytes; the buffer is untouched), 0 on failure.
    unsigned int Uncompress(const unsigned char* source, unsigned long length);
    /// The uncompressed length an envelope declares; 0 for bytes that are no
    /// envelope. Lets a reader refuse what would expand too far before
    /// uncompressing.
    static unsigned long DeclaredLength(const unsigned char* source, unsigned long length);
    /// The most an envelope of `length` bytes can expand to (deflate cannot
    /// expand data more than about 1032 times); Uncompress refuses envelopes
    /// that declare more, as damaged.
    static unsigned long MaxUncompressedLength(unsigned long length);
    bool CheckConsistency() const;
};

#endif

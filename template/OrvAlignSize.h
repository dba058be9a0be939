#ifndef ORV_ALIGN_SIZE_H
#define ORV_ALIGN_SIZE_H

// Rounding of a capacity to whole blocks, shared by the pointer array, the
// string buffer and the byte buffer.
//  - n == 0 without allowZero gives 0;
//  - a block size that is not a power of two gives 0 (0 itself passes);
//  - otherwise max(n, 1) rounded up to a multiple of the block, or n itself when
//    it needs no rounding.
namespace orv_detail
{
inline unsigned long AlignSize(unsigned long n, unsigned long block, bool allowZero)
{
    if (n == 0 && !allowZero)
        return 0;
    if ((block & (block - 1)) != 0)
        return 0;
    const unsigned long m = (n == 0) ? 1 : n;
    const unsigned long r = (block == 0) ? 0 : (m & (block - 1));
    return (r == 0) ? n : m + block - r;
}
}

namespace array
{
inline unsigned long AlignSize(unsigned long n, unsigned long block, bool allowZero)
{
    return orv_detail::AlignSize(n, block, allowZero);
}
}

namespace unicode
{
inline unsigned long AlignSize(unsigned long n, unsigned long block, bool allowZero)
{
    return orv_detail::AlignSize(n, block, allowZero);
}
}

#endif

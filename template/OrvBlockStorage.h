#ifndef ORV_BLOCK_STORAGE_H
#define ORV_BLOCK_STORAGE_H

#include <cstdlib>

/// Rounding of a capacity to whole blocks, shared by the pointer array, the
/// string buffer and the byte buffer.
///  - n == 0 without allowZero gives 0;
///  - a block size that is not a power of two gives 0 (0 itself passes);
///  - otherwise max(n, 1) rounded up to a multiple of the block, or n itself when
///    it needs no rounding.
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

/// Resizes one raw block of elements to the rounding of n (capacity blocks of
/// `block` elements) by reallocation, keeping the content. A rounding of 0
/// frees the block. On failure nothing changes and the answer is false. The
/// size is cut to the new capacity.
template <class T>
bool ResizeBlock(T*& data, unsigned int& capacity, unsigned int& size, unsigned long n, unsigned long block)
{
    const unsigned long k = AlignSize(n, block, false);
    if (k == 0)
    {
        std::free(data);
        data = nullptr;
        capacity = 0;
        size = 0;
        return true;
    }
    if (k == capacity)
        return true;
    if (k > 0xFFFFFFFFul / sizeof(T))
        return false;
    T* grown = static_cast<T*>(std::realloc(data, k * sizeof(T)));
    if (grown == nullptr)
        return false;
    data = grown;
    capacity = static_cast<unsigned int>(k);
    if (size > k)
        size = static_cast<unsigned int>(k);
    return true;
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

#ifndef C_STD_BUFFER_H
#define C_STD_BUFFER_H

/// Growable byte buffer: one raw block resized by reallocation in blocks of
/// `prependSize` bytes (32 by default; 0 for exact capacities). Never throws.
class CStdBuffer
{
public:
    CStdBuffer();
    CStdBuffer(const CStdBuffer& other);
    ~CStdBuffer();

    bool SetPrependSize(unsigned long n);
    bool SetCapacity(unsigned long n);
    bool SetSize(unsigned long n);
    bool ShrinkCapacityToContent();
    void Destroy();
    bool MemCopy(unsigned long offset, const void* source, unsigned long count);

    unsigned char* operator[](unsigned long i) const;
    CStdBuffer& operator=(const CStdBuffer& other);
    /// Appends the other's bytes after this buffer's last byte.
    CStdBuffer& operator+=(const CStdBuffer& other);

    unsigned long GetSize() const { return m_size; }
    unsigned long GetCapacity() const { return m_capacity; }
    unsigned long GetPrependSize() const { return m_prependSize; }
    unsigned char* GetData() const { return m_data; }

protected:
    unsigned int m_prependSize;
    unsigned int m_capacity;
    unsigned int m_size;
    unsigned char* m_data;
};

#endif

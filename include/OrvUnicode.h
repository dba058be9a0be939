#ifndef ORV_UNICODE_H
#define ORV_UNICODE_H

#include "CUnicodeBuffer.h"

/// The engine's string: 16-bit character units with the terminating zero unit
/// counted in the size. An empty buffer (size 0) differs from "" (size 1).
/// Narrow bytes widen as signed 8-bit values (0xE9 becomes 0xFFE9).
class OrvUnicode : public CUnicodeBuffer<char16_t>
{
public:
    OrvUnicode();
    OrvUnicode(const char* s);
    OrvUnicode(const OrvUnicode& other);
    /// Takes the other's units; the other is left empty (size 0).
    OrvUnicode(OrvUnicode&& other) noexcept;
    explicit OrvUnicode(int value);
    explicit OrvUnicode(float value);
    ~OrvUnicode();

    OrvUnicode& operator=(const char* s);
    OrvUnicode& operator=(const OrvUnicode& other);
    OrvUnicode& operator=(OrvUnicode&& other) noexcept;
    OrvUnicode& operator=(int value);
    OrvUnicode& operator=(float value);

    /// "%.Nf" with N = min(decimals, 9).
    void SetFromFloat(float value, unsigned int decimals);
    bool SetFromUTF8(const char* bytes, unsigned int length);
    void AppendNullCharIfMissing();
    void Clear();

    bool operator==(const OrvUnicode& other) const;
    bool operator!=(const OrvUnicode& other) const;
    bool operator==(const char* s) const;
    bool operator!=(const char* s) const;
    /// Number of equal leading units; identical strings give their size.
    int Compare(const OrvUnicode& other) const;

    unsigned int Length() const;
    const char16_t* GetDatas(unsigned int& byteSize) const;
    bool Trunk(unsigned int n);
    bool SubUnicode(OrvUnicode& out, unsigned int start, unsigned int count) const;
    bool Search(const char* needle, unsigned int& position, unsigned int start) const;
    bool Search(const OrvUnicode& needle, unsigned int& position, unsigned int start) const;
    /// Formats with the wide printf rules into at most maxUnits units; the format
    /// holds 16-bit units and the arguments follow the wide printf conventions
    /// (%d, %f, %ls with wchar_t strings, ...). Returns this string, or null.
    OrvUnicode* WNPrintf(unsigned int maxUnits, const OrvUnicode& format, ...);

    OrvUnicode& operator+=(const OrvUnicode& other);
    OrvUnicode& operator+=(const char* s);
    OrvUnicode operator+(const char* s) const;
    OrvUnicode operator+(const OrvUnicode& other) const;

    /// Narrows to bytes: units above 0x7F become '?'; cut to bufferSize - 1 characters.
    bool ToCString(char* buffer, unsigned int bufferSize, unsigned int* written) const;

    operator int() const;
    int CastToInt() const;
    operator float() const;
    float CastToFloat() const;

    /// Characters as a plain pointer for reading (null when empty).
    const char16_t* GetData() const { return m_data; }

    void UnitTests();
};

/// UTF-8 helpers.
int UTF8_GetCodeLen(const char& lead);
unsigned int UTF8_Decode(const unsigned char* bytes);
int GetBOM(const unsigned char* bytes, unsigned int& length);

/// Default code page of the bitmap fonts: character code -> glyph index, 255 for
/// an unmapped code.
extern unsigned char g_def_code_page[256];
extern bool g_b_def_code_page_initialized;
bool InitDefCodePage();

#endif

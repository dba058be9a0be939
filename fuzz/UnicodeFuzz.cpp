// The text conversions every reader leans on: UTF-8 bytes into the engine's
// 16-bit units (documents, names), the single-sequence helpers, units narrowed
// back to bytes (file names, messages) and the number casts the sprite readers
// apply to element contents. Two round trips hold the decoder to its word:
// units encoded as UTF-8 decode to the same units, and ASCII narrowed and
// widened again is unchanged.

#include <cstring>
#include <vector>

#include "OrvFuzz.h"
#include "OrvUnicode.h"

namespace
{
// Standard UTF-8 of 16-bit units: one to three bytes each.
std::vector<char> EncodeUTF8(const std::vector<char16_t>& units)
{
    std::vector<char> bytes;
    for (const char16_t unit : units)
    {
        const unsigned int u = unit;
        if (u < 0x80)
            bytes.push_back(static_cast<char>(u));
        else if (u < 0x800)
        {
            bytes.push_back(static_cast<char>(0xC0 | (u >> 6)));
            bytes.push_back(static_cast<char>(0x80 | (u & 0x3F)));
        }
        else
        {
            bytes.push_back(static_cast<char>(0xE0 | (u >> 12)));
            bytes.push_back(static_cast<char>(0x80 | ((u >> 6) & 0x3F)));
            bytes.push_back(static_cast<char>(0x80 | (u & 0x3F)));
        }
    }
    return bytes;
}

bool SameUnits(const OrvUnicode& text, const std::vector<char16_t>& units)
{
    return text.GetSize() == units.size() + 1 && text.GetData()[units.size()] == 0 &&
           std::memcmp(text.GetData(), units.data(), units.size() * sizeof(char16_t)) == 0;
}

void DecodeBytes(const uint8_t* data, size_t size)
{
    OrvUnicode decoded;
    decoded.SetFromUTF8(reinterpret_cast<const char*>(data), static_cast<unsigned int>(size));
    if (decoded.GetSize() > size + 1)
        orvfuzz::Finding("SetFromUTF8 made more units than there were bytes");

    // The helpers are given whole sequences only, as their callers do.
    for (size_t i = 0; i < size; ++i)
    {
        const int length = UTF8_GetCodeLen(reinterpret_cast<const char&>(data[i]));
        if (length > 0 && static_cast<size_t>(length) <= size - i)
            UTF8_Decode(data + i);
    }
    unsigned int bomLength = 0;
    if (size >= 4)
        GetBOM(data, bomLength);

    // Narrowed into buffers too small, just right and larger than needed.
    std::vector<char> narrow(decoded.GetSize() + 2, 'x');
    for (unsigned int room : {1u, 2u, decoded.GetSize(), decoded.GetSize() + 2})
        if (room >= 1 && room <= narrow.size())
            decoded.ToCString(narrow.data(), room, nullptr);

    decoded.CastToInt();
    decoded.CastToFloat();
}

void RoundTrips(const uint8_t* data, size_t size)
{
    std::vector<char16_t> units(size / 2);
    for (size_t i = 0; i < units.size(); ++i)
        units[i] = static_cast<char16_t>(data[2 * i] | (data[2 * i + 1] << 8));

    // A leading U+FEFF is a signature and is dropped, and "" is refused.
    if (!units.empty() && units[0] != 0xFEFF)
    {
        const std::vector<char> bytes = EncodeUTF8(units);
        OrvUnicode decoded;
        if (!decoded.SetFromUTF8(bytes.data(), static_cast<unsigned int>(bytes.size())) || !SameUnits(decoded, units))
            orvfuzz::Finding("UTF-8 of 16-bit units does not decode to the same units");
    }

    // ASCII without zeros survives narrowing and widening.
    std::vector<char> ascii;
    for (size_t i = 0; i < size; ++i)
        if (data[i] != 0 && data[i] < 0x80)
            ascii.push_back(static_cast<char>(data[i]));
    ascii.push_back('\0');
    const OrvUnicode wide(ascii.data());
    std::vector<char> back(ascii.size(), 'x');
    wide.ToCString(back.data(), static_cast<unsigned int>(back.size()), nullptr);
    if (std::memcmp(back.data(), ascii.data(), ascii.size()) != 0)
        orvfuzz::Finding("ASCII widened and narrowed again changed");
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    orvfuzz::Refusable([&] {
        DecodeBytes(data, size);
        RoundTrips(data, size);
    });
    return 0;
}

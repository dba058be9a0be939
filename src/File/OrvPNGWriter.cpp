#include "OrvPNGWriter.h"

#include <zlib.h>

#include <cstdio>
#include <vector>

#include "OrvFileException.h"

namespace
{
const char* const kSource = "src/File/OrvPNGWriter";

void PutBigEndian(std::vector<unsigned char>& out, unsigned long value)
{
    for (int shift = 24; shift >= 0; shift -= 8)
        out.push_back(static_cast<unsigned char>((value >> shift) & 0xFF));
}

// A chunk: its length, type, data and the CRC of type and data.
void PutChunk(std::vector<unsigned char>& out, const char* type, const std::vector<unsigned char>& data)
{
    PutBigEndian(out, data.size());
    const size_t start = out.size();
    out.insert(out.end(), type, type + 4);
    out.insert(out.end(), data.begin(), data.end());
    PutBigEndian(out, crc32(0L, out.data() + start, static_cast<uInt>(out.size() - start)));
}
}  // namespace

void OrvPNGWriter::Write(const std::string& name, unsigned int width, unsigned int height, const unsigned char* rgba)
{
    const size_t row = static_cast<size_t>(width) * 4;
    // Each row starts with its filter type, 0: none.
    std::vector<unsigned char> raw;
    raw.reserve((row + 1) * height);
    for (unsigned int y = 0; y < height; ++y)
    {
        raw.push_back(0);
        raw.insert(raw.end(), rgba + y * row, rgba + (y + 1) * row);
    }
    uLongf packedSize = compressBound(static_cast<uLong>(raw.size()));
    std::vector<unsigned char> packed(packedSize);
    if (compress2(packed.data(), &packedSize, raw.data(), static_cast<uLong>(raw.size()), 6) != Z_OK)
        ORV_THROW(OrvFileException, "Can't compress the png file : " + name, kSource);
    packed.resize(packedSize);

    std::vector<unsigned char> header;
    PutBigEndian(header, width);
    PutBigEndian(header, height);
    header.insert(header.end(), {8, 6, 0, 0, 0});  // 8 bits, RGBA, deflate, no filter, no interlace
    std::vector<unsigned char> file = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
    PutChunk(file, "IHDR", header);
    PutChunk(file, "IDAT", packed);
    PutChunk(file, "IEND", {});

    std::FILE* out = std::fopen(name.c_str(), "wb");
    const bool written = out != nullptr && std::fwrite(file.data(), 1, file.size(), out) == file.size();
    if (out != nullptr && std::fclose(out) != 0)
        ORV_THROW(OrvFileException, "Can't write the png file : " + name, kSource);
    if (!written)
        ORV_THROW(OrvFileException, "Can't write the png file : " + name, kSource);
}

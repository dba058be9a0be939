#include "PngPixels.h"

#include <zlib.h>

#include <cstdlib>
#include <fstream>
#include <iterator>

namespace
{
unsigned long BigEndian(const unsigned char* bytes)
{
    return (static_cast<unsigned long>(bytes[0]) << 24) | (static_cast<unsigned long>(bytes[1]) << 16) |
           (static_cast<unsigned long>(bytes[2]) << 8) | bytes[3];
}

int Paeth(int a, int b, int c)
{
    const int p = a + b - c, pa = std::abs(p - a), pb = std::abs(p - b), pc = std::abs(p - c);
    return pa <= pb && pa <= pc ? a : pb <= pc ? b : c;
}
}  // namespace

bool ReadPngPixels(const std::string& name, PngPixels& picture, std::string& error)
{
    std::ifstream in(name, std::ios::binary);
    if (!in)
        return error = "cannot be read", false;
    const std::vector<unsigned char> file((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    static const unsigned char kSignature[8] = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
    if (file.size() < 8 || !std::equal(kSignature, kSignature + 8, file.begin()))
        return error = "not a PNG file", false;
    std::vector<unsigned char> packed;
    unsigned int channels = 0;
    for (size_t at = 8; at + 12 <= file.size();)
    {
        const unsigned long length = BigEndian(&file[at]);
        if (length > file.size() - at - 12)
            return error = "a chunk runs past the end of the file", false;
        const std::string type(file.begin() + static_cast<long>(at + 4), file.begin() + static_cast<long>(at + 8));
        const unsigned char* data = &file[at + 8];
        if (type == "IHDR" && length >= 13)
        {
            picture.width = static_cast<unsigned int>(BigEndian(data));
            picture.height = static_cast<unsigned int>(BigEndian(data + 4));
            channels = data[9] == 6 ? 4 : data[9] == 2 ? 3 : 0;
            if (data[8] != 8 || channels == 0 || data[12] != 0)
                return error = "only 8-bit RGB or RGBA pictures without interlacing are compared", false;
            if (picture.width == 0 || picture.height == 0 || picture.width > 16384 || picture.height > 16384)
                return error = "its size is out of range", false;
        }
        else if (type == "IDAT")
            packed.insert(packed.end(), data, data + length);
        at += 12 + length;
    }
    if (channels == 0)
        return error = "it has no header", false;
    const size_t row = static_cast<size_t>(picture.width) * channels;
    std::vector<unsigned char> raw((row + 1) * picture.height);
    uLongf rawSize = static_cast<uLongf>(raw.size());
    if (uncompress(raw.data(), &rawSize, packed.data(), static_cast<uLong>(packed.size())) != Z_OK ||
        rawSize != raw.size())
        return error = "its pixels do not inflate to its size", false;
    picture.rgba.assign(static_cast<size_t>(picture.width) * picture.height * 4, 255);
    std::vector<unsigned char> previous(row, 0), current(row);
    for (unsigned int y = 0; y < picture.height; ++y)
    {
        const unsigned char filter = raw[y * (row + 1)];
        const unsigned char* line = &raw[y * (row + 1) + 1];
        for (size_t x = 0; x < row; ++x)
        {
            const int a = x >= channels ? current[x - channels] : 0, b = previous[x],
                      c = x >= channels ? previous[x - channels] : 0;
            int predicted = 0;
            switch (filter)
            {
            case 0: predicted = 0; break;
            case 1: predicted = a; break;
            case 2: predicted = b; break;
            case 3: predicted = (a + b) / 2; break;
            case 4: predicted = Paeth(a, b, c); break;
            default: return error = "a row has an unknown filter", false;
            }
            current[x] = static_cast<unsigned char>(line[x] + predicted);
        }
        for (unsigned int x = 0; x < picture.width; ++x)
            for (unsigned int k = 0; k < channels; ++k)
                picture.rgba[(static_cast<size_t>(y) * picture.width + x) * 4 + k] = current[x * channels + k];
        previous.swap(current);
    }
    return true;
}

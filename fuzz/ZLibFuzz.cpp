// The compressed envelope alone ("7z", two zero bytes, the length, a zlib
// stream), as the XML reader hands it every file it loads; and the writer's
// envelope of the same bytes, which must give them back.

#include <cstring>

#include "CZLibBuffer.h"
#include "OrvFuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    CZLibBuffer envelope;
    const unsigned int result = envelope.Uncompress(data, size);
    if (result > 2)
        orvfuzz::Finding("Uncompress answered something else than 0, 1 or 2");
    if (result == 2 && size >= 8)
    {
        const unsigned long declared = static_cast<unsigned long>(data[4]) | (static_cast<unsigned long>(data[5]) << 8) |
                                       (static_cast<unsigned long>(data[6]) << 16) |
                                       (static_cast<unsigned long>(data[7]) << 24);
        if (envelope.GetSize() > declared)
            orvfuzz::Finding("an envelope gave more bytes than it declares");
    }

    CZLibBuffer packed;
    if (packed.Compress(data, size, 1) != 2)
        orvfuzz::Finding("Compress refused bytes it has room for");
    CZLibBuffer unpacked;
    if (unpacked.Uncompress(packed.GetData(), packed.GetSize()) != 2 || unpacked.GetSize() != size ||
        (size != 0 && std::memcmp(unpacked.GetData(), data, size) != 0))
        orvfuzz::Finding("an envelope made by Compress does not give its bytes back");
    return 0;
}

// PNG descriptions (header, palette), through a class of the game's own as the
// reader expects.

#include "OrvFileManager.h"
#include "OrvFuzz.h"
#include "OrvPNGImageFile.h"

namespace
{
class GamePNGImageFile : public OrvPNGImageFile
{
public:
    void ResetImageData() override {}
};
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    orvfuzz::ScratchFile input("fuzz.png", data, size);
    OrvFileManager files;
    files.AddMediaPath(orvfuzz::ScratchDir().c_str());
    orvfuzz::Refusable([&] {
        const GamePNGImageFile* image = files.GetOrLoad<GamePNGImageFile>("fuzz.png");
        // Every palette value is one byte of the file.
        if (image->GetPaletteValueCount() > size)
            orvfuzz::Finding("an accepted PNG has a palette larger than the file");
    });
    return 0;
}

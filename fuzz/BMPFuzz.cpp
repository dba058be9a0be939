// 24-bit BMP images, through a class of the game's own as the reader expects.

#include "OrvBMPImageFile.h"
#include "OrvFileManager.h"
#include "OrvFuzz.h"

namespace
{
class GameBMPImageFile : public OrvBMPImageFile
{
public:
    void ResetImageData() override {}
};
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    orvfuzz::ScratchFile input("fuzz.bmp", data, size);
    OrvFileManager files;
    files.AddMediaPath(orvfuzz::ScratchDir().c_str());
    orvfuzz::Refusable([&] {
        const GameBMPImageFile* image = files.GetOrLoad<GameBMPImageFile>("fuzz.bmp");
        if (image->GetImageDataSize() != static_cast<unsigned long>(image->GetWidth()) * image->GetHeight() * 3)
            orvfuzz::Finding("an accepted BMP holds another amount of pixels than its size says");
    });
    return 0;
}

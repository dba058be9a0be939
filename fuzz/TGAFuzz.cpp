// TGA images loaded as the sprite manager and the fonts load them.

#include "OrvFileManager.h"
#include "OrvFuzz.h"
#include "OrvTGAImageFile.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    orvfuzz::ScratchFile input("fuzz.tga", data, size);
    OrvFileManager files;
    files.AddMediaPath(orvfuzz::ScratchDir().c_str());
    orvfuzz::Refusable([&] {
        const OrvTGAImageFile* image = files.GetOrLoad<OrvTGAImageFile>("fuzz.tga");
        // Textures are filled from exactly width x height pixels of the buffer.
        const unsigned long pixel = static_cast<unsigned char>(image->GetImagePixelSize()) / 8;
        if (image->GetImageDataSize() != static_cast<unsigned long>(image->GetWidth()) * image->GetHeight() * pixel)
            orvfuzz::Finding("an accepted TGA holds another amount of pixels than its size says");
    });
    return 0;
}

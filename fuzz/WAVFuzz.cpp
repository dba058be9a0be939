// WAV sounds loaded as the sound manager loads them.

#include "OrvFileManager.h"
#include "OrvFuzz.h"
#include "OrvWAVSoundFile.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    orvfuzz::ScratchFile input("fuzz.wav", data, size);
    OrvFileManager files;
    files.AddMediaPath(orvfuzz::ScratchDir().c_str());
    orvfuzz::Refusable([&] {
        const OrvWAVSoundFile* sound = files.GetOrLoad<OrvWAVSoundFile>("fuzz.wav");
        // The samples handed to OpenAL are GetSize() bytes of the data buffer.
        if (sound->GetSize() < 0 || static_cast<unsigned long>(sound->GetSize()) + 44 > size ||
            (sound->GetSize() > 0 && sound->GetData() == nullptr))
            orvfuzz::Finding("an accepted WAV announces more samples than the file holds");
    });
    return 0;
}

// Recorded play sessions, read as a replay reads them: through the file
// manager into OrvSession, every turn parsed and checked.

#include "OrvFileManager.h"
#include "OrvFuzz.h"
#include "OrvSession.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    orvfuzz::ScratchFile input("session.xml", data, size);
    OrvFileManager files;
    OrvSession session;
    orvfuzz::Refusable([&] { session.Load(&files, orvfuzz::ScratchDir() + "/session.xml"); });
    return 0;
}

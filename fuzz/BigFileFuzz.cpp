// Archives (.vbf) as a game registers them: the table of contents is read by
// AddBigFile, then members are found by name and read through the file
// manager, as any media file inside an archive is.

#include <vector>

#include "OrvBigFile.h"
#include "OrvFileManager.h"
#include "OrvFuzz.h"

namespace
{
// Members read back per input: enough to reach every way a member is served,
// few enough that a large table does not make each run slow by itself.
const unsigned int kMembersRead = 16;
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    orvfuzz::ScratchFile input("fuzz.vbf", data, size);
    OrvFileManager files;
    files.AddMediaPath(orvfuzz::ScratchDir().c_str());
    OrvBigFile* archive = nullptr;
    if (!orvfuzz::Refusable([&] { archive = files.AddBigFile("fuzz.vbf"); }))
        return 0;

    const unsigned int count = archive->GetFileCount() < kMembersRead ? archive->GetFileCount() : kMembersRead;
    std::vector<char> bytes;
    for (unsigned int i = 0; i < count; ++i)
    {
        const OrvBigFile::OrvBigFileInfo info = archive->GetFileInfo(i);
        if (8ull + info.startIndex + info.path.Length() + info.size > size)
            orvfuzz::Finding("a member accepted into the table runs past the end of the archive");
        // The manager answers for the first member of that name.
        orvfuzz::Refusable([&] {
            const long length = files.GetFileSizeFromBigFile(info.path);
            bytes.assign(length > 0 ? static_cast<size_t>(length) : 1, '\0');
            if (length > 0)
                files.GetFileDataFromBigFile(info.path, bytes.data(), length);
        });
        // A media file loaded by that name comes from the archive.
        orvfuzz::Refusable([&] {
            OrvFile* member = files.GetOrLoad<OrvFile>(info.path);
            if (member != nullptr && member->GetIsInBigFile() && member->GetSize() > 0)
            {
                bytes.assign(static_cast<size_t>(member->GetSize()), '\0');
                member->Read(bytes.data(), 1, member->GetSize());
            }
            if (member != nullptr && member != archive)
                files.DeleteOrvFile(member);
        });
    }
    return 0;
}

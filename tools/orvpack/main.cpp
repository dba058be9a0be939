// orvpack: creates, lists and extracts the engine's big file archives (.vbf).

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <set>
#include <string>
#include <system_error>
#include <unistd.h>
#include <vector>

#include <OrvEngine/OrvBigFile.h>
#include <OrvEngine/OrvException.h>
#include <OrvEngine/OrvFileManager.h>

namespace fs = std::filesystem;

namespace
{
const char* const kUsage =
    "Usage: orvpack create ARCHIVE.vbf FILE|DIRECTORY...\n"
    "       orvpack list ARCHIVE.vbf\n"
    "       orvpack extract ARCHIVE.vbf [MEMBER...]\n"
    "       orvpack --help\n"
    "\n"
    "create   packs the files into a new archive; a directory adds every file\n"
    "         below it. Members are named by their relative paths as given.\n"
    "list     prints one line per member: its name, a tab, its size in bytes.\n"
    "extract  writes the members (all of them when none is named) to their paths\n"
    "         under the working directory, creating the directories they need.\n";

// Exit statuses.
const int kFailed = 1;
const int kBadUsage = 2;

// The engine knows only ASCII file names and cuts the paths it tries, "./"
// and the name, to 255 bytes.
const size_t kMaxName = 253;

// A failure reported on stderr; main turns it into the exit status.
struct Failure
{
    std::string message;
    int status;
};

[[noreturn]] void Fail(const std::string& message, int status = kFailed)
{
    throw Failure{message, status};
}

std::string Narrow(const OrvUnicode& text)
{
    std::vector<char> bytes(text.Length() + 1, '\0');
    text.ToCString(bytes.data(), static_cast<unsigned int>(bytes.size()), nullptr);
    return bytes.data();
}

bool IsEngineName(const std::string& name)
{
    if (name.empty() || name.size() > kMaxName)
        return false;
    for (const char c : name)
        if (c <= 0 || c > 0x7E)
            return false;
    return true;
}

// Relative, without empty, "." or ".." components: it stays below the
// working directory.
bool IsSafeMemberName(const std::string& name)
{
    if (!IsEngineName(name) || name.front() == '/')
        return false;
    size_t start = 0;
    while (start <= name.size())
    {
        size_t end = name.find('/', start);
        if (end == std::string::npos)
            end = name.size();
        const std::string part = name.substr(start, end - start);
        if (part.empty() || part == "." || part == "..")
            return false;
        start = end + 1;
    }
    return true;
}

void CheckArchiveName(const std::string& archive)
{
    if (archive.size() < 4 || archive.compare(archive.size() - 4, 4, ".vbf") != 0)
        Fail(archive + ": an archive name must end with .vbf", kBadUsage);
    if (!IsEngineName(archive))
        Fail(archive + ": archive names must be ASCII and at most 253 bytes long");
}

// A new archive registered with the manager, which owns it.
OrvBigFile* NewArchive(OrvFileManager& manager)
{
    OrvBigFile* archive = new OrvBigFile();
    archive->Create(&manager, ++manager.LastFileID);
    manager.AddOrvFile(archive);
    return archive;
}

void AddMember(std::vector<std::string>& members, std::set<std::string>& seen, std::string name)
{
    while (name.size() > 2 && name.compare(0, 2, "./") == 0)
        name.erase(0, 2);
    if (!IsSafeMemberName(name))
        Fail(name + ": members must be relative ASCII paths inside the working directory, at most 253 bytes");
    if (seen.insert(name).second)
        members.push_back(name);
}

// The member names for the inputs: files as given, directories walked in
// sorted order. The archive itself is left out of a walk.
std::vector<std::string> CollectMembers(const std::string& archive, const std::vector<std::string>& inputs)
{
    std::vector<std::string> members;
    std::set<std::string> seen;
    std::error_code error;
    const bool archiveExists = fs::exists(archive, error);
    for (std::string input : inputs)
    {
        while (input.size() > 1 && input.back() == '/')
            input.pop_back();
        const fs::file_status status = fs::status(input, error);
        if (error)
            Fail(input + ": " + error.message());
        if (fs::is_regular_file(status))
        {
            AddMember(members, seen, input);
            continue;
        }
        if (!fs::is_directory(status))
            Fail(input + ": not a regular file or a directory");

        std::vector<std::string> found;
        for (fs::recursive_directory_iterator it(input, error), end; !error && it != end; it.increment(error))
        {
            std::error_code ignored;
            if (!it->is_regular_file(ignored))
                continue;
            if (archiveExists && fs::equivalent(it->path(), archive, ignored))
                continue;
            found.push_back(it->path().generic_string());
        }
        if (error)
            Fail(input + ": " + error.message());
        std::sort(found.begin(), found.end());
        for (const std::string& name : found)
            AddMember(members, seen, name);
    }
    return members;
}

int Create(const std::string& archive, const std::vector<std::string>& inputs)
{
    CheckArchiveName(archive);
    const std::vector<std::string> members = CollectMembers(archive, inputs);

    // Written beside the archive, then moved over it: a failure leaves any
    // previous archive as it was.
    const std::string partial = archive.substr(0, archive.size() - 4) + ".part" + std::to_string(getpid()) + ".vbf";
    if (partial.size() > kMaxName)
        Fail(archive + ": archive name too long");
    OrvFileManager manager;
    OrvBigFile* pack = NewArchive(manager);
    try
    {
        for (const std::string& member : members)
            pack->AddFile(member.c_str());
        pack->Save(partial.c_str(), OrvFile::SAVE_DEFAULT);
    }
    catch (const OrvException& e)
    {
        std::remove(partial.c_str());
        Fail(archive + ": " + e.message);
    }
    if (std::rename(partial.c_str(), archive.c_str()) != 0)
    {
        std::remove(partial.c_str());
        Fail(archive + ": cannot write the archive");
    }
    return 0;
}

// Loads the table of contents of an existing archive, found at exactly the
// path given.
OrvBigFile* LoadArchive(OrvFileManager& manager, const std::string& archive)
{
    CheckArchiveName(archive);
    std::error_code error;
    if (!fs::is_regular_file(archive, error))
        Fail(archive + ": " + (error ? error.message() : std::string("not a regular file")));
    const size_t slash = archive.rfind('/');
    const std::string directory = slash == std::string::npos ? "" : archive.substr(0, slash + 1);
    const std::string name = slash == std::string::npos ? archive : archive.substr(slash + 1);
    OrvBigFile* pack = NewArchive(manager);
    try
    {
        pack->Load(name.c_str(), directory.c_str());
    }
    catch (const OrvException& e)
    {
        Fail(archive + ": " + e.message);
    }
    return pack;
}

int List(const std::string& archive)
{
    OrvFileManager manager;
    const OrvBigFile* pack = LoadArchive(manager, archive);
    for (unsigned int i = 0; i < pack->GetFileCount(); ++i)
    {
        const OrvBigFile::OrvBigFileInfo& info = pack->GetFileInfo(i);
        std::printf("%s\t%u\n", Narrow(info.path).c_str(), info.size);
    }
    return std::fflush(stdout) == 0 ? 0 : kFailed;
}

void WriteMember(const std::string& name, const std::vector<char>& data, unsigned int size)
{
    const fs::path parent = fs::path(name).parent_path();
    std::error_code error;
    if (!parent.empty())
        fs::create_directories(parent, error);
    if (error)
        Fail(name + ": " + error.message());
    FILE* out = std::fopen(name.c_str(), "wb");
    if (out == nullptr)
        Fail(name + ": cannot create the file");
    const bool written = size == 0 || std::fwrite(data.data(), 1, size, out) == size;
    if (std::fclose(out) != 0 || !written)
        Fail(name + ": cannot write the file");
}

int Extract(const std::string& archive, const std::vector<std::string>& wanted)
{
    OrvFileManager manager;
    OrvBigFile* pack = LoadArchive(manager, archive);

    // The first record of each name is the one the engine serves.
    std::vector<unsigned int> chosen;
    std::set<std::string> seen;
    for (unsigned int i = 0; i < pack->GetFileCount(); ++i)
        if (seen.insert(Narrow(pack->GetFileInfo(i).path)).second)
            chosen.push_back(i);
    if (!wanted.empty())
    {
        std::vector<unsigned int> named;
        for (const std::string& name : wanted)
        {
            const auto match = std::find_if(chosen.begin(), chosen.end(), [&](unsigned int i) {
                return Narrow(pack->GetFileInfo(i).path) == name;
            });
            if (match == chosen.end())
                Fail(archive + ": no member named " + name);
            named.push_back(*match);
        }
        chosen = named;
    }
    for (const unsigned int i : chosen)
    {
        const std::string name = Narrow(pack->GetFileInfo(i).path);
        if (!IsSafeMemberName(name))
            Fail(archive + ": refusing to extract a member outside the working directory: " + name);
    }

    std::vector<char> data;
    for (const unsigned int i : chosen)
    {
        const OrvBigFile::OrvBigFileInfo& info = pack->GetFileInfo(i);
        const std::string name = Narrow(info.path);
        data.resize(std::max<size_t>(data.size(), info.size));
        try
        {
            if (info.size > 0)
                pack->GetFileData(info.path, data.data(), static_cast<long>(info.size));
        }
        catch (const OrvException& e)
        {
            Fail(archive + ": " + e.message);
        }
        WriteMember(name, data, info.size);
    }
    return 0;
}

int Run(const std::vector<std::string>& args)
{
    if (args.empty())
        Fail("no command given", kBadUsage);
    const std::string& command = args[0];
    if (command == "--help" || command == "-h" || command == "help")
    {
        std::fputs(kUsage, stdout);
        return 0;
    }
    const std::vector<std::string> rest(args.begin() + std::min<size_t>(args.size(), 2), args.end());
    if (command == "create" && args.size() >= 3)
        return Create(args[1], rest);
    if (command == "list" && args.size() == 2)
        return List(args[1]);
    if (command == "extract" && args.size() >= 2)
        return Extract(args[1], rest);
    if (command == "create" || command == "list" || command == "extract")
        Fail("wrong arguments for " + command, kBadUsage);
    Fail("unknown command " + command, kBadUsage);
}
} // namespace

int main(int argc, char** argv)
{
    try
    {
        return Run(std::vector<std::string>(argv + 1, argv + argc));
    }
    catch (const Failure& failure)
    {
        std::fprintf(stderr, "orvpack: %s\n", failure.message.c_str());
        if (failure.status == kBadUsage)
            std::fputs("Try 'orvpack --help'.\n", stderr);
        return failure.status;
    }
    catch (const OrvException& e)
    {
        std::fprintf(stderr, "orvpack: %s\n", e.message);
    }
    catch (const std::exception& e)
    {
        std::fprintf(stderr, "orvpack: %s\n", e.what());
    }
    return kFailed;
}

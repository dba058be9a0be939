#include "OrvBigFile.h"

#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "OrvException.h"
#include "OrvFileException.h"
#include "OrvFileManager.h"

namespace
{
const char* const kSource = "src/File/OrvBigFile";

// Start indexes and sizes are 32-bit in the archive.
const unsigned long long kMaxOffset = 0xFFFFFFFFull;

unsigned int GetU32(const unsigned char* bytes)
{
    return static_cast<unsigned int>(bytes[0]) | static_cast<unsigned int>(bytes[1]) << 8 |
           static_cast<unsigned int>(bytes[2]) << 16 | static_cast<unsigned int>(bytes[3]) << 24;
}

void PutU32(unsigned char* bytes, unsigned long long value)
{
    bytes[0] = static_cast<unsigned char>(value & 0xFF);
    bytes[1] = static_cast<unsigned char>((value >> 8) & 0xFF);
    bytes[2] = static_cast<unsigned char>((value >> 16) & 0xFF);
    bytes[3] = static_cast<unsigned char>((value >> 24) & 0xFF);
}

bool ReadAt(FILE* stream, unsigned long long offset, void* buffer, size_t bytes)
{
    return std::fseek(stream, static_cast<long>(offset), SEEK_SET) == 0 &&
           (bytes == 0 || std::fread(buffer, 1, bytes, stream) == bytes);
}

// "<what> : <name>".
std::string NameMessage(const char* what, const OrvUnicode& name)
{
    std::string text(what);
    text += " : ";
    const unsigned int length = name.Length();
    std::vector<char> narrow(length + 1, '\0');
    name.ToCString(narrow.data(), length + 1, nullptr);
    text += narrow.data();
    return text;
}
} // namespace

OrvBigFile::OrvBigFile() : m_unsavedChanges(false)
{
    m_extension = ".vbf";
}

OrvBigFile::~OrvBigFile() = default;

void OrvBigFile::Create(OrvFileManager* manager, unsigned int id)
{
    OrvFile::Create(manager, id);
    m_unsavedChanges = false;
}

const OrvBigFile::OrvBigFileInfo* OrvBigFile::FindFile(const OrvUnicode& name) const
{
    for (const OrvBigFileInfo& info : m_files)
        if (info.path == name)
            return &info;
    return nullptr;
}

OrvFile* OrvBigFile::AcquireSource(const OrvUnicode& name)
{
    OrvFileManager* manager = m_fileManager;
    OrvFile* registered = manager->GetFile(name);
    // A registered archive (this one included) is not given up as a source: it
    // is read through a plain file of its own instead.
    if (registered != nullptr && dynamic_cast<OrvBigFile*>(registered) == nullptr)
    {
        if (registered->GetSystemFile() == nullptr && !registered->GetIsInBigFile())
            registered->Open(name, FILE_READ);
        return registered;
    }

    OrvFile* source = new OrvFile();
    try
    {
        source->Create(manager, ++manager->LastFileID);
        manager->AddOrvFile(source);
    }
    catch (...)
    {
        delete source;
        throw;
    }
    try
    {
        source->Load(name, OrvUnicode(""));
    }
    catch (...)
    {
        manager->DeleteOrvFile(source);
        throw;
    }
    return source;
}

void OrvBigFile::AddFile(const OrvUnicode& name)
{
    if (m_fileManager == nullptr)
        ORV_THROW(OrvFileException, "File manager not defined so file can't be opened (call Create())", kSource);

    OrvFile* source = AcquireSource(name);
    long size = -1;
    if (source->GetIsInBigFile())
        size = source->GetSize();
    else if (std::fseek(source->GetSystemFile(), 0, SEEK_END) == 0)
        size = std::ftell(source->GetSystemFile());
    m_fileManager->DeleteOrvFile(source);
    if (size < 0 || static_cast<unsigned long long>(size) > kMaxOffset)
        ORV_THROW(OrvFileException, NameMessage("Can't measure a file to put in a big file", name), kSource);

    // The index table grows by one entry, which moves every entry by 4 bytes.
    unsigned long long start = 8;
    const unsigned int count = m_files.GetCount();
    if (count > 0)
    {
        const OrvBigFileInfo& last = m_files[count - 1];
        start = 4ull + last.startIndex + 8 + last.path.Length() + last.size;
    }
    if (start > kMaxOffset)
        ORV_THROW(OrvFileException, NameMessage("A big file can't grow past 4 GiB, refused", name), kSource);
    for (OrvBigFileInfo& info : m_files)
        info.startIndex += 4;

    OrvBigFileInfo info;
    info.path = name;
    info.startIndex = static_cast<unsigned int>(start);
    info.size = static_cast<unsigned int>(size);
    m_files.Add(info);
    m_unsavedChanges = true;
}

void OrvBigFile::Save(const OrvUnicode& name, SAVE_OPTION option)
{
    OrvFile::Save(name, option);
    try
    {
        const unsigned int count = m_files.GetCount();
        const unsigned long long headerSize = 4ull + 4ull * count;
        unsigned long long total = headerSize;
        for (const OrvBigFileInfo& info : m_files)
        {
            if (total > kMaxOffset)
                ORV_THROW(OrvFileException, NameMessage("A big file can't grow past 4 GiB, refused", name), kSource);
            total += 8ull + info.path.Length() + info.size;
        }

        // Every source is read before anything is written.
        std::unique_ptr<unsigned char[]> bytes(new unsigned char[total]);
        PutU32(bytes.get(), count);
        unsigned long long offset = headerSize;
        for (unsigned int i = 0; i < count; ++i)
        {
            const OrvBigFileInfo& info = m_files[i];
            const unsigned int pathLength = info.path.Length();
            const char16_t* path = info.path.GetData();
            unsigned char* entry = bytes.get() + offset;
            PutU32(bytes.get() + 4 + 4ull * i, offset);
            PutU32(entry, info.size);
            PutU32(entry + 4, pathLength);
            for (unsigned int c = 0; c < pathLength; ++c)
                entry[8 + c] = static_cast<unsigned char>(path[c] & 0xFF);
            ReadSourceData(info.path, entry + 8 + pathLength, info.size);
            offset += 8ull + pathLength + info.size;
        }

        Write(bytes.get(), static_cast<unsigned long>(headerSize), 1);
        offset = headerSize;
        for (const OrvBigFileInfo& info : m_files)
        {
            const unsigned long long entrySize = 8ull + info.path.Length() + info.size;
            Write(bytes.get() + offset, static_cast<unsigned long>(entrySize), 1);
            offset += entrySize;
        }
    }
    catch (...)
    {
        Close();
        throw;
    }
    m_unsavedChanges = false;
    Close();
}

void OrvBigFile::ReadSourceData(const OrvUnicode& name, unsigned char* buffer, unsigned int size)
{
    OrvFile* source = AcquireSource(name);
    bool complete = false;
    try
    {
        if (source->GetIsInBigFile())
        {
            complete = source->GetSize() >= static_cast<long>(size);
            if (complete && size > 0)
                source->Read(buffer, 1, size);
        }
        else
        {
            source->Rewind();
            complete = std::fread(buffer, 1, size, source->GetSystemFile()) == size;
        }
    }
    catch (...)
    {
        source->Close();
        m_fileManager->DeleteOrvFile(source);
        throw;
    }
    source->Close();
    m_fileManager->DeleteOrvFile(source);
    if (!complete)
        ORV_THROW(OrvException, "Failed to read a file while creating big file", kSource);
}

void OrvBigFile::Load(const OrvUnicode& name, const OrvUnicode& path)
{
    Guarded([&] {
        OrvFile::Load(name, path);
        if (m_isInBigFile)
        {
            Close();
            ORV_THROW(OrvFileException, MessageNaming("A big file can't be loaded from inside another big file"),
                      kSource);
        }

        const unsigned int before = m_files.GetCount();
        try
        {
            ReadTableOfContents();
        }
        catch (...)
        {
            // A refused archive adds no record.
            while (m_files.GetCount() > before)
                m_files.RemoveIndex(m_files.GetCount() - 1);
            Close();
            throw;
        }
        m_unsavedChanges = false;
        Close();
    });
}

void OrvBigFile::ReadTableOfContents()
{
    // Every offset is checked against the measured size before it is read.
    FILE* stream = m_systemFile;
    const unsigned long long archiveSize = m_size > 0 ? static_cast<unsigned long long>(m_size) : 0;
    unsigned char word[8];

    if (stream == nullptr || archiveSize < 4 || !ReadAt(stream, 0, word, 4))
        ORV_THROW(OrvFileException, "Error reading file count from big file", kSource);
    const unsigned long long count = GetU32(word);

    const unsigned long long indexBytes = 4 * count;
    if (4 + indexBytes > archiveSize)
        ORV_THROW(OrvFileException, "Error reading start indexes from big file", kSource);
    std::vector<unsigned char> indexes(static_cast<size_t>(indexBytes));
    if (count > 0 && std::fread(indexes.data(), 1, indexes.size(), stream) != indexes.size())
        ORV_THROW(OrvFileException, "Error reading start indexes from big file", kSource);

    std::vector<char> pathBytes;
    for (unsigned long long i = 0; i < count; ++i)
    {
        const unsigned long long start = GetU32(indexes.data() + 4 * i);
        if (start + 8 > archiveSize || !ReadAt(stream, start, word, 8))
            ORV_THROW(OrvFileException, "Error reading sizes from big file", kSource);
        const unsigned int size = GetU32(word);
        const unsigned int pathLength = GetU32(word + 4);

        if (start + 8 + pathLength > archiveSize)
            ORV_THROW(OrvFileException, "Error reading path from big file", kSource);
        pathBytes.assign(pathLength + 1ull, '\0');
        if (pathLength > 0 && !ReadAt(stream, start + 8, pathBytes.data(), pathLength))
            ORV_THROW(OrvFileException, "Error reading path from big file", kSource);
        // The data of a member lie behind as many bytes as its path has characters.
        if (std::memchr(pathBytes.data(), '\0', pathLength) != nullptr)
            ORV_THROW(OrvFileException, MessageNaming("A path in the big file holds a zero byte"), kSource);
        if (start + 8 + pathLength + size > archiveSize)
            ORV_THROW(OrvFileException, MessageNaming("A file's data run past the end of the big file"), kSource);

        OrvBigFileInfo info;
        info.path = OrvUnicode(pathBytes.data());
        info.startIndex = static_cast<unsigned int>(start);
        info.size = size;
        m_files.Add(info);
    }
}

long OrvBigFile::GetFileSize(const OrvUnicode& name) const
{
    if (m_unsavedChanges)
        ORV_THROW(OrvFileException, "You tried to get a file size from a unsaved big file", kSource);
    const OrvBigFileInfo* info = FindFile(name);
    return info != nullptr ? static_cast<long>(info->size) : 0;
}

long OrvBigFile::GetFileData(const OrvUnicode& name, char* buffer, long length)
{
    if (m_unsavedChanges)
        ORV_THROW(OrvFileException, "You tried to get a file data from a unsaved big file", kSource);
    const OrvBigFileInfo* info = FindFile(name);
    if (info == nullptr)
        return 0;
    if (length > static_cast<long>(info->size))
        ORV_THROW(OrvFileException, "You tried to read to much data from a file in a big file", kSource);
    if (length < 0)
        ORV_THROW(OrvFileException, NameMessage("You tried to read a negative amount of data from a big file", name),
                  kSource);

    const unsigned long long offset = 8ull + info->startIndex + info->path.Length();
    Open(m_name, FILE_READ);
    const bool complete = ReadAt(m_systemFile, offset, buffer, static_cast<size_t>(length));
    Close();
    if (!complete)
        ORV_THROW(OrvFileException, NameMessage("Error reading the data of a file from big file", name), kSource);
    return length;
}

#include "OrvFile.h"

#include <sys/stat.h>

#include <cstdio>
#include <cstring>
#include <new>
#include <string>

#include "OrvFileException.h"
#include "OrvFileManager.h"

namespace
{
const char* const kFile = "src/File/OrvFile";
// Candidate paths are narrow strings cut to their first 255 bytes.
const unsigned int kPathBytes = 256;
const unsigned int kWriteBlock = 512;

void Narrow(const OrvUnicode& text, char* buffer)
{
    buffer[0] = '\0';
    text.ToCString(buffer, kPathBytes, nullptr);
}

std::string NamingMessage(const char* what, const OrvUnicode& name)
{
    char narrow[kPathBytes];
    Narrow(name, narrow);
    return std::string(what) + " : " + narrow;
}

// Only regular files are read: a folder opens as a stream too, and measures
// as a huge size; a pipe or a device could block for ever.
bool IsRegularFile(const char* path)
{
    struct stat status;
    return ::stat(path, &status) == 0 && S_ISREG(status.st_mode);
}

FILE* OpenCandidate(const char* prefix, const char* name, char* candidate, const char* mode)
{
    std::snprintf(candidate, kPathBytes, "%s%s", prefix, name);
    if (mode[0] == 'r' && !IsRegularFile(candidate))
        return nullptr;
    FILE* stream = std::fopen(candidate, mode);
    // Checked again on what was opened, in case it changed in between.
    struct stat status;
    if (stream != nullptr && mode[0] == 'r' && (::fstat(fileno(stream), &status) != 0 || !S_ISREG(status.st_mode)))
    {
        std::fclose(stream);
        return nullptr;
    }
    return stream;
}
}

OrvFile::OrvFile()
    : m_fileManager(nullptr),
      m_id(0),
      m_size(0),
      m_data(nullptr),
      m_systemFile(nullptr),
      m_isInBigFile(false),
      m_dataBytes(0)
{
}

OrvFile::OrvFile(const OrvFile& other) : OrvFile()
{
    *this = other;
}

OrvFile& OrvFile::operator=(const OrvFile& other)
{
    if (this == &other)
        return *this;
    m_fileManager = other.m_fileManager;
    m_id = other.m_id;
    m_size = other.m_size;
    m_name = other.m_name;
    m_path = other.m_path;
    m_extension = other.m_extension;
    FreeData();
    if (other.m_data != nullptr)
    {
        AllocateData(other.m_dataBytes);
        std::memcpy(m_data, other.m_data, other.m_dataBytes);
    }
    // One stream has one owner: the copy opens its own when it needs one.
    m_isInBigFile = other.m_isInBigFile;
    return *this;
}

OrvFile::~OrvFile()
{
    Close();
    FreeData();
}

void OrvFile::Create(OrvFileManager* manager, unsigned int id)
{
    if (m_id != 0)
        return;
    m_fileManager = manager;
    m_id = id;
}

void OrvFile::Load(const OrvUnicode& name, const OrvUnicode& path)
{
    m_name = name;
    m_path = path;
    if (m_fileManager == nullptr)
        ORV_THROW(OrvFileException, "File manager not defined so file can't be opened (call Create())", kFile);
    const long sizeInBigFile = m_fileManager->GetFileSizeFromBigFile(name);
    if (sizeInBigFile >= 1)
    {
        m_size = sizeInBigFile;
        m_isInBigFile = true;
        return;
    }
    Open(name, FILE_READ);
}

void OrvFile::Save(const OrvUnicode& name, SAVE_OPTION)
{
    if (m_isInBigFile)
        ORV_THROW(OrvFileException, "You tried to write to a file that is in a Big File", kFile);
    Open(name, FILE_WRITE);
}

void OrvFile::Open(const OrvUnicode& name, OrvFileAcces access)
{
    if (access != FILE_READ && access != FILE_WRITE)
        ORV_THROW(OrvFileException, "You tried to open a file with an unhandled file access", kFile);
    if (m_fileManager == nullptr)
        ORV_THROW(OrvFileException, "File manager not defined so file can't be opened (call Create())", kFile);
    if (m_id == 0)
        ORV_THROW(OrvFileException, "File ID is not defined so file can't be opened (call Create())", kFile);
    const unsigned int extensionLength = m_extension.Length();
    if (extensionLength > 0)
    {
        const unsigned int nameLength = name.Length();
        if (nameLength < extensionLength)
            ORV_THROW(OrvFileException, "The given file name doesn't have the right file extension", kFile);
        const char16_t* tail = name.GetData() + (nameLength - extensionLength);
        if (std::memcmp(tail, m_extension.GetData(), extensionLength * sizeof(char16_t)) != 0)
            ORV_THROW(OrvFileException, "The given file name doesn't have the right file extension", kFile);
    }
    if (m_systemFile != nullptr)
        return;
    // A zero character would end the narrowed name early: "\0a.tga" would
    // open the media path itself.
    for (unsigned int i = 0; i < name.Length(); ++i)
        if (name.GetData()[i] == 0)
            ORV_THROW(OrvFileException, NamingMessage("A file name holds a zero character", name), kFile);

    char narrowName[kPathBytes];
    char prefix[kPathBytes];
    char candidate[kPathBytes];
    Narrow(name, narrowName);
    FILE* stream = nullptr;
    if (m_path.Length() > 0)
    {
        Narrow(m_path, prefix);
        stream = OpenCandidate(prefix, narrowName, candidate, "rb");
    }
    else
    {
        const unsigned int count = m_fileManager->GetMediaPathCount();
        for (unsigned int i = 0; stream == nullptr && i < count; ++i)
        {
            Narrow(m_fileManager->GetMediaPath(i), prefix);
            stream = OpenCandidate(prefix, narrowName, candidate, "rb");
        }
        if (stream == nullptr)
            stream = OpenCandidate("./", narrowName, candidate, "rb");
        if (stream == nullptr)
            stream = OpenCandidate("", narrowName, candidate, "rb");
    }

    if (access == FILE_WRITE)
    {
        // Rewrite the file where it was found, else create it in the working directory.
        if (stream != nullptr)
            std::fclose(stream);
        else
            std::snprintf(candidate, kPathBytes, "%s", narrowName);
        stream = std::fopen(candidate, "wb");
        if (stream == nullptr)
            ORV_THROW(OrvFileException, NamingMessage("Can't create the file for writing", name), kFile);
        m_systemFile = stream;
        return;
    }

    if (stream == nullptr)
    {
        if (m_path.Length() == 0)
            ORV_THROW(OrvFileException, NamingMessage("Can't find the file to read", name), kFile);
        // A file asked for at an explicit place is created there, empty.
        FILE* created = OpenCandidate(prefix, narrowName, candidate, "wb");
        if (created == nullptr)
            ORV_THROW(OrvFileException, NamingMessage("Can't create the file at the given path", name), kFile);
        std::fclose(created);
        stream = std::fopen(candidate, "rb");
        if (stream == nullptr)
            ORV_THROW(OrvFileException, NamingMessage("Can't create the file at the given path", name), kFile);
    }
    m_systemFile = stream;
    std::fseek(stream, 0, SEEK_END);
    m_size = std::ftell(stream);
    if (m_size < 0)
        m_size = 0;
    std::rewind(stream);
}

void OrvFile::Close()
{
    if (m_systemFile != nullptr)
    {
        std::fclose(m_systemFile);
        m_systemFile = nullptr;
    }
    m_isInBigFile = false;
}

void OrvFile::Read(void* buffer, long size, long count)
{
    long bytes = 0;
    if (size < 0 || count < 0 || __builtin_mul_overflow(size, count, &bytes))
        ORV_THROW(OrvFileException, MessageNaming("You tried to read an impossible amount from a file"), kFile);
    if (m_isInBigFile)
    {
        const long got = bytes == 0 ? 0 : m_fileManager->GetFileDataFromBigFile(m_name, static_cast<char*>(buffer), bytes);
        if (got != bytes)
            ORV_THROW(OrvFileException, MessageNaming("Can't read the file from its big file"), kFile);
        return;
    }
    if (m_systemFile == nullptr)
        ORV_THROW(OrvFileException, MessageNaming("You tried to read from a file that isn't open"), kFile);
    if (bytes == 0)
        return;
    const size_t items = std::fread(buffer, static_cast<size_t>(size), static_cast<size_t>(count), m_systemFile);
    if (items != static_cast<size_t>(count))
        ORV_THROW(OrvFileException, MessageNaming("Can't read from file"), kFile);
}

void OrvFile::Write(const void* buffer, unsigned long size, unsigned long count)
{
    if (m_isInBigFile)
        ORV_THROW(OrvFileException, "You tried to write to a file that is in a Big File", kFile);
    if (m_systemFile == nullptr)
        ORV_THROW(OrvFileException, "You tried to write to a file that isn't open", kFile);
    if (std::fwrite(buffer, size, count, m_systemFile) != count)
        ORV_THROW(OrvFileException, "Can't write to file", kFile);
}

void OrvFile::WriteUnicodeAsASCII(const OrvUnicode& text)
{
    if (m_isInBigFile)
        ORV_THROW(OrvFileException, "You tried to write to a file that is in a Big File", kFile);
    if (m_systemFile == nullptr)
        ORV_THROW(OrvFileException, "You tried to write to a file that isn't open", kFile);
    const unsigned int length = text.Length();
    const char16_t* units = text.GetData();
    char block[kWriteBlock];
    for (unsigned int start = 0; start < length; start += kWriteBlock)
    {
        const unsigned int count = (length - start < kWriteBlock) ? length - start : kWriteBlock;
        for (unsigned int i = 0; i < count; ++i)
            block[i] = static_cast<char>(units[start + i] & 0xFF);
        Write(block, 1, count);
    }
}

void OrvFile::Rewind()
{
    if (m_systemFile != nullptr)
        std::rewind(m_systemFile);
}

std::unique_ptr<unsigned char[]> OrvFile::ReadWholeFile()
{
    std::unique_ptr<unsigned char[]> bytes;
    try
    {
        const long size = m_size > 0 ? m_size : 0;
        bytes.reset(new unsigned char[static_cast<unsigned long>(size)]);
        Read(bytes.get(), 1, size);
    }
    catch (...)
    {
        Close();
        throw;
    }
    Close();
    return bytes;
}

unsigned char* OrvFile::AllocateData(unsigned long bytes)
{
    FreeData();
    m_data = new unsigned char[bytes == 0 ? 1 : bytes]();
    m_dataBytes = bytes;
    return m_data;
}

void OrvFile::FreeData()
{
    delete[] m_data;
    m_data = nullptr;
    m_dataBytes = 0;
}

void OrvFile::Refuse(const char* what)
{
    Close();
    std::string message;
    try
    {
        message = MessageNaming(what);
    }
    catch (const std::bad_alloc&)
    {
        ORV_THROW(OrvFileException, what, kFile);
    }
    ORV_THROW(OrvFileException, message, kFile);
}

std::string OrvFile::MessageNaming(const char* what) const
{
    return NamingMessage(what, m_name);
}

#include "OrvFileManager.h"

#include <cstdlib>
#include <new>

#include "OrvBigFile.h"
#include "OrvFile.h"
#include "OrvFileException.h"

namespace
{
const char* const kFile = "src/File/OrvFileManager";
// The registry grows by this many slots when full, and shrinks by as many
// when a removal leaves more free slots than that.
const unsigned int kRegistryStep = 10;
}

OrvFileManager::OrvFileManager() : LastFileID(0), m_files(nullptr), m_fileCount(0), m_fileCapacity(0)
{
    SetFileCapacity(kRegistryStep);
}

OrvFileManager::~OrvFileManager()
{
    for (unsigned int i = 0; i < m_fileCount; ++i)
        delete m_files[i];
    std::free(m_files);
}

void OrvFileManager::SetFileCapacity(unsigned int capacity)
{
    OrvFile** block = static_cast<OrvFile**>(std::realloc(m_files, capacity * sizeof(OrvFile*)));
    if (block == nullptr)
        throw std::bad_alloc();
    m_files = block;
    m_fileCapacity = capacity;
}

void OrvFileManager::AddOrvFile(OrvFile* file)
{
    if (file == nullptr)
        ORV_THROW(OrvFileException, "You tried to add a Null file", kFile);
    for (unsigned int i = 0; i < m_fileCount; ++i)
        if (m_files[i]->GetID() == file->GetID())
            ORV_THROW(OrvFileException, "You tried to add a file that already exists", kFile);
    if (m_fileCount == m_fileCapacity)
        SetFileCapacity(m_fileCapacity + kRegistryStep);
    m_files[m_fileCount++] = file;
}

void OrvFileManager::DeleteOrvFile(OrvFile* file)
{
    unsigned int index = 0;
    while (file != nullptr && index < m_fileCount && m_files[index]->GetID() != file->GetID())
        ++index;
    if (file == nullptr || index == m_fileCount)
        ORV_THROW(OrvFileException, "You tried to delete a file that doesn't exists", kFile);
    OrvFile* registered = m_files[index];
    for (unsigned int i = index + 1; i < m_fileCount; ++i)
        m_files[i - 1] = m_files[i];
    --m_fileCount;
    // A big file leaves the search list with its object.
    for (unsigned int i = m_bigFiles.GetCount(); i > 0; --i)
        if (static_cast<OrvFile*>(m_bigFiles[i - 1]) == registered)
            m_bigFiles.RemoveIndex(i - 1);
    delete registered;
    if (m_fileCapacity - m_fileCount > kRegistryStep)
        SetFileCapacity(m_fileCapacity - kRegistryStep);
}

void OrvFileManager::DeleteAllFiles()
{
    for (unsigned int i = 0; i < m_fileCount; ++i)
        delete m_files[i];
    m_fileCount = 0;
    m_bigFiles.RemoveAll();
    if (m_fileCapacity > kRegistryStep)
        SetFileCapacity(kRegistryStep);
}

OrvFile* OrvFileManager::GetFile(const OrvUnicode& name) const
{
    for (unsigned int i = 0; i < m_fileCount; ++i)
        if (m_files[i]->GetName() == name)
            return m_files[i];
    return nullptr;
}

void OrvFileManager::AddMediaPath(const OrvUnicode& path)
{
    const unsigned int length = path.Length();
    if (length > 0)
    {
        const char16_t last = path.GetData()[length - 1];
        if (last != u'\\' && last != u'/')
        {
            m_mediaPaths.Add(path + "/");
            return;
        }
    }
    m_mediaPaths.Add(path);
}

unsigned int OrvFileManager::GetMediaPathCount() const
{
    return m_mediaPaths.GetCount();
}

OrvUnicode OrvFileManager::GetMediaPath(unsigned int index) const
{
    return m_mediaPaths[index];
}

OrvBigFile* OrvFileManager::AddBigFile(const OrvUnicode& name)
{
    OrvBigFile* bigFile = GetOrLoad<OrvBigFile>(name);
    if (bigFile == nullptr)
        ORV_THROW(OrvFileException, "You tried to add a big file whose name belongs to another kind of file", kFile);
    m_bigFiles.Add(bigFile);
    return bigFile;
}

long OrvFileManager::GetFileSizeFromBigFile(const OrvUnicode& name) const
{
    for (unsigned int i = 0; i < m_bigFiles.GetCount(); ++i)
    {
        const long size = m_bigFiles[i]->GetFileSize(name);
        if (size > 0)
            return size;
    }
    return 0;
}

long OrvFileManager::GetFileDataFromBigFile(const OrvUnicode& name, char* buffer, long length) const
{
    for (unsigned int i = 0; i < m_bigFiles.GetCount(); ++i)
    {
        const long read = m_bigFiles[i]->GetFileData(name, buffer, length);
        if (read > 0)
            return read;
    }
    return 0;
}

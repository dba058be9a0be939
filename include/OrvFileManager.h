#ifndef ORV_FILE_MANAGER_H
#define ORV_FILE_MANAGER_H

#include <new>

#include "OrvFileException.h"
#include "OrvTObjectArray.h"
#include "OrvUnicode.h"

class OrvBigFile;
class OrvFile;

/// Registry of the files created for the engine (owned; also a cache keyed by
/// name), the media paths searched for files and the big files searched first.
class OrvFileManager
{
public:
    OrvFileManager();
    OrvFileManager(const OrvFileManager&) = delete;
    OrvFileManager& operator=(const OrvFileManager&) = delete;
    virtual ~OrvFileManager();

    void AddOrvFile(OrvFile* file);
    void DeleteOrvFile(OrvFile* file);
    void DeleteAllFiles();
    /// First registered file of that exact name, or null.
    OrvFile* GetFile(const OrvUnicode& name) const;
    unsigned int GetFileCount() const { return m_fileCount; }
    unsigned int GetFileCapacity() const { return m_fileCapacity; }
    OrvFile* GetFileAt(unsigned int index) const { return index < m_fileCount ? m_files[index] : nullptr; }

    /// Appends "/" unless the path is empty or already ends with "/" or "\".
    void AddMediaPath(const OrvUnicode& path);
    unsigned int GetMediaPathCount() const;
    OrvUnicode GetMediaPath(unsigned int index) const;

    /// Registers (or reuses) the archive of that name and searches it before the disk.
    OrvBigFile* AddBigFile(const OrvUnicode& name);
    unsigned int GetBigFileCount() const { return m_bigFiles.GetCount(); }
    long GetFileSizeFromBigFile(const OrvUnicode& name) const;
    long GetFileDataFromBigFile(const OrvUnicode& name, char* buffer, long length) const;

    /// The loading sequence of every media file: the registered file of that
    /// name, else a new T created with the next ID, registered and loaded. A
    /// file that fails to load is not kept: asking again tries again (and
    /// fails again) instead of finding an empty file.
    template <class T>
    T* GetOrLoad(const OrvUnicode& name, const OrvUnicode& path = OrvUnicode(""))
    {
        if (OrvFile* existing = GetFile(name))
            return dynamic_cast<T*>(existing);
        T* file = nullptr;
        try
        {
            file = new T();
            file->Create(this, ++LastFileID);
            AddOrvFile(file);
        }
        catch (const std::bad_alloc&)
        {
            delete file;
            ORV_THROW(OrvFileException, "Not enough memory to load a file", "src/File/OrvFileManager");
        }
        catch (...)
        {
            delete file;
            throw;
        }
        try
        {
            file->Load(name, path);
        }
        catch (...)
        {
            DeleteOrvFile(file);
            throw;
        }
        return file;
    }

    /// The last file ID handed out; the next file gets LastFileID + 1.
    unsigned int LastFileID;

private:
    void SetFileCapacity(unsigned int capacity);

    OrvFile** m_files;
    unsigned int m_fileCount;
    unsigned int m_fileCapacity;
    OrvTObjectArray<OrvUnicode> m_mediaPaths;
    OrvTObjectArray<OrvBigFile*> m_bigFiles;
};

#endif

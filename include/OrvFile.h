#ifndef ORV_FILE_H
#define ORV_FILE_H

#include <cstdio>
#include <exception>
#include <memory>
#include <new>
#include <string>

#include "OrvFileException.h"
#include "OrvUnicode.h"

class OrvFileManager;

enum OrvFileAcces : int
{
    FILE_READ = 0,  // "rb"
    FILE_WRITE = 1  // "wb"
};

/// Base of every file the engine reads or writes. A file is found by name inside
/// the registered big files first, then along the media paths, "./name" and the
/// bare name. Subclasses call Load or Save of this class first, then read or
/// write, then Close.
class OrvFile
{
public:
    enum SAVE_OPTION : int
    {
        SAVE_DEFAULT = 0,
        SAVE_COMPRESSED = 1
    };

    OrvFile();
    /// Copies manager, ID, size, name, path and the data; the copy has no stream
    /// of its own.
    OrvFile(const OrvFile& other);
    OrvFile& operator=(const OrvFile& other);
    virtual ~OrvFile();

    /// Only the first call counts.
    virtual void Create(OrvFileManager* manager, unsigned int id);
    virtual void Load(const OrvUnicode& name, const OrvUnicode& path);
    virtual void Save(const OrvUnicode& name, SAVE_OPTION option);

    void Open(const OrvUnicode& name, OrvFileAcces access);
    void Close();
    void Read(void* buffer, long size, long count);
    void Write(const void* buffer, unsigned long size, unsigned long count);
    /// One byte per character, in writes of at most 512 bytes.
    void WriteUnicodeAsASCII(const OrvUnicode& text);
    void Rewind();

    unsigned int GetID() const { return m_id; }
    long GetSize() const { return m_size; }
    unsigned char* GetData() const { return m_data; }
    OrvUnicode GetName() const { return m_name; }
    OrvUnicode GetPath() const { return m_path; }
    FILE* GetSystemFile() const { return m_systemFile; }
    bool GetIsInBigFile() const { return m_isInBigFile; }
    OrvFileManager* GetFileManager() const { return m_fileManager; }
    OrvUnicode GetExtension() const { return m_extension; }

protected:
    /// Runs a reader's work. What a reader cannot hold (memory it cannot get,
    /// a length beyond what a container takes) refuses the file with
    /// OrvFileException naming it, the file closed: a bad file never ends the
    /// game with an exception from outside the engine.
    template <class Work>
    void Guarded(Work work)
    {
        try
        {
            work();
        }
        catch (const std::bad_alloc&)
        {
            Refuse("Not enough memory to read the file");
        }
        catch (const std::exception&)
        {
            Refuse("Can't read the file");
        }
    }

    /// Closes the file and throws OrvFileException naming it (without the
    /// name when even that much memory is missing).
    [[noreturn]] void Refuse(const char* what);

    /// Reads the whole opened file (GetSize() bytes) into a new buffer and
    /// closes the file, also when the read fails.
    std::unique_ptr<unsigned char[]> ReadWholeFile();
    /// Replaces the data buffer with a fresh one of `bytes` bytes (zeroed).
    unsigned char* AllocateData(unsigned long bytes);
    void FreeData();
    /// "<what> : <file name>": the message of an OrvFileException that names
    /// this file.
    std::string MessageNaming(const char* what) const;

    OrvFileManager* m_fileManager;
    OrvUnicode m_name;
    unsigned int m_id;
    long m_size;
    unsigned char* m_data;
    OrvUnicode m_path;
    OrvUnicode m_extension;
    FILE* m_systemFile;
    bool m_isInBigFile;

private:
    unsigned long m_dataBytes;
};

#endif

#ifndef ORV_BIG_FILE_H
#define ORV_BIG_FILE_H

#include "OrvFile.h"
#include "OrvTObjectArray.h"
#include "OrvUnicode.h"

/// An archive (".vbf") that packs many media files into one. It is written by
/// adding files by name and saving, and read by loading its table of contents;
/// the members' data stay in the archive and are read on demand.
///
/// Layout, every integer 32-bit little-endian:
///   N, then N start indexes (absolute offsets of the entries);
///   each entry: data size, path length P, P path bytes, the data.
class OrvBigFile : public OrvFile
{
public:
    struct OrvBigFileInfo
    {
        OrvUnicode path;
        unsigned int startIndex = 0;
        unsigned int size = 0;
    };

    OrvBigFile();
    ~OrvBigFile() override;

    /// Also clears the unsaved-changes flag.
    void Create(OrvFileManager* manager, unsigned int id) override;
    /// Reads the table of contents and appends it to the records already held.
    void Load(const OrvUnicode& name, const OrvUnicode& path) override;
    /// Writes every member, reading their data from the files of their names.
    void Save(const OrvUnicode& name, SAVE_OPTION option) override;

    /// Records a member; its data are read from the file of that name at Save.
    void AddFile(const OrvUnicode& name);

    /// Size of the first member of that exact name, or 0 when there is none.
    long GetFileSize(const OrvUnicode& name) const;
    /// Copies the first `length` bytes of the member into `buffer`; returns
    /// `length`, or 0 when no member has that name.
    long GetFileData(const OrvUnicode& name, char* buffer, long length);

    unsigned int GetFileCount() const { return m_files.GetCount(); }
    const OrvBigFileInfo& GetFileInfo(unsigned int index) const { return m_files[index]; }
    bool HasUnsavedChanges() const { return m_unsavedChanges; }

private:
    const OrvBigFileInfo* FindFile(const OrvUnicode& name) const;
    /// The registered file of that name, or a plain file loaded for the purpose;
    /// either way registered with the manager and readable.
    OrvFile* AcquireSource(const OrvUnicode& name);
    /// Reads `size` bytes of the file of that name into `buffer`, then deletes
    /// the source from the manager.
    void ReadSourceData(const OrvUnicode& name, unsigned char* buffer, unsigned int size);
    void ReadTableOfContents();

    OrvTObjectArray<OrvBigFileInfo> m_files;
    bool m_unsavedChanges;
};

#endif

#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "OrvBigFile.h"
#include "OrvFileException.h"
#include "OrvFileManager.h"
#include "OrvScratchDir.h"

namespace
{
std::string U32(unsigned int v)
{
    const char bytes[4] = {static_cast<char>(v & 0xFF), static_cast<char>((v >> 8) & 0xFF),
                           static_cast<char>((v >> 16) & 0xFF), static_cast<char>((v >> 24) & 0xFF)};
    return std::string(bytes, 4);
}

OrvBigFile* NewBigFile(OrvFileManager& manager)
{
    OrvBigFile* file = new OrvBigFile();
    file->Create(&manager, ++manager.LastFileID);
    manager.AddOrvFile(file);
    return file;
}

// "name|message" of what the call throws.
template <class Call>
std::string Thrown(Call call)
{
    try
    {
        call();
    }
    catch (const OrvException& e)
    {
        return std::string(e.name) + "|" + e.message;
    }
    return "nothing thrown";
}

const std::string kFileError = "Orv File Exception|";

// The two members of the reference layout: a.txt (5 bytes), b/d.xml (10 bytes).
void WriteReferenceSources()
{
    OrvScratchDir::Write("a.txt", "hello");
    OrvScratchDir::Write("b/d.xml", std::string("<x>\0\xff</x>!", 10));
}

std::string ReferenceArchive()
{
    return U32(2) + U32(12) + U32(30) + U32(5) + U32(5) + "a.txt" + "hello" + U32(10) + U32(7) + "b/d.xml" +
           std::string("<x>\0\xff</x>!", 10);
}
} // namespace

TEST(OrvBigFile, BuildsTheReferenceLayoutAndReadsItBack)
{
    OrvScratchDir dir;
    WriteReferenceSources();
    OrvFileManager manager;
    OrvBigFile* pack = NewBigFile(manager);
    EXPECT_FALSE(pack->HasUnsavedChanges());

    pack->AddFile("a.txt");
    pack->AddFile("b/d.xml");
    ASSERT_EQ(2u, pack->GetFileCount());
    EXPECT_EQ(12u, pack->GetFileInfo(0).startIndex);
    EXPECT_EQ(30u, pack->GetFileInfo(1).startIndex);
    EXPECT_EQ(10u, pack->GetFileInfo(1).size);
    EXPECT_EQ(1u, manager.GetFileCount()); // the sources are gone again
    EXPECT_TRUE(pack->HasUnsavedChanges());
    char buffer[16] = {};
    EXPECT_EQ(kFileError + "You tried to get a file size from a unsaved big file",
              Thrown([&] { pack->GetFileSize("a.txt"); }));
    EXPECT_EQ(kFileError + "You tried to get a file data from a unsaved big file",
              Thrown([&] { pack->GetFileData("a.txt", buffer, 5); }));

    pack->Save("pack.vbf", OrvFile::SAVE_DEFAULT);
    EXPECT_FALSE(pack->HasUnsavedChanges());
    EXPECT_EQ(nullptr, pack->GetSystemFile());
    EXPECT_EQ(ReferenceArchive(), OrvScratchDir::Read("pack.vbf"));

    OrvBigFile* read = NewBigFile(manager);
    read->Load("pack.vbf", "");
    ASSERT_EQ(2u, read->GetFileCount());
    EXPECT_TRUE(read->GetFileInfo(1).path == "b/d.xml");
    EXPECT_EQ(30u, read->GetFileInfo(1).startIndex);
    EXPECT_EQ(nullptr, read->GetSystemFile());
    EXPECT_EQ(10, read->GetFileSize("b/d.xml"));
    EXPECT_EQ(0, read->GetFileSize("B/d.xml"));
    EXPECT_EQ(10, read->GetFileData("b/d.xml", buffer, 10));
    EXPECT_EQ(0, std::memcmp(buffer, ReferenceArchive().data() + 45, 10));
    std::memset(buffer, 0, sizeof(buffer));
    EXPECT_EQ(4, read->GetFileData("b/d.xml", buffer, 4));
    EXPECT_EQ(0, std::memcmp(buffer, "<x>\0", 4));
    EXPECT_EQ('\0', buffer[4]);
    EXPECT_EQ(kFileError + "You tried to read to much data from a file in a big file",
              Thrown([&] { read->GetFileData("b/d.xml", buffer, 11); }));
    EXPECT_EQ(0, read->GetFileData("nothing.txt", buffer, 1));

    // Loading again appends the records; Create clears a pending change.
    read->Load("pack.vbf", "");
    EXPECT_EQ(4u, read->GetFileCount());
    OrvBigFile fresh;
    fresh.Create(&manager, 999);
    fresh.AddFile("a.txt");
    fresh.Create(&manager, 1000);
    EXPECT_FALSE(fresh.HasUnsavedChanges());
}

TEST(OrvBigFile, StartIndexesShiftAsTheTableGrows)
{
    OrvScratchDir dir;
    OrvScratchDir::Write("one", "1");
    OrvScratchDir::Write("two2", "22");
    OrvScratchDir::Write("three", "333");
    OrvScratchDir::Write("four", "");
    OrvFileManager manager;
    OrvBigFile* pack = NewBigFile(manager);
    pack->AddFile("one");
    pack->AddFile("two2");
    pack->AddFile("three");
    EXPECT_EQ(16u, pack->GetFileInfo(0).startIndex);
    EXPECT_EQ(16u + 8 + 3 + 1, pack->GetFileInfo(1).startIndex);
    EXPECT_EQ(28u + 8 + 4 + 2, pack->GetFileInfo(2).startIndex);
    pack->AddFile("four");
    EXPECT_EQ(20u, pack->GetFileInfo(0).startIndex);
    EXPECT_EQ(46u, pack->GetFileInfo(2).startIndex);
    EXPECT_EQ(46u + 8 + 5 + 3, pack->GetFileInfo(3).startIndex);
    EXPECT_EQ(0u, pack->GetFileInfo(3).size);

    // What Save writes agrees with what AddFile computed.
    pack->Save("pack.vbf", OrvFile::SAVE_DEFAULT);
    const std::string bytes = OrvScratchDir::Read("pack.vbf");
    ASSERT_EQ(62u + 8 + 4, bytes.size());
    EXPECT_EQ(U32(4) + U32(20) + U32(32) + U32(46) + U32(62), bytes.substr(0, 20));

    OrvBigFile* empty = NewBigFile(manager);
    empty->Save("empty.vbf", OrvFile::SAVE_DEFAULT);
    EXPECT_EQ(U32(0), OrvScratchDir::Read("empty.vbf"));
    empty->Load("empty.vbf", "");
    EXPECT_EQ(0u, empty->GetFileCount());
    EXPECT_EQ(kFileError + "The given file name doesn't have the right file extension",
              Thrown([&] { empty->Save("packvbf", OrvFile::SAVE_DEFAULT); }));
}

TEST(OrvBigFile, EveryTruncationIsRefused)
{
    OrvScratchDir dir;
    const std::string archive = ReferenceArchive();
    OrvFileManager manager;
    OrvBigFile* pack = NewBigFile(manager);
    for (size_t cut = 0; cut < archive.size(); ++cut)
    {
        OrvScratchDir::Write("cut.vbf", archive.substr(0, cut));
        // Entries at 12 (path of 5) and 30 (path of 7).
        const size_t entry = cut < 30 ? 12 : 30;
        const size_t pathLength = cut < 30 ? 5 : 7;
        std::string expected = "A file's data run past the end of the big file : cut.vbf";
        if (cut < 4)
            expected = "Error reading file count from big file";
        else if (cut < 12)
            expected = "Error reading start indexes from big file";
        else if (cut < entry + 8)
            expected = "Error reading sizes from big file";
        else if (cut < entry + 8 + pathLength)
            expected = "Error reading path from big file";
        EXPECT_EQ(kFileError + expected, Thrown([&] { pack->Load("cut.vbf", ""); })) << "cut at " << cut;
        EXPECT_EQ(0u, pack->GetFileCount());
        EXPECT_EQ(nullptr, pack->GetSystemFile());
    }
}

TEST(OrvBigFile, CorruptTablesAreRefusedBeforeReading)
{
    OrvScratchDir dir;
    OrvFileManager manager;
    OrvBigFile* pack = NewBigFile(manager);
    const auto load = [&](const std::string& bytes) {
        OrvScratchDir::Write("bad.vbf", bytes);
        return Thrown([&] { pack->Load("bad.vbf", ""); });
    };
    EXPECT_EQ(kFileError + "Error reading start indexes from big file", load(U32(0xFFFFFFFF) + U32(8)));
    EXPECT_EQ(kFileError + "Error reading sizes from big file", load(U32(1) + U32(0xFFFFFFF0) + U32(0) + U32(0)));
    EXPECT_EQ(kFileError + "Error reading path from big file",
              load(U32(1) + U32(8) + U32(0) + U32(0xFFFFFFFF) + "abc"));
    EXPECT_EQ(kFileError + "A file's data run past the end of the big file : bad.vbf",
              load(U32(1) + U32(8) + U32(0xFFFFFFFF) + U32(1) + "a" + "xyz"));
    EXPECT_EQ(kFileError + "A path in the big file holds a zero byte : bad.vbf",
              load(U32(1) + U32(8) + U32(1) + U32(2) + std::string("a\0", 2) + "z"));
    // A second member that fails takes the first one's record with it.
    EXPECT_EQ(kFileError + "Error reading sizes from big file",
              load(U32(2) + U32(12) + U32(99) + U32(0) + U32(1) + "a"));
    EXPECT_EQ(0u, pack->GetFileCount());

    // A well-formed table whose data shrank after loading: the member is named.
    OrvScratchDir::Write("ok.vbf", ReferenceArchive());
    pack->Load("ok.vbf", "");
    OrvScratchDir::Write("ok.vbf", ReferenceArchive().substr(0, 50));
    char buffer[10];
    EXPECT_EQ(kFileError + "Error reading the data of a file from big file : b/d.xml",
              Thrown([&] { pack->GetFileData("b/d.xml", buffer, 10); }));
    EXPECT_EQ(nullptr, pack->GetSystemFile());
}

TEST(OrvBigFile, ServesMembersThroughTheManager)
{
    OrvScratchDir dir;
    WriteReferenceSources();
    OrvFileManager manager;
    OrvBigFile* inner = NewBigFile(manager);
    inner->AddFile("a.txt");
    inner->Save("inner.vbf", OrvFile::SAVE_DEFAULT);
    OrvBigFile* outer = NewBigFile(manager);
    outer->AddFile("b/d.xml");
    outer->AddFile("inner.vbf");
    OrvScratchDir::Write("data/outer.vbf", "");
    outer->Save("data/outer.vbf", OrvFile::SAVE_DEFAULT);
    EXPECT_FALSE(OrvScratchDir::Exists("outer.vbf"));

    // The archive is found at the path it was loaded with; the disk copy of a
    // member is shadowed by the archive.
    OrvScratchDir::Write("b/d.xml", "disk");
    OrvBigFile* registered = NewBigFile(manager);
    registered->Load("outer.vbf", "data/");
    char buffer[10];
    EXPECT_EQ(5, registered->GetFileData("b/d.xml", buffer, 5));
    EXPECT_EQ(0, std::memcmp(buffer, "<x>\0\xff", 5));
    OrvFileManager reader;
    reader.AddMediaPath("data");
    OrvBigFile* outerRead = reader.AddBigFile("outer.vbf");
    ASSERT_EQ(2u, outerRead->GetFileCount());
    OrvFile* member = reader.GetOrLoad<OrvFile>("b/d.xml");
    EXPECT_TRUE(member->GetIsInBigFile());
    EXPECT_EQ(10, member->GetSize());
    member->Read(buffer, 1, 10);
    EXPECT_EQ(std::string("<x>\0\xff</x>!", 10), std::string(buffer, 10));
    EXPECT_EQ(kFileError + "A big file can't be loaded from inside another big file : inner.vbf",
              Thrown([&] { reader.AddBigFile("inner.vbf"); }));

    // A member of a registered archive can be packed again into a new one.
    OrvBigFile* repack = NewBigFile(reader);
    repack->AddFile("b/d.xml");
    EXPECT_EQ(10u, repack->GetFileInfo(0).size);
    repack->Save("repack.vbf", OrvFile::SAVE_DEFAULT);
    EXPECT_EQ(std::string("<x>\0\xff</x>!", 10), OrvScratchDir::Read("repack.vbf").substr(23));
    EXPECT_EQ(outerRead, reader.GetFile("outer.vbf"));
}

TEST(OrvBigFile, SourceFailuresLeaveNothingBehind)
{
    OrvScratchDir dir;
    WriteReferenceSources();
    OrvFileManager manager;
    OrvBigFile* pack = NewBigFile(manager);
    EXPECT_EQ(kFileError + "Can't find the file to read : missing.txt", Thrown([&] { pack->AddFile("missing.txt"); }));
    EXPECT_EQ(1u, manager.GetFileCount());
    EXPECT_EQ(0u, pack->GetFileCount());
    EXPECT_FALSE(pack->HasUnsavedChanges());

    // A source that shrank before Save: the base exception, an emptied archive.
    pack->AddFile("a.txt");
    pack->AddFile("b/d.xml");
    OrvScratchDir::Write("b/d.xml", "short");
    OrvScratchDir::Write("pack.vbf", "previous contents");
    EXPECT_EQ("Orv Exception|Failed to read a file while creating big file",
              Thrown([&] { pack->Save("pack.vbf", OrvFile::SAVE_DEFAULT); }));
    EXPECT_EQ("", OrvScratchDir::Read("pack.vbf"));
    EXPECT_EQ(nullptr, pack->GetSystemFile());
    EXPECT_EQ(1u, manager.GetFileCount());
    EXPECT_TRUE(pack->HasUnsavedChanges());

    OrvBigFile unbound;
    EXPECT_EQ(kFileError + "File manager not defined so file can't be opened (call Create())",
              Thrown([&] { unbound.AddFile("a.txt"); }));
}

#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "OrvBigFile.h"
#include "OrvFileManager.h"
#include "OrvTestBytes.h"

namespace
{
std::string BigFileError(const std::string& message)
{
    return "Orv File Exception | " + message + " | src/File/OrvBigFile";
}

// The sources of the two members of VbfExample().
void WriteExampleSources()
{
    OrvScratchDir::Write("a.txt", "hello");
    OrvScratchDir::Write("b/d.xml", kVbfMember);
}
} // namespace

using OrvBigFileTest = OrvScratchFiles;

TEST_F(OrvBigFileTest, BuildsTheExampleLayoutAndReadsItBack)
{
    WriteExampleSources();
    OrvBigFile* pack = NewFile<OrvBigFile>(manager);
    pack->AddFile("a.txt");
    pack->AddFile("b/d.xml");
    EXPECT_EQ(1u, manager.GetFileCount()); // the sources are gone again
    EXPECT_TRUE(pack->HasUnsavedChanges());
    char buffer[16] = {};
    EXPECT_EQ(BigFileError("You tried to get a file size from a unsaved big file"),
              Thrown([&] { pack->GetFileSize("a.txt"); }).Full());
    EXPECT_EQ(BigFileError("You tried to get a file data from a unsaved big file"),
              Thrown([&] { pack->GetFileData("a.txt", buffer, 5); }).Full());

    pack->Save("pack.vbf", OrvFile::SAVE_DEFAULT);
    EXPECT_FALSE(pack->HasUnsavedChanges());
    EXPECT_EQ(nullptr, pack->GetSystemFile());
    EXPECT_EQ(VbfExample(), OrvScratchDir::Read("pack.vbf"));

    OrvBigFile* read = NewFile<OrvBigFile>(manager);
    read->Load("pack.vbf", "");
    ASSERT_EQ(2u, read->GetFileCount());
    EXPECT_EQ(nullptr, read->GetSystemFile());
    EXPECT_EQ(10, read->GetFileSize("b/d.xml"));
    EXPECT_EQ(0, read->GetFileSize("B/d.xml"));
    EXPECT_EQ(10, read->GetFileData("b/d.xml", buffer, 10));
    EXPECT_EQ(kVbfMember, AsString(buffer, 10));
    std::memset(buffer, 0, sizeof(buffer));
    EXPECT_EQ(4, read->GetFileData("b/d.xml", buffer, 4));
    EXPECT_EQ(std::string("<x>\0\0", 5), AsString(buffer, 5));
    EXPECT_EQ(BigFileError("You tried to read to much data from a file in a big file"),
              Thrown([&] { read->GetFileData("b/d.xml", buffer, 11); }).Full());
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

TEST_F(OrvBigFileTest, StartIndexesShiftAsTheTableGrows)
{
    OrvScratchDir::Write("one", "1");
    OrvScratchDir::Write("two2", "22");
    OrvScratchDir::Write("three", "333");
    OrvScratchDir::Write("four", "");
    OrvBigFile* pack = NewFile<OrvBigFile>(manager);
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
    EXPECT_EQ(Le32(4) + Le32(20) + Le32(32) + Le32(46) + Le32(62), bytes.substr(0, 20));

    OrvBigFile* empty = NewFile<OrvBigFile>(manager);
    empty->Save("empty.vbf", OrvFile::SAVE_DEFAULT);
    EXPECT_EQ(Le32(0), OrvScratchDir::Read("empty.vbf"));
    empty->Load("empty.vbf", "");
    EXPECT_EQ(0u, empty->GetFileCount());
    EXPECT_EQ("The given file name doesn't have the right file extension",
              Thrown([&] { empty->Save("packvbf", OrvFile::SAVE_DEFAULT); }).message);
}

TEST_F(OrvBigFileTest, EveryTruncationIsRefused)
{
    const std::string archive = VbfExample();
    OrvBigFile* pack = NewFile<OrvBigFile>(manager);
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
        EXPECT_EQ(BigFileError(expected), Thrown([&] { pack->Load("cut.vbf", ""); }).Full()) << "cut at " << cut;
        EXPECT_EQ(0u, pack->GetFileCount());
        EXPECT_EQ(nullptr, pack->GetSystemFile());
    }
}

TEST_F(OrvBigFileTest, CorruptTablesAreRefusedBeforeReading)
{
    OrvBigFile* pack = NewFile<OrvBigFile>(manager);
    const auto load = [&](const std::string& bytes) {
        OrvScratchDir::Write("bad.vbf", bytes);
        return Thrown([&] { pack->Load("bad.vbf", ""); }).Full();
    };
    EXPECT_EQ(BigFileError("Error reading start indexes from big file"), load(Le32(0xFFFFFFFF) + Le32(8)));
    EXPECT_EQ(BigFileError("Error reading sizes from big file"), load(Le32(1) + Le32(0xFFFFFFF0) + Le32(0) + Le32(0)));
    EXPECT_EQ(BigFileError("Error reading path from big file"),
              load(Le32(1) + Le32(8) + Le32(0) + Le32(0xFFFFFFFF) + "abc"));
    EXPECT_EQ(BigFileError("A file's data run past the end of the big file : bad.vbf"),
              load(Le32(1) + Le32(8) + Le32(0xFFFFFFFF) + Le32(1) + "a" + "xyz"));
    EXPECT_EQ(BigFileError("A path in the big file holds a zero byte : bad.vbf"),
              load(Le32(1) + Le32(8) + Le32(1) + Le32(2) + std::string("a\0", 2) + "z"));
    // A second member that fails takes the first one's record with it.
    EXPECT_EQ(BigFileError("Error reading sizes from big file"),
              load(Le32(2) + Le32(12) + Le32(99) + Le32(0) + Le32(1) + "a"));
    EXPECT_EQ(0u, pack->GetFileCount());

    // A well-formed table whose data shrank after loading: the member is named.
    OrvScratchDir::Write("ok.vbf", VbfExample());
    pack->Load("ok.vbf", "");
    OrvScratchDir::Write("ok.vbf", VbfExample().substr(0, 50));
    char buffer[10];
    EXPECT_EQ(BigFileError("Error reading the data of a file from big file : b/d.xml"),
              Thrown([&] { pack->GetFileData("b/d.xml", buffer, 10); }).Full());
    EXPECT_EQ(nullptr, pack->GetSystemFile());

    // A 256 KB table of 65,530 members, all one record: read in one pass.
    const unsigned long members = 65530;
    std::string table = Le32(members);
    for (unsigned long i = 0; i < members; ++i)
        table += Le32(4 + 4 * members);
    OrvScratchDir::Write("many.vbf", table + Le32(1) + Le32(1) + "a" + "z");
    OrvBigFile* many = NewFile<OrvBigFile>(manager);
    many->Load("many.vbf", "");
    EXPECT_EQ(members, many->GetFileCount());
    EXPECT_EQ(1, many->GetFileSize("a"));
}

TEST_F(OrvBigFileTest, ServesMembersThroughTheManager)
{
    WriteExampleSources();
    OrvBigFile* inner = NewFile<OrvBigFile>(manager);
    inner->AddFile("a.txt");
    inner->Save("inner.vbf", OrvFile::SAVE_DEFAULT);
    OrvBigFile* outer = NewFile<OrvBigFile>(manager);
    outer->AddFile("b/d.xml");
    outer->AddFile("inner.vbf");
    OrvScratchDir::Write("data/outer.vbf", "");
    outer->Save("data/outer.vbf", OrvFile::SAVE_DEFAULT);
    EXPECT_FALSE(OrvScratchDir::Exists("outer.vbf"));

    // The archive is found at the path it was loaded with; the disk copy of a
    // member is shadowed by the archive.
    OrvScratchDir::Write("b/d.xml", "disk");
    OrvBigFile* registered = NewFile<OrvBigFile>(manager);
    registered->Load("outer.vbf", "data/");
    char buffer[10];
    EXPECT_EQ(5, registered->GetFileData("b/d.xml", buffer, 5));
    EXPECT_EQ(kVbfMember.substr(0, 5), AsString(buffer, 5));
    OrvFileManager reader;
    reader.AddMediaPath("data");
    OrvBigFile* outerRead = reader.AddBigFile("outer.vbf");
    ASSERT_EQ(2u, outerRead->GetFileCount());
    OrvFile* member = reader.GetOrLoad<OrvFile>("b/d.xml");
    EXPECT_TRUE(member->GetIsInBigFile());
    EXPECT_EQ(10, member->GetSize());
    member->Read(buffer, 1, 10);
    EXPECT_EQ(kVbfMember, AsString(buffer, 10));
    EXPECT_EQ(BigFileError("A big file can't be loaded from inside another big file : inner.vbf"),
              Thrown([&] { reader.AddBigFile("inner.vbf"); }).Full());

    // A member of a registered archive can be packed again into a new one.
    OrvBigFile* repack = NewFile<OrvBigFile>(reader);
    repack->AddFile("b/d.xml");
    EXPECT_EQ(10u, repack->GetFileInfo(0).size);
    repack->Save("repack.vbf", OrvFile::SAVE_DEFAULT);
    EXPECT_EQ(kVbfMember, OrvScratchDir::Read("repack.vbf").substr(23));
    EXPECT_EQ(outerRead, reader.GetFile("outer.vbf"));
}

TEST_F(OrvBigFileTest, SourceFailuresLeaveNothingBehind)
{
    WriteExampleSources();
    OrvBigFile* pack = NewFile<OrvBigFile>(manager);
    EXPECT_EQ("Orv File Exception | Can't find the file to read : missing.txt | src/File/OrvFile",
              Thrown([&] { pack->AddFile("missing.txt"); }).Full());
    EXPECT_EQ(1u, manager.GetFileCount());
    EXPECT_EQ(0u, pack->GetFileCount());
    EXPECT_FALSE(pack->HasUnsavedChanges());

    // A source that shrank before Save: the base exception, an emptied archive.
    pack->AddFile("a.txt");
    pack->AddFile("b/d.xml");
    OrvScratchDir::Write("b/d.xml", "short");
    OrvScratchDir::Write("pack.vbf", "previous contents");
    EXPECT_EQ("Orv Exception | Failed to read a file while creating big file | src/File/OrvBigFile",
              Thrown([&] { pack->Save("pack.vbf", OrvFile::SAVE_DEFAULT); }).Full());
    EXPECT_EQ("", OrvScratchDir::Read("pack.vbf"));
    EXPECT_EQ(nullptr, pack->GetSystemFile());
    EXPECT_EQ(1u, manager.GetFileCount());
    EXPECT_TRUE(pack->HasUnsavedChanges());

    OrvBigFile unbound;
    EXPECT_EQ(BigFileError("File manager not defined so file can't be opened (call Create())"),
              Thrown([&] { unbound.AddFile("a.txt"); }).Full());
}

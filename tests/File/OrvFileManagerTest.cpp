#include <gtest/gtest.h>

#include <sys/stat.h>

#include <string>
#include <vector>

#include "OrvFileManager.h"
#include "OrvMemoryCap.h"
#include "OrvTestBytes.h"
#include "OrvTextFile.h"

namespace
{
std::string Contents(const OrvFile* file)
{
    return AsString(file->GetData(), static_cast<unsigned long>(file->GetSize()));
}
}

using OrvFileManagerTest = OrvScratchFiles;
using OrvFileTest = OrvScratchFiles;

TEST_F(OrvFileManagerTest, SearchOrderAlongMediaPaths)
{
    manager.AddMediaPath("media");
    manager.AddMediaPath("gfx\\");
    manager.AddMediaPath("");
    EXPECT_TRUE(manager.GetMediaPath(0) == "media/");
    EXPECT_TRUE(manager.GetMediaPath(1) == "gfx\\");
    EXPECT_TRUE(manager.GetMediaPath(2) == "");
    EXPECT_EQ("Orv Array Exception", Thrown([&] { manager.GetMediaPath(3); }).name);

    OrvScratchDir::Write("a.txt", "bare");
    EXPECT_EQ("bare", Contents(manager.GetOrLoad<OrvTextFile>("a.txt")));
    OrvScratchDir::Write("gfx\\b.txt", "second path");
    OrvScratchDir::Write("b.txt", "bare");
    EXPECT_EQ("second path", Contents(manager.GetOrLoad<OrvTextFile>("b.txt")));
    OrvScratchDir::Write("media/b.txt", "first path");
    EXPECT_EQ("second path", Contents(manager.GetOrLoad<OrvTextFile>("b.txt"))) << "a registered file is reused";
    OrvTextFile* fresh = NewFile<OrvTextFile>(manager);
    fresh->Load("b.txt", "");
    EXPECT_EQ("first path", Contents(fresh));
    EXPECT_EQ(0, fresh->GetData()[fresh->GetSize()]) << "text ends with a zero byte";
    EXPECT_EQ(manager.GetFile("b.txt"), manager.GetFileAt(1)) << "the first of two same-named files";

    // An explicit path is used as it is, without a separator.
    OrvScratchDir::Write("data/c.txt", "in data");
    OrvScratchDir::Write("datac.txt", "glued");
    OrvTextFile* withSlash = NewFile<OrvTextFile>(manager);
    withSlash->Load("c.txt", "data/");
    EXPECT_EQ("in data", Contents(withSlash));
    OrvTextFile* glued = NewFile<OrvTextFile>(manager);
    glued->Load("c.txt", "data");
    EXPECT_EQ("glued", Contents(glued));

    // Reading at an explicit place that holds nothing creates the file empty.
    OrvTextFile* created = NewFile<OrvTextFile>(manager);
    created->Load("new.txt", "data/");
    EXPECT_EQ(0, created->GetSize());
    EXPECT_TRUE(OrvScratchDir::Exists("data/new.txt"));

    OrvTextFile* missing = NewFile<OrvTextFile>(manager);
    EXPECT_EQ("Can't find the file to read : nowhere.txt", Thrown([&] { missing->Load("nowhere.txt", ""); }).message);
    EXPECT_EQ(nullptr, missing->GetSystemFile());
}

TEST_F(OrvFileManagerTest, WritingRewritesWhereFoundElseInTheWorkingDirectory)
{
    manager.AddMediaPath("one");
    manager.AddMediaPath("two");
    OrvScratchDir::Write("two/save.txt", "old contents");
    OrvTextFile* file = manager.GetOrLoad<OrvTextFile>("save.txt");
    file->Save("save.txt", OrvFile::SAVE_DEFAULT);
    EXPECT_EQ("old contents", OrvScratchDir::Read("two/save.txt"));

    OrvTextFile* other = NewFile<OrvTextFile>(manager);
    other->Open("other.txt", FILE_WRITE);
    other->WriteUnicodeAsASCII("hello");
    other->Close();
    EXPECT_EQ("hello", OrvScratchDir::Read("other.txt"));
    EXPECT_FALSE(OrvScratchDir::Exists("one/other.txt"));
}

TEST_F(OrvFileTest, RefusalsAndExtensions)
{
    OrvTextFile orphan;
    EXPECT_EQ("Orv File Exception | File manager not defined so file can't be opened (call Create()) | "
              "src/File/OrvFile",
              Thrown([&] { orphan.Open("a.txt", FILE_READ); }).Full());
    orphan.Create(&manager, 0);
    EXPECT_EQ("File ID is not defined so file can't be opened (call Create())",
              Thrown([&] { orphan.Open("a.txt", FILE_READ); }).message);
    OrvTextFile text;
    text.Create(&manager, 7);
    text.Create(nullptr, 9);
    EXPECT_EQ(7u, text.GetID()) << "only the first Create counts";
    EXPECT_EQ(&manager, text.GetFileManager());

    for (const char* name : {"a.TXT", "xt", "a.txtx"})
        EXPECT_EQ("The given file name doesn't have the right file extension",
                  Thrown([&] { text.Open(name, FILE_WRITE); }).message)
            << name;
    EXPECT_EQ("You tried to open a file with an unhandled file access",
              Thrown([&] { text.Open("a.txt", static_cast<OrvFileAcces>(2)); }).message);
    EXPECT_EQ("You tried to write to a file that isn't open", Thrown([&] { text.Write("x", 1, 1); }).message);
    EXPECT_EQ("You tried to write to a file that isn't open", Thrown([&] { text.WriteUnicodeAsASCII("x"); }).message);
    char byte;
    EXPECT_EQ("Orv File Exception", Thrown([&] { text.Read(&byte, 1, 1); }).name);
}

TEST_F(OrvFileTest, WritesTextInBlocksOf512)
{
    OrvTextFile file;
    file.Create(&manager, 1);
    file.Open("long.txt", FILE_WRITE);
    file.WriteUnicodeAsASCII(OrvUnicode(std::string(1000, 'x').c_str()));
    file.WriteUnicodeAsASCII(OrvUnicode(std::string(1024, 'y').c_str()));
    file.WriteUnicodeAsASCII("");
    OrvUnicode wide("z");
    *wide[0] = 0x141;  // low byte 0x41
    file.WriteUnicodeAsASCII(wide);
    file.Close();
    const std::string written = OrvScratchDir::Read("long.txt");
    EXPECT_EQ(std::string(1000, 'x') + std::string(1024, 'y') + "A", written);
}

TEST_F(OrvFileManagerTest, RegistryIdsAndCapacitySteps)
{
    EXPECT_EQ(10u, manager.GetFileCapacity());
    OrvTextFile stranger;
    stranger.Create(&manager, 99);
    EXPECT_EQ("Orv File Exception | You tried to delete a file that doesn't exists | src/File/OrvFileManager",
              Thrown([&] { manager.DeleteOrvFile(&stranger); }).Full());
    std::vector<OrvTextFile*> files;
    for (int i = 0; i < 25; ++i)
        files.push_back(NewFile<OrvTextFile>(manager));
    EXPECT_EQ(30u, manager.GetFileCapacity());
    EXPECT_EQ(25u, manager.LastFileID);
    OrvTextFile twin;
    twin.Create(&manager, 3);
    EXPECT_EQ("You tried to add a file that already exists", Thrown([&] { manager.AddOrvFile(&twin); }).message);

    manager.DeleteOrvFile(files[0]);
    EXPECT_EQ(30u, manager.GetFileCapacity()) << "6 free slots";
    for (int i = 1; i < 6; ++i)
        manager.DeleteOrvFile(files[i]);
    EXPECT_EQ(19u, manager.GetFileCount());
    EXPECT_EQ(20u, manager.GetFileCapacity()) << "11 free slots shrink by one step";
    EXPECT_EQ(files[6], manager.GetFileAt(0)) << "later files move down";

    manager.DeleteAllFiles();
    EXPECT_EQ(0u, manager.GetFileCount());
    EXPECT_EQ(10u, manager.GetFileCapacity());
    EXPECT_EQ(nullptr, manager.GetFile(""));
}

TEST_F(OrvFileManagerTest, OnlyRegularFilesOpenAndFailedLoadsAreNotKept)
{
    // A name holding a zero character would narrow to the media path alone.
    manager.AddMediaPath("media");
    ASSERT_EQ(0, mkdir("media", 0755));
    OrvUnicode zeroNamed("x.txt");
    *zeroNamed[0] = 0;
    const Thrown zero([&] { manager.GetOrLoad<OrvTextFile>(zeroNamed); });
    EXPECT_EQ("Orv File Exception", zero.name);
    EXPECT_EQ(0, zero.message.find("A file name holds a zero character")) << zero.message;

    // A folder named like the file is not the file.
    ASSERT_EQ(0, mkdir("media/folder.txt", 0755));
    EXPECT_EQ("Can't find the file to read : folder.txt",
              Thrown([&] { manager.GetOrLoad<OrvTextFile>("folder.txt"); }).message);

    // Nothing of a failed load stays registered: asking again fails again,
    // and once the file exists it loads.
    for (int attempt = 0; attempt < 2; ++attempt)
        EXPECT_EQ("Can't find the file to read : late.txt",
                  Thrown([&] { manager.GetOrLoad<OrvTextFile>("late.txt"); }).message);
    EXPECT_EQ(nullptr, manager.GetFile("late.txt"));
    OrvScratchDir::Write("late.txt", "here");
    EXPECT_EQ(4, manager.GetOrLoad<OrvTextFile>("late.txt")->GetSize());
}

TEST(OrvFileOutOfMemory, AReaderThatCannotAllocateRefusesTheFile)
{
#if !ORV_MEMORY_CAP_WORKS
    GTEST_SKIP() << "the address sanitizer's own reservations defeat a cap on memory";
#else
    OrvScratchDir dir;
    OrvScratchDir::Write("big.txt", std::string(8u << 20, 'x'));
    EXPECT_EXIT(
        {
            OrvFileManager files;
            CapMemory(64u << 10);
            int outcome = 1;
            try
            {
                files.GetOrLoad<OrvTextFile>("big.txt");
            }
            catch (const OrvFileException& refused)
            {
                outcome = std::string(refused.message).find("Not enough memory to read the file") == 0 ? 0 : 2;
            }
            catch (...)
            {
                outcome = 5;
            }
            std::_Exit(outcome);
        },
        ::testing::ExitedWithCode(0), "");
#endif
}

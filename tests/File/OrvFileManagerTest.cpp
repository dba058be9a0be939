#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "OrvArrayException.h"
#include "OrvFileException.h"
#include "OrvFileManager.h"
#include "OrvScratchDir.h"
#include "OrvTextFile.h"

namespace
{
// A file whose every write is recorded, to see how text is cut into writes.
class RecordingFile : public OrvFile
{
public:
    std::vector<unsigned long> writes;
};

std::string MessageOf(void (*action)(OrvFileManager&), OrvFileManager& manager)
{
    try
    {
        action(manager);
    }
    catch (const OrvFileException& e)
    {
        return e.message;
    }
    return "no exception";
}

OrvTextFile* NewText(OrvFileManager& manager)
{
    OrvTextFile* file = new OrvTextFile();
    file->Create(&manager, ++manager.LastFileID);
    manager.AddOrvFile(file);
    return file;
}

std::string Contents(const OrvFile* file)
{
    return std::string(reinterpret_cast<const char*>(file->GetData()), static_cast<size_t>(file->GetSize()));
}
}

TEST(OrvFileManager, SearchOrderAlongMediaPaths)
{
    OrvScratchDir dir;
    OrvFileManager manager;
    manager.AddMediaPath("media");
    manager.AddMediaPath("gfx\\");
    manager.AddMediaPath("");
    EXPECT_EQ(3u, manager.GetMediaPathCount());
    EXPECT_TRUE(manager.GetMediaPath(0) == "media/");
    EXPECT_TRUE(manager.GetMediaPath(1) == "gfx\\");
    EXPECT_TRUE(manager.GetMediaPath(2) == "");
    EXPECT_THROW(manager.GetMediaPath(3), OrvArrayException);

    OrvScratchDir::Write("a.txt", "bare");
    EXPECT_EQ("bare", Contents(manager.GetOrLoad<OrvTextFile>("a.txt")));
    OrvScratchDir::Write("gfx\\b.txt", "second path");
    OrvScratchDir::Write("b.txt", "bare");
    EXPECT_EQ("second path", Contents(manager.GetOrLoad<OrvTextFile>("b.txt")));
    OrvScratchDir::Write("media/b.txt", "first path");
    EXPECT_EQ("second path", Contents(manager.GetOrLoad<OrvTextFile>("b.txt"))) << "a registered file is reused";
    OrvTextFile* fresh = NewText(manager);
    fresh->Load("b.txt", "");
    EXPECT_EQ("first path", Contents(fresh));
    EXPECT_EQ(0, fresh->GetData()[fresh->GetSize()]) << "text ends with a zero byte";
    EXPECT_EQ(manager.GetFile("b.txt"), manager.GetFileAt(1)) << "the first of two same-named files";

    // An explicit path is used as it is, without a separator.
    OrvScratchDir::Write("data/c.txt", "in data");
    OrvScratchDir::Write("datac.txt", "glued");
    OrvTextFile* withSlash = NewText(manager);
    withSlash->Load("c.txt", "data/");
    EXPECT_EQ("in data", Contents(withSlash));
    OrvTextFile* glued = NewText(manager);
    glued->Load("c.txt", "data");
    EXPECT_EQ("glued", Contents(glued));

    // Reading at an explicit place that holds nothing creates the file empty.
    OrvTextFile* created = NewText(manager);
    created->Load("new.txt", "data/");
    EXPECT_EQ(0, created->GetSize());
    EXPECT_TRUE(OrvScratchDir::Exists("data/new.txt"));

    OrvTextFile* missing = NewText(manager);
    EXPECT_THROW(missing->Load("nowhere.txt", ""), OrvFileException);
    EXPECT_EQ(nullptr, missing->GetSystemFile());
}

TEST(OrvFileManager, WritingRewritesWhereFoundElseInTheWorkingDirectory)
{
    OrvScratchDir dir;
    OrvFileManager manager;
    manager.AddMediaPath("one");
    manager.AddMediaPath("two");
    OrvScratchDir::Write("two/save.txt", "old contents");
    OrvTextFile* file = manager.GetOrLoad<OrvTextFile>("save.txt");
    file->Save("save.txt", OrvFile::SAVE_DEFAULT);
    EXPECT_EQ("old contents", OrvScratchDir::Read("two/save.txt"));

    OrvTextFile* other = NewText(manager);
    other->Open("other.txt", FILE_WRITE);
    other->WriteUnicodeAsASCII("hello");
    other->Close();
    EXPECT_EQ("hello", OrvScratchDir::Read("other.txt"));
    EXPECT_FALSE(OrvScratchDir::Exists("one/other.txt"));
    EXPECT_TRUE(file->GetName() == "save.txt");
}

TEST(OrvFile, RefusalsAndExtensions)
{
    OrvScratchDir dir;
    OrvFileManager manager;
    OrvTextFile orphan;
    try
    {
        orphan.Open("a.txt", FILE_READ);
        FAIL();
    }
    catch (const OrvFileException& e)
    {
        EXPECT_STREQ("File manager not defined so file can't be opened (call Create())", e.message);
        EXPECT_STREQ("src/File/OrvFile", e.file);
    }
    orphan.Create(&manager, 0);
    EXPECT_THROW(orphan.Open("a.txt", FILE_READ), OrvFileException);
    OrvTextFile text;
    text.Create(&manager, 7);
    text.Create(nullptr, 9);
    EXPECT_EQ(7u, text.GetID()) << "only the first Create counts";
    EXPECT_EQ(&manager, text.GetFileManager());

    const std::vector<std::string> badNames = {"a.TXT", "xt", "a.txtx"};
    for (const std::string& name : badNames)
    {
        try
        {
            text.Open(name.c_str(), FILE_WRITE);
            ADD_FAILURE() << name;
        }
        catch (const OrvFileException& e)
        {
            EXPECT_STREQ("The given file name doesn't have the right file extension", e.message) << name;
        }
    }
    try
    {
        text.Open("a.txt", static_cast<OrvFileAcces>(2));
        FAIL();
    }
    catch (const OrvFileException& e)
    {
        EXPECT_STREQ("You tried to open a file with an unhandled file access", e.message);
    }
    EXPECT_THROW(text.Write("x", 1, 1), OrvFileException);
    try
    {
        text.WriteUnicodeAsASCII("x");
        FAIL();
    }
    catch (const OrvFileException& e)
    {
        EXPECT_STREQ("You tried to write to a file that isn't open", e.message);
    }
    char byte;
    EXPECT_THROW(text.Read(&byte, 1, 1), OrvFileException);
}

TEST(OrvFile, WritesTextInBlocksOf512)
{
    OrvScratchDir dir;
    OrvFileManager manager;
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

TEST(OrvFileManager, RegistryIdsAndCapacitySteps)
{
    OrvFileManager manager;
    EXPECT_EQ(10u, manager.GetFileCapacity());
    EXPECT_EQ("You tried to delete a file that doesn't exists", MessageOf([](OrvFileManager& m) {
                  OrvTextFile stranger;
                  stranger.Create(&m, 99);
                  m.DeleteOrvFile(&stranger);
              }, manager));
    std::vector<OrvTextFile*> files;
    for (int i = 0; i < 25; ++i)
        files.push_back(NewText(manager));
    EXPECT_EQ(30u, manager.GetFileCapacity());
    EXPECT_EQ(25u, manager.LastFileID);
    EXPECT_EQ("You tried to add a file that already exists", MessageOf([](OrvFileManager& m) {
                  OrvTextFile* twin = new OrvTextFile();
                  twin->Create(&m, 3);
                  try
                  {
                      m.AddOrvFile(twin);
                  }
                  catch (...)
                  {
                      delete twin;
                      throw;
                  }
              }, manager));

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

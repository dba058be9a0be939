#include <gtest/gtest.h>

#include <string>

#include "OrvArrayException.h"
#include "OrvInvalidMatrixException.h"
#include "OrvAnimationFileCurruptedException.h"
#include "OrvFileException.h"

TEST(OrvException, NamesCopiesAndTheThrowMacro)
{
    const OrvArrayException blank;
    EXPECT_EQ(-1, blank.line);
    EXPECT_STREQ("Orv Exception", blank.name);

    const OrvFileException file("bad", "src/File/OrvFile", 12);
    EXPECT_STREQ("Orv File Exception", file.name);
    EXPECT_STREQ("Orv Animation File Currupted Exception", OrvAnimationFileCurruptedException("m", "f", 1).name);
    EXPECT_STREQ("Orv Exception", OrvException("m", "f", 1).name);

    OrvFileException copy;
    copy = file;
    EXPECT_STREQ("bad", copy.message);
    EXPECT_STREQ("src/File/OrvFile", copy.file);
    EXPECT_STREQ("Orv File Exception", copy.name);
    EXPECT_EQ(12, copy.line);

    // The macro carries the real line; the exception is caught as the base.
    int expectedLine = 0;
    try
    {
        expectedLine = __LINE__ + 1;
        ORV_THROW(OrvInvalidMatrixException, "size", "src/Math/OrvMatrix");
    }
    catch (OrvException& e)
    {
        e.Report();
        EXPECT_EQ(expectedLine, e.line);
        EXPECT_STREQ("Orv Invalid Matrix Exception", e.name);
        EXPECT_STREQ("src/Math/OrvMatrix", e.file);
        EXPECT_NE(nullptr, dynamic_cast<OrvInvalidMatrixException*>(&e));
    }
}

TEST(OrvException, AMessageBuiltAtRunTimeLivesWithItsExceptions)
{
    OrvFileException copy;
    {
        std::string text = "Can't find the file to read : ";
        text += "levels/7.xml";
        const OrvFileException thrown(text, "src/File/OrvFile", 12);
        text.assign(text.size(), '#');
        copy = thrown;
        EXPECT_STREQ("Can't find the file to read : levels/7.xml", thrown.message);
        // Each exception keeps its own text: nothing is kept for the life of
        // the process, however many files a game fails to load.
        const OrvFileException again(std::string("Can't find the file to read : levels/7.xml"), "x", 1);
        EXPECT_NE(thrown.message, again.message);
    }
    EXPECT_STREQ("Can't find the file to read : levels/7.xml", copy.message) << "the copy shares the text";
    EXPECT_STREQ("Orv File Exception", copy.name);
    EXPECT_EQ(12, copy.line);
}

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

#include <gtest/gtest.h>

#include <string>

#include "OrvShaderSource.h"

TEST(OrvShaderSource, PreambleSelectsTheStageAndMapsTheEntry)
{
    const char* source = "uniform vec4 in_f4Color;\nvoid VSMain() {}\n";
    OrvShaderSource prepared;
    std::string error;
    ASSERT_TRUE(prepared.Prepare(source, true, "VSMain", error)) << error;
    EXPECT_EQ("#version 120\n#define ORV_VERTEX 1\n#define VSMain main\n#line 0\n", prepared.GetPreamble());
    EXPECT_EQ(source, prepared.GetText()) << "a source without #version goes to GL as it is";

    ASSERT_TRUE(prepared.Prepare(source, false, "main", error)) << error;
    EXPECT_EQ("#version 120\n#define ORV_FRAGMENT 1\n#line 0\n", prepared.GetPreamble());

    EXPECT_TRUE(OrvShaderSource::IsIdentifier("FSMain"));
    EXPECT_TRUE(OrvShaderSource::IsIdentifier("_entry2"));
    for (const char* bad : {"", "2D", "VS Main", "VS-Main", "main()"})
        EXPECT_FALSE(OrvShaderSource::IsIdentifier(bad)) << bad;
    EXPECT_FALSE(OrvShaderSource::IsIdentifier(nullptr));
}

TEST(OrvShaderSource, Version120LinesAreBlankedInPlaceOtherVersionsRefused)
{
    OrvShaderSource prepared;
    std::string error;
    // Blanks and a carriage return around the directive; a last line without newline.
    const std::string source = "uniform float a;\n  # version 120 \r\nvoid main() {}\n#version 120";
    ASSERT_TRUE(prepared.Prepare(source.c_str(), true, "main", error)) << error;
    EXPECT_EQ("uniform float a;\n" + std::string(17, ' ') + "\nvoid main() {}\n" + std::string(12, ' '),
              std::string(prepared.GetText()))
        << "blanked lines keep their length, so the log's line numbers hold";

    // Only a directive counts; text that mentions a version is left alone.
    const char* mention = "// #version 330\n#define version 2\n";
    ASSERT_TRUE(prepared.Prepare(mention, false, "main", error)) << error;
    EXPECT_EQ(mention, prepared.GetText()) << "nothing blanked, nothing copied from the previous source";

    ASSERT_FALSE(prepared.Prepare("uniform float a;\n\n#version 330\n", true, "main", error));
    EXPECT_EQ("0:3(1): error: the source asks for #version 330: sources are GLSL 1.20 and the runtime writes "
              "the #version line itself\n",
              error);
    EXPECT_FALSE(prepared.Prepare("#version 120 core\n", true, "main", error));
    EXPECT_NE(std::string::npos, error.find("0:1(1)")) << error;
    EXPECT_NE(std::string::npos, error.find("#version 120 core")) << error;
    EXPECT_FALSE(prepared.Prepare("#version\n", true, "main", error));
}

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <string>

#include "OrvUnicode.h"

namespace
{
// Every unit in use, terminators included.
std::u16string Units(const OrvUnicode& s)
{
    return s.GetSize() == 0 ? std::u16string() : std::u16string(s.GetData(), s.GetSize());
}

const unsigned char* Bytes(const char* s)
{
    return reinterpret_cast<const unsigned char*>(s);
}
} // namespace

TEST(OrvUnicode, EmptyStatesWideningCopyAndConcatenation)
{
    OrvUnicode text(""), cleared("abc"), kept("keep");
    cleared.Clear();
    EXPECT_EQ(1u, text.GetSize());
    EXPECT_EQ(0u, cleared.GetSize());
    EXPECT_EQ(0u, text.Length() + cleared.Length());
    EXPECT_TRUE(text != cleared);
    EXPECT_TRUE(cleared == OrvUnicode());
    EXPECT_FALSE(cleared == "");

    kept = static_cast<const char*>(nullptr);
    EXPECT_TRUE(kept == "keep");

    OrvUnicode wide("a\xE9");
    EXPECT_EQ((std::u16string{u'a', 0xFFE9, 0}), Units(wide));
    EXPECT_TRUE(wide == "a\xE9");
    EXPECT_FALSE(wide == "a\x69");

    OrvUnicode raw("ab");
    raw.SetSize(2); // drops the terminator
    EXPECT_EQ((std::u16string{u'a', u'b', 0}), Units(OrvUnicode(raw)));
    EXPECT_TRUE(raw + "c" == "abc");

    OrvUnicode s("abc");
    s += OrvUnicode("");
    s += OrvUnicode();
    s += static_cast<const char*>(nullptr);
    EXPECT_EQ((std::u16string{u'a', u'b', u'c', 0}), Units(s));
    s += "de";
    s += s;
    EXPECT_TRUE(s == "abcdeabcde");
}

TEST(OrvUnicode, NumbersToTextAndBack)
{
    EXPECT_TRUE(OrvUnicode(-7) == "-7");
    EXPECT_TRUE(OrvUnicode(2.5f) == "2.500000");
    OrvUnicode s;
    s.SetFromFloat(1.5f, 2);
    EXPECT_TRUE(s == "1.50");
    s.SetFromFloat(1.5f, 12);
    EXPECT_TRUE(s == "1.500000000");

    EXPECT_EQ(12, OrvUnicode("12abc").CastToInt());
    EXPECT_FLOAT_EQ(0.0f, static_cast<float>(OrvUnicode("abc")));
    EXPECT_FLOAT_EQ(-3.25f, OrvUnicode("-3.25xyz").CastToFloat());
    EXPECT_TRUE(std::isinf(OrvUnicode("1e300").CastToFloat()));
    // Only the first 127 characters are read.
    EXPECT_EQ(2147483647, OrvUnicode((std::string(127, '1') + "999").c_str()).CastToInt());
}

TEST(OrvUnicode, CompareTrunkAndSubUnicode)
{
    EXPECT_EQ(2, OrvUnicode("xy").Compare(OrvUnicode("xyz")));
    EXPECT_EQ(3, OrvUnicode("xy").Compare(OrvUnicode("xy")));

    OrvUnicode s("hello");
    EXPECT_TRUE(s.Trunk(3));
    EXPECT_TRUE(s == "he");
    s.Trunk(0);
    EXPECT_EQ(0u, s.GetSize());

    OrvUnicode out("old");
    EXPECT_TRUE(OrvUnicode("wxyz").SubUnicode(out, 1, 2));
    EXPECT_TRUE(out == "xy");
    EXPECT_TRUE(OrvUnicode("wxy").SubUnicode(out, 1, 10));
    EXPECT_EQ((std::u16string{u'x', u'y', 0, 0}), Units(out));
    EXPECT_EQ(3u, out.Length());
    EXPECT_TRUE(OrvUnicode("wxy").SubUnicode(out, 2, 0xFFFFFFFFu));
    EXPECT_EQ((std::u16string{u'y', 0, 0}), Units(out));
    EXPECT_FALSE(OrvUnicode("wxy").SubUnicode(out, 4, 1));
    OrvUnicode self("abcdef");
    EXPECT_TRUE(self.SubUnicode(self, 2, 3));
    EXPECT_TRUE(self == "cde");
}

TEST(OrvUnicode, SearchBothForms)
{
    const OrvUnicode s("hel\xE9lo");
    unsigned int position = 0;
    EXPECT_TRUE(s.Search("lo", position, 0));
    EXPECT_EQ(4u, position);
    EXPECT_FALSE(s.Search("lo", position, 5));
    EXPECT_EQ(0xFFFFFFFFu, position);
    EXPECT_TRUE(s.Search("\xE9", position, 0));
    EXPECT_EQ(3u, position);
    EXPECT_FALSE(s.Search("hel\xE9lo!", position, 0));
    EXPECT_FALSE(s.Search("lx", position, 0));

    EXPECT_TRUE(s.Search(OrvUnicode("el"), position, 0));
    EXPECT_EQ(1u, position);
    EXPECT_FALSE(s.Search(OrvUnicode("elo"), position, 0));
}

TEST(OrvUnicode, ToCStringNarrowsAndCuts)
{
    OrvUnicode s;
    s.SetFromUTF8("h\xC3\xA9llo", 6);
    char buffer[16];
    std::memset(buffer, 'Z', sizeof(buffer));
    unsigned int written = 0;
    EXPECT_TRUE(s.ToCString(buffer, sizeof(buffer), &written));
    EXPECT_STREQ("h?llo", buffer);
    EXPECT_EQ(6u, written);
    EXPECT_EQ('Z', buffer[6]);
    EXPECT_TRUE(s.ToCString(buffer, 3, &written));
    EXPECT_STREQ("h?", buffer);
    EXPECT_EQ(3u, written);

    EXPECT_TRUE(OrvUnicode().ToCString(buffer, 1, &written));
    EXPECT_EQ('\0', buffer[0]);
    EXPECT_EQ(0u, written);
}

TEST(OrvUnicode, WNPrintfFormatsIntoBoundedUnits)
{
    OrvUnicode s("previous text that is long");
    ASSERT_EQ(&s, s.WNPrintf(32, OrvUnicode("%d-%ls|%.1f"), 42, L"ab", 0.25));
    EXPECT_TRUE(s == "42-ab|0.2");
    // A full output keeps its maxUnits units and gains a terminator.
    EXPECT_EQ(&s, s.WNPrintf(4, OrvUnicode("%d"), 123456));
    EXPECT_TRUE(s == "1234");

    OrvUnicode raw("n=%d");
    raw.SetSize(4);
    EXPECT_EQ(&s, s.WNPrintf(16, raw, 7));
    EXPECT_TRUE(s == "n=7");
    OrvUnicode self("[%d]");
    EXPECT_EQ(&self, self.WNPrintf(8, self, 5));
    EXPECT_TRUE(self == "[5]");
    EXPECT_EQ(nullptr, s.WNPrintf(0, OrvUnicode("x")));
}

TEST(OrvUTF8, LeadClassesDecodingSignaturesAndCodePage)
{
    EXPECT_EQ(1, UTF8_GetCodeLen('\x8F'));
    EXPECT_EQ(-1, UTF8_GetCodeLen('\x90'));
    EXPECT_EQ(4, UTF8_GetCodeLen('\xFF'));
    EXPECT_EQ(0x85u, UTF8_Decode(Bytes("\x85")));
    EXPECT_EQ(0x20ACu, UTF8_Decode(Bytes("\xE2\x82\xAC")));
    EXPECT_EQ(0x1F600u, UTF8_Decode(Bytes("\xF0\x9F\x98\x80")));
    EXPECT_EQ(0xFFFFFFFFu, UTF8_Decode(Bytes("\xA0")));
    EXPECT_EQ(0xFFFFFFFFu, UTF8_Decode(Bytes("\xE2\x82")));

    unsigned int length = 0;
    EXPECT_EQ(0xEFBBBF, GetBOM(Bytes("\xEF\xBB\xBF"), length));
    EXPECT_EQ(3u, length);
    const unsigned char utf32[] = {0xFF, 0xFE, 0x00, 0x00};
    EXPECT_EQ(-131072, GetBOM(utf32, length));
    EXPECT_EQ(-1, GetBOM(Bytes("\xEF\xBB\xBE"), length));
    EXPECT_EQ(-1, GetBOM(Bytes("\x95"), length));
    EXPECT_EQ(0xFFFFFFFFu, length);

    EXPECT_TRUE(InitDefCodePage());
    EXPECT_EQ(255, g_def_code_page[31]);
    EXPECT_EQ(1, g_def_code_page[32]);
    EXPECT_EQ(95, g_def_code_page[126]);
    EXPECT_EQ(224, g_def_code_page[255]);
}

TEST(OrvUTF8, SetFromUTF8DecodesAndSkipsErrors)
{
    OrvUnicode s;
    EXPECT_TRUE(s.SetFromUTF8("\xEF\xBB\xBF" "A", 4));
    EXPECT_EQ((std::u16string{u'A', 0}), Units(s));
    EXPECT_TRUE(s.SetFromUTF8("A\xC3\xA9" "B", 4));
    EXPECT_EQ((std::u16string{u'A', 0xE9, u'B', 0}), Units(s));
    EXPECT_TRUE(s.SetFromUTF8("A\x80" "B", 3));
    EXPECT_EQ((std::u16string{u'A', 0x80, u'B', 0}), Units(s));
    EXPECT_FALSE(s.SetFromUTF8("A\x90" "B", 3));
    EXPECT_EQ((std::u16string{u'A', 0}), Units(s));
    EXPECT_FALSE(s.SetFromUTF8("A\xC3" "B", 3));
    EXPECT_EQ((std::u16string{u'A', u'B', 0}), Units(s));
    // A sequence cut by the end of the input stops the walk.
    EXPECT_FALSE(s.SetFromUTF8("AB\xE2\x82\xAC", 4));
    EXPECT_EQ((std::u16string{u'A', u'B', 0}), Units(s));
    EXPECT_TRUE(s.SetFromUTF8("A\0B", 3));
    EXPECT_EQ((std::u16string{u'A', 0, u'B', 0}), Units(s));
    // Characters beyond 16 bits become the replacement character.
    EXPECT_TRUE(s.SetFromUTF8("\xF0\x9F\x98\x80!", 5));
    EXPECT_EQ((std::u16string{0xFFFD, u'!', 0}), Units(s));

    OrvUnicode kept("kept");
    EXPECT_FALSE(kept.SetFromUTF8(nullptr, 3));
    EXPECT_FALSE(kept.SetFromUTF8("\xFF\xFE\x00\x00" "A", 5));
    EXPECT_TRUE(kept == "kept");
}

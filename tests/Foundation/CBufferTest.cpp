#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "CZLibBuffer.h"
#include "OrvTestBytes.h"

TEST(CStdBuffer, CapacityRounding)
{
    CStdBuffer buffer;
    EXPECT_FALSE(buffer.SetPrependSize(24));
    EXPECT_EQ(32u, buffer.GetPrependSize());
    EXPECT_TRUE(buffer.SetSize(33));
    EXPECT_EQ(64u, buffer.GetCapacity());
    EXPECT_TRUE(buffer.SetSize(1));
    EXPECT_EQ(32u, buffer.GetCapacity());

    buffer.SetSize(10);
    std::memset(buffer[0], 'a', 10);
    buffer.SetCapacity(128);
    EXPECT_TRUE(buffer.ShrinkCapacityToContent());
    EXPECT_EQ(32u, buffer.GetCapacity());
    EXPECT_EQ('a', *buffer[9]);
    EXPECT_EQ(nullptr, buffer[10]);

    EXPECT_TRUE(buffer.SetPrependSize(0));
    buffer.SetSize(5);
    EXPECT_EQ(5u, buffer.GetCapacity());
    buffer.SetSize(0);
    EXPECT_EQ(nullptr, buffer.GetData());
    EXPECT_EQ(0u, buffer.GetCapacity());
}

TEST(CStdBuffer, CopyAppendAndBoundedMemCopy)
{
    CStdBuffer a, b;
    a.SetSize(3);
    EXPECT_FALSE(a.MemCopy(3, "xyz", 3));
    EXPECT_TRUE(a.MemCopy(1, "xyz", 3));
    EXPECT_EQ(0, std::memcmp(a[1], "xy", 2));
    a.MemCopy(0, "abc", 3);
    b = a;
    b += a;
    EXPECT_EQ("abcabc", AsString(b[0], b.GetSize()));
    b += b;
    EXPECT_EQ("abcabcabcabc", AsString(b[0], b.GetSize()));
}

TEST(CZLibBuffer, RoundTripAndEnvelopeLayout)
{
    std::string text;
    for (int i = 0; i < 300; ++i)
        text += "line " + std::to_string(i) + " of the document\n";
    const unsigned char* bytes = reinterpret_cast<const unsigned char*>(text.data());

    CZLibBuffer packed;
    ASSERT_EQ(2u, packed.Compress(bytes, text.size(), 1));
    ASSERT_GT(packed.GetSize(), 9u);
    // "7z", two zero bytes, the plain length on 4 bytes, then a zlib stream.
    EXPECT_EQ(std::string("7z\0\0", 4) + Le32(text.size()) + "\x78", AsString(packed[0], 9));
    const unsigned long n = text.size();
    const unsigned long bound = n + 20 + static_cast<unsigned long>(n * static_cast<double>(0.1f));
    EXPECT_GE(packed.GetCapacity(), bound) << "the capacity is not reduced to the stream";
    EXPECT_TRUE(packed.CheckConsistency());

    CZLibBuffer unpacked;
    ASSERT_EQ(2u, unpacked.Uncompress(packed[0], packed.GetSize()));
    EXPECT_EQ(text, AsString(unpacked[0], unpacked.GetSize()));

    CZLibBuffer empty;
    ASSERT_EQ(2u, empty.Compress(bytes, 0, 9));
    CZLibBuffer none;
    EXPECT_EQ(2u, none.Uncompress(empty[0], empty.GetSize()));
    EXPECT_EQ(0u, none.GetSize());
}

TEST(CZLibBuffer, PlainShortAndDamagedInput)
{
    CZLibBuffer buffer;
    buffer.SetSize(4);
    const unsigned char shortEnvelope[8] = {0x37, 0x7A, 0, 0, 5, 0, 0, 0};
    EXPECT_EQ(1u, buffer.Uncompress(shortEnvelope, 8));
    EXPECT_EQ(4u, buffer.GetSize()) << "plain bytes leave the buffer untouched";
    EXPECT_EQ(1u, buffer.Uncompress(reinterpret_cast<const unsigned char*>("<Root></Root>"), 13));
    EXPECT_EQ(0u, buffer.Uncompress(nullptr, 10));
    EXPECT_EQ(0u, buffer.Uncompress(shortEnvelope, 0));

    const std::string text(1000, 'q');
    CZLibBuffer packed;
    packed.Compress(reinterpret_cast<const unsigned char*>(text.data()), text.size(), 6);
    const auto copy = [&] { return std::vector<unsigned char>(packed[0], packed[0] + packed.GetSize()); };
    std::vector<unsigned char> flipped = copy(), liar = copy(), shorter = copy();
    flipped[flipped.size() / 2] ^= 0x5A;
    flipped.back() ^= 0xFF;
    liar[7] = 0x7F; // a declared length no stream of this size can produce
    shorter[4] = 10; // a declared length shorter than the stream
    shorter[5] = 0;
    for (const std::vector<unsigned char>* bytes : {&flipped, &liar, &shorter})
    {
        EXPECT_EQ(0u, buffer.Uncompress(bytes->data(), bytes->size()));
        EXPECT_EQ(0u, buffer.GetSize());
        EXPECT_EQ(nullptr, buffer.GetData());
        EXPECT_TRUE(buffer.CheckConsistency());
    }
}

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "CZLibBuffer.h"

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
    EXPECT_EQ(128u, buffer.GetCapacity());
    EXPECT_TRUE(buffer.ShrinkCapacityToContent());
    EXPECT_EQ(32u, buffer.GetCapacity());
    EXPECT_EQ(10u, buffer.GetSize());
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
    ASSERT_EQ(6u, b.GetSize());
    EXPECT_EQ(0, std::memcmp(b[0], "abcabc", 6));
    b += b;
    EXPECT_EQ(0, std::memcmp(b[0], "abcabcabcabc", 12));
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
    const unsigned char* p = packed[0];
    EXPECT_EQ(0x37, p[0]);
    EXPECT_EQ(0x7A, p[1]);
    EXPECT_EQ(0, p[2]);
    EXPECT_EQ(0, p[3]);
    const unsigned long n = text.size();
    EXPECT_EQ(n & 0xFF, p[4]);
    EXPECT_EQ((n >> 8) & 0xFF, p[5]);
    EXPECT_EQ((n >> 16) & 0xFF, p[6]);
    EXPECT_EQ(0, p[7]);
    EXPECT_EQ(0x78, p[8]) << "a zlib stream follows the header";
    const unsigned long bound = n + 20 + static_cast<unsigned long>(n * static_cast<double>(0.1f));
    EXPECT_GE(packed.GetCapacity(), bound) << "the capacity is not reduced to the stream";
    EXPECT_TRUE(packed.CheckConsistency());

    CZLibBuffer unpacked;
    ASSERT_EQ(2u, unpacked.Uncompress(packed[0], packed.GetSize()));
    ASSERT_EQ(text.size(), unpacked.GetSize());
    EXPECT_EQ(0, std::memcmp(unpacked[0], text.data(), text.size()));

    CZLibBuffer empty;
    ASSERT_EQ(2u, empty.Compress(bytes, 0, 9));
    CZLibBuffer none;
    EXPECT_EQ(2u, none.Uncompress(empty[0], empty.GetSize()));
    EXPECT_EQ(0u, none.GetSize());
}

TEST(CZLibBuffer, PlainShortAndDamagedInput)
{
    CZLibBuffer buffer;
    EXPECT_TRUE(buffer.CheckConsistency());
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
    std::vector<unsigned char> damaged(packed[0], packed[0] + packed.GetSize());
    damaged[damaged.size() / 2] ^= 0x5A;
    damaged.back() ^= 0xFF;
    EXPECT_EQ(0u, buffer.Uncompress(damaged.data(), damaged.size()));
    EXPECT_EQ(0u, buffer.GetSize());
    EXPECT_EQ(nullptr, buffer.GetData());
    EXPECT_TRUE(buffer.CheckConsistency());

    // A declared length no stream of this size can produce.
    std::vector<unsigned char> liar(packed[0], packed[0] + packed.GetSize());
    liar[7] = 0x7F;
    EXPECT_EQ(0u, buffer.Uncompress(liar.data(), liar.size()));
    // A declared length shorter than the stream.
    std::vector<unsigned char> truncated(packed[0], packed[0] + packed.GetSize());
    truncated[4] = 10;
    truncated[5] = 0;
    EXPECT_EQ(0u, buffer.Uncompress(truncated.data(), truncated.size()));
    buffer.Destroy();
    EXPECT_TRUE(buffer.CheckConsistency());
}

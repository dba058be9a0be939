#include <gtest/gtest.h>

#include <cmath>

#include "OrvVector2D.h"

TEST(OrvVector2D, ArithmeticComparisonNormalizeTruncateAndText)
{
    const OrvVector2D a(1.0f, 2.0f);
    const OrvVector2D b(3.0f, -5.0f);
    EXPECT_EQ(OrvVector2D(4.0f, -3.0f), a + b);
    EXPECT_EQ(OrvVector2D(-2.0f, 7.0f), a - b);
    EXPECT_EQ(OrvVector2D(0.75f, -1.25f), b / 4.0f);
    EXPECT_FLOAT_EQ(-7.0f, a.Dot(b));

    OrvVector2D c(a);
    c += b;
    c -= OrvVector2D(1.0f, 1.0f);
    c *= 2.0f;
    c /= 4.0f;
    EXPECT_EQ(OrvVector2D(1.5f, -2.0f), c);

    EXPECT_NE(a, OrvVector2D(1.0f, 2.0000002f));
    const OrvVector2D nan(std::nanf(""), 0.0f);
    EXPECT_FALSE(nan == nan);

    OrvVector2D v(3.0f, 4.0f);
    EXPECT_FLOAT_EQ(5.0f, v.Length());
    v.Normalize();
    EXPECT_FLOAT_EQ(0.6f, v.X);
    EXPECT_FLOAT_EQ(0.8f, v.Y);

    OrvVector2D zero;
    zero.Normalize();
    EXPECT_EQ(OrvVector2D::ZERO, zero);

    OrvVector2D atLimit(3.0f, 4.0f);
    atLimit.Truncate(5.0f);
    EXPECT_EQ(OrvVector2D(3.0f, 4.0f), atLimit);
    OrvVector2D longer(-6.0f, 8.0f);
    longer.Truncate(5.0f);
    EXPECT_FLOAT_EQ(-3.0f, longer.X);
    EXPECT_FLOAT_EQ(4.0f, longer.Y);

    EXPECT_TRUE(OrvVector2D(1.0f, -2.5f).ToUnicode() == "X : 1.000000, Y : -2.500000");
}

#include <gtest/gtest.h>

#include "OrvTime.h"

TEST(OrvTime, ArithmeticComparisonAndTheClock)
{
    EXPECT_TRUE(OrvTime(1.5) - OrvTime(0.5) == OrvTime(1.0));
    EXPECT_EQ(0.1f, OrvTime(0.1).Get());
    OrvTime t(2.0);
    t += OrvTime(0.5);
    t -= OrvTime(1.0);
    EXPECT_TRUE(t == OrvTime(1.5));
    EXPECT_TRUE(OrvTime(2.0) >= OrvTime(2.0));
    EXPECT_FALSE(OrvTime(2.0) > OrvTime(2.0));

    OrvTime first, second;
    first.SetAsTimeFromProgramStart();
    EXPECT_GT(OrvTime::GetCyclesPerSecond(), 0.0);
    do
        second.SetAsTimeFromProgramStart();
    while (!(second > first));
    EXPECT_GT((second - first).GetSeconds(), 0.0);
}

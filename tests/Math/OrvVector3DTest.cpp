#include <gtest/gtest.h>

#include <cmath>

#include "OrvMatrix.h"
#include "OrvTestBytes.h"
#include "OrvVector3D.h"

TEST(OrvVector3D, ArithmeticCrossComparisonAndText)
{
    const OrvVector3D a(1.0f, 2.0f, 3.0f);
    const OrvVector3D b(4.0f, -5.0f, 6.0f);
    EXPECT_EQ(OrvVector3D(5.0f, -3.0f, 9.0f), a + b);
    EXPECT_EQ(OrvVector3D(-3.0f, 7.0f, -3.0f), a - b);
    EXPECT_EQ(OrvVector3D(2.0f, -2.5f, 3.0f), b / 2.0f);
    EXPECT_FLOAT_EQ(12.0f, a.Dot(b));
    EXPECT_EQ(OrvVector3D(27.0f, 6.0f, -13.0f), a.Cross(b));

    EXPECT_EQ(OrvVector3D(0.0f, 1.0f, 2.0f), OrvVector3D(-0.0f, 1.0f, 2.0f));
    EXPECT_NE(a, OrvVector3D(1.0f, 2.0f, 3.0000002f));
    const OrvVector3D nan(0.0f, 0.0f, std::nanf(""));
    EXPECT_TRUE(nan != nan);

    EXPECT_EQ("Vector3D(1, 2, 3)", OrvVector3D(1.0f, 2.0f, 3.0f).ToString());
    EXPECT_EQ("Vector3D(0.5, 1e-07, 1.23457e+08)", OrvVector3D(0.5f, 1e-07f, 123456789.0f).ToString());
    EXPECT_TRUE(OrvVector3D(1.0f, 2.0f, 3.0f).ToUnicode() == "X : 1.000000, Y : 2.000000, Z : 3.000000");
}

TEST(OrvVector3D, NormalizeTruncateRoundMinMaxAndNegate)
{
    const OrvVector3D v(2.0f, 3.0f, 6.0f);
    EXPECT_FLOAT_EQ(7.0f, v.Length());
    const OrvVector3D unit = v.NormalizedVector();
    EXPECT_NEAR(3.0f / 7.0f, unit.Y, 1e-6f);
    EXPECT_NEAR(1.0f, unit.Length(), 1e-6f);
    EXPECT_EQ(OrvVector3D(), OrvVector3D().NormalizedVector());

    OrvVector3D atLimit(3.0f, 4.0f, 0.0f);
    atLimit.Truncate(5.0f);
    EXPECT_EQ(OrvVector3D(3.0f, 4.0f, 0.0f), atLimit);
    OrvVector3D longer(6.0f, 8.0f, 0.0f);
    longer.Truncate(5.0f);
    EXPECT_EQ(OrvVector3D(3.0f, 4.0f, 0.0f), longer);

    OrvVector3D r(2.5f, -2.5f, 2.51f);
    r.Round();
    EXPECT_EQ(OrvVector3D(2.0f, -3.0f, 3.0f), r);

    OrvVector3D hi(1.0f, 5.0f, -2.0f);
    hi.MakeCeil(OrvVector3D(3.0f, 4.0f, -1.0f));
    EXPECT_EQ(OrvVector3D(3.0f, 5.0f, -1.0f), hi);
    OrvVector3D lo(1.0f, 5.0f, -2.0f);
    lo.MakeFloor(OrvVector3D(3.0f, 4.0f, -1.0f));
    EXPECT_EQ(OrvVector3D(1.0f, 4.0f, -2.0f), lo);
    // Only a strictly larger (smaller) component replaces: -0 stays against +0.
    OrvVector3D negativeZero(-0.0f, -0.0f, -0.0f);
    negativeZero.MakeCeil(OrvVector3D());
    negativeZero.MakeFloor(OrvVector3D());
    EXPECT_TRUE(std::signbit(negativeZero.X) && std::signbit(negativeZero.Y) && std::signbit(negativeZero.Z));

    OrvVector3D n(1.0f, -2.0f, 0.0f);
    n.Negate();
    EXPECT_EQ(OrvVector3D(-1.0f, 2.0f, 0.0f), n);
    EXPECT_TRUE(std::signbit(n.Z));
}

TEST(OrvVector3D, HomogeneousColumnAndTransform)
{
    EXPECT_EQ(0.0f, OrvVector3D(1.0f, 2.0f, 3.0f).GetHomogeneous(false).Get(4, 1));

    // Translation moves points, not directions; w is never divided by.
    OrvMatrix m = OrvMatrix::CreateIdentity(4);
    m.Scale(OrvVector3D(2.0f, 2.0f, 2.0f));
    m.Translate(OrvVector3D(10.0f, 20.0f, 30.0f));
    m.Set(4, 4, 2.0f);
    OrvVector3D p(1.0f, 2.0f, 3.0f);
    p.Transform(m, true);
    EXPECT_EQ(OrvVector3D(12.0f, 24.0f, 36.0f), p);
    OrvVector3D d(1.0f, 2.0f, 3.0f);
    d.Transform(m, false);
    EXPECT_EQ(OrvVector3D(2.0f, 4.0f, 6.0f), d);

    EXPECT_EQ("Orv Exception | You tried to transform a ray with an invalid matrix | src/Math/OrvVector3D",
              Thrown([&] { d.Transform(OrvMatrix(4, 1), true); }).Full());
    EXPECT_EQ(OrvVector3D(2.0f, 4.0f, 6.0f), d);
}

#include <gtest/gtest.h>

#include <cmath>
#include <initializer_list>
#include <string>

#include "OrvMatrix.h"
#include "OrvTestBytes.h"
#include "OrvVector3D.h"

namespace
{
const std::string kAddError = "Orv Invalid Matrix Exception | Both matrices must be the same size to add them "
                              "together. Think straight man ! | src/Math/OrvMatrix";
const std::string kMultiplyError =
    "Orv Invalid Matrix Exception | To multiply matrices A and B, A must have the same number of columns that B "
    "has rows. But you knew that didn't you ? | src/Math/OrvMatrix";

// Builds a matrix from its values written row after row.
OrvMatrix Make(int rows, int columns, std::initializer_list<float> rowMajor)
{
    OrvMatrix m(rows, columns);
    int k = 0;
    for (float value : rowMajor)
    {
        m.Set(k / columns + 1, k % columns + 1, value);
        ++k;
    }
    return m;
}
}

TEST(OrvMatrix, ColumnMajorStorageCopyAndAssignment)
{
    const OrvMatrix blank;
    EXPECT_EQ(OrvMatrix(4, 4), blank);

    const OrvMatrix wide = Make(2, 3, {1, 2, 3, 4, 5, 6});
    EXPECT_EQ(4.0f, wide.GetValues()[1]);
    EXPECT_EQ(5.0f, wide.GetValues()[3]);

    const OrvMatrix tall = Make(3, 2, {1, 5, 4, 3, 2, 6}); // same array, other shape
    EXPECT_NE(wide, tall);

    OrvMatrix copy(wide);
    copy.Set(1, 1, 9.0f);
    EXPECT_EQ(1.0f, wide.Get(1, 1));
    copy.Clear();
    EXPECT_EQ(OrvMatrix(2, 3), copy);

    OrvMatrix target = OrvMatrix::CreateIdentity(4);
    target = OrvVector3D(1.0f, 2.0f, 3.0f).GetHomogeneous(true);
    EXPECT_EQ(Make(4, 1, {1, 2, 3, 1}), target);
    target = wide;
    target = tall;
    EXPECT_EQ(tall, target);
    target = OrvMatrix::CreateIdentity(3);
    EXPECT_EQ(Make(3, 3, {1, 0, 0, 0, 1, 0, 0, 0, 1}), target);
}

TEST(OrvMatrix, ScalingAdditionAndProduct)
{
    const OrvMatrix a = Make(2, 3, {1, 2, 3, 4, 5, 6});
    const OrvMatrix b = Make(3, 2, {7, 8, 9, 10, 11, 12});
    EXPECT_EQ(Make(2, 3, {2, 4, 6, 8, 10, 12}), a * 2.0f);
    EXPECT_EQ(Make(2, 3, {2, 4, 6, 8, 10, 12}), a + a);
    OrvMatrix sum(a);
    sum += Make(2, 3, {10, 20, 30, 40, 50, 60});
    sum *= 0.5f;
    EXPECT_EQ(Make(2, 3, {5.5f, 11, 16.5f, 22, 27.5f, 33}), sum);

    EXPECT_EQ(Make(2, 2, {58, 64, 139, 154}), a * b);
    EXPECT_EQ(Make(3, 3, {39, 54, 69, 49, 68, 87, 59, 82, 105}), b * a);
    const OrvMatrix m = Make(4, 4, {1, 0, 0, 5, 0, 2, 0, 6, 0, 0, 3, 7, 0, 0, 0, 1});
    const OrvMatrix column = OrvVector3D(1.0f, 1.0f, 1.0f).GetHomogeneous(true);
    EXPECT_EQ(Make(4, 1, {6, 8, 10, 1}), m * column);

    OrvMatrix left(a);
    EXPECT_EQ(kAddError, Thrown([&] { left += b; }).Full());
    EXPECT_EQ(kAddError, Thrown([&] { (void)(a + b); }).Full());
    EXPECT_EQ(a, left);
    EXPECT_EQ(kMultiplyError, Thrown([&] { (void)(column * m); }).Full());
    EXPECT_EQ(kMultiplyError, Thrown([&] { (void)(a * a); }).Full());
}

TEST(OrvMatrix, Inverse)
{
    const OrvMatrix diagonal = Make(4, 4, {2, 0, 0, 0, 0, 4, 0, 0, 0, 0, 8, 0, 0, 0, 0, 1});
    EXPECT_EQ(Make(4, 4, {0.5f, 0, 0, 0, 0, 0.25f, 0, 0, 0, 0, 0.125f, 0, 0, 0, 0, 1}), diagonal.ComputeInvert());
    // A zero on the diagonal needs a row swap.
    EXPECT_EQ(Make(2, 2, {0, 1, 1, 0}), Make(2, 2, {0, 1, 1, 0}).ComputeInvert());

    OrvMatrix transform = OrvMatrix::CreateIdentity(4);
    transform.Rotate(90.0f); // near-zero diagonal: pivoting picks row 2
    transform.Scale(OrvVector3D(2.0f, 3.0f, 4.0f));
    transform.Translate(OrvVector3D(5.0f, -6.0f, 7.0f));
    const OrvMatrix product = transform.ComputeInvert() * transform;
    for (int k = 0; k < 16; ++k)
        EXPECT_NEAR(k % 5 == 0 ? 1.0f : 0.0f, product.GetValues()[k], 1e-5f) << "at " << k;

    // Singular or not square: a zero matrix of the source's size.
    EXPECT_EQ(OrvMatrix(3, 3), Make(3, 3, {1, 0, 2, 3, 0, 4, 5, 0, 6}).ComputeInvert());
    EXPECT_EQ(OrvMatrix(3, 3), Make(3, 3, {1, 2, 3, 2, 4, 6, 0, 1, 1}).ComputeInvert());
    EXPECT_EQ(OrvMatrix(3, 4), Make(3, 4, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}).ComputeInvert());
}

TEST(OrvMatrix, TransformBuildersPreMultiply)
{
    OrvMatrix translation = OrvMatrix::CreateIdentity(4);
    translation.Translate(OrvVector3D(1.0f, 2.0f, 3.0f));
    EXPECT_EQ(Make(4, 4, {1, 0, 0, 1, 0, 1, 0, 2, 0, 0, 1, 3, 0, 0, 0, 1}), translation);

    // Rotate then Translate: the point turns about the origin, then moves.
    OrvMatrix chain = OrvMatrix::CreateIdentity(4);
    chain.Rotate(90.0f);
    OrvVector3D p(1.0f, 0.0f, 0.0f);
    p.Transform(chain, true);
    EXPECT_NEAR(0.0f, p.X, 1e-6f);
    EXPECT_NEAR(1.0f, p.Y, 1e-6f);
    chain.Translate(OrvVector3D(10.0f, 0.0f, 0.0f));
    OrvVector3D q(1.0f, 0.0f, 0.0f);
    q.Transform(chain, true);
    EXPECT_NEAR(10.0f, q.X, 1e-5f);
    EXPECT_NEAR(1.0f, q.Y, 1e-5f);

    // Scale and Rotate give exactly B × M for an arbitrary M.
    OrvMatrix m(4, 4);
    for (int k = 0; k < 16; ++k)
        m.Set(k % 4 + 1, k / 4 + 1, 0.37f * static_cast<float>(k * 5 % 11) - 1.1f);
    OrvMatrix scaled(m);
    scaled.Scale(OrvVector3D(2.0f, -0.5f, 3.0f));
    EXPECT_EQ(Make(4, 4, {2, 0, 0, 0, 0, -0.5f, 0, 0, 0, 0, 3, 0, 0, 0, 0, 1}) * m, scaled);
    const float theta = 33.0f * 0.017453292f;
    const float c = std::cos(theta);
    const float s = std::sin(theta);
    OrvMatrix rotated(m);
    rotated.Rotate(33.0f);
    EXPECT_EQ(Make(4, 4, {c, -s, 0, 0, s, c, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1}) * m, rotated);

    OrvMatrix wrong(3, 3);
    EXPECT_EQ(kMultiplyError, Thrown([&] { wrong.Rotate(10.0f); }).Full());
}

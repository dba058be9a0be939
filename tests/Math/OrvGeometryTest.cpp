#include <gtest/gtest.h>

#include "OrvAxisAlignedBox.h"
#include "OrvBox.h"
#include "OrvMatrix.h"
#include "OrvPlane.h"
#include "OrvRay.h"
#include "OrvTestBytes.h"

namespace
{
OrvAxisAlignedBox Box(const OrvVector3D& minimum, const OrvVector3D& maximum)
{
    OrvAxisAlignedBox box(nullptr);
    box.SetExtents(minimum, maximum);
    return box;
}
}  // namespace

TEST(OrvRay, HitsPlanesBehindItButBoxesOnlyAhead)
{
    const OrvPlane ground(0.0f, OrvVector3D(0, 0, 1));
    OrvRay down(OrvVector3D(10, 20, 870), OrvVector3D(0, 0, -5));
    EXPECT_EQ(OrvVector3D(0, 0, -1), down.GetDirection()) << "kept normalised";
    OrvVector3D hit(7, 7, 7);
    EXPECT_TRUE(down.IsColliding(ground, hit));
    EXPECT_EQ(OrvVector3D(10, 20, 0), hit);

    OrvAxisAlignedBox box = Box(OrvVector3D(0, 0, 0), OrvVector3D(50, 50, 0));
    hit.Set(7, 7, 7);
    EXPECT_TRUE(down.IsColliding(&box, hit));
    EXPECT_EQ(OrvVector3D(10, 20, 0), hit);

    OrvRay up(OrvVector3D(10, 20, 870), OrvVector3D(0, 0, 1));
    hit.Set(7, 7, 7);
    EXPECT_FALSE(up.IsColliding(&box, hit));
    EXPECT_EQ(OrvVector3D(7, 7, 7), hit) << "a miss leaves the point alone";
    EXPECT_TRUE(up.IsColliding(ground, hit)) << "planes are hit behind the origin too";
    EXPECT_EQ(OrvVector3D(10, 20, 0), hit);

    OrvRay flat(OrvVector3D(0, 0, 5), OrvVector3D(1, 0, 0));
    EXPECT_FALSE(flat.IsColliding(ground, hit));
    OrvRay aside(OrvVector3D(100, 0, 10), OrvVector3D(0, 0, -1));
    EXPECT_FALSE(aside.IsColliding(&box, hit)) << "z = 0 is met outside the box";

    EXPECT_EQ("You tried to transform a ray with an invalid matrix", Thrown([&] { up.Transform(OrvMatrix(3, 3)); }).message);
    OrvMatrix moveAndTurn = OrvMatrix::CreateIdentity(4);
    moveAndTurn.Rotate(90.0f);
    moveAndTurn.Translate(OrvVector3D(1, 2, 3));
    OrvRay sideways(OrvVector3D(0, 0, 0), OrvVector3D(1, 0, 0));
    sideways.Transform(moveAndTurn);
    EXPECT_EQ(OrvVector3D(1, 2, 3), sideways.GetOrigine());
    EXPECT_NEAR(1.0f, sideways.GetDirection().Y, 1e-6f) << "directions turn but do not move";
    EXPECT_NEAR(0.0f, sideways.GetDirection().X, 1e-6f);
}

TEST(OrvAxisAlignedBox, CornersFollowPositionAndScaleInXY)
{
    OrvAxisAlignedBox box(nullptr);
    EXPECT_TRUE(box.IsNull());
    box.Merge(OrvVector3D(5, 5, 0), true);
    EXPECT_EQ(OrvVector3D(0, 0, 0), box.GetMinimum()) << "a reset box holds the origin";
    EXPECT_EQ(OrvVector3D(5, 5, 0), box.GetMaximum());

    box.Reset();
    box.Merge(OrvVector3D(-16, -8, 0), false);
    box.Merge(OrvVector3D(16, 8, 0), false);
    box.SetPosition(OrvVector3D(100, 0, 0));
    box.SetScale(OrvVector3D(2, 1, 1));
    EXPECT_EQ(OrvVector3D(68, -8, 0), box.GetWorldMinimum());
    EXPECT_EQ(OrvVector3D(132, 8, 0), box.GetWorldMaximum());
    EXPECT_TRUE(box.Contains(OrvVector3D(132, -8, 99))) << "bounds included, Z ignored";
    EXPECT_FALSE(box.Contains(OrvVector3D(133, 0, 0)));

    const Thrown refused([&] { box.SetExtents(OrvVector3D(1, 1, 1), OrvVector3D(0, 2, 2)); });
    EXPECT_EQ("Max corner must be bigger | src/Math/OrvAxisAlignedBox", refused.message + " | " + refused.file);
    EXPECT_EQ(OrvVector3D(-16, -8, 0), box.GetMinimum()) << "a refusal changes nothing";
    EXPECT_THROW(box.SetMinimum(OrvVector3D(17, 0, 0)), OrvException);
    EXPECT_THROW(box.SetMaximum(OrvVector3D(0, -9, 0)), OrvException);
    box.SetExtents(OrvVector3D(0, 0, 0), OrvVector3D(0, 0, 0));
    EXPECT_TRUE(box.IsNull());

    OrvAxisAlignedBox left = Box(OrvVector3D(0, 0, 0), OrvVector3D(10, 10, 0));
    OrvAxisAlignedBox touching = Box(OrvVector3D(10, 0, 5), OrvVector3D(20, 10, 9));
    OrvAxisAlignedBox apart = Box(OrvVector3D(10.5f, 0, 0), OrvVector3D(20, 10, 0));
    EXPECT_TRUE(left.IsColliding(&touching)) << "a shared edge collides, whatever the Z";
    EXPECT_FALSE(left.IsColliding(&apart));
    EXPECT_FALSE(left.IsColliding(&box)) << "a null box collides with nothing";

    OrvMatrix turn = OrvMatrix::CreateIdentity(4);
    turn.Rotate(90.0f);
    OrvAxisAlignedBox turned = Box(OrvVector3D(1, 2, 0), OrvVector3D(3, 4, 0));
    turned.Transform(turn);
    EXPECT_NEAR(-4.0f, turned.GetMinimum().X, 1e-5f);
    EXPECT_NEAR(0.0f, turned.GetMinimum().Y, 1e-5f) << "the bounds keep the origin";
    EXPECT_NEAR(0.0f, turned.GetMaximum().X, 1e-5f);
    EXPECT_NEAR(3.0f, turned.GetMaximum().Y, 1e-5f);

    OrvAxisAlignedBox copy(left);
    EXPECT_EQ(left.GetMaximum(), copy.GetMaximum());
}

TEST(OrvBox, EdgesProjectionsSeparationAndContainment)
{
    OrvBox box(nullptr);
    EXPECT_EQ(OrvVector3D(0, 0, 0), box.GetPoint(5)) << "points wait for Reset";
    box.Reset();
    EXPECT_EQ(OrvVector3D(-1, 1, -1), box.GetPoint(0));
    EXPECT_EQ(OrvVector3D(2, 0, 0), box.GetEdge(0));
    EXPECT_EQ(OrvVector3D(0, -2, 0), box.GetEdge(4));
    EXPECT_EQ(OrvVector3D(0, 0, 0), box.GetEdge(9));
    float low = 0, high = 0;
    box.ProjectToAxis(OrvVector3D(1, 1, 0), low, high);
    EXPECT_EQ(-2.0f, low);
    EXPECT_EQ(2.0f, high);
    EXPECT_TRUE(box.ContainsWorld(OrvVector3D(0, 0, 5))) << "Z is not examined";
    EXPECT_TRUE(box.ContainsWorld(OrvVector3D(1, 0, 0))) << "an edge counts as inside";
    EXPECT_FALSE(box.ContainsWorld(OrvVector3D(1.5f, 0, 0)));

    OrvBox other(nullptr);
    other.Reset();
    OrvMatrix move = OrvMatrix::CreateIdentity(4);
    move.Rotate(45.0f);
    move.Translate(OrvVector3D(2.4f, 0, 0));
    other.Transform(move);
    EXPECT_TRUE(box.IsCollidingWorld(&other)) << "the turned corner reaches x = 0.99";
    move.Translate(OrvVector3D(0.1f, 0, 0));
    other.Transform(move);
    EXPECT_FALSE(box.IsCollidingWorld(&other));
    EXPECT_EQ(OrvVector3D(-1, 1, -1), other.GetPoint(0)) << "local points stay";

    EXPECT_EQ("You tried to get an invalid direction axe", Thrown([&] { box.GetDirectionAxe(3); }).message);
    EXPECT_EQ("You tried to set an invalid direction axe", Thrown([&] { box.SetDirectionAxe(3, {}); }).message);
    EXPECT_EQ("You tried to get an invalid direction min", Thrown([&] { box.GetDirectionMin(3); }).message);
    EXPECT_EQ("You tried to get an invalid direction max | src/Math/OrvBox",
              Thrown([&] { box.GetDirectionMax(7); }).message + " | " + Thrown([&] { box.GetDirectionMax(7); }).file);
    EXPECT_EQ("You tried to set an invalid axe dimension ! ", Thrown([&] { box.SetAxeDimension(3, 1.0f); }).message);
    box.SetAxeDimension(1, 4.0f);
    EXPECT_EQ(OrvVector3D(0, 4, 0), box.GetDimension());
}

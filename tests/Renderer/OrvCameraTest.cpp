#include <gtest/gtest.h>

#include <cmath>

#include "OrvCamera.h"
#include "OrvPlane.h"
#include "OrvTestGame.h"

namespace
{
using OrvCameraGameTest = OrvGameTest;

// Clip coordinates of a point under projection × view.
OrvVector3D Clip(OrvRenderer& renderer, const OrvVector3D& point)
{
    OrvVector3D clip = point;
    clip.Transform(renderer.PeekMatrix(TRANS_MATRIX_PROJECTION) * renderer.PeekMatrix(TRANS_MATRIX_VIEW), true);
    return clip;
}

}  // namespace

TEST_F(OrvCameraGameTest, PerspectiveSeesTheBandOfItsFieldOfView)
{
    OrvCamera* camera = game.GetWorldCamera();
    EXPECT_EQ(OrvVector3D(0, 0, 870), camera->GetPosition());
    EXPECT_EQ(kSize, camera->GetViewportWidth());
    camera->ActivatePerspective();
    // The top edge of the band seen at z = 0 lies at the top of the clip volume.
    const float halfBand = 870.0f * std::tan(22.5f * 0.017453292f);
    EXPECT_NEAR(720.73f, 2.0f * halfBand, 0.01f);
    const OrvVector3D top = Clip(*renderer, OrvVector3D(0, halfBand, 0));
    EXPECT_NEAR(1.0f, top.Y / 870.0f, 1e-4f) << "y / w at the edge of the view";

    camera->SetPosition(OrvVector3D(10, 20, 870));
    const OrvVector3D below = camera->ComputePickPosition(OrvVector2D(32, 32), OrvPlane(0.0f, OrvVector3D(0, 0, 1)));
    EXPECT_NEAR(10.0f, below.X, 1e-3f);
    EXPECT_NEAR(20.0f, below.Y, 1e-3f);
    EXPECT_NEAR(0.0f, below.Z, 1e-3f);
    const OrvVector3D corner = camera->ComputePickPosition(OrvVector2D(64, 64), OrvPlane(0.0f, OrvVector3D(0, 0, 1)));
    EXPECT_NEAR(10.0f + halfBand, corner.X, 0.05f) << "a square viewport: the corner is as far right as up";
    EXPECT_NEAR(20.0f + halfBand, corner.Y, 0.05f);
    EXPECT_EQ(OrvVector3D(0, 0, 0), camera->ComputePickPosition(OrvVector2D(32, 32), OrvPlane(0.0f, OrvVector3D(1, 0, 0))))
        << "parallel to the plane";

    camera->SetPerspective(60, 800, 600, 1, 1000);
    EXPECT_EQ(1.3333334f, camera->GetAspectRatio());
    camera->SetDefaultPosition(OrvVector3D(1, 2, 3));
    const OrvCamera copy(*camera);
    EXPECT_EQ(camera->GetPosition(), copy.GetPosition());
    EXPECT_EQ(60.0f, copy.GetFOVY());
    EXPECT_EQ(OrvVector3D(0, 0, 0), copy.GetDefaultPosition());
    EXPECT_EQ(nullptr, copy.GetApplication());
}

TEST_F(OrvCameraGameTest, OrthographicMapsPixelsFromTheLowerLeft)
{
    OrvCamera* camera = game.GetHUDCamera();
    camera->SetPerspective(45, 1024, 768, 1, 2000000);
    camera->ActivateOthographic();
    const OrvVector3D corner = Clip(*renderer, OrvVector3D(1024, 768, 0));
    EXPECT_EQ(OrvVector3D(1, 1, -1), corner);
    EXPECT_EQ(OrvVector3D(-1, -1, -1), Clip(*renderer, OrvVector3D(0, 0, 0)));
}


#include <gtest/gtest.h>

#include "OrvAxisAlignedBox.h"
#include "OrvSprite.h"
#include "OrvSpriteAnimationFrame.h"
#include "OrvSpriteAnimationMesh.h"
#include "OrvSpriteDesc.h"
#include "OrvTexture.h"
#include "OrvVertex.h"

namespace
{
// Positions and UVs of the four vertices as one line, for comparisons.
std::string Corners(const OrvSpriteAnimationMesh& mesh)
{
    std::string text;
    for (unsigned int i = 0; i < mesh.GetVertexCount(); ++i)
    {
        const OrvVertex* v = mesh.GetVertex(i);
        char line[96];
        std::snprintf(line, sizeof(line), "(%g,%g %g,%g) ", v->GetPosition().X, v->GetPosition().Y, v->GetUV().X,
                      v->GetUV().Y);
        text += line;
    }
    return text;
}
}  // namespace

TEST(OrvSpriteAnimationMesh, QuadsFollowTheSpriteAndMirrorTheirTexels)
{
    OrvSpriteAnimationMesh mesh(nullptr);
    EXPECT_EQ("(-1,-1 0,0) (-1,1 0,1) (1,1 1,1) (1,-1 1,0) ", Corners(mesh));
    EXPECT_EQ(OrvVector3D(-1, -1, 0), mesh.GetBoundingBox()->GetMinimum());
    EXPECT_EQ(OrvVector3D(1, 1, 0), mesh.GetBoundingBox()->GetMaximum());

    OrvTexture texture;
    texture.SetDimesion(OrvVector2D(256, 256));
    OrvSpriteDesc desc;
    desc.texture = &texture;
    desc.origin.Set(64, 0);
    desc.dimension.Set(32, 16);
    OrvSprite sprite;
    sprite.Create(desc);
    OrvSpriteAnimationFrame frame(&sprite, OrvVector2D(0, 0), OrvVector2D());

    mesh.SetSpriteAnimationFrame(&frame, false, false);
    EXPECT_EQ("(-16,-8 0.25,0.9375) (-16,8 0.25,1) (16,8 0.375,1) (16,-8 0.375,0.9375) ", Corners(mesh));
    EXPECT_EQ(&frame, mesh.GetSpriteAnimationFrame());
    EXPECT_EQ(OrvVector3D(16, 8, 0), mesh.GetBoundingBox()->GetMaximum());

    mesh.SetSpriteAnimationFrame(&frame, true, false);
    EXPECT_EQ("(-16,-8 0.375,0.9375) (-16,8 0.375,1) (16,8 0.25,1) (16,-8 0.25,0.9375) ", Corners(mesh))
        << "mirroring swaps the texels, not the positions";

    frame.SetSpriteOffset(OrvVector2D(5, 3));
    mesh.SetSpriteAnimationFrame(&frame, true, true);
    EXPECT_EQ(OrvVector3D(-21, -11, 0), mesh.GetBoundingBox()->GetMinimum()) << "centred on (-5, -3)";
    EXPECT_EQ(OrvVector3D(-5 + 16, -3 + 8, 0), mesh.GetBoundingBox()->GetMaximum());

    const std::string before = Corners(mesh);
    mesh.SetSpriteAnimationFrame(nullptr, false, false);
    OrvSpriteAnimationFrame empty;
    mesh.SetSpriteAnimationFrame(&empty, false, false);
    EXPECT_EQ(before, Corners(mesh));
    EXPECT_EQ(&frame, mesh.GetSpriteAnimationFrame());
}

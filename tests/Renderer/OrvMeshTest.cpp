#include <gtest/gtest.h>

#include <cstdlib>

#include "OrvAxisAlignedBox.h"
#include "OrvColor.h"
#include "OrvColorMaterial.h"
#include "OrvMaterial.h"
#include "OrvMemoryCap.h"
#include "OrvMesh.h"
#include "OrvRendererException.h"
#include "OrvOpenGLRenderer.h"
#include "OrvPass.h"
#include "OrvTestGame.h"

namespace
{
using OrvMeshGameTest = OrvGameTest;

}  // namespace

TEST_F(OrvMeshGameTest, EveryPassDrawsTheQuadsAndTheBoxFollows)
{
    // Counts what reaches the renderer; draws as well.
    class Counting : public OrvOpenGLRenderer
    {
    public:
        explicit Counting(OrvApplication* application) : OrvOpenGLRenderer(application) {}
        void Begin(OrvRenderMode mode) override
        {
            ++brackets;
            OrvOpenGLRenderer::Begin(mode);
        }
        void Vertex(OrvVertex* vertex) override
        {
            ++vertices;
            OrvOpenGLRenderer::Vertex(vertex);
        }
        int brackets = 0, vertices = 0;
    } counting(&game);
    counting.Setup(0, 0, kSize, kSize);
    LoadPixelProjection(counting, kSize, kSize);
    counting.PreRender();

    OrvMesh* mesh = SquareMesh(&counting, 32, OrvColor(0.0f, 0.0f, 1.0f, 1.0f));
    for (unsigned int i = 0; i < 4; ++i)
        mesh->AddVertex(new OrvVertex(*mesh->GetVertex(i)));
    EXPECT_EQ(OrvVector3D(-16, -16, 0), mesh->GetBoundingBox()->GetMinimum());
    mesh->GetBoundingBox()->SetPosition(OrvVector3D(3, 4, 0));
    EXPECT_FLOAT_EQ(16.0f * 16.0f * 2.0f, mesh->GetBoundingRadiusSquared()) << "corners measured from the position";

    counting.TranslateMatrix(TRANS_MATRIX_MODEL, OrvVector3D(32, 32, 0));
    mesh->Render();
    EXPECT_EQ(1, counting.brackets) << "eight vertices, two quads, one bracket";
    EXPECT_EQ(8, counting.vertices);
    EXPECT_TRUE(PixelIs(32, 32, 0x0000FF));
    EXPECT_TRUE(PixelIs(4, 4, 0x000000));

    mesh->GetMaterial()->AddPass(new OrvPass(*mesh->GetMaterial()->GetPass(0)));
    mesh->SetRenderBoundingBox(true);
    mesh->Render();
    EXPECT_EQ(1 + 2 + 1, counting.brackets) << "once a pass, then the box's outline";
    EXPECT_EQ(8 + 16 + 4, counting.vertices);

    OrvVertex* taken = mesh->RemoveVertex(0);
    EXPECT_EQ(7u, mesh->GetVertexCount());
    delete taken;
    delete mesh;
}

namespace
{
int g_destroyed = 0;

class CountedVertex : public OrvVertex
{
public:
    ~CountedVertex() override { ++g_destroyed; }
};

}  // namespace

TEST(OrvMeshOwnership, AVertexTheMeshCannotHoldIsRefusedAndDestroyed)
{
#if !ORV_MEMORY_CAP_WORKS
    GTEST_SKIP() << "the address sanitizer's own reservations defeat a cap on memory";
#else
    EXPECT_EXIT(
        {
            OrvMesh mesh(nullptr);
            for (int i = 0; i < 32; ++i)
                mesh.AddVertex(new OrvVertex());
            OrvVertex* extra = new CountedVertex();
            CapMemory();
            // The 33rd vertex needs a larger block than the memory left gives.
            bool refused = false;
            try
            {
                mesh.AddVertex(extra);
            }
            catch (const OrvRendererException&)
            {
                refused = true;
            }
            std::_Exit(refused && g_destroyed == 1 && mesh.GetVertexCount() == 32 ? 0 : 1);
        },
        ::testing::ExitedWithCode(0), "");
#endif
}

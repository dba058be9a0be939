// Scene benchmark: about 10,000 game assets in a tree of depth 3 under the
// world root, each with a small coloured quad, half of them moved every frame.
// Prints microseconds per frame for the tree's Update, for the moves (each
// SetPosition refreshes the moved asset's subtree) and for Render, both with
// the quads drawn through OpenGL and with drawing switched off (traversal and
// matrix stack only).
//
//   orvscenebench [--frames N]
#include <GL/gl.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

#include <OrvEngine/OrvApplication.h>
#include "OrvBenchGame.h"
#include <OrvEngine/OrvCamera.h>
#include <OrvEngine/OrvColor.h>
#include <OrvEngine/OrvColorMaterial.h>
#include <OrvEngine/OrvException.h>
#include <OrvEngine/OrvGameAsset.h>
#include <OrvEngine/OrvGameAssetDesc.h>
#include <OrvEngine/OrvGameAssetManager.h>
#include <OrvEngine/OrvMesh.h>
#include <OrvEngine/OrvRenderWindow.h>
#include <OrvEngine/OrvRenderer.h>
#include <OrvEngine/OrvVertex.h>

namespace
{
// Children per level: 20 × 20 × 24 = 10,020 assets below the root.
const int kFanOut[3] = {20, 20, 24};

using Clock = std::chrono::steady_clock;

double Microseconds(Clock::duration span)
{
    return std::chrono::duration<double, std::micro>(span).count();
}

class Scene
{
public:
    explicit Scene(BenchGame& game) : m_game(game)
    {
        Build(game.GetWorldRoot(), 0, 0.0f);
    }

    unsigned int AssetCount() const { return static_cast<unsigned int>(m_all.size()); }

    void Run(unsigned int frames, bool draw)
    {
        OrvRenderer* renderer = m_game.GetRenderer();
        m_game.GetWorldRoot()->SetRender(draw, true);
        Clock::duration update{}, move{}, render{};
        for (unsigned int frame = 0; frame < frames; ++frame)
        {
            const float offset = static_cast<float>(frame % 2);
            Clock::time_point start = Clock::now();
            m_game.GetWorldRoot()->Update(0.016f);
            update += Clock::now() - start;

            start = Clock::now();
            for (std::size_t i = 0; i < m_all.size(); i += 2)
            {
                OrvVector3D position = m_home[i];
                position.X += offset;
                m_all[i]->SetPosition(position);
            }
            move += Clock::now() - start;

            renderer->PreRender();
            m_game.GetWorldCamera()->ActivatePerspective();
            start = Clock::now();
            m_game.GetWorldRoot()->Render();
            glFinish();
            render += Clock::now() - start;
            m_game.GetMainWindow()->SwapBuffers();
        }
        std::printf("%-10s %12.1f %12.1f %12.1f\n", draw ? "drawn" : "not drawn", Microseconds(update) / frames,
                    Microseconds(move) / frames, Microseconds(render) / frames);
    }

private:
    void Build(OrvGameAsset* parent, int level, float spread)
    {
        if (level == 3)
            return;
        OrvRenderer* renderer = m_game.GetRenderer();
        for (int i = 0; i < kFanOut[level]; ++i)
        {
            OrvGameAssetDesc desc;
            const float radius = level == 0 ? 300.0f : spread;
            desc.position.Set(radius * static_cast<float>(i % 5 - 2) / 2.0f, radius * static_cast<float>(i / 5 - 2) / 2.0f,
                              0.0f);
            OrvGameAsset* asset = m_game.GetGameAssetManager()->CreateGameAsset<OrvGameAsset, OrvGameAssetDesc>(&desc);
            asset->AttachTo(parent);
            OrvMesh* mesh = new OrvMesh(renderer);
            const float h = 3.0f;
            const float corners[4][2] = {{-h, -h}, {h, -h}, {h, h}, {-h, h}};
            for (const auto& c : corners)
                mesh->AddVertex(new OrvVertex(OrvVector3D(c[0], c[1], 0), OrvVector2D(0, 0), OrvVector3D(0, 1, 0)));
            OrvColorMaterial* material = new OrvColorMaterial(renderer);
            material->SetColor(OrvColor(255, 40 * level, 255 - 40 * level, 255));
            mesh->SetMaterial(material);
            mesh->BuildBoundingVolumes();
            asset->SetMesh(mesh);
            asset->RefreshPosition(true);
            m_all.push_back(asset);
            m_home.push_back(desc.position);
            Build(asset, level + 1, level == 0 ? 60.0f : 12.0f);
        }
    }

    BenchGame& m_game;
    std::vector<OrvGameAsset*> m_all;
    std::vector<OrvVector3D> m_home;
};
}  // namespace

int main(int argc, char** argv)
{
    unsigned int frames = 30;
    if (argc == 3 && std::strcmp(argv[1], "--frames") == 0)
        frames = static_cast<unsigned int>(std::atoi(argv[2]) > 0 ? std::atoi(argv[2]) : 1);
    setenv("ORV_WINDOWED", "1", 1);
    BenchGame game;
    try
    {
        game.Initialise(800, 600);
        {
            Scene scene(game);
            std::printf("%u assets, depth 3, half moved each frame, %u frames, renderer: %s\n", scene.AssetCount(),
                        frames, reinterpret_cast<const char*>(glGetString(GL_RENDERER)));
            std::printf("%-10s %12s %12s %12s\n", "quads", "Update us", "moves us", "Render us");
            scene.Run(frames, true);
            scene.Run(frames, false);
        }
        game.Term();
    }
    catch (const OrvException& e)
    {
        std::fprintf(stderr, "%s: %s (%s:%d)\n", e.name, e.message, e.file, e.line);
        return 1;
    }
    return 0;
}

// Sprite benchmark, OrvEngine's side (sfmlspritebench draws the same picture
// with SFML): N sprites of 32 × 32 from one 64 × 64 RGBA texture, nearest
// filtering, alpha-blended, every one moved every frame, in an 800 × 600
// window; the engine's own turn (update, render, swap) times `frames` turns
// after `warmup` turns.
//
//   orvspritebench [--mode assets|raw] [--sprites N] [--warmup N] [--frames N] [--flat] [--shot FILE.ppm]
//
// assets: N game assets in the HUD tree, each with a quad mesh and a
//         coloured-texture material of its own; the update moves them.
// raw:    the game draws the quads itself in OnRenderHUD: one pass
//         activation, then Begin, four Vertex and End per quad.
// --flat opens the window without depth and stencil buffers.
//
// Prints one line: the mode, the sprite count, the window, milliseconds per
// frame, draw calls per frame, the milliseconds it took to create the sprites,
// and the processor time per frame of this thread in the update (the game's
// moves and the engine's) and in the HUD pass (the engine's drawing and the
// driver's front end; the rasteriser's threads are not counted).
#include <GL/gl.h>

#include <chrono>
#include <ctime>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include <OrvEngine/OrvApplication.h>
#include <OrvEngine/OrvColor.h>
#include <OrvEngine/OrvColoredTextureMaterial.h>
#include <OrvEngine/OrvException.h>
#include <OrvEngine/OrvGameAsset.h>
#include <OrvEngine/OrvGameAssetDesc.h>
#include <OrvEngine/OrvGameAssetManager.h>
#include <OrvEngine/OrvMesh.h>
#include <OrvEngine/OrvOpenGLRenderer.h>
#include <OrvEngine/OrvTGAImageFile.h>
#include <OrvEngine/OrvTexture.h>
#include <OrvEngine/OrvTextureManager.h>
#include <OrvEngine/OrvVertex.h>
#include "SpriteWorkload.h"

namespace
{
using Clock = std::chrono::steady_clock;

// The workload's texture, rows bottom first as the engine uploads them.
class SpriteSheet : public OrvTGAImageFile
{
public:
    SpriteSheet()
    {
        m_name = "sprite-sheet";
        SetImageTypeCode(2);
        SetImagePixelSize(32);
        SetWidth(sprites::kTextureSize);
        SetHeight(sprites::kTextureSize);
        ResetImageData();
        for (unsigned int row = 0; row < sprites::kTextureSize; ++row)
            for (unsigned int x = 0; x < sprites::kTextureSize; ++x)
            {
                const std::uint32_t texel = sprites::Texel(x, sprites::kTextureSize - 1 - row);
                unsigned char* pixel = m_data + (row * sprites::kTextureSize + x) * 4;
                for (int c = 0; c < 4; ++c)
                    pixel[c] = static_cast<unsigned char>(texel >> (24 - 8 * c));
            }
    }
};

// The texture coordinates of a sprite's cell: u from left to right, v from
// bottom to top.
struct Cell
{
    float u0, v0, u1, v1;
};

Cell CellOf(unsigned int index)
{
    const float u0 = 0.5f * static_cast<float>(sprites::CellColumn(index));
    const float v0 = 0.5f - 0.5f * static_cast<float>(sprites::CellRow(index));
    return Cell{u0, v0, u0 + 0.5f, v0 + 0.5f};
}

class SpriteBenchGame : public OrvApplication
{
public:
    explicit SpriteBenchGame(const sprites::Options& options) : m_options(options)
    {
        SetDepthAndStencil(!options.flat);
    }

    void Initialise(unsigned int, unsigned int) override
    {
        OrvApplication::Initialise(sprites::kWindowWidth, sprites::kWindowHeight);
    }

    void OnInitialise() override
    {
        m_texture = GetTextureManager()->CreateTexture();
        m_texture->AddUser();
        m_texture->SetMipMapMethod(MIPMAP_NEAREST);
        SpriteSheet sheet;
        m_texture->SetDataFromImage(&sheet);
        // The raw mode's material; made first in both modes so that the
        // shaders' compilation is not timed with the sprites.
        m_material = new OrvColoredTextureMaterial(GetRenderer(), m_texture, OrvColor(1.0f, 1.0f, 1.0f, 1.0f));
        const Clock::time_point start = Clock::now();
        if (m_options.mode == "assets")
            CreateSprites();
        m_createMilliseconds = std::chrono::duration<double, std::milli>(Clock::now() - start).count();
    }

    void OnTerminate() override
    {
        delete m_material;
        m_material = nullptr;
        m_texture->RemoveUser();
    }

    void OnRenderWorld() override {}

    void OnRenderHUD() override
    {
        if (m_options.mode != "raw")
            return;
        OrvRenderer* renderer = GetRenderer();
        m_material->ActivatePass(0);
        const float height = static_cast<float>(sprites::kWindowHeight);
        const float side = static_cast<float>(sprites::kSpriteSize);
        for (unsigned int i = 0; i < m_options.sprites; ++i)
        {
            int x = 0;
            int y = 0;
            sprites::Place(i, m_frame, x, y);
            const float left = static_cast<float>(x);
            const float bottom = height - static_cast<float>(y) - side;
            const Cell cell = CellOf(i);
            const float corners[4][4] = {{left, bottom, cell.u0, cell.v0},
                                         {left + side, bottom, cell.u1, cell.v0},
                                         {left + side, bottom + side, cell.u1, cell.v1},
                                         {left, bottom + side, cell.u0, cell.v1}};
            renderer->Begin(RENDER_MODE_QUADS);
            for (const auto& c : corners)
            {
                m_corner.SetPosition(OrvVector3D(c[0], c[1], 0.0f));
                m_corner.SetUV(OrvVector2D(c[2], c[3]));
                renderer->Vertex(&m_corner);
            }
            renderer->End();
        }
    }

    void Update(float seconds) override
    {
        if (m_frame == m_options.warmup)
        {
            m_start = Clock::now();
            m_drawCallsAtStart = DrawCalls();
        }
        if (m_frame == m_options.warmup + m_options.frames)
        {
            m_seconds = std::chrono::duration<double>(Clock::now() - m_start).count();
            m_drawCalls = DrawCalls() - m_drawCallsAtStart;
            Exit();
        }
        const double start = ThreadSeconds();
        for (unsigned int i = 0; i < m_sprites.size(); ++i)
            m_sprites[i]->SetPosition(Centre(i, m_frame));
        OrvApplication::Update(seconds);
        if (Timed())
            m_updateSeconds += ThreadSeconds() - start;
    }

    void RenderHUD() override
    {
        const double start = ThreadSeconds();
        OrvApplication::RenderHUD();
        if (Timed())
            m_renderSeconds += ThreadSeconds() - start;
        if (m_frame == m_options.warmup + m_options.frames && !m_options.shot.empty())
            Screenshot();
        ++m_frame;
    }

    void Report() const
    {
        const double frames = static_cast<double>(m_options.frames);
        std::printf("orvspritebench mode=%s sprites=%u window=%s ms_per_frame=%.3f draw_calls_per_frame=%.0f "
                    "create_ms=%.2f update_cpu_ms=%.3f render_hud_cpu_ms=%.3f\n",
                    m_options.mode.c_str(), m_options.sprites, m_options.flat ? "flat" : "default",
                    m_seconds * 1000.0 / frames, static_cast<double>(m_drawCalls) / frames, m_createMilliseconds,
                    m_updateSeconds * 1000.0 / frames, m_renderSeconds * 1000.0 / frames);
    }

private:
    // Where sprite `index` is centred in frame `frame`, in the HUD tree
    // (origin at the window's centre, y upwards).
    static OrvVector3D Centre(unsigned int index, unsigned int frame)
    {
        int x = 0;
        int y = 0;
        sprites::Place(index, frame, x, y);
        const float half = static_cast<float>(sprites::kSpriteSize) * 0.5f;
        return OrvVector3D(static_cast<float>(x) + half - static_cast<float>(sprites::kWindowWidth) * 0.5f,
                           static_cast<float>(sprites::kWindowHeight) * 0.5f - static_cast<float>(y) - half, 0.0f);
    }

    void CreateSprites()
    {
        const float half = static_cast<float>(sprites::kSpriteSize) * 0.5f;
        m_sprites.reserve(m_options.sprites);
        for (unsigned int i = 0; i < m_options.sprites; ++i)
        {
            OrvGameAssetDesc desc;
            desc.position = Centre(i, 0);
            OrvGameAsset* sprite = GetGameAssetManager()->CreateGameAsset<OrvGameAsset, OrvGameAssetDesc>(&desc);
            OrvMesh* mesh = new OrvMesh(GetRenderer());
            const Cell cell = CellOf(i);
            mesh->AddVertex(new OrvVertex(OrvVector3D(-half, -half, 0), OrvVector2D(cell.u0, cell.v0),
                                          OrvVector3D(0, 0, 1)));
            mesh->AddVertex(new OrvVertex(OrvVector3D(half, -half, 0), OrvVector2D(cell.u1, cell.v0),
                                          OrvVector3D(0, 0, 1)));
            mesh->AddVertex(new OrvVertex(OrvVector3D(half, half, 0), OrvVector2D(cell.u1, cell.v1),
                                          OrvVector3D(0, 0, 1)));
            mesh->AddVertex(new OrvVertex(OrvVector3D(-half, half, 0), OrvVector2D(cell.u0, cell.v1),
                                          OrvVector3D(0, 0, 1)));
            mesh->SetMaterial(
                new OrvColoredTextureMaterial(GetRenderer(), m_texture, OrvColor(1.0f, 1.0f, 1.0f, 1.0f)));
            mesh->BuildBoundingVolumes();
            sprite->SetMesh(mesh);
            sprite->AttachTo(GetHUDRoot());
            m_sprites.push_back(sprite);
        }
    }

    // Processor time of this thread: what the engine and the driver's front
    // end spend here, not the rasteriser's threads nor waiting for them.
    static double ThreadSeconds()
    {
        timespec now{};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
        return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
    }

    // Turns warmup .. warmup + frames - 1.
    bool Timed() const { return m_frame >= m_options.warmup && m_frame < m_options.warmup + m_options.frames; }

    unsigned long DrawCalls() const
    {
        const OrvOpenGLRenderer* renderer = dynamic_cast<const OrvOpenGLRenderer*>(GetRenderer());
        return renderer != nullptr ? renderer->GetDrawCallCount() : 0;
    }

    void Screenshot()
    {
        std::vector<unsigned char> pixels(sprites::kWindowWidth * sprites::kWindowHeight * 4);
        glReadPixels(0, 0, sprites::kWindowWidth, sprites::kWindowHeight, GL_RGBA, GL_UNSIGNED_BYTE, pixels.data());
        if (!sprites::WritePPM(m_options.shot, sprites::kWindowWidth, sprites::kWindowHeight, pixels))
            std::fprintf(stderr, "orvspritebench: cannot write %s\n", m_options.shot.c_str());
    }

    sprites::Options m_options;
    OrvTexture* m_texture = nullptr;
    OrvColoredTextureMaterial* m_material = nullptr;
    std::vector<OrvGameAsset*> m_sprites;
    OrvVertex m_corner;
    unsigned int m_frame = 0;
    Clock::time_point m_start;
    double m_seconds = 0.0;
    double m_updateSeconds = 0.0;
    double m_renderSeconds = 0.0;
    unsigned long m_drawCallsAtStart = 0;
    unsigned long m_drawCalls = 0;
    double m_createMilliseconds = 0.0;
};
}  // namespace

int main(int argc, char** argv)
{
    sprites::Options options;
    options.mode = "assets";
    if (!sprites::ParseOptions(argc, argv, "assets|raw", options))
        return 2;
    if (options.mode != "assets" && options.mode != "raw")
    {
        std::fprintf(stderr, "orvspritebench: unknown mode %s (assets or raw)\n", options.mode.c_str());
        return 2;
    }
    setenv("ORV_WINDOWED", "1", 1);
    SpriteBenchGame game(options);
    try
    {
        game.Run();
    }
    catch (const OrvException& e)
    {
        std::fprintf(stderr, "%s: %s (%s:%d)\n", e.name, e.message, e.file, e.line);
        return 1;
    }
    game.Report();
    return 0;
}

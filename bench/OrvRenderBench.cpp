// Rendering benchmark: N quads a frame in an 800 x 600 window, each drawn
// after its own pass activation, with a colour material, then with a
// coloured-texture material, then alternating the two; each run once with the
// GL state caching of the renderer and the shader runtime, once without.
// Prints frames per second and GL calls per quad.
//
//   orvbench [--quads N] [--frames N]
#include <GL/gl.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include <OrvEngine/OrvApplication.h>
#include "OrvBenchGame.h"
#include <OrvEngine/OrvColor.h>
#include <OrvEngine/OrvColorMaterial.h>
#include <OrvEngine/OrvColoredTextureMaterial.h>
#include <OrvEngine/OrvException.h>
#include "OrvGLStateCache.h"
#include <OrvEngine/OrvMaterialShelf.h>
#include <OrvEngine/OrvRenderWindow.h>
#include <OrvEngine/OrvRenderer.h>
#include <OrvEngine/OrvShaderRuntime.h>
#include <OrvEngine/OrvTGAImageFile.h>
#include <OrvEngine/OrvTexture.h>
#include <OrvEngine/OrvTextureManager.h>
#include <OrvEngine/OrvVertex.h>

namespace
{
const unsigned int kWidth = 800;
const unsigned int kHeight = 600;
// glBegin, four glTexCoord2f and glVertex3f pairs, glEnd.
const unsigned long kImmediateCallsPerQuad = 10;

// A 64 x 64 opaque checker made in memory.
class Checker : public OrvTGAImageFile
{
public:
    Checker()
    {
        m_name = "bench-checker";
        SetImageTypeCode(2);
        SetImagePixelSize(32);
        SetWidth(64);
        SetHeight(64);
        ResetImageData();
        for (unsigned int i = 0; i < 64 * 64; ++i)
        {
            const bool white = ((i % 64) / 8 + (i / 64) / 8) % 2 == 0;
            m_data[i * 4] = white ? 255 : 200;
            m_data[i * 4 + 1] = white ? 255 : 40;
            m_data[i * 4 + 2] = white ? 255 : 90;
            m_data[i * 4 + 3] = 255;
        }
    }
};

enum Scene
{
    kColour,
    kTextured,
    kAlternating
};

const char* SceneName(Scene scene)
{
    return scene == kColour ? "colour" : scene == kTextured ? "textured" : "alternating";
}

struct Result
{
    double framesPerSecond;
    double glCallsPerQuad;
};

class Bench
{
public:
    Bench(BenchGame& game, unsigned int quads) : m_game(game), m_renderer(*game.GetRenderer()), m_quads(quads)
    {
        m_texture = game.GetTextureManager()->CreateTexture();
        m_texture->AddUser();
        Checker image;
        m_texture->SetDataFromImage(&image);
        m_colour = game.GetMaterialShelf()->CreateMaterial<OrvColorMaterial>();
        m_colour->SetColor(OrvColor(0.9f, 0.5f, 0.1f, 0.8f));
        m_textured = new OrvColoredTextureMaterial(&m_renderer, m_texture, OrvColor(1.0f, 1.0f, 1.0f, 0.9f));

        OrvMatrix projection = OrvMatrix::CreateIdentity(4);
        projection.Set(1, 1, 2.0f / kWidth);
        projection.Set(2, 2, 2.0f / kHeight);
        projection.Set(1, 4, -1.0f);
        projection.Set(2, 4, -1.0f);
        m_renderer.LoadMatrix(TRANS_MATRIX_PROJECTION, projection);
        m_renderer.LoadIdentityMatrix(TRANS_MATRIX_VIEW);
    }

    ~Bench()
    {
        m_game.GetMaterialShelf()->DestroyMaterial(m_colour);
        delete m_textured;
        m_texture->RemoveUser();
    }

    Result Run(Scene scene, bool caching, unsigned int frames)
    {
        OrvGLStateCache::SetCaching(caching);
        OrvShaderRuntimeSetCaching(caching);
        for (int i = 0; i < 5; ++i)
            Frame(scene);
        glFinish();
        OrvGLStateCache::ResetStats();
        OrvShaderRuntimeResetStats();
        const auto start = std::chrono::steady_clock::now();
        for (unsigned int i = 0; i < frames; ++i)
            Frame(scene);
        glFinish();
        const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();

        const OrvGLStateCache::Stats& state = OrvGLStateCache::GetStats();
        const OrvShaderRuntimeStats& shaders = OrvShaderRuntimeGetStats();
        const double calls = static_cast<double>(state.blendFuncCalls + state.activeTextureCalls +
                                                 state.bindTextureCalls + state.texParameterCalls +
                                                 shaders.useProgramCalls + shaders.uniformCalls);
        const double quads = static_cast<double>(frames) * m_quads;
        return Result{frames / seconds, calls / quads + kImmediateCallsPerQuad};
    }

private:
    void Frame(Scene scene)
    {
        m_renderer.PreRender();
        for (unsigned int i = 0; i < m_quads; ++i)
        {
            OrvMaterial* material = scene == kColour     ? static_cast<OrvMaterial*>(m_colour)
                                    : scene == kTextured ? static_cast<OrvMaterial*>(m_textured)
                                    : (i % 2 == 0)       ? static_cast<OrvMaterial*>(m_colour)
                                                         : static_cast<OrvMaterial*>(m_textured);
            m_renderer.PushMatrix(TRANS_MATRIX_MODEL);
            m_renderer.TranslateMatrix(TRANS_MATRIX_MODEL,
                                       OrvVector3D(static_cast<float>((i * 37) % kWidth),
                                                   static_cast<float>((i * 53) % kHeight), 0.0f));
            material->ActivatePass(0);
            Quad();
            m_renderer.PopMatrix(TRANS_MATRIX_MODEL);
        }
        m_game.GetMainWindow()->SwapBuffers();
        m_renderer.PostRender();
    }

    void Quad()
    {
        const float corners[4][4] = {{0, 0, 0, 0}, {24, 0, 1, 0}, {24, 24, 1, 1}, {0, 24, 0, 1}};
        m_renderer.Begin(RENDER_MODE_QUADS);
        for (const auto& c : corners)
        {
            m_corner.SetPosition(OrvVector3D(c[0], c[1], 0.0f));
            m_corner.SetUV(OrvVector2D(c[2], c[3]));
            m_renderer.Vertex(&m_corner);
        }
        m_renderer.End();
    }

    BenchGame& m_game;
    OrvRenderer& m_renderer;
    unsigned int m_quads;
    OrvTexture* m_texture = nullptr;
    OrvColorMaterial* m_colour = nullptr;
    OrvColoredTextureMaterial* m_textured = nullptr;
    OrvVertex m_corner;
};

unsigned int Count(const char* text)
{
    const long value = std::atol(text);
    return value > 0 ? static_cast<unsigned int>(value) : 1u;
}
}  // namespace

int main(int argc, char** argv)
{
    unsigned int quads = 2000;
    unsigned int frames = 60;
    for (int i = 1; i + 1 < argc; i += 2)
    {
        if (std::strcmp(argv[i], "--quads") == 0)
            quads = Count(argv[i + 1]);
        else if (std::strcmp(argv[i], "--frames") == 0)
            frames = Count(argv[i + 1]);
    }
    setenv("ORV_WINDOWED", "1", 1);
    BenchGame game;
    try
    {
        game.Initialise(kWidth, kHeight);
        {
            Bench bench(game, quads);
            std::printf("%u quads a frame, %u frames, %ux%u, renderer: %s\n", quads, frames, kWidth, kHeight,
                        reinterpret_cast<const char*>(glGetString(GL_RENDERER)));
            std::printf("%-12s %-8s %10s %14s\n", "scene", "caching", "frames/s", "GL calls/quad");
            for (Scene scene : {kColour, kTextured, kAlternating})
                for (bool caching : {true, false})
                {
                    const Result result = bench.Run(scene, caching, frames);
                    std::printf("%-12s %-8s %10.1f %14.2f\n", SceneName(scene), caching ? "on" : "off",
                                result.framesPerSecond, result.glCallsPerQuad);
                }
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

#ifndef ORV_TEST_GAME_H
#define ORV_TEST_GAME_H

// A game with empty hooks, started windowed in a scratch folder whose media
// path list points at the engine's media, and what rendering tests draw and
// read back with it.

#include <gtest/gtest.h>

#include <GL/gl.h>
#include <dlfcn.h>
#include <link.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "OrvApplication.h"
#include "OrvColor.h"
#include "OrvColorMaterial.h"
#include "OrvMesh.h"
#include "OrvFileManager.h"
#include "OrvMatrix.h"
#include "OrvRenderer.h"
#include "OrvScratchDir.h"
#include "OrvTGAImageFile.h"
#include "OrvVertex.h"

// An orthographic projection in pixels, origin at the lower left, and an identity view.
inline void LoadPixelProjection(OrvRenderer& target, unsigned int width, unsigned int height)
{
    OrvMatrix projection = OrvMatrix::CreateIdentity(4);
    projection.Set(1, 1, 2.0f / static_cast<float>(width));
    projection.Set(2, 2, 2.0f / static_cast<float>(height));
    projection.Set(3, 3, -1.0f);
    projection.Set(1, 4, -1.0f);
    projection.Set(2, 4, -1.0f);
    target.LoadMatrix(TRANS_MATRIX_PROJECTION, projection);
    target.LoadIdentityMatrix(TRANS_MATRIX_VIEW);
}

// Keeps the GL driver mapped after SDL_Quit: what it still holds at exit stays
// reachable for the leak checker, instead of showing as leaks of an unloaded
// module. Call it while a GL context exists.
inline void PinGLDriver()
{
    dl_iterate_phdr(
        [](struct dl_phdr_info* info, size_t, void*) {
            const char* path = info->dlpi_name;
            if (path != nullptr && std::strstr(path, "_dri.so") != nullptr)
                dlopen(path, RTLD_NOW | RTLD_NOLOAD | RTLD_NODELETE);
            return 0;
        },
        nullptr);
}

class OrvTestGame : public OrvApplication
{
public:
    // A game that overrides it calls this one: it pins the GL driver.
    void OnInitialise() override { PinGLDriver(); }
    void OnTerminate() override {}
    void OnRenderWorld() override {}
    void OnRenderHUD() override {}
};

// Media paths: the scratch folder itself, then the engine's media.
struct OrvGameFolder : OrvScratchDir
{
    OrvGameFolder()
    {
        Write("MediaPaths.xml", std::string("<MediaPaths>\n  <Path>.</Path>\n  <Path>") + ORV_MEDIA_DIR +
                                    "</Path>\n</MediaPaths>\n");
        setenv("ORV_WINDOWED", "1", 1);
    }
};

// A started game of kSize × kSize pixels with an orthographic projection in
// pixels (origin at the lower left) and an identity view.
class OrvGameTest : public ::testing::Test
{
protected:
    static constexpr unsigned int kSize = 64;

    void SetUp() override
    {
        game.Initialise(kSize, kSize);
        renderer = game.GetRenderer();
        LoadPixelProjection(*renderer, kSize, kSize);
        renderer->PreRender();
    }
    void TearDown() override { game.Term(); }

    void Quad(float x0, float y0, float x1, float y1);

    OrvGameFolder folder;
    OrvTestGame game;
    OrvRenderer* renderer = nullptr;
};

// A quad from (x0, y0) to (x1, y1), UVs 0..1, through whatever pass is active.
inline void DrawQuad(OrvRenderer& renderer, float x0, float y0, float x1, float y1)
{
    OrvVertex corner;
    renderer.Begin(RENDER_MODE_QUADS);
    const float corners[4][4] = {{x0, y0, 0, 0}, {x1, y0, 1, 0}, {x1, y1, 1, 1}, {x0, y1, 0, 1}};
    for (const auto& c : corners)
    {
        corner.SetPosition(OrvVector3D(c[0], c[1], 0.0f));
        corner.SetUV(OrvVector2D(c[2], c[3]));
        renderer.Vertex(&corner);
    }
    renderer.End();
}

inline void OrvGameTest::Quad(float x0, float y0, float x1, float y1)
{
    DrawQuad(*renderer, x0, y0, x1, y1);
}

// A flat colour square of `side` around the origin.
inline OrvMesh* SquareMesh(OrvRenderer* renderer, float side, const OrvColor& color)
{
    OrvMesh* mesh = new OrvMesh(renderer);
    const float h = side * 0.5f;
    const float corners[4][2] = {{-h, -h}, {h, -h}, {h, h}, {-h, h}};
    for (const auto& c : corners)
        mesh->AddVertex(new OrvVertex(OrvVector3D(c[0], c[1], 0), OrvVector2D(0, 0), OrvVector3D(0, 1, 0)));
    OrvColorMaterial* material = new OrvColorMaterial(renderer);
    material->SetColor(color);
    mesh->SetMaterial(material);
    mesh->BuildBoundingVolumes();
    return mesh;
}

// The back buffer's pixel (x, y) as 0xRRGGBB.
inline unsigned int PixelAt(int x, int y)
{
    unsigned char pixel[4] = {0, 0, 0, 0};
    glReadPixels(x, y, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, pixel);
    return (static_cast<unsigned int>(pixel[0]) << 16) | (static_cast<unsigned int>(pixel[1]) << 8) | pixel[2];
}

// Each channel within one step of the expected colour.
inline ::testing::AssertionResult PixelIs(int x, int y, unsigned int rgb)
{
    const unsigned int got = PixelAt(x, y);
    for (int shift = 0; shift <= 16; shift += 8)
    {
        const int a = static_cast<int>((got >> shift) & 0xFF);
        const int b = static_cast<int>((rgb >> shift) & 0xFF);
        if (std::abs(a - b) > 1)
        {
            char text[80];
            std::snprintf(text, sizeof(text), "pixel %d,%d is 0x%06X, expected 0x%06X", x, y, got, rgb);
            return ::testing::AssertionFailure() << text;
        }
    }
    return ::testing::AssertionSuccess();
}

// A 32-bit TGA file of width × height whose pixel (x, row from the top) is
// rgba(x, row) as 0xRRGGBBAA.
template <class Pixel>
inline void SaveTGA(const std::string& name, unsigned int width, unsigned int height, Pixel rgba)
{
    class Image : public OrvTGAImageFile
    {
    public:
        unsigned char* Pixels() { return m_data; }
    } image;
    image.SetImageTypeCode(2);
    image.SetImagePixelSize(32);
    image.SetWidth(width);
    image.SetHeight(height);
    image.ResetImageData();
    for (unsigned int row = 0; row < height; ++row)
        for (unsigned int x = 0; x < width; ++x)
        {
            const unsigned int value = rgba(x, row);
            unsigned char* pixel = image.Pixels() + ((height - 1 - row) * width + x) * 4;
            for (int c = 0; c < 4; ++c)
                pixel[c] = static_cast<unsigned char>(value >> (24 - 8 * c));
        }
    OrvFileManager files;
    image.Create(&files, 1);
    image.Save(name.c_str(), OrvFile::SAVE_DEFAULT);
    image.Close();
}

// A 2 × 2 RGBA image: red, green (bottom row), blue, white (top row), opaque.
class OrvQuadColoursImage : public OrvTGAImageFile
{
public:
    explicit OrvQuadColoursImage(const char* name = "quad.tga")
    {
        m_name = name;
        SetImageTypeCode(2);
        SetImagePixelSize(32);
        SetWidth(2);
        SetHeight(2);
        ResetImageData();
        const unsigned char texels[16] = {255, 0, 0, 255, 0, 255, 0, 255, 0, 0, 255, 255, 255, 255, 255, 255};
        for (int i = 0; i < 16; ++i)
            m_data[i] = texels[i];
    }

    // Writes the image as a TGA file in the working folder.
    static void SaveAs(const char* name)
    {
        OrvFileManager files;
        OrvQuadColoursImage image(name);
        image.Create(&files, 1);
        image.Save(name, SAVE_DEFAULT);
        image.Close();
    }
};

#endif

// The example game: every turn it draws a spinning coloured quad and a
// textured quad through the engine's materials. It ends after a few seconds
// measured by one of the engine's timers; with --screenshot it leaves its last
// frame in a TGA file.
//
//   MinimalGame [SECONDS] [--screenshot FILE]
//
// Set ORV_WINDOWED=1 to play it in a window instead of full screen.
#include <GL/gl.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "OrvApplication.h"
#include "OrvColor.h"
#include "OrvColorMaterial.h"
#include "OrvColoredTextureMaterial.h"
#include "OrvException.h"
#include "OrvFileManager.h"
#include "OrvMaterialShelf.h"
#include "OrvRenderer.h"
#include "OrvTGAImageFile.h"
#include "OrvTexture.h"
#include "OrvTextureManager.h"
#include "OrvTimerManager.h"
#include "OrvVertex.h"

namespace
{
class MinimalGame : public OrvApplication
{
public:
    MinimalGame(float seconds, std::string screenshot) : m_seconds(seconds), m_screenshot(std::move(screenshot)) {}

    unsigned long Turns() const { return m_turns; }
    int Ticks() const { return m_ticks; }

protected:
    void OnInitialise() override
    {
        OrvTimer* timer = GetTimerManager()->AddTimer();
        timer->SetTimeLimit(m_seconds);
        timer->SetTickCallBack([](OrvTimer*, void* game) { ++static_cast<MinimalGame*>(game)->m_ticks; }, this);
        timer->SetEndCallBack([](OrvTimer*, void* game) { static_cast<MinimalGame*>(game)->Exit(); }, this);
        timer->Start();

        // The picture comes from the media paths; the texture is ours while we use it.
        OrvTGAImageFile* image = GetFileManager()->GetOrLoad<OrvTGAImageFile>("Checker.tga");
        m_texture = GetTextureManager()->CreateTexture();
        m_texture->AddUser();
        m_texture->SetDataFromImage(image);
        GetFileManager()->DeleteOrvFile(image);

        OrvMaterialShelf* shelf = GetMaterialShelf();
        m_colour = shelf->CreateMaterial<OrvColorMaterial>();
        m_colour->SetColor(OrvColor(255, 160, 32, 255));
        m_textured = new OrvColoredTextureMaterial(GetRenderer(), m_texture, OrvColor(1.0f, 1.0f, 1.0f, 1.0f));
    }

    void OnTerminate() override
    {
        GetMaterialShelf()->DestroyMaterial(m_colour);
        delete m_textured;
        m_textured = nullptr;
        m_texture->RemoveUser();
    }

    void Update(float seconds) override
    {
        OrvApplication::Update(seconds);
        m_angle += 90.0f * seconds;
        ++m_turns;
    }

    void OnRenderWorld() override
    {
        OrvRenderer* renderer = GetRenderer();
        const float width = static_cast<float>(renderer->GetViewportWidth());
        const float height = static_cast<float>(renderer->GetViewportHeight());
        LoadPixelProjection(width, height);
        const float side = (width < height ? width : height) * 0.35f;
        DrawQuad(m_colour, width * 0.3f, height * 0.5f, side, m_angle);
        DrawQuad(m_textured, width * 0.7f, height * 0.5f, side, 0.0f);
    }

    void OnRenderHUD() override
    {
        // The turn in which the game ends still draws its frame: that one is kept.
        if (!m_screenshot.empty() && !IsRunning())
            SaveScreenshot();
    }

private:
    // x and y in pixels from the lower left corner; no camera needed.
    void LoadPixelProjection(float width, float height)
    {
        OrvRenderer* renderer = GetRenderer();
        OrvMatrix projection = OrvMatrix::CreateIdentity(4);
        projection.Set(1, 1, 2.0f / width);
        projection.Set(2, 2, 2.0f / height);
        projection.Set(1, 4, -1.0f);
        projection.Set(2, 4, -1.0f);
        renderer->LoadMatrix(TRANS_MATRIX_PROJECTION, projection);
        renderer->LoadIdentityMatrix(TRANS_MATRIX_VIEW);
    }

    // A square of `side` pixels centred on (x, y), turned by `degrees`.
    void DrawQuad(OrvMaterial* material, float x, float y, float side, float degrees)
    {
        OrvRenderer* renderer = GetRenderer();
        renderer->PushMatrix(TRANS_MATRIX_MODEL);
        renderer->RotateMatrix(TRANS_MATRIX_MODEL, degrees);
        renderer->TranslateMatrix(TRANS_MATRIX_MODEL, OrvVector3D(x, y, 0.0f));
        material->ActivatePass(0);
        const float h = side * 0.5f;
        const float corners[4][4] = {{-h, -h, 0, 0}, {h, -h, 1, 0}, {h, h, 1, 1}, {-h, h, 0, 1}};
        renderer->Begin(RENDER_MODE_QUADS);
        for (const auto& c : corners)
        {
            m_corner.SetPosition(OrvVector3D(c[0], c[1], 0.0f));
            m_corner.SetUV(OrvVector2D(c[2], c[3]));
            renderer->Vertex(&m_corner);
        }
        renderer->End();
        renderer->PopMatrix(TRANS_MATRIX_MODEL);
    }

    // The frame as drawn so far (the back buffer), bottom row first as TGA keeps it.
    void SaveScreenshot()
    {
        const unsigned int width = GetRenderer()->GetViewportWidth();
        const unsigned int height = GetRenderer()->GetViewportHeight();
        OrvTGAImageFile shot;
        shot.SetImageTypeCode(2);
        shot.SetImagePixelSize(32);
        shot.SetWidth(width);
        shot.SetHeight(height);
        shot.ResetImageData();
        glPixelStorei(GL_PACK_ALIGNMENT, 1);
        glReadPixels(0, 0, static_cast<GLsizei>(width), static_cast<GLsizei>(height), GL_RGBA, GL_UNSIGNED_BYTE,
                     shot.GetData());
        for (unsigned long i = 3; i < shot.GetImageDataSize(); i += 4)
            shot.GetData()[i] = 255;
        shot.Create(GetFileManager(), ++GetFileManager()->LastFileID);
        shot.Save(m_screenshot.c_str(), OrvFile::SAVE_DEFAULT);
        shot.Close();
        std::printf("MinimalGame: %ux%u screenshot saved to %s\n", width, height, m_screenshot.c_str());
    }

    float m_seconds;
    std::string m_screenshot;
    unsigned long m_turns = 0;
    int m_ticks = 0;
    float m_angle = 30.0f;
    OrvTexture* m_texture = nullptr;
    OrvColorMaterial* m_colour = nullptr;
    OrvColoredTextureMaterial* m_textured = nullptr;
    OrvVertex m_corner;
};
}  // namespace

int main(int argc, char** argv)
{
    float seconds = 2.0f;
    std::string screenshot;
    for (int i = 1; i < argc; ++i)
    {
        if (std::strcmp(argv[i], "--screenshot") == 0 && i + 1 < argc)
            screenshot = argv[++i];
        else if (argv[i][0] != '-')
            seconds = static_cast<float>(std::atof(argv[i]));
        else
        {
            std::fprintf(stderr, "Usage: %s [SECONDS] [--screenshot FILE]\n", argv[0]);
            return 2;
        }
    }
    MinimalGame game(seconds, screenshot);
    try
    {
        game.Run();
    }
    catch (const OrvException& e)
    {
        std::fprintf(stderr, "%s: %s (%s:%d)\n", e.name, e.message, e.file, e.line);
        return 1;
    }
    std::printf("MinimalGame: %lu turns, %d timer ticks\n", game.Turns(), game.Ticks());
    return 0;
}

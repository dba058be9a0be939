// Archives: media packed into one file. The build packs a picture, a sprite
// sheet with its descriptions, a font and a sound into Archive.vbf with
// orvpack; the game registers the archive, and from then on every file it
// asks for by name is looked for in the archive first, then along the media
// paths. A member hides a file of the same name on disk.
//
//   Archives [SECONDS] [--windowed] [--screenshot FILE]
#include <string>

#include "ExampleApp.h"
#include <OrvEngine/OrvBigFile.h>
#include <OrvEngine/OrvFileManager.h>
#include <OrvEngine/OrvFont.h>
#include <OrvEngine/OrvRenderer.h>
#include <OrvEngine/OrvSoundManager.h>
#include <OrvEngine/OrvTGAImageFile.h>
#include <OrvEngine/OrvWidget.h>
#include <OrvEngine/OrvWidgetDesc.h>

namespace
{
std::string Narrow(const OrvUnicode& text)
{
    char narrow[256] = {};
    text.ToCString(narrow, sizeof(narrow), nullptr);
    return narrow;
}

class Archives : public ExampleApp
{
public:
    explicit Archives(const ExampleOptions& options) : ExampleApp("Archives", options) {}

protected:
    void OnInitialise() override
    {
        ExampleApp::OnInitialise();
        AddStandardDevices();
        // Found along the media paths like any file; registered before anything is loaded.
        OrvBigFile* archive = GetFileManager()->AddBigFile("Archive.vbf");
        std::string members;
        for (unsigned int i = 0; i < archive->GetFileCount(); ++i)
            members += (i == 0 ? "" : ", ") + Narrow(archive->GetFileInfo(i).path);
        Report("Archive.vbf holds %u members: %s", archive->GetFileCount(), members.c_str());

        // The archive's picture is 64 x 64; the one of the same name on disk is 32 x 32.
        const OrvTGAImageFile* image = GetFileManager()->GetOrLoad<OrvTGAImageFile>("Checker.tga");
        Report("Checker.tga: %ux%u, %ld bytes in Archive.vbf", image->GetWidth(), image->GetHeight(),
               GetFileManager()->GetFileSizeFromBigFile("Checker.tga"));
        Spawn(GetHUDRoot(), OrvVector3D(-200, 0, 0))->SetMesh(MakeQuad(128, 128, MakeTextured("Checker.tga")));

        m_font = LoadFont("Font.tga", 32, 0.5f);

        // A widget shows a sprite animation by itself; this one ignores the pointer.
        OrvWidgetDesc walker;
        walker.listenToCursors = false;
        walker.position.Set(200, 0, 0);
        walker.scale.Set(2, 2, 1);
        Make<OrvWidget>(walker, GetHUDRoot())->PlaySpriteAnimation("walk", false, false);

        GetSoundManager()->PlaySound("Chime.wav", 1.0f, false, 0);
        if (GetSoundManager()->IsSoundPlaying("Chime.wav"))
            Report("Chime.wav plays");
    }

    void OnRenderHUD() override
    {
        GetRenderer()->PushMatrix(TRANS_MATRIX_MODEL);
        GetRenderer()->TranslateMatrix(TRANS_MATRIX_MODEL,
                                       OrvVector3D(static_cast<float>(GetRenderer()->GetViewportWidth()) * 0.5f,
                                                   static_cast<float>(GetRenderer()->GetViewportHeight()) * 0.5f + 130,
                                                   0));
        m_font->RenderText("Everything here came out of Archive.vbf", FONT_ALIGN_CENTER);
        GetRenderer()->DiscardMatrix(TRANS_MATRIX_MODEL);
    }

private:
    OrvFont* m_font = nullptr;
};
}  // namespace

int main(int argc, char** argv)
{
    return RunExample<Archives>(argc, argv);
}

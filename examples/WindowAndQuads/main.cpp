// Opens a window and draws quads: flat colours (OrvColorMaterial) and a
// picture (OrvColoredTextureMaterial), in the world tree (perspective, seen
// from (0, 0, 870)) and in the HUD tree (pixels from the window's centre,
// drawn over the world). A child moves with its parent: the picture in the
// world turns, carrying a smaller square around with it.
//
//   WindowAndQuads [SECONDS] [--windowed] [--screenshot FILE]
#include "ExampleApp.h"
#include <OrvEngine/OrvRenderer.h>

namespace
{
// Turns about its own centre, and its children with it.
class Turner : public OrvGameAsset
{
public:
    void Update(float seconds) override
    {
        SetRotation(GetRotation() + 45.0f * seconds);
        OrvGameAsset::Update(seconds);
    }
};

class WindowAndQuads : public ExampleApp
{
public:
    explicit WindowAndQuads(const ExampleOptions& options) : ExampleApp("WindowAndQuads", options) {}

protected:
    void OnInitialise() override
    {
        ExampleApp::OnInitialise();
        AddStandardDevices();
        GetRenderer()->SetClearColor(OrvColor(20, 24, 48, 255));

        // The world: a red square in the middle, a picture turning on the
        // right with a yellow square at one corner.
        OrvGameAsset* square = Spawn(GetWorldRoot(), OrvVector3D(0, 0, 0));
        square->SetMesh(MakeQuad(200, 200, MakeColor(OrvColor(220, 40, 40, 255))));
        Turner* picture = Spawn<Turner>(GetWorldRoot(), OrvVector3D(260, 120, 0));
        picture->SetMesh(MakeQuad(120, 120, MakeTextured("Checker.tga", OrvColor(160, 220, 255, 255))));
        OrvGameAsset* corner = Spawn(picture, OrvVector3D(60, 60, 1));
        corner->SetMesh(MakeQuad(30, 30, MakeColor(OrvColor(255, 220, 0, 255))));

        // The HUD: a panel below the middle holding the picture at its own
        // size (64 × 64 texels, two screen pixels each) and an orange bar.
        // Moving the panel moves both.
        OrvGameAsset* panel = Spawn(GetHUDRoot(), OrvVector3D(0, -190, 0));
        OrvGameAsset* picture2D = Spawn(panel, OrvVector3D(-250, 10, 0));
        picture2D->SetMesh(MakeQuad(128, 128, MakeTextured("Checker.tga")));
        OrvGameAsset* bar = Spawn(panel, OrvVector3D(200, -10, -0.5f));
        bar->SetMesh(MakeQuad(200, 30, MakeColor(OrvColor(255, 140, 0, 255))));
        // Half transparent, in front of the bar (the HUD's depth runs from 0,
        // nearest, to -1): the bar shows through where they overlap.
        OrvGameAsset* glass = Spawn(bar, OrvVector3D(80, 0, 0.5f));
        glass->SetMesh(MakeQuad(60, 60, MakeColor(OrvColor(255, 255, 255, 128))));
    }
};
}  // namespace

int main(int argc, char** argv)
{
    return RunExample<WindowAndQuads>(argc, argv);
}

// Sprites and their animations, described in XML beside the media:
// SpriteSets.xml cuts the sprites of the set "Walker" from Walker.tga,
// Animations.xml strings them into "walk" (a loop, 8 frames a second) and
// "puff" (once, 6 frames a second). An OrvSpriteAnimationPlayer plays an
// animation; an OrvSpriteAnimationMesh shows the frame it is on. One walker
// walks on the spot at twice its size, a mirrored one walks across, and a
// puff goes off once, then turns into a walk: the player calls the game back
// at the start of each frame and at the end of an animation.
//
//   SpritesAndAnimations [SECONDS] [--windowed] [--screenshot FILE]
#include "ExampleApp.h"
#include <OrvEngine/OrvSpriteAnimation.h>
#include <OrvEngine/OrvSpriteAnimationMesh.h>
#include <OrvEngine/OrvSpriteAnimationPlayer.h>
#include <OrvEngine/OrvSpriteManager.h>

namespace
{
// Plays its animation with the turns and shows the current frame; moves at `speed`.
class SpriteActor : public OrvGameAsset
{
public:
    OrvSpriteAnimationPlayer player;
    float speed = 0.0f;

    void Update(float seconds) override
    {
        player.AddTime(seconds);
        static_cast<OrvSpriteAnimationMesh*>(GetMesh())
            ->SetSpriteAnimationFrame(player.GetCurrentFrame(), player.GetMirrorX(), player.GetMirrorY());
        OrvVector3D position = GetPosition() + OrvVector3D(speed * seconds, 0, 0);
        if (position.X < -400.0f)
            position.X = 400.0f;
        SetPosition(position);
        OrvGameAsset::Update(seconds);
    }
};

class SpritesAndAnimations : public ExampleApp
{
public:
    explicit SpritesAndAnimations(const ExampleOptions& options) : ExampleApp("SpritesAndAnimations", options) {}

protected:
    void OnInitialise() override
    {
        ExampleApp::OnInitialise();
        AddStandardDevices();
        // Imported on first use, with the sprites and the image they need.
        OrvSpriteAnimation* walk = GetSpriteManager()->ImportSpriteAnimation("walk");
        OrvSpriteAnimation* puff = GetSpriteManager()->ImportSpriteAnimation("puff");

        SpriteActor* walker = Actor(OrvVector3D(-150, 0, 0), 2.0f);
        walker->player.SetSpriteAnimation(walk, false, false);
        walker->player.AddAnimationFrameStartedCallback("walk", Counter, &m_walkFrames);

        SpriteActor* across = Actor(OrvVector3D(300, -200, 0), 1.0f);
        across->player.SetSpriteAnimation(walk, true, false);
        across->speed = -90.0f;

        m_puffer = Actor(OrvVector3D(150, 0, 0), 2.0f);
        m_puffer->player.SetSpriteAnimation(puff, false, false);
        m_puffer->player.SetNextSpriteAnimation(walk, true, false);
        m_puffer->player.AddAnimationEndedCallback("puff", Counter, &m_puffsEnded);
    }

    void OnTerminate() override
    {
        char now[32] = {};
        m_puffer->player.GetSpriteAnimation()->GetName().ToCString(now, sizeof(now), nullptr);
        Report("puff ended %d time(s), the puffer now plays %s; %d walk frames started", m_puffsEnded, now,
               m_walkFrames);
        ExampleApp::OnTerminate();
    }

private:
    static void Counter(OrvSpriteAnimationPlayer*, void* count) { ++*static_cast<int*>(count); }

    // In the HUD tree, where a sprite of 64 × 64 texels covers 64 × 64 pixels at scale 1.
    SpriteActor* Actor(const OrvVector3D& position, float scale)
    {
        SpriteActor* actor = Spawn<SpriteActor>(GetHUDRoot(), position);
        actor->SetMesh(new OrvSpriteAnimationMesh(GetRenderer()));
        actor->SetScale(OrvVector3D(scale, scale, 1));
        return actor;
    }

    SpriteActor* m_puffer = nullptr;
    int m_puffsEnded = 0;
    int m_walkFrames = 0;
};
}  // namespace

int main(int argc, char** argv)
{
    return RunExample<SpritesAndAnimations>(argc, argv);
}

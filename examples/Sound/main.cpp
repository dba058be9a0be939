// Sound: WAV files (16-bit PCM) played through OrvSoundManager, found along
// the media paths like any media. An intro plays once and a theme is queued
// behind it on the same source, to loop when the intro ends; Space plays a
// blip over them. The square shows what plays: green the intro, blue the
// theme. Without an audio device every call does nothing and the example
// runs silently.
//
//   Sound [SECONDS] [--windowed] [--screenshot FILE]
#include "ExampleApp.h"
#include <OrvEngine/OrvKeyboardEvent.h>
#include <OrvEngine/OrvSoundManager.h>

namespace
{
class Sound : public ExampleApp
{
public:
    explicit Sound(const ExampleOptions& options) : ExampleApp("Sound", options) {}

protected:
    void OnInitialise() override
    {
        ExampleApp::OnInitialise();
        AddStandardDevices();
        OrvSoundManager* sounds = GetSoundManager();
        if (!sounds->HasDevice())
            Report("no audio device: the example runs silently");
        // Type 1 is music (StopAllMusics stops those); the gain goes from 0 to 1.
        sounds->PlaySound("Intro.wav", 0.8f, false, 1);
        sounds->QueueSound("Theme.wav", 0.8f, true, "Intro.wav", 1);
        if (sounds->IsSoundPlaying("Intro.wav"))
            Report("Intro.wav plays, Theme.wav waits behind it on %s",
                   sounds->GetSourceIndex("Intro.wav") == sounds->GetSourceIndex("Theme.wav") ? "the same source"
                                                                                            : "another source");

        OrvGameAsset* speaker = Spawn(GetHUDRoot(), OrvVector3D(0, 0, 0));
        m_light = MakeColor(OrvColor(40, 40, 40, 255));
        speaker->SetMesh(MakeQuad(160, 160, m_light));
    }

    void ProcessInputEvent(const OrvInputEvent& event) override
    {
        ExampleApp::ProcessInputEvent(event);
        if (event.GetType() == INPUT_KEY_DOWN && static_cast<const OrvKeyboardEvent&>(event).GetKey() == KEY_SPACE)
            GetSoundManager()->PlaySound("Blip.wav", 1.0f, false, 0);
    }

    // The manager learns that a sound ended when the engine updates it, after each frame.
    void Update(float seconds) override
    {
        OrvApplication::Update(seconds);
        m_time += seconds;
        const bool intro = GetSoundManager()->IsSoundPlaying("Intro.wav");
        if (m_introPlayed && !intro)
            Report("Intro.wav ended after %.1f s; Theme.wav %s", m_time,
                   GetSoundManager()->IsSoundPlaying("Theme.wav") ? "plays on" : "does not play");
        m_introPlayed = intro;
        const bool theme = GetSoundManager()->IsSoundPlaying("Theme.wav");
        m_light->SetColor(intro ? OrvColor(40, 200, 80, 255) : theme ? OrvColor(60, 120, 230, 255)
                                                                     : OrvColor(40, 40, 40, 255));
    }

    void OnTerminate() override
    {
        if (GetSoundManager()->IsSoundPlaying("Theme.wav"))
            Report("Theme.wav still loops at the end");
        ExampleApp::OnTerminate();
    }

private:
    OrvColorMaterial* m_light = nullptr;
    bool m_introPlayed = false;
    float m_time = 0.0f;
};
}  // namespace

int main(int argc, char** argv)
{
    return RunExample<Sound>(argc, argv);
}

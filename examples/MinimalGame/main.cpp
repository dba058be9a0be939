// MinimalGame: what the small examples leave out, together. A lamp whose
// state machine switches its colour on delayed messages it sends itself
// (each state asks to be replaced a second after it began); sparks the lamp
// throws along five directions, each deleting itself after a second and a
// half, counted by marks on a head-up bar; debug markers where the sparks
// fly; and a head-up display of widgets (GameHud). --demo replays a recorded
// session (MinimalGameDemo.xml): the pointer rests on Options, its sub-menu
// opens, Debug is clicked, a name is completed with Tab and entered with
// Return. Space, or Blip in the menu, plays a blip.
//
//   MinimalGame [SECONDS] [--windowed] [--demo] [--screenshot FILE]
#include <cmath>
#include <cstdio>
#include <memory>
#include <string>

#include "ExampleApp.h"
#include "GameHud.h"
#include <OrvEngine/OrvGameAssetState.h>
#include <OrvEngine/OrvKeyboardEvent.h>
#include <OrvEngine/OrvMessage.h>
#include <OrvEngine/OrvMesh.h>
#include <OrvEngine/OrvMessageManager.h>
#include <OrvEngine/OrvRenderer.h>
#include <OrvEngine/OrvSoundManager.h>
#include <OrvEngine/OrvWidget.h>

namespace
{
const float kDegrees = 0.017453292f;
const int kSparkDirections = 5;

// Flies outwards along its rotation and deletes itself after a second and a half.
class Spark : public OrvGameAsset
{
public:
    void Update(float seconds) override
    {
        m_age += seconds;
        const float angle = GetRotation() * kDegrees;
        SetPosition(GetPosition() + OrvVector3D(std::cos(angle), std::sin(angle), 0.0f) * (220.0f * seconds));
        OrvGameAsset::Update(seconds);
        if (m_age > 1.5f && !GetToDelete())
            DeleteThisGameAsset();
    }

private:
    float m_age = 0.0f;
};

// One colour of the lamp. On entering it asks, by a message to its own asset
// one second later, to be replaced by the other colour.
class LampColour : public OrvGameAssetState
{
public:
    LampColour(OrvGameAsset* lamp, const OrvColor& color, OrvMessageManager* messages)
        : OrvGameAssetState(lamp), m_color(color), m_messages(messages)
    {
    }
    void SetOther(LampColour* other) { m_other = other; }

    void Enter() override
    {
        static_cast<OrvColorMaterial*>(m_owner->GetMesh()->GetMaterial())->SetColor(m_color);
        m_messages->SendMessage(m_owner, m_owner, "switch", nullptr, 1);
    }
    void Execute(float seconds) override { m_owner->SetRotation(m_owner->GetRotation() - 90.0f * seconds); }
    void Exit() override {}
    bool OnMessage(OrvMessage* message) override
    {
        if (!(message->GetMessage() == "switch"))
            return false;
        m_owner->GetStateMachine()->RequestState(m_other);
        return true;
    }

private:
    OrvColor m_color;
    OrvMessageManager* m_messages;
    LampColour* m_other = nullptr;
};

class MinimalGame : public ExampleApp, public HudActions
{
public:
    explicit MinimalGame(const ExampleOptions& options) : ExampleApp("MinimalGame", options) {}

    void OnMenu(const std::string& action) override
    {
        if (action == "Faster" || action == "Slower")
        {
            m_sparkPeriod *= action == "Faster" ? 0.5f : 2.0f;
            SetStatus("A spark every " + std::to_string(static_cast<int>(m_sparkPeriod * 1000.0f)) + " ms");
        }
        else if (action == "Blip")
        {
            GetSoundManager()->PlaySound("Blip.wav", 1.0f, false, 0);
            SetStatus("Blip!");
        }
        else if (action == "Pause")
        {
            SetPaused(!GetPaused());
            SetStatus(GetPaused() ? "The world is paused; the HUD goes on" : "The world goes on");
        }
        else if (action == "Debug")
            ToggleDebugMarkers();
        else if (action == "Quit")
            Exit();
    }

protected:
    void OnInitialise() override
    {
        ExampleApp::OnInitialise();
        AddStandardDevices();

        m_lamp = Spawn(GetWorldRoot(), OrvVector3D(0, 0, 10));
        m_lamp->SetMesh(MakeQuad(90, 90, MakeColor(OrvColor())));
        LampColour* red = new LampColour(m_lamp, OrvColor(230, 40, 40, 255), GetMessageManager());
        LampColour* green = new LampColour(m_lamp, OrvColor(40, 220, 90, 255), GetMessageManager());
        red->SetOther(green);
        green->SetOther(red);
        // The machine owns the states registered with it.
        m_lamp->GetStateMachine()->RegisterState(red);
        m_lamp->GetStateMachine()->RegisterState(green);
        m_lamp->GetStateMachine()->RequestState(red);

        // Widgets, once the mouse and keyboard exist: they listen to them.
        m_widgets.reset(new GameHud(this, LoadFont("Font.tga", 32, 0.5f), this));
        OrvRenderer* renderer = GetRenderer();
        m_widgets->Place(static_cast<float>(renderer->GetViewportWidth()),
                         static_cast<float>(renderer->GetViewportHeight()));

        // A bar across the top of the HUD, and the spark marks in front of it.
        // The HUD's depth runs from 0 (nearest) to -1.
        const float width = static_cast<float>(renderer->GetViewportWidth());
        const float top = static_cast<float>(renderer->GetViewportHeight()) * 0.5f;
        OrvGameAsset* bar = Spawn(GetHUDRoot(), OrvVector3D(0, top - 30, -0.5f));
        bar->SetMesh(MakeQuad(width - 40, 36, MakeColor(OrvColor(40, 90, 200, 220))));
        m_marks = Spawn(bar, OrvVector3D(-width * 0.5f + 50, 0, 0.5f));
    }

    void ProcessInputEvent(const OrvInputEvent& event) override
    {
        ExampleApp::ProcessInputEvent(event);
        if (event.GetType() != INPUT_KEY_DOWN)
            return;
        const OrvKey key = static_cast<const OrvKeyboardEvent&>(event).GetKey();
        // The game hears the keyboard before the name field does.
        if (key == KEY_RETURN && m_widgets->IsTypingName())
        {
            const std::string name = m_widgets->EnterName();
            if (!name.empty())
                SetStatus("Hello, " + name + "! Click the field for another name.");
        }
        else if (key == KEY_SPACE)
            GetSoundManager()->PlaySound("Blip.wav", 1.0f, false, 0);
    }

    void Update(float seconds) override
    {
        OrvApplication::Update(seconds);
        if (GetPaused())
            return;
        for (m_sparkClock += seconds; m_sparkClock >= m_sparkPeriod; m_sparkClock -= m_sparkPeriod)
            LaunchSpark();
        ShowSparkCount();
    }

    void OnTerminate() override
    {
        std::printf("MinimalGame: %d sparks launched\n", m_sparksMade);
        if (!m_status.empty())
            std::printf("MinimalGame: last status: %s (%u debug markers)\n", m_status.c_str(),
                        GetDebugRoot()->GetChildCount());
        m_widgets.reset();
        ExampleApp::OnTerminate();
    }

private:
    void LaunchSpark()
    {
        Spark* spark = Spawn<Spark>(GetWorldRoot(), m_lamp->GetPosition() + OrvVector3D(0, 0, -5));
        spark->SetRotation(static_cast<float>((m_sparksMade % kSparkDirections) * 360 / kSparkDirections));
        spark->SetMesh(MakeQuad(24, 24, MakeColor(OrvColor(255, 255, 160, 255))));
        ++m_sparksMade;
    }

    // One small square on the bar per spark alive, remade when the count changes.
    void ShowSparkCount()
    {
        unsigned int alive = 0;
        for (OrvGameAsset* child : GetWorldRoot()->GetChildren())
            alive += dynamic_cast<Spark*>(child) != nullptr ? 1 : 0;
        if (alive == m_shownSparks)
            return;
        m_shownSparks = alive;
        m_marks->DeleteAllChildren();
        for (unsigned int i = 0; i < alive; ++i)
            Spawn(m_marks, OrvVector3D(30 * static_cast<float>(i), 0, 0))
                ->SetMesh(MakeQuad(20, 20, MakeColor(OrvColor(255, 255, 160, 255))));
    }

    void SetStatus(const std::string& status)
    {
        m_status = status;
        m_widgets->SetStatus(status);
    }

    // A marker along each of the sparks' directions, or none.
    void ToggleDebugMarkers()
    {
        m_debugMarkers = !m_debugMarkers;
        DeleteAllDebugGameAssets();
        for (int i = 0; m_debugMarkers && i < kSparkDirections; ++i)
        {
            const float angle = static_cast<float>(i * 360 / kSparkDirections) * kDegrees;
            CreateDebugSprite(m_lamp->GetPosition() + OrvVector3D(std::cos(angle), std::sin(angle), 0) * 200.0f,
                              OrvColor(255, 255, 255, 255), 6.0f);
        }
        SetStatus(m_debugMarkers ? "Debug markers on" : "Debug markers off");
    }

    std::unique_ptr<GameHud> m_widgets;
    std::string m_status;
    OrvGameAsset* m_lamp = nullptr;
    OrvGameAsset* m_marks = nullptr;
    bool m_debugMarkers = false;
    int m_sparksMade = 0;
    float m_sparkPeriod = 0.25f;
    float m_sparkClock = 0.0f;
    unsigned int m_shownSparks = 0;
};
}  // namespace

int main(int argc, char** argv)
{
    return RunExample<MinimalGame>(argc, argv);
}

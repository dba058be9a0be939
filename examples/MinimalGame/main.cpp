// The example game. A world tree: a wheel of coloured quads turning about its
// hub, a textured quad, a lamp whose state machine switches colour on delayed
// messages it sends itself, and sparks created every quarter second that fly
// off and delete themselves. A head-up display drawn in pixels on top: a bar
// across the top, one square per live spark, a menu whose Options sub-menu
// opens when the pointer rests on it, a status line and a name field that
// completes names (Tab) and greets them (Return); the pointer follows the
// mouse. A small flock steers around the lamp: one seeks it, one flees, one
// pursues, one evades and one wanders. Sprites from a sprite set walk across
// (one mirrored), a puff chains into a walk, and a centred block of text is
// drawn with a bitmap font. The arrow keys or a joypad's left stick move the
// lamp; Escape ends the game, which also ends after a few seconds measured by
// one of the engine's timers. Music plays from the start (an intro, then a
// loop queued behind it) and Space plays a blip; without an audio device all
// is silent. With --demo the game plays its widgets by itself through SDL;
// with --screenshot it leaves its last frame in a TGA file.
//
//   MinimalGame [SECONDS] [--demo] [--screenshot FILE]
//
// Set ORV_WINDOWED=1 to play it in a window instead of full screen.
#include <GL/gl.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "DemoScript.h"
#include "GameHud.h"
#include "OrvApplication.h"
#include "OrvColor.h"
#include "OrvColorMaterial.h"
#include "OrvColoredTextureMaterial.h"
#include "OrvException.h"
#include "OrvFileManager.h"
#include "OrvFont.h"
#include "OrvFontDesc.h"
#include "OrvGameAsset.h"
#include "OrvGameAssetDesc.h"
#include "OrvGameAssetManager.h"
#include "OrvGameAssetState.h"
#include "OrvInputManager.h"
#include "OrvKeyboardEvent.h"
#include "OrvMesh.h"
#include "OrvMessage.h"
#include "OrvMessageManager.h"
#include "OrvMovingGameAsset.h"
#include "OrvMovingGameAssetDesc.h"
#include "OrvRenderer.h"
#include "OrvSDLJoypad.h"
#include "OrvSDLKeyboard.h"
#include "OrvSDLMouse.h"
#include "OrvSoundManager.h"
#include "OrvSpriteAnimationMesh.h"
#include "OrvSpriteAnimationPlayer.h"
#include "OrvSpriteManager.h"
#include "OrvSteeringBehaviorEvade.h"
#include "OrvSteeringBehaviorFlee.h"
#include "OrvSteeringBehaviorPursuit.h"
#include "OrvSteeringBehaviorSeek.h"
#include "OrvSteeringBehaviorWander.h"
#include "OrvSteeringBehaviors.h"
#include "OrvTGAImageFile.h"
#include "OrvTexture.h"
#include "OrvTextureManager.h"
#include "OrvTimerManager.h"
#include "OrvVertex.h"
#include "OrvWidget.h"

namespace
{
// A width × height rectangle around the origin drawn with `material` (owned by the mesh).
OrvMesh* Rectangle(OrvRenderer* renderer, float width, float height, OrvMaterial* material)
{
    OrvMesh* mesh = new OrvMesh(renderer);
    const float w = width * 0.5f, h = height * 0.5f;
    const float corners[4][4] = {{-w, -h, 0, 0}, {w, -h, 1, 0}, {w, h, 1, 1}, {-w, h, 0, 1}};
    for (const auto& c : corners)
        mesh->AddVertex(new OrvVertex(OrvVector3D(c[0], c[1], 0), OrvVector2D(c[2], c[3]), OrvVector3D(0, 1, 0)));
    mesh->SetMaterial(material);
    mesh->BuildBoundingVolumes();
    return mesh;
}

OrvColorMaterial* Paint(OrvRenderer* renderer, const OrvColor& color)
{
    OrvColorMaterial* material = new OrvColorMaterial(renderer);
    material->SetColor(color);
    return material;
}

// Turns at a steady rate, carrying its children with it.
class Wheel : public OrvGameAsset
{
public:
    float speed = 40.0f;
    void Update(float seconds) override
    {
        SetRotation(GetRotation() + speed * seconds);
        OrvGameAsset::Update(seconds);
    }
};

// Flies outwards and deletes itself after a second and a half.
class Spark : public OrvGameAsset
{
public:
    void Update(float seconds) override
    {
        m_age += seconds;
        const float angle = GetRotation() * 0.017453292f;
        SetPosition(GetPosition() + OrvVector3D(std::cos(angle), std::sin(angle), 0.0f) * (220.0f * seconds));
        OrvGameAsset::Update(seconds);
        if (m_age > 1.5f && !GetToDelete())
            DeleteThisGameAsset();
    }

private:
    float m_age = 0.0f;
};

// A game asset showing a sprite animation: its player runs with the turns and
// its quad shows the frame the player is on. Walkers move and wrap around.
class SpriteActor : public OrvGameAsset
{
public:
    OrvSpriteAnimationPlayer& Player() { return m_player; }
    void SetSpeed(float speed) { m_speed = speed; }

    void Update(float seconds) override
    {
        m_player.AddTime(seconds);
        if (auto* quad = dynamic_cast<OrvSpriteAnimationMesh*>(GetMesh()))
            quad->SetSpriteAnimationFrame(m_player.GetCurrentFrame(), m_player.GetMirrorX(), m_player.GetMirrorY());
        if (m_speed != 0.0f)
        {
            OrvVector3D position = GetPosition() + OrvVector3D(m_speed * seconds, 0, 0);
            if (position.X > 450.0f)
                position.X = -450.0f;
            else if (position.X < -450.0f)
                position.X = 450.0f;
            SetPosition(position);
        }
        OrvGameAsset::Update(seconds);
    }

private:
    OrvSpriteAnimationPlayer m_player;
    float m_speed = 0.0f;
};

// The player's steering: towards the velocity the keys or the stick ask for.
class Steer : public OrvSteeringBehavior
{
public:
    OrvVector3D input;
    OrvVector3D Compute() override
    {
        const OrvMovingGameAsset* owner = GetSteeringBehaviors()->GetOwner();
        return (input * owner->GetMaxSpeed() - owner->GetVelocity()) * (owner->GetMass() * 8.0f);
    }
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

class MinimalGame : public OrvApplication, public HudActions
{
public:
    MinimalGame(float seconds, std::string screenshot, bool demo)
        : m_seconds(seconds), m_screenshot(std::move(screenshot)), m_demo(demo)
    {
    }

    unsigned long Turns() const { return m_turns; }
    int Sparks() const { return m_sparksMade; }
    const std::string& Status() const { return m_status; }
    unsigned int DebugMarkers() const { return m_debugMarkerCount; }

    void OnMenu(const std::string& action) override
    {
        if (action == "Faster" || action == "Slower")
        {
            m_wheel->speed += action == "Faster" ? 40.0f : -40.0f;
            SetStatus("The wheel turns at " + std::to_string(static_cast<int>(m_wheel->speed)) + " degrees a second");
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
        OrvTimer* end = GetTimerManager()->AddTimer();
        end->SetTimeLimit(m_seconds);
        end->SetEndCallBack([](OrvTimer*, void* game) { static_cast<MinimalGame*>(game)->Exit(); }, this);
        end->Start();

        // The devices belong to the input manager once added; the game listens to all three.
        m_keyboard = new OrvSDLKeyboard();
        m_mouse = new OrvSDLMouse();
        m_joypad = new OrvSDLJoypad(0);
        for (OrvInputDevice* device : {static_cast<OrvInputDevice*>(m_keyboard), static_cast<OrvInputDevice*>(m_mouse),
                                       static_cast<OrvInputDevice*>(m_joypad)})
        {
            GetInputManager()->AddDevice(device);
            device->Create();
            AddInputDevice(device);
        }

        OrvRenderer* renderer = GetRenderer();
        Wheel* wheel = m_wheel = Create<Wheel>(GetWorldRoot(), OrvVector3D(-120, 0, 0));
        for (int i = 0; i < 6; ++i)
        {
            const float angle = static_cast<float>(i) * 60.0f * 0.017453292f;
            OrvGameAsset* spoke = Create<OrvGameAsset>(wheel, OrvVector3D(150 * std::cos(angle), 150 * std::sin(angle), 0));
            spoke->SetMesh(Rectangle(renderer, 70, 70, Paint(renderer, OrvColor(255, 60 + 30 * i, 40 * i, 255))));
            spoke->RefreshPosition(true);
        }

        // The picture comes from the media paths; the texture is ours while we use it.
        OrvTGAImageFile* image = GetFileManager()->GetOrLoad<OrvTGAImageFile>("Checker.tga");
        m_texture = GetTextureManager()->CreateTexture();
        m_texture->AddUser();
        m_texture->SetDataFromImage(image);
        GetFileManager()->DeleteOrvFile(image);
        OrvGameAsset* picture = Create<OrvGameAsset>(GetWorldRoot(), OrvVector3D(230, 60, 0));
        picture->SetMesh(Rectangle(renderer, 200, 200,
                                   new OrvColoredTextureMaterial(renderer, m_texture, OrvColor(1.0f, 1.0f, 1.0f, 1.0f))));
        picture->RefreshPosition(true);

        OrvMovingGameAssetDesc lampDesc;
        lampDesc.position.Set(230, -190, 10);
        lampDesc.maxSpeed = 300.0f;
        m_lamp = GetGameAssetManager()->CreateGameAsset<OrvMovingGameAsset, OrvMovingGameAssetDesc>(&lampDesc);
        m_lamp->AttachTo(GetWorldRoot());
        m_lamp->GetSteeringBehaviors()->AddSteeringBehavior(&m_steer);
        m_lamp->SetMesh(Rectangle(renderer, 90, 90, Paint(renderer, OrvColor())));
        m_lamp->RefreshPosition(true);
        LampColour* red = new LampColour(m_lamp, OrvColor(230, 40, 40, 255), GetMessageManager());
        LampColour* green = new LampColour(m_lamp, OrvColor(40, 220, 90, 255), GetMessageManager());
        red->SetOther(green);
        green->SetOther(red);
        m_lamp->GetStateMachine()->RegisterState(red);
        m_lamp->GetStateMachine()->RegisterState(green);
        m_lamp->GetStateMachine()->RequestState(red);

        // Music: the intro, and the loop queued to follow it on the same source.
        GetSoundManager()->PlaySound("Intro.wav", 0.5f, false, 1);
        GetSoundManager()->QueueSound("Music.wav", 0.5f, true, "Intro.wav", 1);

        CreateFlock();

        // Sprites: two walkers, one of them mirrored, and a puff that turns into a walk.
        OrvSpriteManager* sprites = GetSpriteManager();
        OrvSpriteAnimation* walk = sprites->ImportSpriteAnimation("walk");
        OrvSpriteAnimation* puff = sprites->ImportSpriteAnimation("puff");
        SpriteActor* right = CreateActor(OrvVector3D(-300, -250, 20), 90.0f);
        right->Player().SetSpriteAnimation(walk, false, false);
        SpriteActor* left = CreateActor(OrvVector3D(300, -250, 20), -70.0f);
        left->Player().SetSpriteAnimation(walk, true, false);
        m_puffer = CreateActor(OrvVector3D(0, 160, 20), 0.0f);
        m_puffer->Player().SetSpriteAnimation(puff, false, false);
        m_puffer->Player().SetNextSpriteAnimation(walk, true, false);

        // Text: a bitmap font made from DejaVu Sans Mono, 32-pixel cells.
        OrvFontDesc font;
        font.fileName = "Font.tga";
        font.imageWidth = font.imageHeight = 512;
        font.symbolWidth = font.symbolHeight = 32;
        font.symbolSpacing = 6;
        font.sizeCoef = 0.5f;
        m_font = new OrvFont();
        m_font->Create(this, font);
        m_font->SetColor(OrvColor(255, 240, 200, 255));

        // Widgets, once the mouse and keyboard exist: they listen to them.
        m_widgets.reset(new GameHud(this, m_font, this));
        m_widgets->Place(static_cast<float>(renderer->GetViewportWidth()),
                         static_cast<float>(renderer->GetViewportHeight()));
        if (m_demo)
            m_script.reset(new DemoScript(m_widgets.get(), renderer));

        // The head-up display: a bar, and a row of marks in front of it. Its
        // depth runs from 0 (nearest) to -1.
        m_hud = Create<OrvGameAsset>(GetHUDRoot(), OrvVector3D(0, 0, 0));
        m_bar = Create<OrvGameAsset>(m_hud, OrvVector3D(0, 0, -0.5f));
        m_bar->SetMesh(Rectangle(renderer, 1, 1, Paint(renderer, OrvColor(40, 90, 200, 220))));
        m_marks = Create<OrvGameAsset>(m_hud, OrvVector3D(0, 0, 0));
    }

    void ProcessInputEvent(const OrvInputEvent& event) override
    {
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
        else if (key == KEY_ESCAPE)
            Exit();
        else if (key == KEY_SPACE)
            GetSoundManager()->PlaySound("Blip.wav", 1.0f, false, 0);
    }

    void OnTerminate() override
    {
        m_debugMarkerCount = GetDebugRoot()->GetChildCount();
        // The behaviours leave their assets' combiners as they go.
        m_behaviors.clear();
        m_texture->RemoveUser();
        m_widgets.reset();
        m_script.reset();
        delete m_font;
        m_font = nullptr;
    }

    void Update(float seconds) override
    {
        if (m_script)
            m_script->Advance(seconds);
        OrvApplication::Update(seconds);
        // A spark every quarter of a second.
        for (m_sparkClock += seconds; m_sparkClock >= 0.25f; m_sparkClock -= 0.25f)
            LaunchSpark();
        // Every two seconds the puff goes off again, then walks on.
        for (m_puffClock += seconds; m_puffClock >= 2.0f; m_puffClock -= 2.0f)
        {
            m_puffer->Player().SetSpriteAnimation(GetSpriteManager()->GetSpriteAnimation("puff"), false, false);
            m_puffer->Player().SetIsPlaying(true);
            m_puffer->Player().SetNextSpriteAnimation(GetSpriteManager()->GetSpriteAnimation("walk"), true, false);
        }
        // Arrow keys and the left stick (up is positive) move the lamp.
        float x = m_joypad->GetAxisValue(JOYPAD_AXIS_LEFT_X);
        float y = m_joypad->GetAxisValue(JOYPAD_AXIS_LEFT_Y);
        x += (m_keyboard->IsKeyDown(KEY_RIGHT) ? 1.0f : 0.0f) - (m_keyboard->IsKeyDown(KEY_LEFT) ? 1.0f : 0.0f);
        y += (m_keyboard->IsKeyDown(KEY_UP) ? 1.0f : 0.0f) - (m_keyboard->IsKeyDown(KEY_DOWN) ? 1.0f : 0.0f);
        m_steer.input = OrvVector3D(x, y, 0.0f);
        m_seek->SetTarget(m_lamp->GetPosition());
        m_flee->SetTarget(m_lamp->GetPosition());
        for (OrvMovingGameAsset* boid : m_flock)
            KeepOnScreen(boid);
        KeepOnScreen(m_lamp);
        ++m_turns;
    }

    void OnRenderHUD() override
    {
        // The HUD root sits at the viewport's centre: the bar spans the top.
        const float width = static_cast<float>(GetRenderer()->GetViewportWidth());
        const float height = static_cast<float>(GetRenderer()->GetViewportHeight());
        m_hud->SetPosition(OrvVector3D(0, height * 0.5f - 30, 0));
        m_bar->SetScale(OrvVector3D(width - 40, 36, 1));
        m_marks->SetPosition(OrvVector3D(-width * 0.5f + 50, 0, 0));
        ShowSparkCount();
        // A centred block of text below the bar, in pixels from the lower left.
        // The widgets share the font: its size and colour are set each time.
        m_font->SetSizeCoef(0.5f);
        m_font->SetColor(OrvColor(255, 240, 200, 255));
        GetRenderer()->PushMatrix(TRANS_MATRIX_MODEL);
        GetRenderer()->TranslateMatrix(TRANS_MATRIX_MODEL, OrvVector3D(width * 0.5f, height - 90, 0));
        m_font->RenderText("The Tarnwick\nsprites, sounds, text and input\nEscape quits", FONT_ALIGN_CENTER);
        GetRenderer()->DiscardMatrix(TRANS_MATRIX_MODEL);
    }

    void OnRenderWorld() override {}

    void RenderHUD() override
    {
        OrvApplication::RenderHUD();
        // The turn in which the game ends still draws its frame: that one is kept.
        if (!m_screenshot.empty() && !IsRunning())
            SaveScreenshot();
    }

private:
    template <class T>
    T* Create(OrvGameAsset* parent, const OrvVector3D& position)
    {
        OrvGameAssetDesc desc;
        desc.position = position;
        T* asset = GetGameAssetManager()->CreateGameAsset<T, OrvGameAssetDesc>(&desc);
        asset->AttachTo(parent);
        return asset;
    }

    SpriteActor* CreateActor(const OrvVector3D& position, float speed)
    {
        SpriteActor* actor = Create<SpriteActor>(GetWorldRoot(), position);
        actor->SetMesh(new OrvSpriteAnimationMesh(GetRenderer()));
        actor->SetSpeed(speed);
        return actor;
    }

    // Five boids around the lamp, each with its behaviour.
    void CreateFlock()
    {
        m_seek = Own(new OrvSteeringBehaviorSeek());
        m_flee = Own(new OrvSteeringBehaviorFlee());
        m_flee->SetPanicDistanceSqr(250.0f * 250.0f);
        OrvSteeringBehaviorPursuit* pursuit = Own(new OrvSteeringBehaviorPursuit());
        pursuit->SetEvader(m_lamp);
        OrvSteeringBehaviorEvade* evade = Own(new OrvSteeringBehaviorEvade());
        evade->AddPursurer(m_lamp);
        evade->SetFriendlyDistance(250.0f);
        OrvSteeringBehaviorWander* wander = Own(new OrvSteeringBehaviorWander());
        wander->SetWanderJitter(3.0f);
        const struct
        {
            OrvSteeringBehavior* behavior;
            OrvColor color;
            float x, y;
        } boids[] = {{m_seek, OrvColor(255, 80, 80, 255), -350, 250},   {m_flee, OrvColor(80, 255, 80, 255), 0, -100},
                     {pursuit, OrvColor(255, 150, 0, 255), 350, 250}, {evade, OrvColor(80, 160, 255, 255), 100, -250},
                     {wander, OrvColor(220, 80, 255, 255), -300, -200}};
        for (const auto& boid : boids)
        {
            OrvMovingGameAssetDesc desc;
            desc.position.Set(boid.x, boid.y, 15);
            desc.maxSpeed = 120.0f;
            OrvMovingGameAsset* asset =
                GetGameAssetManager()->CreateGameAsset<OrvMovingGameAsset, OrvMovingGameAssetDesc>(&desc);
            asset->AttachTo(GetWorldRoot());
            asset->SetMesh(Rectangle(GetRenderer(), 36, 20, Paint(GetRenderer(), boid.color)));
            asset->RefreshPosition(true);
            asset->GetSteeringBehaviors()->AddSteeringBehavior(boid.behavior);
            m_flock.push_back(asset);
        }
    }

    template <class B>
    B* Own(B* behavior)
    {
        m_behaviors.emplace_back(behavior);
        return behavior;
    }

    // Wraps around the edges of what the camera sees, and faces where it goes.
    static void KeepOnScreen(OrvMovingGameAsset* asset)
    {
        OrvVector3D position = asset->GetPosition();
        if (position.X > 460.0f || position.X < -460.0f)
            position.X = position.X > 0.0f ? -450.0f : 450.0f;
        if (position.Y > 340.0f || position.Y < -340.0f)
            position.Y = position.Y > 0.0f ? -330.0f : 330.0f;
        asset->SetPosition(position);
        const OrvVector3D heading = asset->GetDirection();
        if (heading != OrvVector3D(0.0f, 0.0f, 0.0f) && asset->GetStateMachine()->GetCurrentState() == nullptr)
            asset->SetRotation(std::atan2(heading.Y, heading.X) * 57.29578f);
    }

    void LaunchSpark()
    {
        Spark* spark = Create<Spark>(GetWorldRoot(), OrvVector3D(-120, 0, 5));
        spark->SetRotation(static_cast<float>((m_sparksMade * 77) % 360));
        spark->SetMesh(Rectangle(GetRenderer(), 24, 24, Paint(GetRenderer(), OrvColor(255, 255, 160, 255))));
        spark->RefreshPosition(true);
        ++m_sparksMade;
    }

    // One small square on the bar per spark alive, remade when the count changes.
    void ShowSparkCount()
    {
        unsigned int alive = 0;
        for (OrvGameAsset* child : GetWorldRoot()->GetChildren())
            if (dynamic_cast<Spark*>(child) != nullptr)
                ++alive;
        if (alive == m_shownSparks)
            return;
        m_shownSparks = alive;
        m_marks->DeleteAllChildren();
        for (unsigned int i = 0; i < alive; ++i)
        {
            OrvGameAsset* mark = Create<OrvGameAsset>(m_marks, OrvVector3D(30 * static_cast<float>(i), 0, 0));
            mark->SetMesh(Rectangle(GetRenderer(), 20, 20, Paint(GetRenderer(), OrvColor(255, 255, 160, 255))));
        }
    }

    void SetStatus(const std::string& status)
    {
        m_status = status;
        m_widgets->SetStatus(status);
    }

    // A marker on each boid of the flock, or none.
    void ToggleDebugMarkers()
    {
        m_debugMarkers = !m_debugMarkers;
        if (!m_debugMarkers)
            DeleteAllDebugGameAssets();
        for (OrvMovingGameAsset* boid : m_debugMarkers ? m_flock : std::vector<OrvMovingGameAsset*>())
            CreateDebugSprite(boid->GetPosition() + OrvVector3D(0, 0, 5), OrvColor(255, 255, 255, 255), 6.0f);
        SetStatus(m_debugMarkers ? "Debug markers on" : "Debug markers off");
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
    bool m_demo;
    std::string m_status;
    bool m_debugMarkers = false;
    unsigned int m_debugMarkerCount = 0;
    Wheel* m_wheel = nullptr;
    std::unique_ptr<GameHud> m_widgets;
    std::unique_ptr<DemoScript> m_script;
    unsigned long m_turns = 0;
    int m_sparksMade = 0;
    float m_sparkClock = 0.0f;
    float m_puffClock = 0.0f;
    SpriteActor* m_puffer = nullptr;
    OrvFont* m_font = nullptr;
    unsigned int m_shownSparks = 0;
    OrvTexture* m_texture = nullptr;
    OrvMovingGameAsset* m_lamp = nullptr;
    Steer m_steer;
    std::vector<std::unique_ptr<OrvSteeringBehavior>> m_behaviors;
    std::vector<OrvMovingGameAsset*> m_flock;
    OrvSteeringBehaviorSeek* m_seek = nullptr;
    OrvSteeringBehaviorFlee* m_flee = nullptr;
    OrvGameAsset* m_hud = nullptr;
    OrvGameAsset* m_bar = nullptr;
    OrvGameAsset* m_marks = nullptr;
    OrvSDLKeyboard* m_keyboard = nullptr;
    OrvSDLMouse* m_mouse = nullptr;
    OrvSDLJoypad* m_joypad = nullptr;
};
}  // namespace

int main(int argc, char** argv)
{
    float seconds = 2.0f;
    std::string screenshot;
    bool demo = false;
    for (int i = 1; i < argc; ++i)
    {
        if (std::strcmp(argv[i], "--screenshot") == 0 && i + 1 < argc)
            screenshot = argv[++i];
        else if (std::strcmp(argv[i], "--demo") == 0)
            demo = true;
        else if (argv[i][0] != '-')
            seconds = static_cast<float>(std::atof(argv[i]));
        else
        {
            std::fprintf(stderr, "Usage: %s [SECONDS] [--demo] [--screenshot FILE]\n", argv[0]);
            return 2;
        }
    }
    MinimalGame game(seconds, screenshot, demo);
    try
    {
        game.Run();
    }
    catch (const OrvException& e)
    {
        std::fprintf(stderr, "%s: %s (%s:%d)\n", e.name, e.message, e.file, e.line);
        return 1;
    }
    std::printf("MinimalGame: %lu turns, %d sparks launched\n", game.Turns(), game.Sparks());
    if (!game.Status().empty())
        std::printf("MinimalGame: last status: %s (%u debug markers)\n", game.Status().c_str(), game.DebugMarkers());
    return 0;
}

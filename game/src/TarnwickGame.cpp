#include "TarnwickGame.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <cstring>

#include "Creature.h"
#include "Hero.h"
#include <OrvEngine/OrvAxisAlignedBox.h>
#include <OrvEngine/OrvCamera.h>
#include <OrvEngine/OrvColor.h>
#include <OrvEngine/OrvCursor.h>
#include <OrvEngine/OrvFileException.h>
#include <OrvEngine/OrvFileManager.h>
#include <OrvEngine/OrvFont.h>
#include <OrvEngine/OrvFontDesc.h>
#include <OrvEngine/OrvInputManager.h>
#include <OrvEngine/OrvJoypad.h>
#include <OrvEngine/OrvKeyboardEvent.h>
#include <OrvEngine/OrvLabel.h>
#include <OrvEngine/OrvMesh.h>
#include <OrvEngine/OrvMouseButtonEvent.h>
#include <OrvEngine/OrvPlane.h>
#include <OrvEngine/OrvRenderer.h>
#include <OrvEngine/OrvJoypad.h>
#include <OrvEngine/OrvKeyboard.h>
#include <OrvEngine/OrvMouse.h>
#include <OrvEngine/OrvSoundManager.h>
#include <OrvEngine/OrvTimer.h>
#include <OrvEngine/OrvTimerManager.h>
#include <OrvEngine/OrvXMLElement.h>
#include <OrvEngine/OrvXMLFile.h>
#include "Screenshot.h"

namespace
{
const float kDemoTurn = 1.0f / 60.0f;
// Found beside the game, along its media paths.
const char* const kDemoSession = "TarnwickDemo.xml";
const unsigned int kMostGems = 6;
const unsigned int kSkitters = 3;

double Now()
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

// "x0 y0 x1 y1" of a box in window pixels.
std::string BoxText(const float box[4])
{
    std::string text;
    for (int i = 0; i < 4; ++i)
        text += (i > 0 ? " " : "") + std::to_string(static_cast<int>(box[i]));
    return text;
}
}  // namespace

void TurnTimes::Add(double seconds)
{
    const double steps = seconds > kShortest ? std::log(seconds / kShortest) / std::log(kGrowth) : 0.0;
    ++m_bins[std::min(static_cast<unsigned int>(steps), kBins - 1)];
    ++m_count;
    m_total += seconds;
    m_longest = std::max(m_longest, seconds);
}

double TurnTimes::Quantile(double share) const
{
    // As the sorted times' element count * share: the bin that holds it, read at its middle.
    const double rank = std::floor(m_count * share);
    double below = 0.0;
    for (unsigned int bin = 0; bin < kBins; ++bin)
    {
        below += m_bins[bin];
        if (below > rank)
            return std::min(kShortest * std::pow(kGrowth, bin + 0.5), m_longest);
    }
    return m_longest;
}

TarnwickGame::TarnwickGame(const GameOptions& options) : m_options(options)
{
    if (m_options.demo)
    {
        // The demo is a recorded session: the hero walks right and down for
        // the first gems, then is sent across the field by a click; Escape
        // pauses, the pointer rests on Options until its sub-menu opens and
        // turns the sound off, then clicks Resume. When the round is over it
        // types "Ar", takes the proposed name with Tab and keeps it with
        // Return; Space at the table starts the next round. Asked for more
        // turns than it holds, the demo plays it again, round after round.
        SetReplayFile(kDemoSession);
        SetReplayPasses(m_options.frames != 0 ? 0 : 1);
    }
}

TarnwickGame::~TarnwickGame() = default;

long TarnwickGame::MemoryStatusKB(const char* field)
{
    FILE* status = std::fopen("/proc/self/status", "r");
    if (status == nullptr)
        return 0;
    const std::string prefix = std::string(field) + ":";
    char line[256];
    long kB = 0;
    while (std::fgets(line, sizeof(line), status) != nullptr)
        if (std::strncmp(line, prefix.c_str(), prefix.size()) == 0)
        {
            kB = std::strtol(line + prefix.size(), nullptr, 10);
            break;
        }
    std::fclose(status);
    return kB;
}

void TarnwickGame::OnInitialise()
{
    if (m_options.demo)
        std::srand(7);
    // Everything but the music comes from the game's archive.
    GetFileManager()->AddBigFile("Tarnwick.vbf");
    MakeDevices();

    OrvFontDesc font;
    font.fileName = "Font.tga";
    font.imageWidth = font.imageHeight = 512;
    font.symbolWidth = font.symbolHeight = 32;
    font.symbolSpacing = 6;
    font.sizeCoef = 0.5f;
    m_font = new OrvFont();
    m_font->Create(this, font);

    m_hud.reset(new Hud(this, m_font, this));
    m_hud->Place(static_cast<float>(GetRenderer()->GetViewportWidth()),
                 static_cast<float>(GetRenderer()->GetViewportHeight()));
    m_hud->ShowFullScreen(GetFullScreen());
    m_highScores.Load(GetFileManager(), SavePath("HighScores.xml"));

    // The field: a patch of grass under everything else.
    Actor* ground = Actor::Spawn<Actor>(this, OrvVector3D(0, 0, -20), 0.0f);
    ground->SetQuad(Actor::kLeft - 40, Actor::kBottom - 40, Actor::kRight + 40, Actor::kTop + 40);
    ground->UseColorMaterial(OrvColor(38, 84, 48, 255));
    m_hero = Actor::Spawn<Hero>(this, OrvVector3D(0, 0, 20), 220.0f);
    m_hero->SetFootstepCallback(Footstep, this);
    m_round = GetTimerManager()->AddTimer();
    m_round->SetTickCallBack(RoundTick, this);
    m_round->SetEndCallBack(RoundOver, this);
    // Turning the sound off stops everything, which the sound manager reports.
    GetSoundManager()->SetSndOpCallback(OrvSoundManager::SND_OP_STOP_ALL, SoundsStopped, this);
    StartMusic();
    StartRound();
}

void TarnwickGame::MakeDevices()
{
    // The input manager owns the devices; the game hears all three.
    AddStandardDevices(&m_keyboard, &m_mouse, &m_joypad);
}

void TarnwickGame::OnTerminate()
{
    // The last turn's line, taken before anything is released.
    if (m_loggedTurn != m_turns)
        LogMemory();
    if (m_options.demo)
        WriteReport();
    m_hud.reset();
    // The font holds a texture: it goes while the texture manager exists.
    delete m_font;
    m_font = nullptr;
}

void TarnwickGame::StartMusic()
{
    GetSoundManager()->PlaySound("Intro.wav", 0.4f, false, 1);
    GetSoundManager()->QueueSound("Theme.wav", 0.4f, true, "Intro.wav", 1);
}

void TarnwickGame::PlayEffect(const char* name, float gain)
{
    if (!m_soundOn)
        return;
    GetSoundManager()->PlaySound(name, gain, false, 0);
    ++m_soundsPlayed;
}

void TarnwickGame::StartRound()
{
    ++m_rounds;
    m_roundStartTurn = m_turns;
    m_roundOverTurn = 0;
    ClearField();
    m_score = 0;
    m_hero->SetPosition(OrvVector3D(0, 0, 20));
    m_hero->SetVelocity(OrvVector3D(0, 0, 0));
    for (float x : {-340.0f, 340.0f})
        SpawnCreature(Creature::PROWLER, OrvVector3D(x, 200, 10));
    for (const OrvVector3D& spot : {OrvVector3D(-300, -230, 10), OrvVector3D(320, -240, 10), OrvVector3D(0, 210, 10)})
        SpawnCreature(Creature::SKITTER, spot);
    // The first gems lie on the hero's way.
    for (const OrvVector3D& spot : {OrvVector3D(120, 0, 5), OrvVector3D(200, -70, 5), OrvVector3D(210, -150, 5)})
        SpawnGem(spot);
    m_round->SetTimeLimit(m_options.roundSeconds);
    m_round->Restart();
    m_hud->ShowScore(0);
    m_hud->ShowTimeLeft(static_cast<int>(m_options.roundSeconds));
    m_hud->ShowNews("Gather gems, catch skitters, keep away from prowlers");
    m_hud->ShowTable("");
    m_hud->ShowPanel(false);
    m_state = PLAYING;
    SetPaused(false);
}

void TarnwickGame::EndRound()
{
    m_state = NAMING;
    SetPaused(true);
    m_hero->SetInput(OrvVector3D(0, 0, 0));
    PlayEffect("RoundEnd.wav", 0.8f);
    m_hud->ShowNews("Round over: " + std::to_string(m_score) + " points. Tab completes, Return keeps");
    m_hud->AskName(m_highScores.Names());
    m_hud->ShowPanel(true);
}

void TarnwickGame::TakeName()
{
    std::string name = m_hud->TakeName();
    if (name.empty())
        name = "Nobody";
    m_lastName = name;
    m_lastScore = m_score;
    m_highScores.Add(name, m_score);
    m_highScores.Save(GetFileManager(), SavePath("HighScores.xml"));
    m_hud->ShowTable(m_highScores.Text());
    m_hud->ShowNews("Saved. Space plays another round");
    m_state = SCORES;
}

void TarnwickGame::Pause(bool pause)
{
    if (pause == (m_state == PAUSED) || (m_state != PLAYING && m_state != PAUSED))
        return;
    m_state = pause ? PAUSED : PLAYING;
    // The world stops; the HUD, the pointer and the menu go on.
    SetPaused(pause);
    if (pause)
        m_round->Stop();
    else
        m_round->Start();
    m_hud->ShowPauseMenu(pause);
}

void TarnwickGame::OnHudAction(Action action)
{
    switch (action)
    {
    case RESUME: Pause(false); break;
    case TOGGLE_SOUND:
        m_soundOn = !m_soundOn;
        GetSoundManager()->SetIsActivated(m_soundOn);
        if (m_soundOn)
            StartMusic();
        m_hud->ShowSound(m_soundOn);
        break;
    case TOGGLE_FULL_SCREEN:
        SetFullScreen(!GetFullScreen());
        m_hud->ShowFullScreen(GetFullScreen());
        m_hud->Place(static_cast<float>(GetRenderer()->GetViewportWidth()),
                     static_cast<float>(GetRenderer()->GetViewportHeight()));
        break;
    case QUIT: Exit(); break;
    }
}

void TarnwickGame::ProcessInputEvent(const OrvInputEvent& event)
{
    if (event.GetType() == INPUT_KEY_DOWN)
    {
        const OrvKey key = static_cast<const OrvKeyboardEvent&>(event).GetKey();
        // The game hears the keyboard before the name field does.
        if (m_state == NAMING)
        {
            if (key == KEY_RETURN)
                TakeName();
        }
        else if (key == KEY_ESCAPE || key == KEY_P)
            Pause(m_state == PLAYING);
        else if (key == KEY_F1)
            ToggleDebug();
        else if (key == KEY_SPACE && m_state == SCORES)
            StartRound();
    }
    else if (event.GetType() == INPUT_JOYPAD_BUTTON_DOWN && m_joypad->IsButtonDown(JOYPAD_BUTTON_START))
        Pause(m_state == PLAYING);
    else if (event.GetType() == INPUT_MOUSE_BUTTON_DOWN && m_state == PLAYING &&
             static_cast<const OrvMouseButtonEvent&>(event).GetButton() == MOUSE_BUTTON_LEFT)
    {
        // A click on the field: the hero walks there.
        const OrvVector3D pointer = m_hud->GetCursor()->GetPosition();
        const OrvPlane ground(0.0f, OrvVector3D(0.0f, 0.0f, 1.0f));
        OrvVector3D target = GetWorldCamera()->ComputePickPosition(OrvVector2D(pointer.X, pointer.Y), ground);
        target.Z = m_hero->GetPosition().Z;
        m_hero->GoTo(target);
    }
}

void TarnwickGame::Update(float seconds)
{
    const double start = Now();
    if (m_lastTurnStart >= 0.0)
        m_turnTimes.Add(start - m_lastTurnStart);
    m_lastTurnStart = start;
    if (m_options.demo)
        RequestDemoScreenshots();
    ReadSteering();
    // The demo's time is the same on any machine.
    OrvApplication::Update(m_options.demo ? kDemoTurn : seconds);
    if (m_state == PLAYING)
        Collide();
    if (m_debug)
        FollowWithDebugMarkers();
    ++m_turns;
    if (m_turns % kMemoryLogTurns == 0)
        LogMemory();
    if (m_options.frames != 0 && m_turns >= m_options.frames)
        Exit();
}

void TarnwickGame::RequestDemoScreenshots()
{
    // In play, and with the Options sub-menu open; then the name being
    // completed, and the table that keeps it.
    if (!IsRoundOver())
    {
        const unsigned int turn = m_turns - m_roundStartTurn;
        if (turn == 90)
            RequestScreenshot("tarnwick-play.png");
        else if (turn == 205)
            RequestScreenshot("tarnwick-menu.png");
        return;
    }
    if (m_roundOverTurn == 0)
        m_roundOverTurn = m_turns;
    const unsigned int since = m_turns - m_roundOverTurn;
    if (since == 40)
        RequestScreenshot("tarnwick-name.png");
    else if (since == 90)
        RequestScreenshot("tarnwick-scores.png");
}

void TarnwickGame::LogMemory()
{
    if (m_options.memoryLog == nullptr)
        return;
    std::fprintf(m_options.memoryLog, "%u %ld\n", m_turns, MemoryStatusKB("VmRSS"));
    // Flushed at once: a run that dies still leaves its curve.
    std::fflush(m_options.memoryLog);
    m_loggedTurn = m_turns;
}

void TarnwickGame::ReadSteering()
{
    // Arrow keys or WASD, and the left stick (up is positive).
    auto held = [this](OrvKey a, OrvKey b) { return m_keyboard->IsKeyDown(a) || m_keyboard->IsKeyDown(b) ? 1.0f : 0.0f; };
    OrvVector3D direction(held(KEY_RIGHT, KEY_D) - held(KEY_LEFT, KEY_A), held(KEY_UP, KEY_W) - held(KEY_DOWN, KEY_S),
                          0.0f);
    direction += OrvVector3D(m_joypad->GetAxisValue(JOYPAD_AXIS_LEFT_X), m_joypad->GetAxisValue(JOYPAD_AXIS_LEFT_Y), 0);
    if (direction.LengthSquared() > 1.0f)
        direction = direction.NormalizedVector();
    m_hero->SetInput(m_state == PLAYING ? direction : OrvVector3D(0, 0, 0));
}

void TarnwickGame::Collide()
{
    for (size_t i = 0; i < m_gems.size();)
    {
        Actor* gem = m_gems[i];
        if (!m_hero->IsColliding(gem, false))
        {
            ++i;
            continue;
        }
        Sparkle(gem->GetPosition());
        gem->DeleteThisGameAsset();
        m_gems.erase(m_gems.begin() + static_cast<long>(i));
        PlayEffect("Pickup.wav", 0.7f);
        AddScore(1, "A gem!");
    }
    for (size_t i = 0; i < m_creatures.size();)
    {
        Creature* creature = m_creatures[i];
        if (!m_hero->IsColliding(creature, false) || creature->GetMode() == Creature::RECOVERING)
        {
            ++i;
            continue;
        }
        if (creature->GetKind() == Creature::PROWLER)
        {
            creature->Become(Creature::RECOVERING);
            m_hero->Wince();
            PlayEffect("Hit.wav", 0.9f);
            AddScore(m_score >= 3 ? -3 : -m_score, "A prowler caught you");
            ++i;
            continue;
        }
        Sparkle(creature->GetPosition());
        creature->DeleteThisGameAsset();
        m_creatures.erase(m_creatures.begin() + static_cast<long>(i));
        m_hero->Cheer();
        PlayEffect("Catch.wav", 0.8f);
        AddScore(5, "You caught a skitter!");
    }
}

void TarnwickGame::AddScore(int points, const std::string& news)
{
    m_score += points;
    m_hud->ShowScore(m_score);
    m_hud->ShowNews(news);
}

OrvVector3D TarnwickGame::RandomSpot() const
{
    const float x = Actor::kLeft + static_cast<float>(std::rand() % 1000) * 0.001f * (Actor::kRight - Actor::kLeft);
    const float y = Actor::kBottom + static_cast<float>(std::rand() % 1000) * 0.001f * (Actor::kTop - Actor::kBottom);
    return OrvVector3D(x, y, 5);
}

void TarnwickGame::SpawnGem(const OrvVector3D& position)
{
    Actor* gem = Actor::Spawn<Actor>(this, position, 0.0f);
    gem->Play("gem", false);
    gem->SetRenderBoundingBox(m_debug, false);
    m_gems.push_back(gem);
}

void TarnwickGame::SpawnCreature(int kind, const OrvVector3D& position)
{
    Creature* creature = Actor::Spawn<Creature>(this, position, kind == Creature::PROWLER ? 130.0f : 190.0f);
    creature->Setup(static_cast<Creature::Kind>(kind), m_hero);
    creature->SetRenderBoundingBox(m_debug, false);
    m_creatures.push_back(creature);
}

void TarnwickGame::Sparkle(const OrvVector3D& position)
{
    Actor* sparkle = Actor::Spawn<Actor>(this, position + OrvVector3D(0, 0, 30), 0.0f);
    sparkle->Play("sparkle", false);
    sparkle->GetSpriteAnimationPlayer()->AddAnimationEndedCallback("sparkle", SparkleEnded, sparkle);
}

void TarnwickGame::SparkleEnded(OrvSpriteAnimationPlayer*, void* sparkle)
{
    // Marked now, destroyed at the end of the turn.
    static_cast<Actor*>(sparkle)->DeleteThisGameAsset();
}

void TarnwickGame::ClearField()
{
    for (Actor* gem : m_gems)
        gem->DeleteThisGameAsset();
    for (Creature* creature : m_creatures)
        creature->DeleteThisGameAsset();
    m_gems.clear();
    m_creatures.clear();
}

void TarnwickGame::RoundTick(OrvTimer* timer, void* game)
{
    TarnwickGame* self = static_cast<TarnwickGame*>(game);
    const float left = timer->GetTimeLimit() - timer->GetCurrentSeconds();
    self->m_hud->ShowTimeLeft(static_cast<int>(std::ceil(left - 0.001f)));
    if (self->m_gems.size() < kMostGems)
        self->SpawnGem(self->RandomSpot());
    unsigned int skitters = 0;
    for (Creature* creature : self->m_creatures)
        skitters += creature->GetKind() == Creature::SKITTER ? 1 : 0;
    if (skitters < kSkitters)
        self->SpawnCreature(Creature::SKITTER, self->RandomSpot());
}

void TarnwickGame::RoundOver(OrvTimer*, void* game)
{
    TarnwickGame* self = static_cast<TarnwickGame*>(game);
    self->m_hud->ShowTimeLeft(0);
    self->EndRound();
}

void TarnwickGame::SoundsStopped(void* game)
{
    static_cast<TarnwickGame*>(game)->m_hud->ShowNews("Silence");
}

void TarnwickGame::Footstep(OrvSpriteAnimationPlayer* player, void* game)
{
    if (player->GetCurrentFrameIndex() % 2 == 0)
        static_cast<TarnwickGame*>(game)->PlayEffect("Step.wav", 0.25f);
}

void TarnwickGame::ToggleDebug()
{
    m_debug = !m_debug;
    GetWorldRoot()->SetRenderBoundingBox(m_debug, true);
    GetWorldRoot()->SetBoundingBoxColor(OrvColor(255, 255, 0, 255), true);
    if (!m_debug)
        DeleteAllDebugGameAssets();
    m_debugMarkers.clear();
    m_hud->ShowNews(m_debug ? "Debug: boxes, and where each creature heads" : "Debug off");
}

void TarnwickGame::FollowWithDebugMarkers()
{
    // One marker a creature, half a second ahead of it; made again when the creatures change.
    if (m_debugMarkers.size() != m_creatures.size())
    {
        DeleteAllDebugGameAssets();
        m_debugMarkers.clear();
        for (size_t i = 0; i < m_creatures.size(); ++i)
            m_debugMarkers.push_back(CreateDebugSprite(OrvVector3D(), OrvColor(255, 255, 255, 255), 5.0f));
    }
    for (size_t i = 0; i < m_creatures.size(); ++i)
        m_debugMarkers[i]->SetPosition(m_creatures[i]->GetPosition() + m_creatures[i]->GetVelocity() * 0.5f);
}

OrvVector2D TarnwickGame::ScreenOf(const OrvVector3D& world) const
{
    const OrvCamera* camera = GetWorldCamera();
    const OrvVector3D eye = world - camera->GetPosition();
    const float halfHeight = -eye.Z * std::tan(camera->GetFOVY() * 0.5f * 0.017453292f);
    const float halfWidth = halfHeight * camera->GetAspectRatio();
    const float width = static_cast<float>(GetRenderer()->GetViewportWidth());
    const float height = static_cast<float>(GetRenderer()->GetViewportHeight());
    return OrvVector2D((eye.X / halfWidth + 1.0f) * 0.5f * width, (1.0f - eye.Y / halfHeight) * 0.5f * height);
}

void TarnwickGame::RenderHUD()
{
    OrvApplication::RenderHUD();
    if (!m_screenshot.empty())
        TakeScreenshot();
}

void TarnwickGame::TakeScreenshot()
{
    const unsigned int width = GetRenderer()->GetViewportWidth();
    const unsigned int height = GetRenderer()->GetViewportHeight();
    if (!SaveScreenshot(SavePath(m_screenshot), width, height))
        throw OrvFileException(("Couldn't write the screenshot " + SavePath(m_screenshot)).c_str(),
                               "game/src/TarnwickGame", __LINE__);
    Shot shot;
    shot.file = m_screenshot;
    // The score's box is in HUD pixels (y up); the hero's in the world.
    const OrvAxisAlignedBox* score = m_hud->GetScoreLabel()->GetMesh()->GetBoundingBox();
    const float h = static_cast<float>(height);
    const float scoreBox[4] = {score->GetWorldMinimum().X, h - score->GetWorldMaximum().Y, score->GetWorldMaximum().X,
                               h - score->GetWorldMinimum().Y};
    const OrvAxisAlignedBox* hero = m_hero->GetMesh()->GetBoundingBox();
    const OrvVector2D topLeft = ScreenOf(OrvVector3D(hero->GetWorldMinimum().X, hero->GetWorldMaximum().Y, 0));
    const OrvVector2D bottomRight = ScreenOf(OrvVector3D(hero->GetWorldMaximum().X, hero->GetWorldMinimum().Y, 0));
    const float heroBox[4] = {topLeft.X, topLeft.Y, bottomRight.X, bottomRight.Y};
    for (int i = 0; i < 4; ++i)
    {
        shot.scoreBox[i] = scoreBox[i];
        shot.heroBox[i] = heroBox[i];
    }
    // A demo that plays its script again writes the same files again: the report keeps the latest.
    auto same = std::find_if(m_shots.begin(), m_shots.end(), [&](const Shot& kept) { return kept.file == shot.file; });
    if (same != m_shots.end())
        *same = shot;
    else
        m_shots.push_back(shot);
    m_screenshot.clear();
}

void TarnwickGame::WriteReport() const
{
    OrvXMLFile* report = new OrvXMLFile();
    report->Create(GetFileManager(), ++GetFileManager()->LastFileID);
    GetFileManager()->AddOrvFile(report);
    OrvXMLElement* root = report->GetXMLRoot();
    root->SetName("DemoReport");
    root->AddChild(new OrvXMLElement("Turns", std::to_string(m_turns).c_str()));
    // The score the table kept last (the demo ends as its next round begins).
    root->AddChild(new OrvXMLElement("Score", std::to_string(m_lastName.empty() ? m_score : m_lastScore).c_str()));
    root->AddChild(new OrvXMLElement("Rounds", std::to_string(m_rounds).c_str()));
    root->AddChild(new OrvXMLElement("Name", m_lastName.c_str()));
    root->AddChild(new OrvXMLElement("SoundDevice", GetSoundManager()->HasDevice() ? "1" : "0"));
    root->AddChild(new OrvXMLElement("SoundsPlayed", std::to_string(m_soundsPlayed).c_str()));
    for (const Shot& shot : m_shots)
    {
        OrvXMLElement* element = new OrvXMLElement("Shot", "");
        element->AddChild(new OrvXMLElement("File", shot.file.c_str()));
        element->AddChild(new OrvXMLElement("ScoreBox", BoxText(shot.scoreBox).c_str()));
        element->AddChild(new OrvXMLElement("HeroBox", BoxText(shot.heroBox).c_str()));
        root->AddChild(element);
    }
    report->Save(SavePath("DemoReport.xml").c_str(), OrvFile::SAVE_DEFAULT);
    GetFileManager()->DeleteOrvFile(report);
}

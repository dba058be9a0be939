#ifndef TARNWICK_GAME_H
#define TARNWICK_GAME_H

#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "HighScores.h"
#include "Hud.h"
#include <OrvEngine/OrvApplication.h>
#include <OrvEngine/OrvSpriteAnimationPlayer.h>
#include <OrvEngine/OrvVector2D.h>

class Actor;
class Creature;
class Hero;
class OrvFont;
class OrvJoypad;
class OrvKeyboard;
class OrvMouse;
class OrvTimer;
class OrvWidget;

struct GameOptions
{
    // Replays its recorded demo (TarnwickDemo.xml), one sixtieth of a second a
    // turn, and takes its screenshots on the way.
    bool demo = false;
    // Ends after that many turns; 0 plays until Quit.
    unsigned int frames = 0;
    // Where the high scores, the screenshots and the demo's report go.
    std::string saveDir = ".";
    float roundSeconds = 45.0f;
    // Receives "turn rss_kB" every kMemoryLogTurns turns and at the last; not owned.
    std::FILE* memoryLog = nullptr;
};

// The real time of each turn, counted in bins half a per cent wide (from a
// microsecond to minutes): a game that runs for hours keeps its frame-time
// statistics in the same few kilobytes as a game of a minute.
class TurnTimes
{
public:
    void Add(double seconds);
    unsigned int Count() const { return m_count; }
    double Total() const { return m_total; }
    double Longest() const { return m_longest; }
    // The time that a fraction `share` of the turns took at most, within half a per cent.
    double Quantile(double share) const;

private:
    static constexpr double kShortest = 1e-6;
    static constexpr double kGrowth = 1.005;
    static constexpr unsigned int kBins = 4000;

    std::vector<unsigned int> m_bins = std::vector<unsigned int>(kBins, 0u);
    unsigned int m_count = 0;
    double m_total = 0.0;
    double m_longest = 0.0;
};

// The Tarnwick: gather gems and catch skitters before the round ends, and
// keep away from the prowlers. The hero follows the arrow keys (or WASD),
// a joypad's left stick, or a click on the field.
class TarnwickGame : public OrvApplication, public HudActions
{
public:
    static constexpr unsigned int kMemoryLogTurns = 1000;

    explicit TarnwickGame(const GameOptions& options);
    ~TarnwickGame() override;

    // A "Vm..." line of /proc/self/status ("VmRSS", "VmHWM"), in kB; 0 where Linux does not say.
    static long MemoryStatusKB(const char* field);

    int GetScore() const { return m_score; }
    unsigned int GetTurns() const { return m_turns; }
    // Real seconds the turns took.
    const TurnTimes& GetTurnTimes() const { return m_turnTimes; }
    const std::string& GetLastName() const { return m_lastName; }
    // The score kept in the table with the last name.
    int GetLastScore() const { return m_lastScore; }
    bool IsRoundOver() const { return m_state != PLAYING && m_state != PAUSED; }
    // The name is kept and the table shows: Space starts another round.
    bool IsShowingScores() const { return m_state == SCORES; }
    Hud* GetHud() const { return m_hud.get(); }
    Hero* GetHero() const { return m_hero; }
    // Where a point of the plane z = 0 appears in the window (pixels from the top-left corner).
    OrvVector2D ScreenOf(const OrvVector3D& world) const;
    // Keeps this frame in `<save folder>/<name>`, with where the score and the hero lie in it.
    void RequestScreenshot(const std::string& name) { m_screenshot = name; }

    void OnHudAction(Action action) override;

protected:
    void OnInitialise() override;
    void OnTerminate() override;
    void OnRenderWorld() override {}
    void OnRenderHUD() override {}
    void Update(float seconds) override;
    void RenderHUD() override;
    void ProcessInputEvent(const OrvInputEvent& event) override;

private:
    enum State
    {
        PLAYING,
        PAUSED,
        NAMING,
        SCORES
    };

    void MakeDevices();
    void StartRound();
    // The demo's four screenshots, at fixed turns of its round.
    void RequestDemoScreenshots();
    void EndRound();
    void Pause(bool pause);
    void TakeName();
    void ReadSteering();
    void Collide();
    void AddScore(int points, const std::string& news);
    void SpawnGem(const OrvVector3D& position);
    void SpawnCreature(int kind, const OrvVector3D& position);
    void Sparkle(const OrvVector3D& position);
    void ClearField();
    void ToggleDebug();
    void FollowWithDebugMarkers();
    void PlayEffect(const char* name, float gain);
    void StartMusic();
    void TakeScreenshot();
    void WriteReport() const;
    void LogMemory();
    std::string SavePath(const std::string& name) const { return m_options.saveDir + "/" + name; }
    OrvVector3D RandomSpot() const;

    static void RoundTick(OrvTimer* timer, void* game);
    static void RoundOver(OrvTimer* timer, void* game);
    static void SoundsStopped(void* game);
    static void Footstep(OrvSpriteAnimationPlayer* player, void* game);
    static void SparkleEnded(OrvSpriteAnimationPlayer* player, void* sparkle);

    GameOptions m_options;
    State m_state = PLAYING;
    int m_score = 0;
    unsigned int m_turns = 0;
    // Rounds begun, the first included.
    unsigned int m_rounds = 0;
    // The turn the round started in, and the first turn that saw it over (0 until then).
    unsigned int m_roundStartTurn = 0;
    unsigned int m_roundOverTurn = 0;
    // The turn of the memory log's last line.
    unsigned int m_loggedTurn = ~0u;
    TurnTimes m_turnTimes;
    double m_lastTurnStart = -1.0;
    bool m_soundOn = true;
    unsigned int m_soundsPlayed = 0;
    bool m_debug = false;
    std::string m_lastName;
    int m_lastScore = 0;
    std::string m_screenshot;
    struct Shot
    {
        std::string file;
        float scoreBox[4];
        float heroBox[4];
    };
    std::vector<Shot> m_shots;

    OrvKeyboard* m_keyboard = nullptr;
    OrvMouse* m_mouse = nullptr;
    OrvJoypad* m_joypad = nullptr;
    OrvFont* m_font = nullptr;
    std::unique_ptr<Hud> m_hud;
    OrvTimer* m_round = nullptr;
    Hero* m_hero = nullptr;
    std::vector<Actor*> m_gems;
    std::vector<Creature*> m_creatures;
    std::vector<OrvWidget*> m_debugMarkers;
    HighScores m_highScores;
};

#endif

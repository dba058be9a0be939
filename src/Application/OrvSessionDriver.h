#ifndef ORV_SESSION_DRIVER_H
#define ORV_SESSION_DRIVER_H

#include <cstdio>
#include <string>
#include <vector>

#include "OrvSession.h"

class OrvFileManager;
class OrvInputManager;

// The application's recorder and player of sessions (OrvSession). Recording,
// it seeds rand(), writes the file's head once the game has its devices,
// then every turn's frame time and input as soon as the turn has taken its
// input: the file on disk is a whole document after every turn. Replaying,
// it seeds rand() from the file, hands the devices each recorded turn in
// place of the live queue, gives the turn its recorded frame time, saves the
// frames asked for, and says when the last turn has run (of the last pass,
// when the session is played more than once).
class OrvSessionDriver
{
public:
    OrvSessionDriver(const std::string& record, const std::string& replay, const std::vector<unsigned int>& shots,
                     const std::string& shotFolder, unsigned int passes = 1);
    ~OrvSessionDriver();
    OrvSessionDriver(const OrvSessionDriver&) = delete;
    OrvSessionDriver& operator=(const OrvSessionDriver&) = delete;

    // Before the renderer is made: reads the replayed session, or opens the
    // recorded one; seeds rand() either way.
    void Start(OrvFileManager* files);
    // The window a replay opens: true, with its size, where the session says.
    bool ReplayWindow(unsigned int& width, unsigned int& height) const;
    // After OnInitialise: the devices the game has, the size it draws at.
    void DevicesReady(const OrvInputManager* input, unsigned int width, unsigned int height);
    // The seconds the next turn will run with, before it begins: the game's
    // own Update hears them too.
    float NextTurnSeconds(float liveSeconds) const;
    // At the start of a turn: the seconds it runs with.
    float BeginTurn(float liveSeconds);
    // Once the turn took its input.
    void InputTaken();
    // The turn's frame is drawn (not yet shown): saves it when asked for.
    void FrameDrawn(unsigned int width, unsigned int height);
    // A replay whose last turn has run.
    bool Ended() const;
    unsigned int GetTurn() const { return m_turn; }
    // Closes the recorded file and gives the devices back to the live queue.
    void Stop();

private:
    void Write(const std::string& bytes);
    void CheckDevices(const OrvSession::Turn& turn) const;
    // The recorded turn the turn `turn` replays; null past the last pass.
    const OrvSession::Turn* Replayed(unsigned int turn) const;

    std::string m_recordFile;
    std::string m_replayFile;
    std::vector<unsigned int> m_shots;
    std::string m_shotFolder;
    // Times the replayed session is played; 0: until the game exits.
    unsigned int m_passes;
    OrvSession m_session;
    OrvSession::Turn m_recording;
    std::FILE* m_file = nullptr;
    unsigned int m_taken = 0;
    // Counted from the first turn of the first pass.
    unsigned int m_turn = 0;
    bool m_turnRunning = false;
};

#endif

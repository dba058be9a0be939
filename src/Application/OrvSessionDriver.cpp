#include "OrvSessionDriver.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "../Input/OrvSDLEventSource.h"
#include "CStdBuffer.h"
#include "OrvFileException.h"
#include "OrvGLScreenshot.h"
#include "OrvInputDevice.h"
#include "OrvInputManager.h"
#include "OrvPNGWriter.h"
#include "OrvXMLElement.h"
#include "OrvXMLFile.h"

namespace
{
const char* const kSource = "src/Application/OrvSessionDriver";
const char* const kRootEnd = "</OrvSession>\n";

// An element as the engine's XML writer prints it.
std::string Printed(const char* name, const std::string& content)
{
    OrvUnicode text;
    text.SetFromUTF8(content.data(), static_cast<unsigned int>(content.size()));
    OrvXMLElement element(name, text);
    OrvXMLFile printer;
    CStdBuffer bytes;
    printer.PrintElement(&element, bytes);
    return std::string(reinterpret_cast<const char*>(bytes.GetData()), bytes.GetSize());
}

const char* DeviceName(unsigned int taken)
{
    return taken == OrvInputDevice::kTakesKeys ? "keyboard" : taken == OrvInputDevice::kTakesMouse ? "mouse" : "joypad";
}
}  // namespace

OrvSessionDriver::OrvSessionDriver(const std::string& record, const std::string& replay,
                                   const std::vector<unsigned int>& shots, const std::string& shotFolder,
                                   unsigned int passes)
    : m_recordFile(record), m_replayFile(replay), m_shots(shots), m_shotFolder(shotFolder), m_passes(passes)
{
}

OrvSessionDriver::~OrvSessionDriver()
{
    Stop();
}

void OrvSessionDriver::Start(OrvFileManager* files)
{
    m_turn = 0;
    m_turnRunning = false;
    OrvSDLEventSource::Reset();
    if (!m_replayFile.empty())
    {
        m_session.Load(files, m_replayFile);
        std::srand(m_session.GetSeed());
        return;
    }
    // ORV_SEED fixes the number a recording starts rand() with.
    const char* fixed = std::getenv("ORV_SEED");
    unsigned int seed = fixed != nullptr && fixed[0] != '\0'
                            ? static_cast<unsigned int>(std::strtoul(fixed, nullptr, 10))
                            : static_cast<unsigned int>(
                                  std::chrono::steady_clock::now().time_since_epoch().count() & 0x7FFFFFFF);
    m_session.SetSeed(seed);
    std::srand(seed);
    m_file = std::fopen(m_recordFile.c_str(), "wb");
    if (m_file == nullptr)
        ORV_THROW(OrvFileException, "Can't write the session file : " + m_recordFile, kSource);
}

bool OrvSessionDriver::ReplayWindow(unsigned int& width, unsigned int& height) const
{
    if (m_replayFile.empty() || m_session.GetWindowWidth() == 0)
        return false;
    width = m_session.GetWindowWidth();
    height = m_session.GetWindowHeight();
    return true;
}

void OrvSessionDriver::DevicesReady(const OrvInputManager* input, unsigned int width, unsigned int height)
{
    m_taken = 0;
    for (unsigned int i = 0; input != nullptr && i < input->GetDeviceCount(); ++i)
        if (const OrvInputDevice* device = input->GetDevice(i))
            m_taken |= device->GetTakenEvents();
    m_taken &= OrvInputDevice::kTakesKeys | OrvInputDevice::kTakesMouse | OrvInputDevice::kTakesJoypad;
    if (m_file == nullptr)
        return;
    m_session.SetDevices(m_taken);
    m_session.SetWindow(width, height);
    Write("<OrvSession>\n" + Printed("Version", std::to_string(OrvSession::kVersion)) +
          Printed("Seed", std::to_string(m_session.GetSeed())) + Printed("Devices", std::to_string(m_taken)) +
          Printed("Window", std::to_string(width) + " " + std::to_string(height)) + kRootEnd);
}

const OrvSession::Turn* OrvSessionDriver::Replayed(unsigned int turn) const
{
    const std::vector<OrvSession::Turn>& turns = m_session.GetTurns();
    if (turns.empty() || (m_passes != 0 && turn / turns.size() >= m_passes))
        return nullptr;
    return &turns[turn % turns.size()];
}

float OrvSessionDriver::NextTurnSeconds(float liveSeconds) const
{
    if (m_replayFile.empty())
        return liveSeconds;
    const OrvSession::Turn* next = Replayed(m_turnRunning ? m_turn + 1 : m_turn);
    return next != nullptr ? next->seconds : 0.0f;
}

float OrvSessionDriver::BeginTurn(float liveSeconds)
{
    if (m_turnRunning)
        ++m_turn;
    m_turnRunning = true;
    if (!m_replayFile.empty())
    {
        const OrvSession::Turn* turn = Replayed(m_turn);
        if (turn != nullptr)
            CheckDevices(*turn);
        OrvSDLEventSource::Replay(turn);
        return turn != nullptr ? turn->seconds : 0.0f;
    }
    m_recording.seconds = liveSeconds;
    m_recording.events.clear();
    OrvSDLEventSource::Record(&m_recording);
    return liveSeconds;
}

void OrvSessionDriver::InputTaken()
{
    if (m_file == nullptr)
        return;
    OrvSDLEventSource::Record(nullptr);
    // Over the root's end tag, which follows again: a whole document on disk.
    std::fseek(m_file, -static_cast<long>(std::strlen(kRootEnd)), SEEK_END);
    Write(Printed("T", OrvSession::TurnText(m_recording)) + kRootEnd);
}

void OrvSessionDriver::FrameDrawn(unsigned int width, unsigned int height)
{
    if (m_replayFile.empty() || std::find(m_shots.begin(), m_shots.end(), m_turn) == m_shots.end())
        return;
    std::vector<unsigned char> rgba;
    OrvReadFrame(width, height, rgba);
    char name[32];
    std::snprintf(name, sizeof(name), "turn-%05u.png", m_turn);
    OrvPNGWriter::Write((m_shotFolder.empty() ? std::string(".") : m_shotFolder) + "/" + name, width, height,
                        rgba.data());
}

bool OrvSessionDriver::Ended() const
{
    if (m_replayFile.empty())
        return false;
    if (m_session.GetTurns().empty())
        return true;
    return m_passes != 0 && m_turn + 1 >= static_cast<unsigned long long>(m_session.GetTurns().size()) * m_passes;
}

void OrvSessionDriver::Stop()
{
    OrvSDLEventSource::Reset();
    if (m_file != nullptr)
        std::fclose(m_file);
    m_file = nullptr;
}

void OrvSessionDriver::Write(const std::string& bytes)
{
    if (std::fwrite(bytes.data(), 1, bytes.size(), m_file) != bytes.size() || std::fflush(m_file) != 0)
        ORV_THROW(OrvFileException, "Can't write the session file : " + m_recordFile, kSource);
}

void OrvSessionDriver::CheckDevices(const OrvSession::Turn& turn) const
{
    for (const OrvSession::Event& event : turn.events)
    {
        const unsigned int needs = OrvSession::TakenBy(event.kind);
        if ((needs & ~m_taken) != 0)
            ORV_THROW(OrvFileException,
                      "The session file " + m_replayFile + " holds " + DeviceName(needs) + " input at turn " +
                          std::to_string(m_turn) + ", and the game has no " + DeviceName(needs),
                      kSource);
    }
}

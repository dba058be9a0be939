#include "OrvApplication.h"

// Recording and replaying sessions: the settings, from the game or the
// environment, and the driver that does the work (OrvSessionDriver).

#include <cstdlib>

#include "OrvException.h"
#include "OrvInputManager.h"
#include "OrvSessionDriver.h"

namespace
{
std::string FromEnvironment(const char* variable)
{
    const char* value = std::getenv(variable);
    return value != nullptr ? value : "";
}

// "10,200,300", the value of `variable`: refused unless every item is a number.
std::vector<unsigned int> TurnList(const std::string& text, const char* variable = "ORV_REPLAY_SHOTS")
{
    std::vector<unsigned int> turns;
    size_t at = 0;
    while (at < text.size())
    {
        size_t comma = text.find(',', at);
        if (comma == std::string::npos)
            comma = text.size();
        const std::string item = text.substr(at, comma - at);
        char* end = nullptr;
        const unsigned long turn = std::strtoul(item.c_str(), &end, 10);
        if (item.empty() || *end != '\0' || item[0] == '-' || turn > 0xFFFFFFFFul)
            ORV_THROW(OrvException,
                      std::string(variable) + " lists whole numbers separated by commas (10,200), not " + text,
                      "src/Application/OrvApplicationSession");
        turns.push_back(static_cast<unsigned int>(turn));
        at = comma + 1;
    }
    return turns;
}
}  // namespace

void OrvApplication::SetReplayScreenshots(const std::vector<unsigned int>& turns, const std::string& folder)
{
    m_shotTurns = turns;
    m_shotFolder = folder;
}

unsigned int OrvApplication::GetSessionTurn() const
{
    return m_session != nullptr ? m_session->GetTurn() : 0;
}

void OrvApplication::StartSession()
{
    m_session.reset();
    std::string record = m_recordFile.empty() ? FromEnvironment("ORV_RECORD") : m_recordFile;
    std::string replay = m_replayFile.empty() ? FromEnvironment("ORV_REPLAY") : m_replayFile;
    if (!replay.empty())
        record.clear();
    if (record.empty() && replay.empty())
        return;
    std::vector<unsigned int> shots = m_shotTurns;
    std::string folder = m_shotFolder;
    if (shots.empty())
        shots = TurnList(FromEnvironment("ORV_REPLAY_SHOTS"));
    if (folder.empty())
        folder = FromEnvironment("ORV_SHOT_DIR");
    unsigned int passes = m_replayPasses;
    const std::string passesText = FromEnvironment("ORV_REPLAY_PASSES");
    if (passes == 1 && !passesText.empty())
    {
        const std::vector<unsigned int> listed = TurnList(passesText, "ORV_REPLAY_PASSES");
        if (listed.size() != 1)
            ORV_THROW(OrvException, "ORV_REPLAY_PASSES is one whole number, not " + passesText,
                      "src/Application/OrvApplicationSession");
        passes = listed[0];
    }
    m_session.reset(new OrvSessionDriver(record, replay, shots, folder, passes));
    m_session->Start(m_fileManager.get());
}

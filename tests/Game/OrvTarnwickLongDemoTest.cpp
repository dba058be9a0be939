// The sample game's command line and its demo played past its recording: bad
// values are refused before a window opens, and a longer demo plays the
// recording again in new rounds while it logs its resident memory.
#include <gtest/gtest.h>

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <sstream>
#include <string>
#include <vector>

#include "OrvFileManager.h"
#include "OrvScratchDir.h"
#include "OrvXMLElement.h"
#include "OrvXMLText.h"
#include "OrvXMLFile.h"

namespace
{
std::string Here(const std::string& name)
{
    char folder[4096] = {};
    return std::string(getcwd(folder, sizeof(folder))) + "/" + name;
}

// The game's exit status and what it printed, run from its build folder.
struct GameRun
{
    GameRun(const std::string& arguments, const std::string& environment = "")
    {
        const std::string command = std::string("cd '") + TARNWICK_DIR + "' && " + environment +
                                    " ./Tarnwick " + arguments + " > '" + Here("output.txt") + "' 2>&1";
        const int raw = std::system(command.c_str());
        status = WIFEXITED(raw) ? WEXITSTATUS(raw) : -1;
        output = OrvScratchDir::Read(Here("output.txt"));
    }

    int status = -1;
    std::string output;
};

// An X server of its own for the demo, which moves the pointer. The server
// picks a free display itself and says which once it accepts connections, so
// that tests running side by side never race for one.
class OwnXServer
{
public:
    OwnXServer()
    {
        int ready[2];
        if (pipe(ready) != 0)
            return;
        m_pid = fork();
        if (m_pid == 0)
        {
            close(ready[0]);
            const std::string fd = std::to_string(ready[1]);
            execlp("Xvfb", "Xvfb", "-displayfd", fd.c_str(), "-noreset", "-nolisten", "tcp", "-screen", "0",
                   "1024x768x24", static_cast<char*>(nullptr));
            _exit(127);
        }
        close(ready[1]);
        char c;
        while (m_pid > 0 && read(ready[0], &c, 1) == 1 && c != '\n')
            m_display += c;
        close(ready[0]);
    }
    ~OwnXServer()
    {
        if (m_pid > 0)
        {
            kill(m_pid, SIGTERM);
            waitpid(m_pid, nullptr, 0);
        }
    }
    // ":N", or empty where the server did not start.
    std::string Display() const { return m_display.empty() ? "" : ":" + m_display; }

private:
    pid_t m_pid = -1;
    std::string m_display;
};
}  // namespace

TEST(OrvTarnwickOptions, ValuesThatCannotBeUsedAreRefusedWithTheUsageLine)
{
    OrvScratchDir scratch;
    const std::vector<std::string> refused = {
        "--frames", "--frames abc", "--frames 0", "--frames -5", "--frames 12x", "--frames 1.5",
        "--frames 99999999999", "--frames ''",
        "--round", "--round abc", "--round 0", "--round -2", "--round nan", "--round inf", "--round 3s",
        "--save", "--save ''", "--save /etc/hostname/folder", "--save /etc/hostname",
        "--memory-log", "--memory-log ''", "--memory-log /nonexistent/folder/memory.log",
        "--demo --bogus", "--frames 10 extra",
    };
    for (const std::string& arguments : refused)
    {
        GameRun run(arguments);
        EXPECT_EQ(2, run.status) << arguments << "\n" << run.output;
        EXPECT_NE(std::string::npos, run.output.find("Usage: ./Tarnwick [--demo] [--frames N] [--round SECONDS]"))
            << arguments << "\n" << run.output;
    }
}

TEST(OrvTarnwickLongDemo, PlaysItsRecordingAgainInNewRoundsAndLogsItsMemory)
{
    OrvScratchDir scratch;
    OwnXServer x;
    ASSERT_FALSE(x.Display().empty()) << "Xvfb started";
    // Two whole passes of the recording and the start of a third.
    GameRun run("--demo --frames 1100 --save '" + Here("") + "' --memory-log '" + Here("memory.log") + "'",
                "DISPLAY=" + x.Display() + " ALSOFT_DRIVERS=null ASAN_OPTIONS=detect_leaks=0:abort_on_error=1");
    ASSERT_EQ(0, run.status) << run.output;
    EXPECT_NE(std::string::npos, run.output.find("Tarnwick: 1100 turns in")) << run.output;

    // A line every thousand turns and one at the last, each a resident size.
    std::istringstream log(OrvScratchDir::Read(Here("memory.log")));
    std::vector<unsigned int> turns;
    unsigned int turn = 0;
    long kB = 0;
    while (log >> turn >> kB)
    {
        turns.push_back(turn);
        EXPECT_GT(kB, 10000) << "turn " << turn;
    }
    EXPECT_EQ((std::vector<unsigned int>{1000, 1100}), turns);

    OrvFileManager files;
    const OrvXMLElement* report = files.GetOrLoad<OrvXMLFile>(Here("DemoReport.xml").c_str())->GetXMLRoot();
    EXPECT_EQ("1100", Child(report, "Turns"));
    EXPECT_EQ("3", Child(report, "Rounds"));
    // Each pass writes the same screenshots again: the report lists each once.
    unsigned int shots = 0;
    for (unsigned int i = 0; i < report->GetChildCount(); ++i)
        shots += report->GetChild(i)->GetName() == "Shot" ? 1 : 0;
    EXPECT_EQ(4u, shots);

    // Both finished rounds kept "Ar" completed to Arthur, after the five names of a new table.
    const OrvXMLElement* scores = files.GetOrLoad<OrvXMLFile>(Here("HighScores.xml").c_str())->GetXMLRoot();
    ASSERT_EQ(7u, scores->GetChildCount());
    unsigned int arthurs = 0;
    for (unsigned int i = 0; i < scores->GetChildCount(); ++i)
        arthurs += Child(scores->GetChild(i), "Name") == "Arthur" ? 1 : 0;
    EXPECT_EQ(3u, arthurs);
}

#include <gtest/gtest.h>

#include <string>

#include "OrvFileException.h"
#include "OrvFileManager.h"
#include "OrvScratchDir.h"
#include "OrvSession.h"

namespace
{
const std::string kHead = "<OrvSession>\n<Version>1</Version>\n<Seed>42</Seed>\n<Devices>3</Devices>\n";

// The message a session file is refused with, "accepted" when it is read.
std::string Refusal(const std::string& bytes, OrvSession& session)
{
    OrvScratchDir::Write("session.xml", bytes);
    OrvFileManager files;
    try
    {
        session.Load(&files, "session.xml");
        return "accepted";
    }
    catch (const OrvFileException& e)
    {
        return e.message;
    }
}
}  // namespace

TEST(OrvSessionTest, TurnsReadBackAsTheyWereWritten)
{
    OrvScratchDir scratch;
    OrvSession::Turn turn;
    turn.seconds = 1.0f / 60.0f;
    OrvSession::Event key;
    key.kind = 'K';
    key.values[0] = 1;
    key.values[1] = 273;
    key.values[2] = 97;
    OrvSession::Event motion;
    motion.kind = 'M';
    motion.values[0] = 400;
    motion.values[1] = 300;
    motion.values[2] = -3;
    motion.values[3] = 2;
    turn.events = {key, motion};
    EXPECT_EQ("0.0166666675 K1,273,97 M400,300,-3,2", OrvSession::TurnText(turn));

    OrvSession session;
    ASSERT_EQ("accepted", Refusal(kHead + "<T>" + OrvSession::TurnText(turn) + "</T>\n<T>0.5</T>\n</OrvSession>\n",
                                  session));
    EXPECT_EQ(42u, session.GetSeed());
    EXPECT_EQ(3u, session.GetDevices());
    EXPECT_EQ(0u, session.GetWindowWidth()) << "a file may leave its window's size out";
    ASSERT_EQ(2u, session.GetTurns().size());
    const OrvSession::Turn& read = session.GetTurns()[0];
    EXPECT_EQ(turn.seconds, read.seconds);  // the very same float
    ASSERT_EQ(2u, read.events.size());
    EXPECT_EQ('M', read.events[1].kind);
    EXPECT_EQ(-3, read.events[1].values[2]);
    EXPECT_TRUE(session.GetTurns()[1].events.empty());
}

TEST(OrvSessionTest, BadFilesAreRefusedNamingTheFileAndTheTurn)
{
    OrvScratchDir scratch;
    OrvSession session;
    EXPECT_EQ("The session file session.xml is of version 2; this engine reads version 1",
              Refusal("<OrvSession><Version>2</Version><Seed>1</Seed><Devices>7</Devices></OrvSession>", session));
    EXPECT_EQ("The session file session.xml is cut short: it breaks off in turn 1",
              Refusal(kHead + "<T>0.01 K1,273,0</T>\n<T>0.01 K0,2", session));
    EXPECT_EQ("The session file session.xml holds an event it does not know (Q1) at turn 1",
              Refusal(kHead + "<T>0.01</T><T>0.01 Q1</T></OrvSession>", session));
    EXPECT_EQ("The session file session.xml holds a malformed event (K1,99999,0) at turn 0",
              Refusal(kHead + "<T>0.01 K1,99999,0</T></OrvSession>", session));
    EXPECT_EQ("The session file session.xml holds a frame time that is not a number of seconds (-1) at turn 0",
              Refusal(kHead + "<T>-1</T></OrvSession>", session));
    // Recorded with keyboard and mouse only: a joypad event is not the game's.
    EXPECT_EQ("The session file session.xml holds an event of a device it says it was not recorded with (A) at "
              "turn 2",
              Refusal(kHead + "<T>0.01</T><T>0.01</T><T>0.01 A0,1,5</T></OrvSession>", session));
    EXPECT_EQ("The session file session.xml does not give its window's size as two whole numbers (1024 768)",
              Refusal(kHead + "<Window>1024x768</Window></OrvSession>", session));
    ASSERT_EQ("accepted", Refusal(kHead + "<Window>800 600</Window></OrvSession>", session));
    EXPECT_EQ(800u, session.GetWindowWidth());
    EXPECT_EQ(600u, session.GetWindowHeight());
    EXPECT_EQ("The session file session.xml has no seed for rand()",
              Refusal("<OrvSession><Version>1</Version></OrvSession>", session));
    EXPECT_EQ("The session file missing.xml cannot be read", [&] {
        OrvFileManager files;
        try
        {
            session.Load(&files, "missing.xml");
        }
        catch (const OrvFileException& e)
        {
            return std::string(e.message);
        }
        return std::string("accepted");
    }());
}

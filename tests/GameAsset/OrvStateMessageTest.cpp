#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "OrvGameAsset.h"
#include "OrvGameAssetDesc.h"
#include "OrvGameAssetManager.h"
#include "OrvGameAssetState.h"
#include "OrvMessage.h"
#include "OrvMessageManager.h"
#include "OrvTestBytes.h"
#include "OrvTestGame.h"

namespace
{
// Logs "<name>:<event>" for everything the machine and the messages do to it.
class Logged : public OrvGameAssetState
{
public:
    Logged(OrvGameAsset* owner, const char* name, std::vector<std::string>& log, int* alive = nullptr)
        : OrvGameAssetState(owner), m_name(name), m_log(log), m_alive(alive)
    {
        if (m_alive != nullptr)
            ++*m_alive;
    }
    ~Logged() override
    {
        if (m_alive != nullptr)
            --*m_alive;
    }
    void Enter() override { m_log.push_back(m_name + ":enter"); }
    void Execute(float) override
    {
        m_log.push_back(m_name + ":execute");
        if (request != nullptr)
        {
            GetOwner()->GetStateMachine()->RequestState(request);
            request = nullptr;
        }
    }
    void Exit() override { m_log.push_back(m_name + ":exit"); }
    bool OnMessage(OrvMessage* message) override
    {
        char text[32] = {};
        message->GetMessage().ToCString(text, sizeof(text), nullptr);
        m_log.push_back(m_name + ":" + text);
        return true;
    }

    OrvTState<OrvGameAsset>* request = nullptr;

private:
    std::string m_name;
    std::vector<std::string>& m_log;
    int* m_alive;
};

class OrvStateMessageTest : public OrvGameTest
{
protected:
    OrvGameAsset* Make()
    {
        OrvGameAssetDesc desc;
        return game.GetGameAssetManager()->CreateGameAsset<OrvGameAsset, OrvGameAssetDesc>(&desc);
    }
    std::vector<std::string> log;
    // Counts live states; a member, for states die as late as TearDown.
    int alive = 0;
};
}  // namespace

TEST_F(OrvStateMessageTest, TheStateTwoStepsBackIsDestroyedUnlessItReturns)
{
    OrvGameAsset* asset = Make();
    OrvTStateMachine<OrvGameAsset>* machine = asset->GetStateMachine();
    Logged* s1 = new Logged(asset, "S1", log, &alive);
    Logged* s2 = new Logged(asset, "S2", log, &alive);
    Logged* s3 = new Logged(asset, "S3", log, &alive);
    machine->RegisterState(s1);
    machine->RegisterState(s2);
    machine->RegisterState(s3);

    machine->RequestState(s1);
    asset->Update(0.1f);
    machine->RequestState(s2);
    asset->Update(0.1f);
    machine->RequestState(s1);
    asset->Update(0.1f);
    EXPECT_EQ(3, alive) << "switching back to the previous state keeps it";
    EXPECT_EQ(s1, machine->GetCurrentState());
    EXPECT_EQ(s2, machine->GetPreviousState());

    machine->RequestState(s3);
    asset->Update(0.1f);
    EXPECT_EQ(2, alive) << "S2, two steps back, is gone";
    EXPECT_EQ(s1, machine->GetPreviousState());
    EXPECT_EQ(2u, machine->GetStateCount());
    EXPECT_EQ((std::vector<std::string>{"S1:enter", "S1:execute", "S1:exit", "S2:enter", "S2:execute", "S2:exit",
                                        "S1:enter", "S1:execute", "S1:exit", "S3:enter", "S3:execute"}),
              log);
}

TEST_F(OrvStateMessageTest, MachinesOwnTheirRegisteredStatesAndTheGameTheRest)
{
    // One global state serves two assets; the first asset's death leaves it.
    OrvGameAsset* first = Make();
    OrvGameAsset* second = Make();
    Logged shared(first, "G", log, &alive);
    first->GetStateMachine()->SetGlobalState(&shared);
    second->GetStateMachine()->SetGlobalState(&shared);
    Logged* registered = new Logged(first, "R", log, &alive);
    first->GetStateMachine()->RegisterState(registered);
    Logged current(first, "C", log, &alive);
    Logged requested(first, "N", log, &alive);
    first->GetStateMachine()->RequestState(&current);
    first->Update(0.1f);
    first->GetStateMachine()->RequestState(&requested);
    EXPECT_EQ(4, alive);

    first->DeleteThisGameAsset();
    game.GetGameAssetManager()->CleanUp();
    EXPECT_EQ(3, alive) << "only the registered state went with its machine";
    log.clear();
    second->Update(0.1f);
    EXPECT_EQ((std::vector<std::string>{"G:execute"}), log) << "the shared global state still serves";
    second->GetStateMachine()->SetGlobalState(nullptr);
}

TEST_F(OrvStateMessageTest, TheGlobalStateRunsFirstAndItsRequestsActAtOnce)
{
    OrvGameAsset* asset = Make();
    OrvTStateMachine<OrvGameAsset>* machine = asset->GetStateMachine();
    Logged* global = new Logged(asset, "G", log);
    Logged* first = new Logged(asset, "A", log);
    Logged* second = new Logged(asset, "B", log);
    machine->RegisterState(global);
    machine->RegisterState(first);
    machine->RegisterState(second);
    machine->SetGlobalState(global);
    global->request = first;
    asset->Update(0.1f);
    EXPECT_EQ((std::vector<std::string>{"G:execute", "A:enter", "A:execute"}), log) << "the same frame";

    log.clear();
    first->request = second;
    asset->Update(0.1f);
    EXPECT_EQ(second, machine->GetNextState()) << "asked by the current state: next frame";
    asset->Update(0.1f);
    EXPECT_EQ(second, machine->GetCurrentState());
}

TEST_F(OrvStateMessageTest, MessagesArriveAfterTheirDelayInSendingOrder)
{
    OrvGameAsset* sender = Make();
    OrvGameAsset* receiver = Make();
    OrvTStateMachine<OrvGameAsset>* machine = receiver->GetStateMachine();
    Logged* global = new Logged(receiver, "G", log);
    Logged* current = new Logged(receiver, "C", log);
    machine->RegisterState(global);
    machine->RegisterState(current);
    machine->SetGlobalState(global);
    machine->RequestState(current);
    receiver->Update(0.0f);
    log.clear();

    OrvMessageManager* messages = game.GetMessageManager();
    messages->SendMessage(sender, receiver, "later", nullptr, 2);
    messages->SendMessage(sender, receiver, "first", nullptr, 0);
    messages->SendMessage(sender, receiver, "second", nullptr, -3);
    // One frame: the assets update, then the messages.
    auto frame = [&] {
        receiver->Update(1.0f);
        messages->Update(1.0f);
    };
    frame();
    EXPECT_EQ(2u, receiver->GetFrameMessageCount()) << "due ones are delivered at the end of the frame";
    EXPECT_EQ((std::vector<std::string>{"G:execute", "C:execute"}), log);
    log.clear();
    frame();
    EXPECT_EQ((std::vector<std::string>{"G:first", "C:first", "G:second", "C:second", "G:execute", "C:execute"}), log)
        << "handled at the start of the next update, in sending order";
    EXPECT_EQ(1u, messages->GetMessageCount()) << "handled messages are destroyed";
    log.clear();
    frame();
    EXPECT_EQ(1u, receiver->GetFrameMessageCount()) << "delay 2 under 1 s frames: delivered in the third update";
    log.clear();
    frame();
    EXPECT_EQ("C:later", log[1]);
    EXPECT_EQ(0u, messages->GetMessageCount());

    // A receiver destroyed before it handled its messages takes them along.
    messages->SendMessage(sender, receiver, "delivered", nullptr, 0);
    messages->SendMessage(sender, receiver, "pending", nullptr, 5);
    messages->SendMessage(receiver, sender, "kept", nullptr, 5);
    messages->Update(1.0f);
    ASSERT_EQ(1u, receiver->GetFrameMessageCount());
    receiver->DeleteThisGameAsset();
    game.GetGameAssetManager()->CleanUp();
    EXPECT_EQ(1u, messages->GetMessageCount());
    EXPECT_EQ(1u, messages->GetPendingCount());
    for (int i = 0; i < 6; ++i)
        messages->Update(1.0f);
    EXPECT_EQ(1u, sender->GetFrameMessageCount()) << "the message to the asset still there arrives";
}

TEST_F(OrvStateMessageTest, AMessageForAnotherAssetIsRefusedAndKept)
{
    OrvGameAsset* receiver = Make();
    OrvGameAsset* other = Make();
    OrvMessageManager* messages = game.GetMessageManager();
    messages->SendMessage(receiver, other, "misdirected", nullptr, 0);
    messages->Update(0.1f);
    OrvMessage* message = new OrvMessage(receiver, other, "misdirected", nullptr, 0.0f);
    receiver->ReceiveMessage(message);
    const Thrown refused([&] { receiver->Update(0.1f); });
    EXPECT_EQ("Orv Message Exception | A game asset received a message that it shouldn't have ! | "
              "src/GameAsset/OrvGameAsset",
              refused.Full());
    EXPECT_EQ(1u, receiver->GetFrameMessageCount()) << "the refused message stays";
    delete message;

    messages->SendMessage(receiver, other, "pending", nullptr, 5);
    EXPECT_EQ(1u, messages->GetPendingCount());
    messages->DeleteAllMessages();
    EXPECT_EQ(0u, messages->GetMessageCount());
    EXPECT_EQ(1u, messages->GetPendingCount()) << "pending is left alone";
}

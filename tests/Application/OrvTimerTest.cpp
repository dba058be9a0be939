#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "OrvDbgTimer.h"
#include "OrvTimerManager.h"

namespace
{
struct Record
{
    int ticks = 0, ends = 0;
    bool runningAtEnd = false;
};

void CountTick(OrvTimer*, void* data) { ++static_cast<Record*>(data)->ticks; }

void CountEnd(OrvTimer* timer, void* data)
{
    Record* record = static_cast<Record*>(data);
    ++record->ends;
    record->runningAtEnd = timer->IsRunning();
}

struct Scenario
{
    OrvTimerManager* manager = nullptr;
    OrvTimer* victim = nullptr;
    std::vector<int> order;
};

void AddAnotherTimer(OrvTimer*, void* data)
{
    Scenario* s = static_cast<Scenario*>(data);
    s->order.push_back(1);
    OrvTimer* added = s->manager->AddTimer();
    added->SetEndCallBack([](OrvTimer*, void* d) { static_cast<Scenario*>(d)->order.push_back(2); }, s);
    added->Start();
}

void DeleteVictim(OrvTimer* self, void* data)
{
    Scenario* s = static_cast<Scenario*>(data);
    s->order.push_back(3);
    s->manager->DeleteTimer(s->victim);
    s->manager->DeleteTimer(self);
}
}

TEST(OrvTimer, TicksOncePerSecondAndEndsAtItsLimit)
{
    Record record;
    OrvTimer timer;
    timer.SetTimeLimit(2.5f);
    timer.SetTickCallBack(CountTick, &record);
    timer.SetEndCallBack(CountEnd, &record);
    timer.Update(1.0f);
    EXPECT_EQ(0, record.ticks) << "a stopped timer does not accumulate";
    EXPECT_EQ(0.0f, timer.GetCurrentSeconds());

    timer.Start();
    timer.Update(1.0f);
    timer.Update(1.0f);
    EXPECT_EQ(2, record.ticks);
    EXPECT_EQ(0, record.ends);
    timer.Update(1.0f);
    EXPECT_EQ(3, record.ticks);
    EXPECT_EQ(1, record.ends);
    EXPECT_TRUE(record.runningAtEnd) << "the end callback runs before the timer stops";
    EXPECT_FALSE(timer.IsRunning());

    // The part beyond a second is dropped: 0.6 + 0.6 ticks once, then needs a full second.
    Record partial;
    OrvTimer second;
    second.SetTimeLimit(100.0f);
    second.SetTickCallBack(CountTick, &partial);
    second.Start();
    const std::pair<float, int> steps[] = {{0.6f, 0}, {0.6f, 1}, {0.9f, 1}, {0.1f, 2}};
    for (const std::pair<float, int>& step : steps)
    {
        second.Update(step.first);
        EXPECT_EQ(step.second, partial.ticks) << "after " << step.first;
    }
    EXPECT_FLOAT_EQ(2.2f, second.GetCurrentSeconds());
}

TEST(OrvTimer, LimitsThatEndAtOnceAndRestartInsideTheEndCallback)
{
    Record record;
    OrvTimer unset;
    unset.SetEndCallBack(CountEnd, &record);
    unset.Start();
    unset.Update(0.01f);
    EXPECT_EQ(1, record.ends) << "limit -1 ends on the first update";
    EXPECT_FALSE(unset.IsRunning());

    OrvTimer zero;
    zero.SetTimeLimit(0.0f);
    zero.SetEndCallBack(CountEnd, &record);
    zero.Start();
    zero.Update(0.0f);
    EXPECT_EQ(2, record.ends);

    OrvTimer looping;
    looping.SetTimeLimit(1.0f);
    looping.SetEndCallBack([](OrvTimer* timer, void*) { timer->Restart(); }, nullptr);
    looping.Start();
    looping.Update(1.5f);
    EXPECT_FALSE(looping.IsRunning()) << "a restart made in the end callback is undone";
    EXPECT_EQ(0.0f, looping.GetCurrentSeconds());

    OrvTimer copy(looping);
    copy.Start();
    copy.Update(0.5f);
    EXPECT_FLOAT_EQ(0.5f, copy.GetCurrentSeconds());
    copy.Reset();
    EXPECT_TRUE(copy.IsRunning());
    EXPECT_EQ(0.0f, copy.GetCurrentSeconds());

    OrvDbgTimer profiler("frame", OrvDbgTimer::CREATE_STARTED);
    profiler.Start("frame");
    profiler.Stop();
    EXPECT_STREQ("", profiler.GetName());
}

TEST(OrvTimerManager, CallbacksMayAddAndDeleteTimersDuringUpdate)
{
    OrvTimerManager manager;
    Scenario s;
    s.manager = &manager;

    OrvTimer* adder = manager.AddTimer();
    EXPECT_FALSE(adder->IsRunning());
    adder->SetEndCallBack(AddAnotherTimer, &s);
    adder->Start();
    manager.Update(0.1f);
    EXPECT_EQ((std::vector<int>{1, 2}), s.order) << "a timer added during the update updates in the same pass";
    EXPECT_EQ(2u, manager.GetTimerCount());

    OrvTimer* deleter = manager.AddTimer();
    s.victim = manager.AddTimer();
    s.victim->SetEndCallBack([](OrvTimer*, void* d) { static_cast<Scenario*>(d)->order.push_back(4); }, &s);
    s.victim->Start();
    deleter->SetEndCallBack(DeleteVictim, &s);
    deleter->Start();
    s.order.clear();
    manager.Update(0.1f);
    EXPECT_EQ((std::vector<int>{3}), s.order) << "the deleted timer is no longer updated";
    EXPECT_EQ(2u, manager.GetTimerCount());

    // A timer of another manager is left alone.
    OrvTimerManager other;
    OrvTimer* foreign = other.AddTimer();
    manager.DeleteTimer(foreign);
    EXPECT_EQ(1u, other.GetTimerCount());
    EXPECT_EQ(2u, manager.GetTimerCount());
    manager.DeleteTimer(manager.GetTimer(0));
    EXPECT_EQ(1u, manager.GetTimerCount());
}

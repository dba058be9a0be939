#include "OrvTimerManager.h"
#include "OrvException.h"

OrvTimerManager::OrvTimerManager() : m_updating(false) {}

OrvTimerManager::~OrvTimerManager()
{
    m_timers.DeleteAll();
    m_retired.DeleteAll();
}

OrvTimer* OrvTimerManager::AddTimer()
{
    OrvTimer* timer = new OrvTimer();
    ORV_ADD_OWNED(m_timers, timer, OrvException, "Not enough memory for another timer", "src/Application/OrvTimerManager");
    return timer;
}

void OrvTimerManager::DeleteTimer(OrvTimer* timer)
{
    if (timer == nullptr || m_timers.Remove(timer) == nullptr)
        return;
    // A timer may delete itself from its own callback: while timers update,
    // the object lives on until the update is over.
    if (m_updating)
        m_retired.Add(timer, true);
    else
        delete timer;
}

void OrvTimerManager::Update(float seconds)
{
    // Ends the update also when a callback throws.
    struct UpdateScope
    {
        OrvTimerManager& manager;
        explicit UpdateScope(OrvTimerManager& m) : manager(m) { manager.m_updating = true; }
        ~UpdateScope()
        {
            manager.m_updating = false;
            manager.m_retired.DeleteAll();
        }
    } scope(*this);
    for (unsigned int i = 0; i < m_timers.GetSize(); ++i)
        m_timers[i]->Update(seconds);
}

#ifndef ORV_TIMER_MANAGER_H
#define ORV_TIMER_MANAGER_H

#include "OrvTArray.h"
#include "OrvTimer.h"

/// Owns the timers created through it and advances them once per turn.
class OrvTimerManager
{
public:
    OrvTimerManager();
    OrvTimerManager(const OrvTimerManager&) = delete;
    OrvTimerManager& operator=(const OrvTimerManager&) = delete;
    /// Deletes the timers still registered.
    virtual ~OrvTimerManager();

    /// A new stopped timer with no limit set (-1); the caller configures and starts it.
    OrvTimer* AddTimer();
    /// Removes and deletes the timer; a timer of another manager is left alone.
    void DeleteTimer(OrvTimer* timer);
    /// Callbacks may add or delete timers: the count is read again at each step.
    void Update(float seconds);

    unsigned int GetTimerCount() const { return m_timers.GetSize(); }
    OrvTimer* GetTimer(unsigned int index) const { return m_timers[index]; }

private:
    OrvTArray<OrvTimer> m_timers;
    OrvTArray<OrvTimer> m_retired;
    bool m_updating;
};

#endif

#ifndef ORV_DBG_TIMER_H
#define ORV_DBG_TIMER_H

#include "OrvTime.h"

/// Profiling timer kept for source compatibility; its operations do nothing.
class OrvDbgTimer
{
public:
    enum CREATE_OPTION : int
    {
        CREATE_STOPPED = 0,
        CREATE_STARTED = 1
    };

    OrvDbgTimer(const char* name, CREATE_OPTION option);
    ~OrvDbgTimer();

    void SetName(const char* name);
    void Start(const char* name);
    void Stop();

    const char* GetName() const { return m_name; }

private:
    char m_name[40];
    OrvTime m_start;
    OrvTime m_stop;
};

#endif

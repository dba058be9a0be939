#include "OrvTime.h"

#include <time.h>

namespace
{
double g_cyclesPerSecond = 0.0;
}

OrvTime::~OrvTime() = default;

void OrvTime::SetAsTimeFromProgramStart()
{
    // CLOCK_MONOTONIC counts nanoseconds.
    if (g_cyclesPerSecond == 0.0)
        g_cyclesPerSecond = 1e9;
    timespec now;
    clock_gettime(CLOCK_MONOTONIC, &now);
    const double ticks = static_cast<double>(now.tv_sec) * 1e9 + static_cast<double>(now.tv_nsec);
    m_seconds = ticks / g_cyclesPerSecond;
}

double OrvTime::GetCyclesPerSecond()
{
    return g_cyclesPerSecond;
}

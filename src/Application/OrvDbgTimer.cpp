#include "OrvDbgTimer.h"

OrvDbgTimer::OrvDbgTimer(const char*, CREATE_OPTION) : m_name{}, m_start(0.0), m_stop(0.0) {}

OrvDbgTimer::~OrvDbgTimer() = default;

void OrvDbgTimer::SetName(const char*) {}

void OrvDbgTimer::Start(const char*) {}

void OrvDbgTimer::Stop() {}

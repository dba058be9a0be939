#include "OrvTimer.h"

OrvTimer::OrvTimer()
    : m_currentSeconds(0.0f),
      m_running(false),
      m_timeLimit(-1.0f),
      m_tickCallback(nullptr),
      m_tickSeconds(0.0f),
      m_tickData(nullptr),
      m_endCallback(nullptr),
      m_endData(nullptr)
{
}

OrvTimer::OrvTimer(const OrvTimer& other) = default;
OrvTimer& OrvTimer::operator=(const OrvTimer& other) = default;
OrvTimer::~OrvTimer() = default;

void OrvTimer::Reset()
{
    m_currentSeconds = 0.0f;
    m_tickSeconds = 0.0f;
}

void OrvTimer::Restart()
{
    Reset();
    m_running = true;
}

void OrvTimer::SetTickCallBack(Callback callback, void* data)
{
    m_tickCallback = callback;
    m_tickData = data;
}

void OrvTimer::SetEndCallBack(Callback callback, void* data)
{
    m_endCallback = callback;
    m_endData = data;
}

void OrvTimer::Update(float seconds)
{
    if (!m_running)
        return;
    const float t = m_tickSeconds + seconds;
    if (t >= 1.0f)
    {
        // At most one tick per update; time beyond the second is dropped.
        if (m_tickCallback != nullptr)
        {
            m_tickSeconds = t;
            m_tickCallback(this, m_tickData);
        }
        m_tickSeconds = 0.0f;
    }
    else
    {
        m_tickSeconds = t;
    }
    m_currentSeconds += seconds;
    if (m_timeLimit <= m_currentSeconds)
    {
        // Stopped after the callback: a Restart made inside it is undone.
        if (m_endCallback != nullptr)
            m_endCallback(this, m_endData);
        m_running = false;
    }
}

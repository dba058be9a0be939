#ifndef ORV_TIMER_H
#define ORV_TIMER_H

/// Game timer driven by the frame time. It calls its tick callback once per
/// accumulated second (at most once per update) and its end callback when the
/// accumulated time reaches the limit, then stops. The limit starts at -1, so a
/// started timer whose limit was never set ends on its first update.
class OrvTimer
{
public:
    typedef void (*Callback)(OrvTimer* timer, void* data);

    OrvTimer();
    OrvTimer(const OrvTimer& other);
    OrvTimer& operator=(const OrvTimer& other);
    virtual ~OrvTimer();

    void Start() { m_running = true; }
    void Stop() { m_running = false; }
    void Reset();
    void Restart();
    bool IsRunning() const { return m_running; }
    float GetCurrentSeconds() const { return m_currentSeconds; }
    void SetTimeLimit(float seconds) { m_timeLimit = seconds; }
    float GetTimeLimit() const { return m_timeLimit; }
    void SetTickCallBack(Callback callback, void* data);
    void SetEndCallBack(Callback callback, void* data);
    void Update(float seconds);

private:
    float m_currentSeconds;
    bool m_running;
    float m_timeLimit;
    Callback m_tickCallback;
    float m_tickSeconds;
    void* m_tickData;
    Callback m_endCallback;
    void* m_endData;
};

#endif

#ifndef ORV_TIME_H
#define ORV_TIME_H

/// A point or span of time in seconds. Points read from the monotonic clock are
/// only meaningful relative to each other.
class OrvTime
{
public:
    OrvTime() : m_seconds(0.0) {}
    OrvTime(double seconds) : m_seconds(seconds) {}
    OrvTime(const OrvTime& other) = default;
    virtual ~OrvTime();

    void Set(double seconds) { m_seconds = seconds; }
    float Get() const { return static_cast<float>(m_seconds); }
    double GetSeconds() const { return m_seconds; }
    /// Reads the monotonic clock.
    void SetAsTimeFromProgramStart();

    OrvTime& operator=(const OrvTime& other) = default;
    OrvTime& operator+=(const OrvTime& other)
    {
        m_seconds += other.m_seconds;
        return *this;
    }
    OrvTime& operator-=(const OrvTime& other)
    {
        m_seconds -= other.m_seconds;
        return *this;
    }
    OrvTime operator+(const OrvTime& other) const { return OrvTime(m_seconds + other.m_seconds); }
    OrvTime operator-(const OrvTime& other) const { return OrvTime(m_seconds - other.m_seconds); }
    bool operator>(const OrvTime& other) const { return m_seconds > other.m_seconds; }
    bool operator<(const OrvTime& other) const { return m_seconds < other.m_seconds; }
    bool operator==(const OrvTime& other) const { return m_seconds == other.m_seconds; }
    bool operator<=(const OrvTime& other) const { return m_seconds <= other.m_seconds; }
    bool operator>=(const OrvTime& other) const { return m_seconds >= other.m_seconds; }

    /// Ticks per second of the clock; 0 until the clock is first read.
    static double GetCyclesPerSecond();

private:
    double m_seconds;
};

#endif

#ifndef ORV_AL_DEVICE_H
#define ORV_AL_DEVICE_H

// The sound manager's only door to OpenAL: the default device, its context,
// and a fixed pool of buffers and sources addressed by their index in the
// pool (0 to kSize - 1). The manager decides which sound goes where; this
// class only carries the decisions out, so no other file of the engine
// includes an OpenAL header.

#include <AL/alc.h>

class OrvALDevice
{
public:
    static constexpr int kSize = 12;

    // What Open found. Every failure after the device opened has already
    // released what was made, device included.
    enum class Opening
    {
        Opened,
        NoDevice,
        NoContext,
        NoBuffers,
        NoSources
    };

    enum class SourceState
    {
        Initial,
        Playing,
        Paused,
        Stopped
    };

    enum class Parameter
    {
        Gain,
        Pitch
    };

    OrvALDevice() = default;
    OrvALDevice(const OrvALDevice&) = delete;
    OrvALDevice& operator=(const OrvALDevice&) = delete;
    ~OrvALDevice() { Close(); }

    // Opens the default device and makes the pool in a current context.
    Opening Open();
    // Stops and deletes the pool, then the context and the device.
    void Close();
    bool IsOpen() const { return m_device != nullptr; }

    // Whether OpenAL recorded an error since the last call (which clears it).
    bool TakeError() const;

    SourceState GetState(int source) const;
    // Buffers the source has finished playing and still holds.
    int GetProcessedCount(int source) const;
    // Takes the oldest finished buffer off the source: its pool index, -1 if
    // OpenAL answered with a buffer that is not the pool's.
    int UnqueueProcessed(int source);
    void Queue(int source, int buffer);
    // Takes every buffer off a source that does not play.
    void Detach(int source);
    void Play(int source);
    void Pause(int source);
    void Stop(int source);
    void Set(int source, Parameter parameter, float value);
    float Get(int source, Parameter parameter) const;
    // 16-bit samples, one or two channels.
    void Fill(int buffer, int channels, const void* data, unsigned long size, unsigned long frequency);

private:
    // Deletes what exists of the pool and the context, closes the device.
    void Release(bool buffersMade, bool sourcesMade);

    ALCdevice* m_device = nullptr;
    ALCcontext* m_context = nullptr;
    unsigned int m_buffers[kSize] = {};
    unsigned int m_sources[kSize] = {};
};

#endif

#include "OrvALDevice.h"

#include <AL/al.h>
#include <fcntl.h>
#include <unistd.h>

#include <cstdio>

namespace
{
// openal-soft, and the ALSA library below it, report a machine without a
// sound card on standard error in a dozen lines; the sound manager says it
// in one. Standard error goes to /dev/null while the device opens.
class QuietStandardError
{
public:
    QuietStandardError() : m_saved(-1)
    {
        std::fflush(stderr);
        const int null = open("/dev/null", O_WRONLY | O_CLOEXEC);
        if (null < 0)
            return;
        m_saved = fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, 0);
        if (m_saved >= 0)
            dup2(null, STDERR_FILENO);
        close(null);
    }
    ~QuietStandardError()
    {
        if (m_saved < 0)
            return;
        std::fflush(stderr);
        dup2(m_saved, STDERR_FILENO);
        close(m_saved);
    }
    QuietStandardError(const QuietStandardError&) = delete;
    QuietStandardError& operator=(const QuietStandardError&) = delete;

private:
    int m_saved;
};
}  // namespace

OrvALDevice::Opening OrvALDevice::Open()
{
    {
        const QuietStandardError quiet;
        m_device = alcOpenDevice(nullptr);
    }
    if (m_device == nullptr)
        return Opening::NoDevice;
    m_context = alcCreateContext(m_device, nullptr);
    if (m_context == nullptr || alcMakeContextCurrent(m_context) != ALC_TRUE)
    {
        Release(false, false);
        return Opening::NoContext;
    }
    alGetError();
    alGenBuffers(kSize, m_buffers);
    if (alGetError() != AL_NO_ERROR)
    {
        Release(false, false);
        return Opening::NoBuffers;
    }
    alGenSources(kSize, m_sources);
    if (alGetError() != AL_NO_ERROR)
    {
        Release(true, false);
        return Opening::NoSources;
    }
    return Opening::Opened;
}

void OrvALDevice::Close()
{
    if (m_device == nullptr)
        return;
    // Sources first: a buffer still queued on one cannot be deleted.
    alSourceStopv(kSize, m_sources);
    Release(true, true);
}

void OrvALDevice::Release(bool buffersMade, bool sourcesMade)
{
    if (sourcesMade)
        alDeleteSources(kSize, m_sources);
    if (buffersMade)
        alDeleteBuffers(kSize, m_buffers);
    alcMakeContextCurrent(nullptr);
    if (m_context != nullptr)
        alcDestroyContext(m_context);
    alcCloseDevice(m_device);
    m_context = nullptr;
    m_device = nullptr;
}

bool OrvALDevice::TakeError() const
{
    return alGetError() != AL_NO_ERROR;
}

OrvALDevice::SourceState OrvALDevice::GetState(int source) const
{
    ALint state = 0;
    alGetSourcei(m_sources[source], AL_SOURCE_STATE, &state);
    switch (state)
    {
    case AL_PLAYING:
        return SourceState::Playing;
    case AL_PAUSED:
        return SourceState::Paused;
    case AL_STOPPED:
        return SourceState::Stopped;
    default:
        return SourceState::Initial;
    }
}

int OrvALDevice::GetProcessedCount(int source) const
{
    ALint processed = 0;
    alGetSourcei(m_sources[source], AL_BUFFERS_PROCESSED, &processed);
    return processed;
}

int OrvALDevice::UnqueueProcessed(int source)
{
    ALuint buffer = 0;
    alSourceUnqueueBuffers(m_sources[source], 1, &buffer);
    for (int i = 0; i < kSize; ++i)
        if (m_buffers[i] == buffer)
            return i;
    return -1;
}

void OrvALDevice::Queue(int source, int buffer)
{
    alSourceQueueBuffers(m_sources[source], 1, &m_buffers[buffer]);
}

void OrvALDevice::Detach(int source)
{
    alSourcei(m_sources[source], AL_BUFFER, 0);
}

void OrvALDevice::Play(int source)
{
    alSourcePlay(m_sources[source]);
}

void OrvALDevice::Pause(int source)
{
    alSourcePause(m_sources[source]);
}

void OrvALDevice::Stop(int source)
{
    alSourceStop(m_sources[source]);
}

namespace
{
ALenum Name(OrvALDevice::Parameter parameter)
{
    return parameter == OrvALDevice::Parameter::Gain ? AL_GAIN : AL_PITCH;
}
}  // namespace

void OrvALDevice::Set(int source, Parameter parameter, float value)
{
    alSourcef(m_sources[source], Name(parameter), value);
}

float OrvALDevice::Get(int source, Parameter parameter) const
{
    ALfloat value = 0.0f;
    alGetSourcef(m_sources[source], Name(parameter), &value);
    return value;
}

void OrvALDevice::Fill(int buffer, int channels, const void* data, unsigned long size, unsigned long frequency)
{
    alBufferData(m_buffers[buffer], channels == 1 ? AL_FORMAT_MONO16 : AL_FORMAT_STEREO16, data,
                 static_cast<ALsizei>(size), static_cast<ALsizei>(frequency));
}

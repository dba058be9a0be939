#include "OrvSoundManager.h"

#include <AL/al.h>
#include <AL/alc.h>

#include "OrvApplication.h"
#include "OrvFileManager.h"
#include "OrvSound.h"
#include "OrvSoundException.h"
#include "OrvWAVSoundFile.h"

namespace
{
const char* const kSource = "src/Sound/OrvSoundManager";

bool IsStopAll(OrvSoundManager::SND_OPS op)
{
    return op == OrvSoundManager::SND_OP_STOP_ALL;
}

bool ValidIndex(int index)
{
    return index >= 0 && index < OrvSoundManager::kPoolSize;
}
}  // namespace

OrvSoundManager::OrvSoundManager(OrvApplication* application)
    : m_sndOpCallback(nullptr), m_sndOpUserData(nullptr), m_application(application), m_device(nullptr),
      m_context(nullptr), m_buffers(), m_sources(), m_activated(false)
{
    InitOpenAL();
    m_activated = m_device != nullptr;
}

OrvSoundManager::~OrvSoundManager()
{
    if (m_device != nullptr)
        DestroyOpenAL();
    m_sounds.DeleteAll();
}

void OrvSoundManager::InitOpenAL()
{
    m_device = alcOpenDevice(nullptr);
    if (m_device == nullptr)
        return;
    // Whatever fails from here on, the device, its context and what was made
    // in it are released before the refusal: a manager that does not exist
    // owns nothing.
    bool buffersMade = false;
    bool sourcesMade = false;
    const auto refuse = [&](const char* message) {
        if (sourcesMade)
            alDeleteSources(kPoolSize, m_sources);
        if (buffersMade)
            alDeleteBuffers(kPoolSize, m_buffers);
        alcMakeContextCurrent(nullptr);
        if (m_context != nullptr)
            alcDestroyContext(m_context);
        alcCloseDevice(m_device);
        m_context = nullptr;
        m_device = nullptr;
        ORV_THROW(OrvSoundException, message, kSource);
    };
    m_context = alcCreateContext(m_device, nullptr);
    if (m_context == nullptr || alcMakeContextCurrent(m_context) != ALC_TRUE)
        refuse("Error while creating the OpenAL context");
    alGetError();
    alGenBuffers(kPoolSize, m_buffers);
    if (alGetError() != AL_NO_ERROR)
        refuse("Error while generating OpenAL buffers");
    buffersMade = true;
    alGenSources(kPoolSize, m_sources);
    if (alGetError() != AL_NO_ERROR)
        refuse("Error while generating OpenAL sources");
    sourcesMade = true;
}

void OrvSoundManager::DestroyOpenAL()
{
    if (m_device == nullptr)
        return;
    // Sources first: a buffer still queued on one cannot be deleted.
    alSourceStopv(kPoolSize, m_sources);
    alDeleteSources(kPoolSize, m_sources);
    alDeleteBuffers(kPoolSize, m_buffers);
    alcMakeContextCurrent(nullptr);
    alcDestroyContext(m_context);
    alcCloseDevice(m_device);
    m_context = nullptr;
    m_device = nullptr;
}

void OrvSoundManager::CheckALError() const
{
    if (alGetError() != AL_NO_ERROR)
        ORV_THROW(OrvSoundException, "Open AL error", kSource);
}

void OrvSoundManager::Update()
{
    if (m_device != nullptr)
        CleanUp();
}

void OrvSoundManager::CleanUp()
{
    if (m_device == nullptr)
        return;
    for (int i = 0; i < kPoolSize; ++i)
    {
        ALint processed = 0;
        alGetSourcei(m_sources[i], AL_BUFFERS_PROCESSED, &processed);
        CheckALError();
        for (ALint p = 0; p < processed; ++p)
        {
            ALuint buffer = 0;
            alSourceUnqueueBuffers(m_sources[i], 1, &buffer);
            CheckALError();
            for (unsigned int s = 0; s < m_sounds.GetSize(); ++s)
            {
                OrvSound* sound = m_sounds[s];
                if (!ValidIndex(sound->GetBufferIndex()) || m_buffers[sound->GetBufferIndex()] != buffer)
                    continue;
                if (sound->GetLooping())
                {
                    alSourceQueueBuffers(m_sources[i], 1, &buffer);
                    alSourcePlay(m_sources[i]);
                    CheckALError();
                }
                else
                    sound->SetSourceIndex(-1);
            }
        }
    }
}

OrvSound* OrvSoundManager::FindSound(const OrvUnicode& name) const
{
    for (unsigned int i = 0; i < m_sounds.GetSize(); ++i)
        if (m_sounds[i]->GetName() == name)
            return m_sounds[i];
    return nullptr;
}

bool OrvSoundManager::IsSourceFree(int index) const
{
    if (m_device == nullptr || !ValidIndex(index))
        return false;
    ALint state = 0;
    alGetSourcei(m_sources[index], AL_SOURCE_STATE, &state);
    CheckALError();
    if (state == AL_INITIAL)
        return true;
    if (state != AL_STOPPED)
        return false;
    alSourcei(m_sources[index], AL_BUFFER, 0);
    CheckALError();
    for (unsigned int i = 0; i < m_sounds.GetSize(); ++i)
        if (m_sounds[i]->GetSourceIndex() == index)
            m_sounds[i]->SetSourceIndex(-1);
    return true;
}

int OrvSoundManager::GetFreeSource() const
{
    for (int i = 0; i < kPoolSize; ++i)
        if (IsSourceFree(i))
            return i;
    return -1;
}

int OrvSoundManager::GetFreeBuffer()
{
    if (m_device == nullptr)
        return -1;
    for (int b = 0; b < kPoolSize; ++b)
    {
        bool busy = false;
        unsigned int i = 0;
        while (i < m_sounds.GetSize() && !busy)
        {
            OrvSound* sound = m_sounds[i];
            if (sound->GetBufferIndex() != b)
                ++i;
            else if (sound->GetSourceIndex() < 0 || IsSourceFree(sound->GetSourceIndex()))
                // Ended: the buffer goes, and with it what we knew of the sound.
                m_sounds.Delete(static_cast<unsigned long>(i));
            else
                busy = true;
        }
        if (!busy)
            return b;
    }
    return -1;
}

void OrvSoundManager::LoadIntoBuffer(const OrvUnicode& name, int index)
{
    OrvFileManager* files = m_application != nullptr ? m_application->GetFileManager() : nullptr;
    if (files == nullptr)
        ORV_THROW(OrvSoundException, "You tried to play a sound without a file manager", kSource);
    OrvWAVSoundFile* wav = files->GetOrLoad<OrvWAVSoundFile>(name);
    if (wav == nullptr)
        ORV_THROW(OrvSoundException, "You tried to play a sound that isn't a WAV file", kSource);
    if (wav->GetBitsPerSample() != 16)
        ORV_THROW(OrvSoundException, "You tried to play a WAV sound that isn't 16 bits a sample", kSource);
    const unsigned long size = wav->GetSize() > 0 ? static_cast<unsigned long>(wav->GetSize()) : 0;
    if (wav->GetBlockAlign() == 0 || size % wav->GetBlockAlign() != 0)
        ORV_THROW(OrvSoundException, "You tried to play a WAV sound whose data doesn't fit its block alignment",
                  kSource);
    alBufferData(m_buffers[index], wav->GetChannelCount() == 1 ? AL_FORMAT_MONO16 : AL_FORMAT_STEREO16, wav->GetData(),
                 static_cast<ALsizei>(size), static_cast<ALsizei>(wav->GetFrequency()));
    CheckALError();
}

bool OrvSoundManager::LoadIfUnloaded(OrvSound* sound)
{
    if (sound->GetBufferIndex() >= 0)
        return true;
    const int buffer = GetFreeBuffer();
    if (buffer < 0)
        return false;
    LoadIntoBuffer(sound->GetName(), buffer);
    sound->SetBufferIndex(buffer);
    return true;
}

void OrvSoundManager::StartOnSource(int source, int buffer, float gain)
{
    alSourcef(m_sources[source], AL_GAIN, gain);
    alSourcef(m_sources[source], AL_PITCH, 1.0f);
    alSourceQueueBuffers(m_sources[source], 1, &m_buffers[buffer]);
    alSourcePlay(m_sources[source]);
    CheckALError();
}

void OrvSoundManager::PlaySound(const OrvUnicode& name, float gain, bool looping, int type)
{
    if (m_device == nullptr || !m_activated)
        return;
    OrvSound* sound = FindSound(name);
    if (sound != nullptr)
    {
        if (sound->GetBufferIndex() < 0)
        {
            if (!LoadIfUnloaded(sound))
                return;
            sound->SetSourceIndex(-1);
        }
        if (sound->GetSourceIndex() >= 0)
        {
            const ALuint source = m_sources[sound->GetSourceIndex()];
            alSourcef(source, AL_GAIN, gain);
            alSourcef(source, AL_PITCH, 1.0f);
            alSourcePlay(source);
            CheckALError();
        }
        else
        {
            const int source = GetFreeSource();
            if (source < 0)
                return;
            StartOnSource(source, sound->GetBufferIndex(), gain);
            sound->SetSourceIndex(source);
        }
        sound->SetLooping(looping);
        sound->SetType(type);
        return;
    }
    sound = new OrvSound(name);
    ORV_ADD_OWNED(m_sounds, sound, OrvSoundException, "Not enough memory for another sound", kSource);
    const int buffer = GetFreeBuffer();
    if (buffer < 0)
        return;
    const int source = GetFreeSource();
    if (source < 0)
        return;
    LoadIntoBuffer(name, buffer);
    sound->SetBufferIndex(buffer);
    StartOnSource(source, buffer, gain);
    sound->SetSourceIndex(source);
    sound->SetLooping(looping);
    sound->SetType(type);
}

void OrvSoundManager::QueueSound(const OrvUnicode& name, float gain, bool looping, const OrvUnicode& afterName,
                                 int type)
{
    if (m_device == nullptr)
        return;
    OrvSound* after = FindSound(afterName);
    if (after == nullptr || after->GetSourceIndex() < 0 || IsSourceFree(after->GetSourceIndex()))
    {
        PlaySound(name, gain, looping, type);
        return;
    }
    OrvSound* sound = FindSound(name);
    if (sound == nullptr)
    {
        sound = new OrvSound(name);
        ORV_ADD_OWNED(m_sounds, sound, OrvSoundException, "Not enough memory for another sound", kSource);
    }
    if (!LoadIfUnloaded(sound))
        return;
    sound->SetSourceIndex(after->GetSourceIndex());
    alSourceQueueBuffers(m_sources[sound->GetSourceIndex()], 1, &m_buffers[sound->GetBufferIndex()]);
    CheckALError();
    sound->SetLooping(looping);
    sound->SetType(type);
}

void OrvSoundManager::StopSound(const OrvUnicode& name)
{
    if (m_device == nullptr)
        return;
    OrvSound* sound = FindSound(name);
    if (sound == nullptr)
        return;
    if (ValidIndex(sound->GetSourceIndex()))
    {
        alSourceStop(m_sources[sound->GetSourceIndex()]);
        CheckALError();
    }
    sound->SetLooping(false);
}

void OrvSoundManager::StopAllSounds()
{
    if (m_device == nullptr)
        return;
    for (unsigned int i = 0; i < m_sounds.GetSize(); ++i)
    {
        OrvSound* sound = m_sounds[i];
        if (ValidIndex(sound->GetSourceIndex()))
            alSourceStop(m_sources[sound->GetSourceIndex()]);
        sound->SetLooping(false);
    }
    CheckALError();
    TriggerSndOpCallback(SND_OP_STOP_ALL);
}

void OrvSoundManager::StopAllMusics()
{
    if (m_device == nullptr)
        return;
    for (unsigned int i = 0; i < m_sounds.GetSize(); ++i)
    {
        OrvSound* sound = m_sounds[i];
        if (sound->GetType() != 1)
            continue;
        if (ValidIndex(sound->GetSourceIndex()))
            alSourceStop(m_sources[sound->GetSourceIndex()]);
        sound->SetLooping(false);
    }
    CheckALError();
}

void OrvSoundManager::PauseAllSounds(bool pause)
{
    if (m_device == nullptr)
        return;
    for (unsigned int i = 0; i < m_sounds.GetSize(); ++i)
    {
        const int index = m_sounds[i]->GetSourceIndex();
        if (!ValidIndex(index))
            continue;
        ALint state = 0;
        alGetSourcei(m_sources[index], AL_SOURCE_STATE, &state);
        if (pause && state != AL_PAUSED)
            alSourcePause(m_sources[index]);
        else if (!pause && state == AL_PAUSED)
            alSourcePlay(m_sources[index]);
    }
    CheckALError();
}

void OrvSoundManager::SetIsActivated(bool activated)
{
    if (m_device == nullptr)
        return;
    m_activated = activated;
    if (!activated)
        StopAllSounds();
}

void OrvSoundManager::SetSourceFloat(const OrvUnicode& name, int parameter, float value)
{
    const int index = GetSourceIndex(name);
    if (!ValidIndex(index))
        return;
    alSourcef(m_sources[index], parameter, value);
    CheckALError();
}

float OrvSoundManager::GetSourceFloat(const OrvUnicode& name, int parameter) const
{
    const int index = GetSourceIndex(name);
    if (!ValidIndex(index))
        return 0.0f;
    ALfloat value = 0.0f;
    alGetSourcef(m_sources[index], parameter, &value);
    return value;
}

void OrvSoundManager::SetGain(const OrvUnicode& name, float gain)
{
    SetSourceFloat(name, AL_GAIN, gain);
}

void OrvSoundManager::SetPitch(const OrvUnicode& name, float pitch)
{
    SetSourceFloat(name, AL_PITCH, pitch);
}

float OrvSoundManager::GetGain(const OrvUnicode& name) const
{
    return GetSourceFloat(name, AL_GAIN);
}

float OrvSoundManager::GetPitch(const OrvUnicode& name) const
{
    return GetSourceFloat(name, AL_PITCH);
}

bool OrvSoundManager::IsSoundPlaying(const OrvUnicode& name) const
{
    return GetSourceIndex(name) != -1;
}

unsigned int OrvSoundManager::GetSoundIndex(const OrvUnicode& name) const
{
    for (unsigned int i = 0; i < m_sounds.GetSize(); ++i)
        if (m_sounds[i]->GetName() == name)
            return i;
    return m_sounds.GetSize();
}

int OrvSoundManager::GetSourceIndex(const OrvUnicode& name) const
{
    if (m_device == nullptr)
        return -1;
    const OrvSound* sound = FindSound(name);
    return sound != nullptr ? sound->GetSourceIndex() : -1;
}

bool OrvSoundManager::SetSndOpCallback(SND_OPS op, void (*callback)(void*), void* userData)
{
    if (!IsStopAll(op))
        ORV_THROW(OrvSoundException, "Invalid snd op parameter", kSource);
    m_sndOpCallback = callback;
    m_sndOpUserData = userData;
    return true;
}

bool OrvSoundManager::TriggerSndOpCallback(SND_OPS op) const
{
    if (!IsStopAll(op) || m_sndOpCallback == nullptr)
        ORV_THROW(OrvSoundException, "Invalid snd op parameter", kSource);
    m_sndOpCallback(m_sndOpUserData);
    return true;
}

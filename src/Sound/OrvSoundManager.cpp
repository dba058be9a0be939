#include "OrvSoundManager.h"

#include <cstdio>

#include "OrvALDevice.h"
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

static_assert(OrvSoundManager::kPoolSize == OrvALDevice::kSize, "one buffer and one source a pool slot");
}  // namespace

OrvSoundManager::OrvSoundManager(OrvApplication* application)
    : m_sndOpCallback(nullptr), m_sndOpUserData(nullptr), m_application(application), m_al(new OrvALDevice()),
      m_activated(false)
{
    InitOpenAL();
    m_activated = HasDevice();
}

OrvSoundManager::~OrvSoundManager()
{
    DestroyOpenAL();
    m_sounds.DeleteAll();
}

bool OrvSoundManager::HasDevice() const
{
    return m_al->IsOpen();
}

void OrvSoundManager::InitOpenAL()
{
    // A failure has already released the device, so that a manager that does
    // not exist owns nothing.
    switch (m_al->Open())
    {
    case OrvALDevice::Opening::Opened:
        return;
    case OrvALDevice::Opening::NoDevice:
        std::fputs("no sound device: playing without sound\n", stderr);
        return;
    case OrvALDevice::Opening::NoContext:
        ORV_THROW(OrvSoundException, "Error while creating the OpenAL context", kSource);
    case OrvALDevice::Opening::NoBuffers:
        ORV_THROW(OrvSoundException, "Error while generating OpenAL buffers", kSource);
    case OrvALDevice::Opening::NoSources:
        ORV_THROW(OrvSoundException, "Error while generating OpenAL sources", kSource);
    }
}

void OrvSoundManager::DestroyOpenAL()
{
    m_al->Close();
}

void OrvSoundManager::CheckALError() const
{
    if (m_al->TakeError())
        ORV_THROW(OrvSoundException, "Open AL error", kSource);
}

void OrvSoundManager::Update()
{
    if (HasDevice())
        CleanUp();
}

void OrvSoundManager::CleanUp()
{
    if (!HasDevice())
        return;
    for (int i = 0; i < kPoolSize; ++i)
    {
        const int processed = m_al->GetProcessedCount(i);
        CheckALError();
        for (int p = 0; p < processed; ++p)
        {
            const int buffer = m_al->UnqueueProcessed(i);
            CheckALError();
            for (unsigned int s = 0; s < m_sounds.GetSize(); ++s)
            {
                OrvSound* sound = m_sounds[s];
                if (!ValidIndex(sound->GetBufferIndex()) || sound->GetBufferIndex() != buffer)
                    continue;
                if (sound->GetLooping())
                {
                    m_al->Queue(i, buffer);
                    m_al->Play(i);
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
    if (!HasDevice() || !ValidIndex(index))
        return false;
    const OrvALDevice::SourceState state = m_al->GetState(index);
    CheckALError();
    if (state == OrvALDevice::SourceState::Initial)
        return true;
    if (state != OrvALDevice::SourceState::Stopped)
        return false;
    m_al->Detach(index);
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
    if (!HasDevice())
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
    m_al->Fill(index, wav->GetChannelCount(), wav->GetData(), size, wav->GetFrequency());
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
    m_al->Set(source, OrvALDevice::Parameter::Gain, gain);
    m_al->Set(source, OrvALDevice::Parameter::Pitch, 1.0f);
    m_al->Queue(source, buffer);
    m_al->Play(source);
    CheckALError();
}

void OrvSoundManager::PlaySound(const OrvUnicode& name, float gain, bool looping, int type)
{
    if (!HasDevice() || !m_activated)
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
            const int source = sound->GetSourceIndex();
            m_al->Set(source, OrvALDevice::Parameter::Gain, gain);
            m_al->Set(source, OrvALDevice::Parameter::Pitch, 1.0f);
            m_al->Play(source);
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
    if (!HasDevice())
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
    m_al->Queue(sound->GetSourceIndex(), sound->GetBufferIndex());
    CheckALError();
    sound->SetLooping(looping);
    sound->SetType(type);
}

void OrvSoundManager::StopSound(const OrvUnicode& name)
{
    if (!HasDevice())
        return;
    OrvSound* sound = FindSound(name);
    if (sound == nullptr)
        return;
    if (ValidIndex(sound->GetSourceIndex()))
    {
        m_al->Stop(sound->GetSourceIndex());
        CheckALError();
    }
    sound->SetLooping(false);
}

void OrvSoundManager::StopAllSounds()
{
    if (!HasDevice())
        return;
    for (unsigned int i = 0; i < m_sounds.GetSize(); ++i)
    {
        OrvSound* sound = m_sounds[i];
        if (ValidIndex(sound->GetSourceIndex()))
            m_al->Stop(sound->GetSourceIndex());
        sound->SetLooping(false);
    }
    CheckALError();
    TriggerSndOpCallback(SND_OP_STOP_ALL);
}

void OrvSoundManager::StopAllMusics()
{
    if (!HasDevice())
        return;
    for (unsigned int i = 0; i < m_sounds.GetSize(); ++i)
    {
        OrvSound* sound = m_sounds[i];
        if (sound->GetType() != 1)
            continue;
        if (ValidIndex(sound->GetSourceIndex()))
            m_al->Stop(sound->GetSourceIndex());
        sound->SetLooping(false);
    }
    CheckALError();
}

void OrvSoundManager::PauseAllSounds(bool pause)
{
    if (!HasDevice())
        return;
    for (unsigned int i = 0; i < m_sounds.GetSize(); ++i)
    {
        const int index = m_sounds[i]->GetSourceIndex();
        if (!ValidIndex(index))
            continue;
        const bool paused = m_al->GetState(index) == OrvALDevice::SourceState::Paused;
        if (pause && !paused)
            m_al->Pause(index);
        else if (!pause && paused)
            m_al->Play(index);
    }
    CheckALError();
}

void OrvSoundManager::SetIsActivated(bool activated)
{
    if (!HasDevice())
        return;
    m_activated = activated;
    if (!activated)
        StopAllSounds();
}

void OrvSoundManager::SetGain(const OrvUnicode& name, float gain)
{
    const int index = GetSourceIndex(name);
    if (!ValidIndex(index))
        return;
    m_al->Set(index, OrvALDevice::Parameter::Gain, gain);
    CheckALError();
}

void OrvSoundManager::SetPitch(const OrvUnicode& name, float pitch)
{
    const int index = GetSourceIndex(name);
    if (!ValidIndex(index))
        return;
    m_al->Set(index, OrvALDevice::Parameter::Pitch, pitch);
    CheckALError();
}

float OrvSoundManager::GetGain(const OrvUnicode& name) const
{
    const int index = GetSourceIndex(name);
    return ValidIndex(index) ? m_al->Get(index, OrvALDevice::Parameter::Gain) : 0.0f;
}

float OrvSoundManager::GetPitch(const OrvUnicode& name) const
{
    const int index = GetSourceIndex(name);
    return ValidIndex(index) ? m_al->Get(index, OrvALDevice::Parameter::Pitch) : 0.0f;
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
    if (!HasDevice())
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

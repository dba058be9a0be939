#ifndef ORV_SOUND_MANAGER_H
#define ORV_SOUND_MANAGER_H

#include <memory>

#include "OrvTArray.h"
#include "OrvUnicode.h"

class OrvALDevice;
class OrvApplication;
class OrvSound;

/// Plays WAV sounds (16-bit PCM, mono or stereo, found through the file
/// manager) with OpenAL, from a pool of 12 buffers and 12 sources, by name.
/// Looping sounds are queued again by Update; a sound can be queued behind
/// another on its source. Without an OpenAL device every operation does
/// nothing and answers false, 0 or -1: the game runs silently. This class
/// holds the pool's rules; OrvALDevice, private to the engine, speaks OpenAL.
class OrvSoundManager
{
public:
    enum SND_OPS : int
    {
        SND_OP_STOP_ALL = 0
    };

    static constexpr int kPoolSize = 12;

    explicit OrvSoundManager(OrvApplication* application);
    OrvSoundManager(const OrvSoundManager&) = delete;
    OrvSoundManager& operator=(const OrvSoundManager&) = delete;
    virtual ~OrvSoundManager();

    /// Opens the default device with 12 buffers and 12 sources; without a
    /// device the manager stays silent and says so in one line on standard
    /// error ("no sound device: playing without sound"), with nothing from
    /// OpenAL or the system's sound library.
    void InitOpenAL();
    void DestroyOpenAL();
    /// Once a turn: recycles finished buffers, queues looping ones again.
    void Update();
    void CleanUp();

    /// Restarts a sound that plays (with the new gain); otherwise loads it when
    /// needed and plays it on a free source. Nothing happens when no buffer or
    /// source is free, or while deactivated.
    void PlaySound(const OrvUnicode& name, float gain, bool looping, int type);
    /// Behind `afterName` on its source while that one plays or is paused;
    /// otherwise a plain PlaySound.
    void QueueSound(const OrvUnicode& name, float gain, bool looping, const OrvUnicode& afterName, int type);
    /// The sound ends; the next Update frees its source.
    void StopSound(const OrvUnicode& name);
    /// Then calls the stop-all callback, which must be set.
    void StopAllSounds();
    /// The sounds of type 1.
    void StopAllMusics();
    void PauseAllSounds(bool pause);
    /// False stops every sound (and so needs the stop-all callback).
    void SetIsActivated(bool activated);
    bool GetIsActivated() const { return m_activated; }

    void SetGain(const OrvUnicode& name, float gain);
    void SetPitch(const OrvUnicode& name, float pitch);
    float GetGain(const OrvUnicode& name) const;
    float GetPitch(const OrvUnicode& name) const;
    /// From the record alone: OpenAL is not asked.
    bool IsSoundPlaying(const OrvUnicode& name) const;
    /// The record count when there is none.
    unsigned int GetSoundIndex(const OrvUnicode& name) const;
    int GetSourceIndex(const OrvUnicode& name) const;
    unsigned int GetSoundCount() const { return m_sounds.GetSize(); }
    OrvSound* GetSound(unsigned int index) const { return m_sounds[index]; }

    /// The first buffer whose sounds have all ended (they are forgotten), or -1.
    int GetFreeBuffer();
    /// The first source that is stopped or was never played, or -1.
    int GetFreeSource() const;
    bool IsSourceFree(int index) const;

    bool SetSndOpCallback(SND_OPS op, void (*callback)(void*), void* userData);
    bool TriggerSndOpCallback(SND_OPS op) const;
    /// Throws OrvSoundException "Open AL error" when OpenAL reports an error.
    void CheckALError() const;

    bool HasDevice() const;
    OrvApplication* GetApplication() const { return m_application; }

private:
    OrvSound* FindSound(const OrvUnicode& name) const;
    /// Reads the WAV file through the file manager into buffer `index`.
    void LoadIntoBuffer(const OrvUnicode& name, int index);
    /// A buffer for a sound that has none, loaded; false when none is free.
    bool LoadIfUnloaded(OrvSound* sound);
    /// Gain, pitch 1, the buffer queued, played.
    void StartOnSource(int source, int buffer, float gain);

    void (*m_sndOpCallback)(void*);
    void* m_sndOpUserData;
    OrvApplication* m_application;
    /// Never null; closed when there is no device.
    std::unique_ptr<OrvALDevice> m_al;
    OrvTArray<OrvSound> m_sounds;
    bool m_activated;
};

#endif

#ifndef ORV_SOUND_H
#define ORV_SOUND_H

#include "OrvUnicode.h"

/// What the sound manager knows of a sound it played: its WAV file's name, the
/// source playing it and the buffer holding it (indexes 0 to 11, or -1), its
/// type (1 for music) and whether it loops.
class OrvSound
{
public:
    explicit OrvSound(const OrvUnicode& name);
    OrvSound(const OrvSound& other) = default;
    OrvSound& operator=(const OrvSound& other) = default;
    virtual ~OrvSound();

    OrvUnicode GetName() const { return m_name; }
    void SetName(const OrvUnicode& name) { m_name = name; }
    int GetSourceIndex() const { return m_sourceIndex; }
    void SetSourceIndex(int index) { m_sourceIndex = index; }
    int GetBufferIndex() const { return m_bufferIndex; }
    void SetBufferIndex(int index) { m_bufferIndex = index; }
    int GetType() const { return m_type; }
    void SetType(int type) { m_type = type; }
    bool GetLooping() const { return m_looping; }
    void SetLooping(bool looping) { m_looping = looping; }

private:
    OrvUnicode m_name;
    int m_sourceIndex;
    int m_bufferIndex;
    int m_type;
    bool m_looping;
};

#endif

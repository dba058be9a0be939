#ifndef ORV_SOUND_FILE_H
#define ORV_SOUND_FILE_H


#include "OrvFile.h"

/// A sound: the raw samples in the data buffer (GetSize() bytes) and their
/// description.
class OrvSoundFile : public OrvFile
{
public:
    OrvSoundFile();
    ~OrvSoundFile() override;


    unsigned int GetChannelCount() const { return m_channelCount; }
    unsigned int GetFrequency() const { return m_frequency; }
    unsigned int GetByteRate() const { return m_byteRate; }
    unsigned int GetBlockAlign() const { return m_blockAlign; }
    unsigned int GetBitsPerSample() const { return m_bitsPerSample; }

protected:

    unsigned int m_channelCount;
    unsigned int m_frequency;
    unsigned int m_byteRate;
    unsigned int m_blockAlign;
    unsigned int m_bitsPerSample;
};

#endif

#include "OrvSoundFile.h"

OrvSoundFile::OrvSoundFile() : m_channelCount(0), m_frequency(0), m_byteRate(0), m_blockAlign(0), m_bitsPerSample(0)
{
}

OrvSoundFile::~OrvSoundFile() = default;


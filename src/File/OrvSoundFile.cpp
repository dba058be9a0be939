#include "OrvSoundFile.h"

OrvSoundFile::OrvSoundFile() : m_channelCount(0), m_frequency(0), m_byteRate(0), m_blockAlign(0), m_bitsPerSample(0)
{
}

OrvSoundFile::~OrvSoundFile() = default;

void OrvSoundFile::Create(OrvFileManager* manager, unsigned int id)
{
    OrvFile::Create(manager, id);
}

void OrvSoundFile::Load(const OrvUnicode& name, const OrvUnicode& path)
{
    OrvFile::Load(name, path);
}

void OrvSoundFile::Save(const OrvUnicode& name, SAVE_OPTION option)
{
    OrvFile::Save(name, option);
}


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

std::unique_ptr<unsigned char[]> OrvSoundFile::ReadWholeFile()
{
    std::unique_ptr<unsigned char[]> bytes;
    try
    {
        const long size = m_size > 0 ? m_size : 0;
        bytes.reset(new unsigned char[static_cast<unsigned long>(size)]);
        Read(bytes.get(), 1, size);
    }
    catch (...)
    {
        Close();
        throw;
    }
    Close();
    return bytes;
}

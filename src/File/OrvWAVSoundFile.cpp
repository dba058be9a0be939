#include "OrvWAVSoundFile.h"

#include <cstring>

#include "OrvFileException.h"

namespace
{
const char* const kFile = "src/File/OrvWAVSoundFile";
const unsigned long kHeaderBytes = 44;

unsigned int Read16(const unsigned char* bytes)
{
    return static_cast<unsigned int>(bytes[0]) | (static_cast<unsigned int>(bytes[1]) << 8);
}

unsigned int Read32(const unsigned char* bytes)
{
    return Read16(bytes) | (Read16(bytes + 2) << 16);
}
}

OrvWAVSoundFile::OrvWAVSoundFile()
{
    m_extension = "wav";
}

OrvWAVSoundFile::~OrvWAVSoundFile() = default;

void OrvWAVSoundFile::Load(const OrvUnicode& name, const OrvUnicode& path)
{
    Guarded([&] {
        OrvSoundFile::Load(name, path);
        std::unique_ptr<unsigned char[]> file = ReadWholeFile();
        const unsigned char* bytes = file.get();
        const unsigned long size = static_cast<unsigned long>(m_size);
        if (size < kHeaderBytes)
            ORV_THROW(OrvFileException, MessageNaming("WAV file shorter than its header"), kFile);
        if (std::memcmp(bytes, "RIFF", 4) != 0 || std::memcmp(bytes + 8, "WAVE", 4) != 0 || Read16(bytes + 20) != 1)
            ORV_THROW(OrvFileException, "Unhandled wav file, get to work ;-)", kFile);
        const unsigned long dataSize = Read32(bytes + 40);
        if (dataSize > size - kHeaderBytes)
            ORV_THROW(OrvFileException, MessageNaming("WAV file shorter than its sample data"), kFile);

        m_channelCount = Read16(bytes + 22);
        m_frequency = Read32(bytes + 24);
        m_byteRate = Read32(bytes + 28);
        m_blockAlign = Read16(bytes + 32);
        m_bitsPerSample = Read16(bytes + 34);
        m_size = static_cast<long>(dataSize);
        std::memcpy(AllocateData(dataSize), bytes + kHeaderBytes, dataSize);
    });
}

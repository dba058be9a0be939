#ifndef ORV_WAV_SOUND_FILE_H
#define ORV_WAV_SOUND_FILE_H

#include "OrvSoundFile.h"

/// Canonical PCM WAV files: the 44-byte RIFF/WAVE header with the format block
/// at byte 20 and the samples from byte 44.
class OrvWAVSoundFile : public OrvSoundFile
{
public:
    OrvWAVSoundFile();
    ~OrvWAVSoundFile() override;

    void Load(const OrvUnicode& name, const OrvUnicode& path) override;
    // Opens the file for writing only.
};

#endif

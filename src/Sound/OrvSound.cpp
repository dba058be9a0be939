#include "OrvSound.h"

OrvSound::OrvSound(const OrvUnicode& name) : m_name(name), m_sourceIndex(-1), m_bufferIndex(-1), m_type(0), m_looping(false)
{
}

OrvSound::~OrvSound() = default;

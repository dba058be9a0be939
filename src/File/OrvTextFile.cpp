#include "OrvTextFile.h"

OrvTextFile::OrvTextFile()
{
    m_extension = "txt";
}

OrvTextFile::~OrvTextFile() = default;

void OrvTextFile::Load(const OrvUnicode& name, const OrvUnicode& path)
{
    Guarded([&] {
        OrvFile::Load(name, path);
        AllocateData(static_cast<unsigned long>(m_size) + 1);
        Read(m_data, 1, m_size);
        m_data[m_size] = 0;
        Close();
    });
}

void OrvTextFile::Save(const OrvUnicode& name, SAVE_OPTION option)
{
    OrvFile::Save(name, option);
    if (m_size > 0 && m_data != nullptr)
        Write(m_data, 1, static_cast<unsigned long>(m_size));
    Close();
}

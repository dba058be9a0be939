#ifndef ORV_TEXT_FILE_H
#define ORV_TEXT_FILE_H

#include "OrvFile.h"

/// A whole file as bytes, followed by one zero byte that the size does not count.
class OrvTextFile : public OrvFile
{
public:
    OrvTextFile();
    ~OrvTextFile() override;

    void Load(const OrvUnicode& name, const OrvUnicode& path) override;
    void Save(const OrvUnicode& name, SAVE_OPTION option) override;
};

#endif

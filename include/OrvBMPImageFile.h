#ifndef ORV_BMP_IMAGE_FILE_H
#define ORV_BMP_IMAGE_FILE_H

#include "OrvImageFile.h"

/// Reader of 24-bit BMP images into RGB pixels, rows in file order. A game uses
/// it through a class of its own that supplies ResetImageData.
class OrvBMPImageFile : public OrvImageFile
{
public:
    OrvBMPImageFile();
    ~OrvBMPImageFile() override;

    void Load(const OrvUnicode& name, const OrvUnicode& path) override;
    using OrvImageFile::Save;
    /// Writes nothing.
    virtual void Save(const OrvUnicode& name);
};

#endif

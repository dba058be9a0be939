#ifndef ORV_AUTO_TEXT_FIELD_DESC_H
#define ORV_AUTO_TEXT_FIELD_DESC_H

#include "OrvTextFieldDesc.h"

/// What a completing text field is created from: a text field's record.
struct OrvAutoTextFieldDesc : public OrvTextFieldDesc
{
    OrvAutoTextFieldDesc();
};

#endif

#ifndef ORV_MOUSE_LISTNER_H
#define ORV_MOUSE_LISTNER_H

#include "OrvInputListner.h"

/// A listener meant for mouse input; it is an input listener in every respect.
class OrvMouseListner : public OrvInputListner
{
public:
    OrvMouseListner();
    ~OrvMouseListner() override;
};

#endif

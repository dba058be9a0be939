#include "OrvMouseListner.h"

OrvMouseListner::OrvMouseListner() = default;

OrvMouseListner::~OrvMouseListner() = default;

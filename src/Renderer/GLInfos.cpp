#include "GLInfos.h"

void GLInfos::Display(unsigned int /*what*/) {}

void GLInfos::DisplayAll() {}

#ifndef ORV_GL_SCREENSHOT_H
#define ORV_GL_SCREENSHOT_H

#include <vector>

// Reads the frame being drawn (the back buffer, before the swap) as RGBA
// rows from the top one down.
void OrvReadFrame(unsigned int width, unsigned int height, std::vector<unsigned char>& rgba);

#endif

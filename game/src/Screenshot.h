#ifndef TARNWICK_SCREENSHOT_H
#define TARNWICK_SCREENSHOT_H

#include <string>

// Writes the frame drawn so far (the back buffer, width × height from the
// lower-left corner) to a PNG file a person can open. False when the file
// cannot be written.
bool SaveScreenshot(const std::string& path, unsigned int width, unsigned int height);

#endif

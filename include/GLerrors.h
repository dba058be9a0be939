#ifndef GL_ERRORS_H
#define GL_ERRORS_H

/// Reading of OpenGL's error flag: the only place the engine calls glGetError.
class GLerrors
{
public:
    /// Output is never produced; kept for symmetry with debug builds of games.
    static void EnableOutput(bool enable);
    /// Returns and clears one of OpenGL's error flags (glGetError); 0 when none is set.
    static unsigned int Check();
};

#endif

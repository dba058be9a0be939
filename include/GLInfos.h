#ifndef GL_INFOS_H
#define GL_INFOS_H

/// Hooks for showing facts about the OpenGL implementation. The engine never
/// prints, so both do nothing; they stay as places a game's debug build may fill.
class GLInfos
{
public:
    static void Display(unsigned int what);
    static void DisplayAll();
};

#endif

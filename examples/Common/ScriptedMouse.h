#ifndef ORV_EXAMPLE_SCRIPTED_MOUSE_H
#define ORV_EXAMPLE_SCRIPTED_MOUSE_H

#include <OrvEngine/OrvSDLMouse.h>

// The mouse read from SDL, which a demo script can also move: the examples'
// scripts play through it as a player's hand would.
class ScriptedMouse : public OrvSDLMouse
{
public:
    // Window pixels, from the top-left corner, y down, as SDL counts them.
    void MoveTo(float x, float y)
    {
        m_relative = OrvVector2D(x, y) - m_position;
        m_position = OrvVector2D(x, y);
    }
};

#endif

#ifndef TARNWICK_NAME_FIELD_H
#define TARNWICK_NAME_FIELD_H

#include <OrvEngine/OrvAutoTextField.h>

// The field for the player's name. The engine's completing field draws its
// proposal at the font's unscaled size, a line above the text; at the size
// the game uses that floats off the field. This one draws the proposal on
// the text's own line, one empty cell after its last character, dimmed.
class NameField : public OrvAutoTextField
{
public:
    void RenderElements() const override;
};

#endif

#include "OrvVector2D.h"

#include <cmath>

const OrvVector2D OrvVector2D::ZERO(0.0f, 0.0f);

// Out of line so that the type record and virtual table live in the library.
OrvVector2D::~OrvVector2D() = default;

OrvUnicode OrvVector2D::ToUnicode() const
{
    OrvUnicode text("X : ");
    text += OrvUnicode(X);
    text += ", Y : ";
    text += OrvUnicode(Y);
    return text;
}

float OrvVector2D::Length() const
{
    return std::sqrt(LengthSquared());
}

void OrvVector2D::Normalize()
{
    const float length = Length();
    if (length == 0.0f)
        return;
    const float inverse = 1.0f / length;
    X *= inverse;
    Y *= inverse;
}

void OrvVector2D::Truncate(float max)
{
    const float length = Length();
    if (length > max)
    {
        const float factor = max / length;
        X *= factor;
        Y *= factor;
    }
}

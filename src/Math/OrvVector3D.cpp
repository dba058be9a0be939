#include "OrvVector3D.h"

#include <cmath>
#include <locale>
#include <sstream>

#include "OrvException.h"

namespace
{
float RoundHalfDown(float x)
{
    const float f = std::floor(x);
    return (x - f <= 0.5f) ? f : std::ceil(x);
}
}

// Out of line so that the type record and virtual table live in the library.
OrvVector3D::~OrvVector3D() = default;

OrvUnicode OrvVector3D::ToUnicode() const
{
    OrvUnicode text("X : ");
    text += OrvUnicode(X);
    text += ", Y : ";
    text += OrvUnicode(Y);
    text += ", Z : ";
    text += OrvUnicode(Z);
    return text;
}

std::string OrvVector3D::ToString() const
{
    std::ostringstream out;
    out.imbue(std::locale::classic());
    out << "Vector3D(" << X << ", " << Y << ", " << Z << ")";
    return out.str();
}

float OrvVector3D::Length() const
{
    return std::sqrt(LengthSquared());
}

void OrvVector3D::Normalize()
{
    const float length = Length();
    if (length == 0.0f)
        return;
    const float inverse = 1.0f / length;
    X *= inverse;
    Y *= inverse;
    Z *= inverse;
}

OrvVector3D OrvVector3D::NormalizedVector() const
{
    OrvVector3D copy(*this);
    copy.Normalize();
    return copy;
}

void OrvVector3D::Truncate(float max)
{
    const float length = Length();
    if (length > max)
    {
        const float factor = max / length;
        X *= factor;
        Y *= factor;
        Z *= factor;
    }
}

OrvMatrix OrvVector3D::GetHomogeneous(bool point) const
{
    OrvMatrix column(4, 1);
    column.Set(1, 1, X);
    column.Set(2, 1, Y);
    column.Set(3, 1, Z);
    column.Set(4, 1, point ? 1.0f : 0.0f);
    return column;
}

void OrvVector3D::Transform(const OrvMatrix& m, bool point)
{
    if (m.GetRowCount() != 4 || m.GetColumnCount() != 4)
        ORV_THROW(OrvException, "You tried to transform a ray with an invalid matrix", "src/Math/OrvVector3D");

    // m × (X, Y, Z, w) without building the column: each row is summed from
    // 0 in the order of the matrix product, so the result is bit for bit the
    // one of m * GetHomogeneous(point). The fourth row is not needed.
    const float* a = m.GetValues();
    const float column[4] = {X, Y, Z, point ? 1.0f : 0.0f};
    float result[3];
    for (int i = 0; i < 3; ++i)
    {
        float sum = 0.0f;
        for (int k = 0; k < 4; ++k)
            sum += a[k * 4 + i] * column[k];
        result[i] = sum;
    }
    X = result[0];
    Y = result[1];
    Z = result[2];
}

void OrvVector3D::Floor()
{
    X = std::floor(X);
    Y = std::floor(Y);
    Z = std::floor(Z);
}

void OrvVector3D::Round()
{
    X = RoundHalfDown(X);
    Y = RoundHalfDown(Y);
    Z = RoundHalfDown(Z);
}

void OrvVector3D::MakeCeil(const OrvVector3D& o)
{
    if (o.X > X)
        X = o.X;
    if (o.Y > Y)
        Y = o.Y;
    if (o.Z > Z)
        Z = o.Z;
}

void OrvVector3D::MakeFloor(const OrvVector3D& o)
{
    if (o.X < X)
        X = o.X;
    if (o.Y < Y)
        Y = o.Y;
    if (o.Z < Z)
        Z = o.Z;
}

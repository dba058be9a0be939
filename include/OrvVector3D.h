#ifndef ORV_VECTOR3D_H
#define ORV_VECTOR3D_H

#include <string>

#include "OrvMatrix.h"
#include "OrvUnicode.h"
#include "OrvVector2D.h"

/// Three-component single-precision vector: positions, directions, scales.
/// A plain value, copied freely.
class OrvVector3D
{
public:
    OrvVector3D() : X(0.0f), Y(0.0f), Z(0.0f) {}
    OrvVector3D(float x, float y, float z) : X(x), Y(y), Z(z) {}
    OrvVector3D(const OrvVector3D& other) = default;
    OrvVector3D(const OrvVector2D& v, float z) : X(v.X), Y(v.Y), Z(z) {}
    virtual ~OrvVector3D();

    OrvVector3D& operator=(const OrvVector3D& other) = default;

    OrvVector3D& operator+=(const OrvVector3D& v)
    {
        X += v.X;
        Y += v.Y;
        Z += v.Z;
        return *this;
    }
    OrvVector3D operator+(const OrvVector3D& v) const { return OrvVector3D(X + v.X, Y + v.Y, Z + v.Z); }
    OrvVector3D& operator-=(const OrvVector3D& v)
    {
        X -= v.X;
        Y -= v.Y;
        Z -= v.Z;
        return *this;
    }
    OrvVector3D operator-(const OrvVector3D& v) const { return OrvVector3D(X - v.X, Y - v.Y, Z - v.Z); }

    OrvVector3D& operator*=(float f)
    {
        X *= f;
        Y *= f;
        Z *= f;
        return *this;
    }
    OrvVector3D operator*(float f) const { return OrvVector3D(X * f, Y * f, Z * f); }
    OrvVector3D& operator/=(float f)
    {
        X /= f;
        Y /= f;
        Z /= f;
        return *this;
    }
    OrvVector3D operator/(float f) const { return OrvVector3D(X / f, Y / f, Z / f); }

    /// Exact comparison, no tolerance: a NaN component never compares equal.
    bool operator==(OrvVector3D v) const { return X == v.X && Y == v.Y && Z == v.Z; }
    bool operator!=(OrvVector3D v) const { return !(*this == v); }

    /// "X : <x>, Y : <y>, Z : <z>", the numbers in OrvUnicode's float form.
    OrvUnicode ToUnicode() const;
    /// "Vector3D(<x>, <y>, <z>)", the numbers in a stream's default format
    /// (six significant digits), independent of the global locale.
    std::string ToString() const;

    float LengthSquared() const { return X * X + Y * Y + Z * Z; }
    float Length() const;
    /// Scales to unit length; a zero vector stays as it is.
    void Normalize();
    OrvVector3D NormalizedVector() const;
    float Dot(const OrvVector3D& v) const { return X * v.X + Y * v.Y + Z * v.Z; }
    /// this × v.
    OrvVector3D Cross(const OrvVector3D& v) const
    {
        return OrvVector3D(Y * v.Z - Z * v.Y, Z * v.X - X * v.Z, X * v.Y - Y * v.X);
    }
    /// Scales the vector down to length `max` when it is longer.
    void Truncate(float max);

    /// The 4×1 column (X, Y, Z, 1) for a point, (X, Y, Z, 0) for a direction.
    OrvMatrix GetHomogeneous(bool point) const;
    /// Replaces the vector by the first three rows of m × (X, Y, Z, w), with
    /// w = 1 for a point (translation applies) and 0 for a direction. No
    /// perspective division. Throws OrvException unless m is 4×4.
    void Transform(const OrvMatrix& m, bool point);

    OrvVector2D GetVector2D() const { return OrvVector2D(X, Y); }

    float GetX() const { return X; }
    float GetY() const { return Y; }
    float GetZ() const { return Z; }
    void SetX(float x) { X = x; }
    void SetY(float y) { Y = y; }
    void SetZ(float z) { Z = z; }
    void Set(float x, float y, float z)
    {
        X = x;
        Y = y;
        Z = z;
    }

    void Floor();
    /// Rounds each component to the nearest integer, an exact half going down
    /// (2.5 -> 2, -2.5 -> -3).
    void Round();
    /// Component-wise maximum with o.
    void MakeCeil(const OrvVector3D& o);
    /// Component-wise minimum with o.
    void MakeFloor(const OrvVector3D& o);
    void Negate()
    {
        X = -X;
        Y = -Y;
        Z = -Z;
    }

    float X;
    float Y;
    float Z;
};

#endif

#ifndef ORV_VECTOR2D_H
#define ORV_VECTOR2D_H

#include "OrvUnicode.h"

/// Two-component single-precision vector: screen positions, texture
/// coordinates, sizes. A plain value, copied freely.
class OrvVector2D
{
public:
    OrvVector2D() : X(0.0f), Y(0.0f) {}
    OrvVector2D(float x, float y) : X(x), Y(y) {}
    OrvVector2D(const OrvVector2D& other) = default;
    virtual ~OrvVector2D();

    OrvVector2D& operator=(const OrvVector2D& other) = default;

    OrvVector2D& operator+=(const OrvVector2D& v)
    {
        X += v.X;
        Y += v.Y;
        return *this;
    }
    OrvVector2D operator+(const OrvVector2D& v) const { return OrvVector2D(X + v.X, Y + v.Y); }
    OrvVector2D& operator-=(const OrvVector2D& v)
    {
        X -= v.X;
        Y -= v.Y;
        return *this;
    }
    OrvVector2D operator-(const OrvVector2D& v) const { return OrvVector2D(X - v.X, Y - v.Y); }

    OrvVector2D& operator*=(float f)
    {
        X *= f;
        Y *= f;
        return *this;
    }
    OrvVector2D operator*(float f) const { return OrvVector2D(X * f, Y * f); }
    OrvVector2D& operator/=(float f)
    {
        X /= f;
        Y /= f;
        return *this;
    }
    OrvVector2D operator/(float f) const { return OrvVector2D(X / f, Y / f); }

    /// Exact comparison, no tolerance: a NaN component never compares equal.
    bool operator==(const OrvVector2D& v) const { return X == v.X && Y == v.Y; }
    bool operator!=(const OrvVector2D& v) const { return !(*this == v); }

    /// "X : <x>, Y : <y>", the numbers in OrvUnicode's float form.
    OrvUnicode ToUnicode() const;

    float LengthSquared() const { return X * X + Y * Y; }
    float Length() const;
    /// Scales to unit length; a zero vector stays as it is.
    void Normalize();
    float Dot(const OrvVector2D& v) const { return X * v.X + Y * v.Y; }
    /// Scales the vector down to length `max` when it is longer.
    void Truncate(float max);

    float GetX() const { return X; }
    float GetY() const { return Y; }
    void SetX(float x) { X = x; }
    void SetY(float y) { Y = y; }
    void Set(float x, float y)
    {
        X = x;
        Y = y;
    }

    static const OrvVector2D ZERO;

    float X;
    float Y;
};

#endif

#pragma once

#include "host/geom/tolerance.h"

class AcGeMatrix3d;

// Directions with a length, in two and three dimensions. Angles are radians, counter-clockwise.

class AcGeVector2d {
public:
    double x = 0.0;
    double y = 0.0;

    constexpr AcGeVector2d() = default;
    constexpr AcGeVector2d(double xx, double yy) : x(xx), y(yy) {}

    static const AcGeVector2d kIdentity; // zero
    static const AcGeVector2d kXAxis;
    static const AcGeVector2d kYAxis;

    constexpr bool operator==(const AcGeVector2d&) const = default;
    constexpr AcGeVector2d operator+(AcGeVector2d v) const { return {x + v.x, y + v.y}; }
    constexpr AcGeVector2d operator-(AcGeVector2d v) const { return {x - v.x, y - v.y}; }
    constexpr AcGeVector2d operator-() const { return {-x, -y}; }
    constexpr AcGeVector2d operator*(double s) const { return {x * s, y * s}; }
    constexpr AcGeVector2d operator/(double s) const { return {x / s, y / s}; }
    constexpr AcGeVector2d& operator+=(AcGeVector2d v) { return *this = *this + v; }
    constexpr AcGeVector2d& operator-=(AcGeVector2d v) { return *this = *this - v; }
    constexpr AcGeVector2d& operator*=(double s) { return *this = *this * s; }
    constexpr AcGeVector2d& operator/=(double s) { return *this = *this / s; }

    constexpr double dotProduct(AcGeVector2d v) const { return x * v.x + y * v.y; }
    constexpr double crossProduct(AcGeVector2d v) const { return x * v.y - y * v.x; }
    constexpr AcGeVector2d perpVector() const { return {-y, x}; } // a quarter turn to the left
    constexpr double lengthSqrd() const { return dotProduct(*this); }
    double length() const;
    double angle() const;                     // from the x axis, 0 to 2 pi
    double angleTo(AcGeVector2d other) const; // 0 to pi
    AcGeVector2d normal() const;              // of length 1; zero for a zero vector
    AcGeVector2d rotateBy(double angle) const;
    bool isZeroLength(const AcGeTol& tol = AcGeContext::gTol) const;
    bool isParallelTo(AcGeVector2d other, const AcGeTol& tol = AcGeContext::gTol) const;
    bool isEqualTo(AcGeVector2d other, const AcGeTol& tol = AcGeContext::gTol) const;
};

inline constexpr AcGeVector2d AcGeVector2d::kIdentity{};
inline constexpr AcGeVector2d AcGeVector2d::kXAxis{1.0, 0.0};
inline constexpr AcGeVector2d AcGeVector2d::kYAxis{0.0, 1.0};

constexpr AcGeVector2d operator*(double s, AcGeVector2d v)
{
    return v * s;
}

class AcGeVector3d {
public:
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;

    constexpr AcGeVector3d() = default;
    constexpr AcGeVector3d(double xx, double yy, double zz) : x(xx), y(yy), z(zz) {}

    static const AcGeVector3d kIdentity; // zero
    static const AcGeVector3d kXAxis;
    static const AcGeVector3d kYAxis;
    static const AcGeVector3d kZAxis;

    constexpr double& operator[](unsigned i) { return i == 0 ? x : i == 1 ? y : z; }
    constexpr double operator[](unsigned i) const { return i == 0 ? x : i == 1 ? y : z; }
    constexpr AcGeVector3d& set(double xx, double yy, double zz) { return *this = {xx, yy, zz}; }

    constexpr bool operator==(const AcGeVector3d&) const = default;
    constexpr AcGeVector3d operator+(const AcGeVector3d& v) const
    {
        return {x + v.x, y + v.y, z + v.z};
    }
    constexpr AcGeVector3d operator-(const AcGeVector3d& v) const
    {
        return {x - v.x, y - v.y, z - v.z};
    }
    constexpr AcGeVector3d operator-() const { return {-x, -y, -z}; }
    constexpr AcGeVector3d operator*(double s) const { return {x * s, y * s, z * s}; }
    constexpr AcGeVector3d operator/(double s) const { return {x / s, y / s, z / s}; }
    constexpr AcGeVector3d& operator+=(const AcGeVector3d& v) { return *this = *this + v; }
    constexpr AcGeVector3d& operator-=(const AcGeVector3d& v) { return *this = *this - v; }
    constexpr AcGeVector3d& operator*=(double s) { return *this = *this * s; }
    constexpr AcGeVector3d& operator/=(double s) { return *this = *this / s; }

    constexpr double dotProduct(const AcGeVector3d& v) const { return x * v.x + y * v.y + z * v.z; }
    constexpr AcGeVector3d crossProduct(const AcGeVector3d& v) const
    {
        return {y * v.z - z * v.y, z * v.x - x * v.z, x * v.y - y * v.x};
    }
    constexpr double lengthSqrd() const { return dotProduct(*this); }
    constexpr AcGeVector2d convert2d() const { return {x, y}; }
    double length() const;
    double angleTo(const AcGeVector3d& other) const; // 0 to pi
    // The turn about `reference` that brings this to `other`, 0 to 2 pi.
    double angleTo(const AcGeVector3d& other, const AcGeVector3d& reference) const;
    AcGeVector3d normal() const; // of length 1; zero for a zero vector
    AcGeVector3d& normalize() { return *this = normal(); }
    AcGeVector3d
    perpVector() const; // the x axis that `AcGeMatrix3d::arbitraryAxes` gives this normal
    AcGeVector3d& rotateBy(double angle, const AcGeVector3d& axis);
    AcGeVector3d& transformBy(const AcGeMatrix3d& matrix);
    bool isZeroLength(const AcGeTol& tol = AcGeContext::gTol) const;
    bool isParallelTo(const AcGeVector3d& other,
                      const AcGeTol& tol = AcGeContext::gTol) const; // or opposite
    bool isCodirectionalTo(const AcGeVector3d& other, const AcGeTol& tol = AcGeContext::gTol) const;
    bool isPerpendicularTo(const AcGeVector3d& other, const AcGeTol& tol = AcGeContext::gTol) const;
    bool isEqualTo(const AcGeVector3d& other, const AcGeTol& tol = AcGeContext::gTol) const;
};

inline constexpr AcGeVector3d AcGeVector3d::kIdentity{};
inline constexpr AcGeVector3d AcGeVector3d::kXAxis{1.0, 0.0, 0.0};
inline constexpr AcGeVector3d AcGeVector3d::kYAxis{0.0, 1.0, 0.0};
inline constexpr AcGeVector3d AcGeVector3d::kZAxis{0.0, 0.0, 1.0};

constexpr AcGeVector3d operator*(double s, const AcGeVector3d& v)
{
    return v * s;
}

// Factors along the three axes; 1 leaves a size as it is.
class AcGeScale3d {
public:
    double sx = 1.0;
    double sy = 1.0;
    double sz = 1.0;

    constexpr AcGeScale3d() = default;
    constexpr explicit AcGeScale3d(double all) : sx(all), sy(all), sz(all) {}
    constexpr AcGeScale3d(double x, double y, double z) : sx(x), sy(y), sz(z) {}

    constexpr double& operator[](unsigned i) { return i == 0 ? sx : i == 1 ? sy : sz; }
    constexpr double operator[](unsigned i) const { return i == 0 ? sx : i == 1 ? sy : sz; }
    constexpr bool operator==(const AcGeScale3d&) const = default;
    constexpr AcGeScale3d operator*(double s) const { return {sx * s, sy * s, sz * s}; }
    constexpr AcGeScale3d operator*(const AcGeScale3d& o) const
    {
        return {sx * o.sx, sy * o.sy, sz * o.sz};
    }
    bool isEqualTo(const AcGeScale3d& other, const AcGeTol& tol = AcGeContext::gTol) const;
    bool isProportional(const AcGeTol& tol = AcGeContext::gTol) const; // equal but for the sign
};

#pragma once

#include "host/geom/vector.h"
#include "host/runtime/resbuf.h"

// Places, in drawing units. A three-dimensional point and an `ads_point` stand for each other.

class AcGePoint2d {
public:
    double x = 0.0;
    double y = 0.0;

    constexpr AcGePoint2d() = default;
    constexpr AcGePoint2d(double xx, double yy) : x(xx), y(yy) {}

    static const AcGePoint2d kOrigin;

    constexpr bool operator==(const AcGePoint2d&) const = default;
    constexpr AcGePoint2d operator+(AcGeVector2d v) const { return {x + v.x, y + v.y}; }
    constexpr AcGePoint2d operator-(AcGeVector2d v) const { return {x - v.x, y - v.y}; }
    constexpr AcGeVector2d operator-(AcGePoint2d p) const { return {x - p.x, y - p.y}; }
    constexpr AcGePoint2d& operator+=(AcGeVector2d v) { return *this = *this + v; }
    constexpr AcGePoint2d& operator-=(AcGeVector2d v) { return *this = *this - v; }
    constexpr AcGeVector2d asVector() const { return {x, y}; }

    double distanceTo(AcGePoint2d other) const { return (*this - other).length(); }
    bool isEqualTo(AcGePoint2d other, const AcGeTol& tol = AcGeContext::gTol) const
    {
        return distanceTo(other) <= tol.equalPoint();
    }
};

inline constexpr AcGePoint2d AcGePoint2d::kOrigin{};

class AcGePoint3d {
public:
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;

    constexpr AcGePoint3d() = default;
    constexpr AcGePoint3d(double xx, double yy, double zz) : x(xx), y(yy), z(zz) {}
    constexpr AcGePoint3d(const ads_point& p) : x(p[0]), y(p[1]), z(p[2]) {}
    constexpr AcGePoint3d(AcGePoint2d p, double zz) : x(p.x), y(p.y), z(zz) {}
    constexpr operator ads_point() const { return {x, y, z}; }

    static const AcGePoint3d kOrigin;

    constexpr double& operator[](unsigned i) { return i == 0 ? x : i == 1 ? y : z; }
    constexpr double operator[](unsigned i) const { return i == 0 ? x : i == 1 ? y : z; }
    constexpr AcGePoint3d& set(double xx, double yy, double zz) { return *this = {xx, yy, zz}; }

    constexpr bool operator==(const AcGePoint3d&) const = default;
    constexpr AcGePoint3d operator+(const AcGeVector3d& v) const
    {
        return {x + v.x, y + v.y, z + v.z};
    }
    constexpr AcGePoint3d operator-(const AcGeVector3d& v) const
    {
        return {x - v.x, y - v.y, z - v.z};
    }
    constexpr AcGeVector3d operator-(const AcGePoint3d& p) const
    {
        return {x - p.x, y - p.y, z - p.z};
    }
    constexpr AcGePoint3d& operator+=(const AcGeVector3d& v) { return *this = *this + v; }
    constexpr AcGePoint3d& operator-=(const AcGeVector3d& v) { return *this = *this - v; }
    constexpr AcGeVector3d asVector() const { return {x, y, z}; }
    constexpr AcGePoint2d convert2d() const { return {x, y}; }

    AcGePoint3d& transformBy(const AcGeMatrix3d& matrix);
    double distanceTo(const AcGePoint3d& other) const { return (*this - other).length(); }
    bool isEqualTo(const AcGePoint3d& other, const AcGeTol& tol = AcGeContext::gTol) const
    {
        return distanceTo(other) <= tol.equalPoint();
    }
};

inline constexpr AcGePoint3d AcGePoint3d::kOrigin{};

// The place that lies the part `t` of the way from `a` to `b`.
constexpr AcGePoint3d interpolated(const AcGePoint3d& a, const AcGePoint3d& b, double t)
{
    return a + (b - a) * t;
}
constexpr AcGePoint2d interpolated(AcGePoint2d a, AcGePoint2d b, double t)
{
    return a + (b - a) * t;
}

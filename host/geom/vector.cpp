#include "host/geom/vector.h"

#include <cmath>
#include <numbers>

#include "host/geom/matrix.h"

namespace {

template <class Vector> Vector unit(const Vector& v)
{
    const double length = v.length();
    return length > 0.0 ? v / length : Vector{};
}

} // namespace

double AcGeVector2d::length() const
{
    return std::hypot(x, y);
}

double AcGeVector2d::angle() const
{
    const double angle = std::atan2(y, x);
    return angle < 0.0 ? angle + 2.0 * std::numbers::pi : angle;
}

double AcGeVector2d::angleTo(AcGeVector2d other) const
{
    return std::atan2(std::abs(crossProduct(other)), dotProduct(other));
}

AcGeVector2d AcGeVector2d::normal() const
{
    return unit(*this);
}

AcGeVector2d AcGeVector2d::rotateBy(double angle) const
{
    const double c = std::cos(angle);
    const double s = std::sin(angle);
    return {x * c - y * s, x * s + y * c};
}

bool AcGeVector2d::isZeroLength(const AcGeTol& tol) const
{
    return length() <= tol.equalVector();
}

bool AcGeVector2d::isParallelTo(AcGeVector2d other, const AcGeTol& tol) const
{
    if (isZeroLength(tol) || other.isZeroLength(tol))
        return false;
    return std::abs(normal().crossProduct(other.normal())) <= tol.equalVector();
}

bool AcGeVector2d::isEqualTo(AcGeVector2d other, const AcGeTol& tol) const
{
    return (*this - other).length() <= tol.equalVector();
}

double AcGeVector3d::length() const
{
    return std::hypot(x, y, z);
}

double AcGeVector3d::angleTo(const AcGeVector3d& other) const
{
    return std::atan2(crossProduct(other).length(), dotProduct(other));
}

double AcGeVector3d::angleTo(const AcGeVector3d& other, const AcGeVector3d& reference) const
{
    const double angle = angleTo(other);
    return crossProduct(other).dotProduct(reference) < 0.0 ? 2.0 * std::numbers::pi - angle : angle;
}

AcGeVector3d AcGeVector3d::normal() const
{
    return unit(*this);
}

AcGeVector3d AcGeVector3d::perpVector() const
{
    return AcGeMatrix3d::arbitraryAxes(*this).axis(0);
}

AcGeVector3d& AcGeVector3d::rotateBy(double angle, const AcGeVector3d& axis)
{
    return transformBy(AcGeMatrix3d::rotation(angle, axis));
}

AcGeVector3d& AcGeVector3d::transformBy(const AcGeMatrix3d& matrix)
{
    return *this = matrix * *this;
}

bool AcGeVector3d::isZeroLength(const AcGeTol& tol) const
{
    return length() <= tol.equalVector();
}

bool AcGeVector3d::isParallelTo(const AcGeVector3d& other, const AcGeTol& tol) const
{
    if (isZeroLength(tol) || other.isZeroLength(tol))
        return false;
    return normal().crossProduct(other.normal()).length() <= tol.equalVector();
}

bool AcGeVector3d::isCodirectionalTo(const AcGeVector3d& other, const AcGeTol& tol) const
{
    return isParallelTo(other, tol) && dotProduct(other) > 0.0;
}

bool AcGeVector3d::isPerpendicularTo(const AcGeVector3d& other, const AcGeTol& tol) const
{
    if (isZeroLength(tol) || other.isZeroLength(tol))
        return false;
    return std::abs(normal().dotProduct(other.normal())) <= tol.equalVector();
}

bool AcGeVector3d::isEqualTo(const AcGeVector3d& other, const AcGeTol& tol) const
{
    return (*this - other).length() <= tol.equalVector();
}

bool AcGeScale3d::isEqualTo(const AcGeScale3d& other, const AcGeTol& tol) const
{
    return std::hypot(sx - other.sx, sy - other.sy, sz - other.sz) <= tol.equalVector();
}

bool AcGeScale3d::isProportional(const AcGeTol& tol) const
{
    const double all = std::abs(sx);
    return std::abs(std::abs(sy) - all) <= tol.equalVector() * all &&
           std::abs(std::abs(sz) - all) <= tol.equalVector() * all;
}

#include "host/geom/matrix.h"

#include <cassert>
#include <cmath>

namespace {

// So that the map leaves `centre` where it is.
AcGeMatrix3d about(const AcGePoint3d& centre, AcGeMatrix3d linear)
{
    const AcGeVector3d shift = centre.asVector() - linear * centre.asVector();
    for (unsigned i = 0; i < 3; ++i)
        linear.entry[i][3] = shift[i];
    return linear;
}

} // namespace

AcGeMatrix3d AcGeMatrix3d::translation(const AcGeVector3d& by)
{
    AcGeMatrix3d m;
    for (unsigned i = 0; i < 3; ++i)
        m.entry[i][3] = by[i];
    return m;
}

AcGeMatrix3d AcGeMatrix3d::rotation(double angle, const AcGeVector3d& axis,
                                    const AcGePoint3d& centre)
{
    const AcGeVector3d n = axis.normal();
    if (n == AcGeVector3d::kIdentity)
        return {};
    // quarter turns are exact
    const auto exact = [](double value) { return std::abs(value) < 1e-15 ? 0.0 : value; };
    const double c = exact(std::cos(angle));
    const double s = exact(std::sin(angle));
    const auto turned = [&](const AcGeVector3d& v) {
        return v * c + n.crossProduct(v) * s + n * (n.dotProduct(v) * (1.0 - c));
    };
    return about(centre, coordSystem(AcGePoint3d::kOrigin, turned(AcGeVector3d::kXAxis),
                                     turned(AcGeVector3d::kYAxis), turned(AcGeVector3d::kZAxis)));
}

AcGeMatrix3d AcGeMatrix3d::scaling(double all, const AcGePoint3d& centre)
{
    return scaling(AcGeScale3d(all), centre);
}

AcGeMatrix3d AcGeMatrix3d::scaling(const AcGeScale3d& factors, const AcGePoint3d& centre)
{
    AcGeMatrix3d m;
    for (unsigned i = 0; i < 3; ++i)
        m.entry[i][i] = factors[i];
    return about(centre, m);
}

AcGeMatrix3d AcGeMatrix3d::mirroring(const AcGePoint3d& inPlane, const AcGeVector3d& planeNormal)
{
    const AcGeVector3d n = planeNormal.normal();
    AcGeMatrix3d m;
    for (unsigned i = 0; i < 3; ++i)
        for (unsigned j = 0; j < 3; ++j)
            m.entry[i][j] -= 2.0 * n[i] * n[j];
    return about(inPlane, m);
}

AcGeMatrix3d AcGeMatrix3d::coordSystem(const AcGePoint3d& origin, const AcGeVector3d& xAxis,
                                       const AcGeVector3d& yAxis, const AcGeVector3d& zAxis)
{
    AcGeMatrix3d m;
    for (unsigned i = 0; i < 3; ++i) {
        m.entry[i][0] = xAxis[i];
        m.entry[i][1] = yAxis[i];
        m.entry[i][2] = zAxis[i];
        m.entry[i][3] = origin[i];
    }
    return m;
}

AcGeMatrix3d AcGeMatrix3d::arbitraryAxes(const AcGeVector3d& normal)
{
    constexpr double kNearZAxis = 1.0 / 64.0;
    const AcGeVector3d z = normal.normal();
    if (z == AcGeVector3d::kIdentity)
        return {};
    const bool nearZAxis = std::abs(z.x) < kNearZAxis && std::abs(z.y) < kNearZAxis;
    const AcGeVector3d& from = nearZAxis ? AcGeVector3d::kYAxis : AcGeVector3d::kZAxis;
    const AcGeVector3d x = from.crossProduct(z).normal();
    return coordSystem(AcGePoint3d::kOrigin, x, z.crossProduct(x).normal(), z);
}

AcGeMatrix3d AcGeMatrix3d::operator*(const AcGeMatrix3d& first) const
{
    return coordSystem(*this * first.origin(), *this * first.axis(0), *this * first.axis(1),
                       *this * first.axis(2));
}

AcGePoint3d AcGeMatrix3d::operator*(const AcGePoint3d& p) const
{
    return origin() + *this * p.asVector();
}

AcGeVector3d AcGeMatrix3d::operator*(const AcGeVector3d& v) const
{
    AcGeVector3d mapped;
    for (unsigned i = 0; i < 3; ++i)
        mapped[i] = entry[i][0] * v.x + entry[i][1] * v.y + entry[i][2] * v.z;
    return mapped;
}

double AcGeMatrix3d::det() const
{
    return axis(0).dotProduct(axis(1).crossProduct(axis(2)));
}

bool AcGeMatrix3d::isSingular(const AcGeTol& tol) const
{
    const double box = axis(0).length() * axis(1).length() * axis(2).length();
    return !(std::abs(det()) > tol.equalVector() * box);
}

AcGeMatrix3d AcGeMatrix3d::inverse() const
{
    const double volume = det();
    assert(volume != 0.0);
    const AcGeVector3d rows[] = {
        axis(1).crossProduct(axis(2)) / volume,
        axis(2).crossProduct(axis(0)) / volume,
        axis(0).crossProduct(axis(1)) / volume,
    };
    AcGeMatrix3d m;
    for (unsigned i = 0; i < 3; ++i) {
        for (unsigned j = 0; j < 3; ++j)
            m.entry[i][j] = rows[i][j];
        m.entry[i][3] = -rows[i].dotProduct(origin().asVector());
    }
    return m;
}

bool AcGeMatrix3d::isEqualTo(const AcGeMatrix3d& other, const AcGeTol& tol) const
{
    for (unsigned column = 0; column < 3; ++column)
        if (!axis(column).isEqualTo(other.axis(column), tol))
            return false;
    return origin().isEqualTo(other.origin(), tol);
}

AcGePoint3d& AcGePoint3d::transformBy(const AcGeMatrix3d& matrix)
{
    return *this = matrix * *this;
}

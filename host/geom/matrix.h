#pragma once

#include "host/geom/point.h"

// An affine map of space. Columns 0 to 2 are the images of the axes, column 3 is the image of the
// origin; the last row is 0 0 0 1. `a * b` maps by b first.
class AcGeMatrix3d {
public:
    double entry[4][4] = {{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}};

    static const AcGeMatrix3d kIdentity;

    static AcGeMatrix3d translation(const AcGeVector3d& by);
    // By the right-hand rule about the axis through the centre; a zero axis turns nothing.
    static AcGeMatrix3d rotation(double angle, const AcGeVector3d& axis,
                                 const AcGePoint3d& centre = AcGePoint3d::kOrigin);
    static AcGeMatrix3d scaling(double all, const AcGePoint3d& centre = AcGePoint3d::kOrigin);
    static AcGeMatrix3d scaling(const AcGeScale3d& factors,
                                const AcGePoint3d& centre = AcGePoint3d::kOrigin);
    static AcGeMatrix3d mirroring(const AcGePoint3d& inPlane, const AcGeVector3d& planeNormal);
    static AcGeMatrix3d coordSystem(const AcGePoint3d& origin, const AcGeVector3d& xAxis,
                                    const AcGeVector3d& yAxis, const AcGeVector3d& zAxis);

    // From the object coordinates of an entity with this extrusion direction to world coordinates.
    // Only a normal that is nearly the world's z axis (both other coordinates below 1/64 in size)
    // takes its x axis from the world's y axis. A zero normal counts as the z axis.
    static AcGeMatrix3d arbitraryAxes(const AcGeVector3d& normal);

    AcGeMatrix3d operator*(const AcGeMatrix3d& first) const;
    AcGePoint3d operator*(const AcGePoint3d& p) const;
    AcGeVector3d operator*(const AcGeVector3d& v) const; // without the translation
    bool operator==(const AcGeMatrix3d& other) const = default;
    AcGeMatrix3d& preMultBy(const AcGeMatrix3d& left) { return *this = left * *this; }
    AcGeMatrix3d& postMultBy(const AcGeMatrix3d& right) { return *this = *this * right; }

    AcGeVector3d axis(unsigned column) const
    {
        return {entry[0][column], entry[1][column], entry[2][column]};
    }
    AcGePoint3d origin() const { return {entry[0][3], entry[1][3], entry[2][3]}; }
    double det() const;
    bool isSingular(const AcGeTol& tol =
                        AcGeContext::gTol) const; // by the axes' directions, whatever their scale
    AcGeMatrix3d inverse() const;                 // of a matrix that is not singular
    bool isEqualTo(const AcGeMatrix3d& other, const AcGeTol& tol = AcGeContext::gTol) const;
};

inline constexpr AcGeMatrix3d AcGeMatrix3d::kIdentity{};

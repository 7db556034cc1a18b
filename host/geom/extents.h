#pragma once

#include "host/geom/matrix.h"

// A box along the world axes that grows with what is added. Nothing is in it at first; until then
// it is not valid and its corners lie at 1e20 and -1e20, as drawings write empty extents.
class AcDbExtents {
public:
    AcDbExtents() = default;
    AcDbExtents(const AcGePoint3d& oneCorner, const AcGePoint3d& otherCorner);

    const AcGePoint3d& minPoint() const { return min_; }
    const AcGePoint3d& maxPoint() const { return max_; }
    bool isValid() const { return valid_; }

    void
    addPoint(const AcGePoint3d& point); // a point with a coordinate that is not finite is left out
    void addExt(const AcDbExtents& other);
    void expandBy(const AcGeVector3d& by);        // a box added to the box moved by this
    void transformBy(const AcGeMatrix3d& matrix); // the box around the eight mapped corners

    bool overlaps2d(const AcDbExtents& other) const; // in the xy plane, edges included
    bool contains2d(const AcDbExtents& other) const;
    double size() const; // the diagonal; zero when not valid

private:
    AcGePoint3d min_{1e20, 1e20, 1e20};
    AcGePoint3d max_{-1e20, -1e20, -1e20};
    bool valid_ = false;
};

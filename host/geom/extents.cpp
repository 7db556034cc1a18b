#include "host/geom/extents.h"

#include <algorithm>
#include <cmath>

AcDbExtents::AcDbExtents(const AcGePoint3d& oneCorner, const AcGePoint3d& otherCorner)
{
    addPoint(oneCorner);
    addPoint(otherCorner);
}

void AcDbExtents::addPoint(const AcGePoint3d& point)
{
    if (!std::isfinite(point.x) || !std::isfinite(point.y) || !std::isfinite(point.z))
        return;
    if (!valid_) {
        min_ = max_ = point;
        valid_ = true;
        return;
    }
    for (unsigned i = 0; i < 3; ++i) {
        min_[i] = std::min(min_[i], point[i]);
        max_[i] = std::max(max_[i], point[i]);
    }
}

void AcDbExtents::addExt(const AcDbExtents& other)
{
    if (!other.valid_)
        return;
    addPoint(other.min_);
    addPoint(other.max_);
}

void AcDbExtents::expandBy(const AcGeVector3d& by)
{
    if (!valid_)
        return;
    const AcGePoint3d low = min_ + by;
    const AcGePoint3d high = max_ + by;
    addPoint(low);
    addPoint(high);
}

void AcDbExtents::transformBy(const AcGeMatrix3d& matrix)
{
    if (!valid_)
        return;
    AcDbExtents mapped;
    for (unsigned corner = 0; corner < 8; ++corner)
        mapped.addPoint(matrix * AcGePoint3d(corner & 1 ? max_.x : min_.x,
                                             corner & 2 ? max_.y : min_.y,
                                             corner & 4 ? max_.z : min_.z));
    *this = mapped;
}

bool AcDbExtents::overlaps2d(const AcDbExtents& other) const
{
    return valid_ && other.valid_ && min_.x <= other.max_.x && other.min_.x <= max_.x &&
           min_.y <= other.max_.y && other.min_.y <= max_.y;
}

bool AcDbExtents::contains2d(const AcDbExtents& other) const
{
    return valid_ && other.valid_ && min_.x <= other.min_.x && other.max_.x <= max_.x &&
           min_.y <= other.min_.y && other.max_.y <= max_.y;
}

double AcDbExtents::size() const
{
    return valid_ ? min_.distanceTo(max_) : 0.0;
}

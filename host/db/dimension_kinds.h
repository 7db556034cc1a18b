#pragma once

#include "host/db/angle.h"
#include "host/db/dimension.h"

// The kinds of dimensions. Their places are in world coordinates.

namespace host {

inline constexpr short kAlignedDimensionOrder[] = {12, 13, 14, 40, 50, 52};
inline constexpr Subclass kAlignedDimensionPart{"AcDbAlignedDimension", kAlignedDimensionOrder};
inline constexpr short k2LineAngularDimensionOrder[] = {13, 14, 15, 16, 40};
inline constexpr Subclass k2LineAngularDimensionPart{"AcDb2LineAngularDimension",
                                                     k2LineAngularDimensionOrder};
inline constexpr short k3PointAngularDimensionOrder[] = {13, 14, 15, 16, 40};
inline constexpr Subclass k3PointAngularDimensionPart{"AcDb3PointAngularDimension",
                                                      k3PointAngularDimensionOrder};
inline constexpr short kArcDimensionOrder[] = {13, 14, 15, 70, 40, 41, 71, 16, 17};
inline constexpr Subclass kArcDimensionPart{"AcDbArcDimension", kArcDimensionOrder};
inline constexpr short kDiametricDimensionOrder[] = {15, 40};
inline constexpr Subclass kDiametricDimensionPart{"AcDbDiametricDimension",
                                                  kDiametricDimensionOrder};
inline constexpr short kRadialDimensionOrder[] = {15, 40};
inline constexpr Subclass kRadialDimensionPart{"AcDbRadialDimension", kRadialDimensionOrder};
inline constexpr short kRadialDimensionLargeOrder[] = {13, 14, 15, 40};
inline constexpr Subclass kRadialDimensionLargePart{"AcDbRadialDimensionLarge",
                                                    kRadialDimensionLargeOrder};
inline constexpr short kOrdinateDimensionOrder[] = {13, 14};
inline constexpr Subclass kOrdinateDimensionPart{"AcDbOrdinateDimension", kOrdinateDimensionOrder};
inline constexpr Subclass kRotatedDimensionPart{"AcDbRotatedDimension"};

} // namespace host

// The distance of two places, along their connection.
class AcDbAlignedDimension : public AcDbDimension {
    ACRX_DECLARE_MEMBERS(AcDbAlignedDimension)
public:
    AcDbAlignedDimension() = default;

    AcGePoint3d xLine1Point() const { return place(host::kAlignedDimensionPart, 13); }
    AcGePoint3d xLine2Point() const { return place(host::kAlignedDimensionPart, 14); }
    Acad::ErrorStatus setXLine1Point(const AcGePoint3d& p)
    {
        return setPoint(host::kAlignedDimensionPart, 13, p);
    }
    Acad::ErrorStatus setXLine2Point(const AcGePoint3d& p)
    {
        return setPoint(host::kAlignedDimensionPart, 14, p);
    }
    AcGePoint3d dimLinePoint() const { return place(host::kDimensionPart, 10); }
    Acad::ErrorStatus setDimLinePoint(const AcGePoint3d& p) { return setDefinitionPoint(p); }

    std::span<const std::string_view> markers() const override;

protected:
    host::DimensionKind kind() const override { return host::DimensionKind::aligned; }
};

// The distance of two places in a direction of its own. Its fields stand in an aligned one's part.
class AcDbRotatedDimension : public AcDbDimension {
    ACRX_DECLARE_MEMBERS(AcDbRotatedDimension)
public:
    AcDbRotatedDimension() = default;

    AcGePoint3d xLine1Point() const { return place(host::kAlignedDimensionPart, 13); }
    AcGePoint3d xLine2Point() const { return place(host::kAlignedDimensionPart, 14); }
    double rotation() const { return host::toRadians(real(host::kAlignedDimensionPart, 50, 0.0)); }
    Acad::ErrorStatus setXLine1Point(const AcGePoint3d& p)
    {
        return setPoint(host::kAlignedDimensionPart, 13, p);
    }
    Acad::ErrorStatus setXLine2Point(const AcGePoint3d& p)
    {
        return setPoint(host::kAlignedDimensionPart, 14, p);
    }
    Acad::ErrorStatus setRotation(double angle)
    {
        return setReal(host::kAlignedDimensionPart, 50, host::toDegrees(angle), 0.0);
    }
    AcGePoint3d dimLinePoint() const { return place(host::kDimensionPart, 10); }
    Acad::ErrorStatus setDimLinePoint(const AcGePoint3d& p) { return setDefinitionPoint(p); }

    std::span<const std::string_view> markers() const override;

protected:
    host::DimensionKind kind() const override { return host::DimensionKind::rotated; }
};

// The angle of two lines; the second line's end is the definition's first place (10).
class AcDb2LineAngularDimension : public AcDbDimension {
    ACRX_DECLARE_MEMBERS(AcDb2LineAngularDimension)
public:
    AcDb2LineAngularDimension() = default;

    AcGePoint3d xLine1Start() const { return place(host::k2LineAngularDimensionPart, 13); }
    AcGePoint3d xLine1End() const { return place(host::k2LineAngularDimensionPart, 14); }
    AcGePoint3d xLine2Start() const { return place(host::k2LineAngularDimensionPart, 15); }
    AcGePoint3d arcPoint() const { return place(host::k2LineAngularDimensionPart, 16); }
    Acad::ErrorStatus setXLine1Start(const AcGePoint3d& p)
    {
        return setPoint(host::k2LineAngularDimensionPart, 13, p);
    }
    Acad::ErrorStatus setXLine1End(const AcGePoint3d& p)
    {
        return setPoint(host::k2LineAngularDimensionPart, 14, p);
    }
    Acad::ErrorStatus setXLine2Start(const AcGePoint3d& p)
    {
        return setPoint(host::k2LineAngularDimensionPart, 15, p);
    }
    Acad::ErrorStatus setArcPoint(const AcGePoint3d& p)
    {
        return setPoint(host::k2LineAngularDimensionPart, 16, p);
    }
    AcGePoint3d xLine2End() const { return place(host::kDimensionPart, 10); }
    Acad::ErrorStatus setXLine2End(const AcGePoint3d& p) { return setDefinitionPoint(p); }

    std::span<const std::string_view> markers() const override;

protected:
    host::DimensionKind kind() const override { return host::DimensionKind::angular2Line; }
    bool measuresAngle() const override { return true; }
};

// The angle between two places, seen from a third.
class AcDb3PointAngularDimension : public AcDbDimension {
    ACRX_DECLARE_MEMBERS(AcDb3PointAngularDimension)
public:
    AcDb3PointAngularDimension() = default;

    AcGePoint3d xLine1Point() const { return place(host::k3PointAngularDimensionPart, 13); }
    AcGePoint3d xLine2Point() const { return place(host::k3PointAngularDimensionPart, 14); }
    AcGePoint3d centerPoint() const { return place(host::k3PointAngularDimensionPart, 15); }
    Acad::ErrorStatus setXLine1Point(const AcGePoint3d& p)
    {
        return setPoint(host::k3PointAngularDimensionPart, 13, p);
    }
    Acad::ErrorStatus setXLine2Point(const AcGePoint3d& p)
    {
        return setPoint(host::k3PointAngularDimensionPart, 14, p);
    }
    Acad::ErrorStatus setCenterPoint(const AcGePoint3d& p)
    {
        return setPoint(host::k3PointAngularDimensionPart, 15, p);
    }
    AcGePoint3d arcPoint() const { return place(host::kDimensionPart, 10); }
    Acad::ErrorStatus setArcPoint(const AcGePoint3d& p) { return setDefinitionPoint(p); }

    std::span<const std::string_view> markers() const override;

protected:
    host::DimensionKind kind() const override { return host::DimensionKind::angular3Point; }
    bool measuresAngle() const override { return true; }
};

// The length of an arc.
class AcDbArcDimension : public AcDbDimension {
    ACRX_DECLARE_MEMBERS(AcDbArcDimension)
public:
    AcDbArcDimension() = default;

    AcGePoint3d xLine1Point() const { return place(host::kArcDimensionPart, 13); }
    AcGePoint3d xLine2Point() const { return place(host::kArcDimensionPart, 14); }
    AcGePoint3d centerPoint() const { return place(host::kArcDimensionPart, 15); }
    Acad::ErrorStatus setXLine1Point(const AcGePoint3d& p)
    {
        return setPoint(host::kArcDimensionPart, 13, p);
    }
    Acad::ErrorStatus setXLine2Point(const AcGePoint3d& p)
    {
        return setPoint(host::kArcDimensionPart, 14, p);
    }
    Acad::ErrorStatus setCenterPoint(const AcGePoint3d& p)
    {
        return setPoint(host::kArcDimensionPart, 15, p);
    }
    bool isPartial() const { return integer(host::kArcDimensionPart, 70, 0) != 0; }
    bool hasLeader() const { return integer(host::kArcDimensionPart, 71, 0) != 0; }
    AcGePoint3d leader1Point() const { return place(host::kArcDimensionPart, 16); }
    AcGePoint3d leader2Point() const { return place(host::kArcDimensionPart, 17); }
    // A part of an arc; angles of the part from the x axis, in radians.
    Acad::ErrorStatus setPartial(bool on, double start, double end)
    {
        setInteger(host::kArcDimensionPart, 70, on, -1);
        setReal(host::kArcDimensionPart, 40, start, host::kRequired);
        return setReal(host::kArcDimensionPart, 41, end, host::kRequired);
    }
    // From the first point, at the text, to the second one on the arc.
    Acad::ErrorStatus setLeader(bool on, const AcGePoint3d& from, const AcGePoint3d& to)
    {
        setInteger(host::kArcDimensionPart, 71, on, -1);
        setPoint(host::kArcDimensionPart, 16, from);
        return setPoint(host::kArcDimensionPart, 17, to);
    }
    AcGePoint3d arcPoint() const { return place(host::kDimensionPart, 10); }
    Acad::ErrorStatus setArcPoint(const AcGePoint3d& p) { return setDefinitionPoint(p); }

    std::string recordName() const override { return "ARC_DIMENSION"; }
    std::span<const std::string_view> markers() const override;

protected:
    host::DimensionKind kind() const override { return host::DimensionKind::angular3Point; }
};

// A diameter, between this place and the definition's first (10).
class AcDbDiametricDimension : public AcDbDimension {
    ACRX_DECLARE_MEMBERS(AcDbDiametricDimension)
public:
    AcDbDiametricDimension() = default;

    AcGePoint3d chordPoint() const { return place(host::kDiametricDimensionPart, 15); }
    Acad::ErrorStatus setChordPoint(const AcGePoint3d& p)
    {
        return setPoint(host::kDiametricDimensionPart, 15, p);
    }
    double leaderLength() const { return real(host::kDiametricDimensionPart, 40, 0.0); }
    Acad::ErrorStatus setLeaderLength(double length) // from the circle to the text
    {
        return setReal(host::kDiametricDimensionPart, 40, length, host::kRequired);
    }
    AcGePoint3d farChordPoint() const { return place(host::kDimensionPart, 10); }
    Acad::ErrorStatus setFarChordPoint(const AcGePoint3d& p) { return setDefinitionPoint(p); }

    std::span<const std::string_view> markers() const override;

protected:
    host::DimensionKind kind() const override { return host::DimensionKind::diametric; }
};

// A radius, from the centre (10) to this place.
class AcDbRadialDimension : public AcDbDimension {
    ACRX_DECLARE_MEMBERS(AcDbRadialDimension)
public:
    AcDbRadialDimension() = default;

    AcGePoint3d chordPoint() const { return place(host::kRadialDimensionPart, 15); }
    Acad::ErrorStatus setChordPoint(const AcGePoint3d& p)
    {
        return setPoint(host::kRadialDimensionPart, 15, p);
    }
    double leaderLength() const { return real(host::kRadialDimensionPart, 40, 0.0); }
    Acad::ErrorStatus setLeaderLength(double length) // from the circle to the text
    {
        return setReal(host::kRadialDimensionPart, 40, length, host::kRequired);
    }
    AcGePoint3d center() const { return place(host::kDimensionPart, 10); }
    Acad::ErrorStatus setCenter(const AcGePoint3d& p) { return setDefinitionPoint(p); }

    std::span<const std::string_view> markers() const override;

protected:
    host::DimensionKind kind() const override { return host::DimensionKind::radial; }
};

// A radius with a jogged line, because its centre is out of the way.
class AcDbRadialDimensionLarge : public AcDbDimension {
    ACRX_DECLARE_MEMBERS(AcDbRadialDimensionLarge)
public:
    AcDbRadialDimensionLarge() = default;

    AcGePoint3d overrideCenter() const { return place(host::kRadialDimensionLargePart, 13); }
    AcGePoint3d jogPoint() const { return place(host::kRadialDimensionLargePart, 14); }
    AcGePoint3d chordPoint() const { return place(host::kRadialDimensionLargePart, 15); }
    Acad::ErrorStatus setOverrideCenter(const AcGePoint3d& p)
    {
        return setPoint(host::kRadialDimensionLargePart, 13, p);
    }
    Acad::ErrorStatus setJogPoint(const AcGePoint3d& p)
    {
        return setPoint(host::kRadialDimensionLargePart, 14, p);
    }
    Acad::ErrorStatus setChordPoint(const AcGePoint3d& p)
    {
        return setPoint(host::kRadialDimensionLargePart, 15, p);
    }
    Acad::ErrorStatus setJogAngle(double angle)
    {
        return setReal(host::kRadialDimensionLargePart, 40, angle, host::kRequired);
    }
    AcGePoint3d center() const { return place(host::kDimensionPart, 10); }
    Acad::ErrorStatus setCenter(const AcGePoint3d& p) { return setDefinitionPoint(p); }

    std::string recordName() const override { return "LARGE_RADIAL_DIMENSION"; }
    std::span<const std::string_view> markers() const override;

protected:
    host::DimensionKind kind() const override { return host::DimensionKind::jogged; }
};

// One coordinate of a place.
class AcDbOrdinateDimension : public AcDbDimension {
    ACRX_DECLARE_MEMBERS(AcDbOrdinateDimension)
public:
    AcDbOrdinateDimension() = default;

    AcGePoint3d definingPoint() const { return place(host::kOrdinateDimensionPart, 13); }
    AcGePoint3d leaderEndPoint() const { return place(host::kOrdinateDimensionPart, 14); }
    Acad::ErrorStatus setDefiningPoint(const AcGePoint3d& p)
    {
        return setPoint(host::kOrdinateDimensionPart, 13, p);
    }
    Acad::ErrorStatus setLeaderEndPoint(const AcGePoint3d& p)
    {
        return setPoint(host::kOrdinateDimensionPart, 14, p);
    }
    bool isUsingXAxis() const { return flag(host::kDimensionPart, 70, 64); }
    Acad::ErrorStatus setUsingXAxis(bool on) { return setKindFlag(64, on); }
    AcGePoint3d origin() const { return place(host::kDimensionPart, 10); }
    Acad::ErrorStatus setOrigin(const AcGePoint3d& p) { return setDefinitionPoint(p); }

    std::span<const std::string_view> markers() const override;

protected:
    host::DimensionKind kind() const override { return host::DimensionKind::ordinate; }
};

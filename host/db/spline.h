#pragma once

#include "host/db/entity.h"
#include "host/db/entity_fields.h"
#include "host/geom/nurbs.h"

namespace host {

inline constexpr short kSplineOrder[] = {210, 70, 71, 72, 73, 74, 42, 43,
                                         44,  12, 13, 40, 41, 10, 11};
inline constexpr Subclass kSplinePart{"AcDbSpline", kSplineOrder};

} // namespace host

// A spline, in world coordinates: control points with knots, and where the user gave points to run
// through, these too.
class AcDbSpline : public AcDbCurve {
    ACRX_DECLARE_MEMBERS(AcDbSpline)
public:
    struct NurbsData {
        int degree = 3;
        bool rational = false;
        bool closed = false;
        bool periodic = false;
        std::vector<AcGePoint3d> controlPoints;
        std::vector<double> knots;
        std::vector<double> weights; // empty, or one for each control point
        double controlPointTolerance = 1e-7;
        double knotTolerance = 1e-7;
    };
    struct FitData {
        std::vector<AcGePoint3d> points;
        int degree = 3;
        double tolerance = 0.0;
        bool tangentsExist = false;
        AcGeVector3d startTangent;
        AcGeVector3d endTangent;
    };

    AcDbSpline() = default;

    bool isClosed() const override { return flag(host::kSplinePart, 70, 1); }
    bool isPeriodic() const { return flag(host::kSplinePart, 70, 2); }
    bool isRational() const { return flag(host::kSplinePart, 70, 4); }
    int degree() const { return integer(host::kSplinePart, 71, 3); }
    int numControlPoints() const;
    bool hasFitData() const;

    Acad::ErrorStatus getNurbsData(NurbsData& data) const;
    Acad::ErrorStatus getFitData(FitData& data) const; // eNotApplicable without fit points

    // The control points become the curve; the fit points go. eInvalidInput for a curve that is
    // not whole (see NurbsCurve::make).
    Acad::ErrorStatus setNurbsData(const NurbsData& data);
    // The curve becomes the one through the points; one whose last point is its first is closed.
    Acad::ErrorStatus setFitData(const FitData& data);
    // As setFitData, but the curve runs smoothly through its first point again.
    Acad::ErrorStatus setClosedFitData(const FitData& data);

    // The curve, from its control points or, where the file has none, through its fit points.
    std::optional<host::NurbsCurve> curve() const;

    bool strokes(host::StrokeSink& sink) const override;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& map) override;
    std::string recordName() const override { return "SPLINE"; }
    std::span<const std::string_view> markers() const override;

private:
    Acad::ErrorStatus write(const NurbsData& nurbs, const FitData* fit);
    Acad::ErrorStatus writeThrough(const FitData& data, bool closed);
};

#include "host/db/spline.h"

#include "host/db/transforming.h"
#include "host/geom/stroke_sink.h"

using host::kSplinePart;

ACRX_DXF_DEFINE_MEMBERS(AcDbSpline, AcDbCurve, "SPLINE")

namespace {

enum SplineFlag { kClosed = 1, kPeriodic = 2, kRational = 4, kPlanar = 8 };

host::TagRange rangeOf(const host::TagList& tags)
{
    return host::subclassRange(tags, kSplinePart.marker).value_or(host::TagRange());
}

std::vector<double> realsOf(const host::TagList& tags, int code)
{
    std::vector<double> values;
    const host::TagRange range = rangeOf(tags);
    for (std::size_t i = range.first; i < range.last; ++i)
        if (tags[i].code == code)
            values.push_back(tags.real(i));
    return values;
}

std::vector<AcGePoint3d> pointsOf(const host::TagList& tags, int code)
{
    std::vector<AcGePoint3d> points;
    const host::TagRange range = rangeOf(tags);
    for (std::size_t i = range.first; i < range.last; ++i)
        if (tags[i].code == code)
            points.push_back(host::pointAt(tags, i));
    return points;
}

// Inserts behind one another, in the order of the calls.
class TagInserter {
public:
    TagInserter(host::TagList& tags, std::size_t at) : tags_(tags), at_(at) {}
    void integer(int code, std::int64_t value) { tags_.insertInteger(at_++, code, value); }
    void real(int code, double value) { tags_.insertReal(at_++, code, value); }
    void point(int code, const AcGePoint3d& p)
    {
        real(code, p.x);
        real(code + 10, p.y);
        real(code + 20, p.z);
    }

private:
    host::TagList& tags_;
    std::size_t at_;
};

} // namespace

int AcDbSpline::numControlPoints() const
{
    return static_cast<int>(pointsOf(tags(), 10).size());
}

bool AcDbSpline::hasFitData() const
{
    return host::findField(tags(), kSplinePart, 11) != host::TagList::npos;
}

Acad::ErrorStatus AcDbSpline::getNurbsData(NurbsData& data) const
{
    data = {degree(),
            isRational(),
            isClosed(),
            isPeriodic(),
            pointsOf(tags(), 10),
            realsOf(tags(), 40),
            {},
            real(kSplinePart, 43, 1e-7),
            real(kSplinePart, 42, 1e-7)};
    data.weights = realsOf(tags(), 41);
    if (data.weights.size() != data.controlPoints.size())
        data.weights.clear();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSpline::getFitData(FitData& data) const
{
    data = FitData();
    data.points = pointsOf(tags(), 11);
    if (data.points.empty())
        return Acad::eNotApplicable;
    data.degree = degree();
    data.tolerance = real(kSplinePart, 44, 0.0);
    const std::optional<AcGeVector3d> start = host::vectorField(tags(), kSplinePart, 12);
    const std::optional<AcGeVector3d> end = host::vectorField(tags(), kSplinePart, 13);
    data.tangentsExist = start || end;
    data.startTangent = start.value_or(AcGeVector3d());
    data.endTangent = end.value_or(AcGeVector3d());
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSpline::setNurbsData(const NurbsData& data)
{
    return write(data, nullptr);
}

Acad::ErrorStatus AcDbSpline::setFitData(const FitData& data)
{
    return writeThrough(data, data.points.size() > 2 && data.points.front() == data.points.back());
}

Acad::ErrorStatus AcDbSpline::setClosedFitData(const FitData& data)
{
    FitData whole = data;
    if (whole.points.size() > 1 && whole.points.front() != whole.points.back())
        whole.points.push_back(whole.points.front());
    return writeThrough(whole, true);
}

Acad::ErrorStatus AcDbSpline::writeThrough(const FitData& data, bool closed)
{
    const auto tangent = [&](const AcGeVector3d& t) {
        return data.tangentsExist && !t.isZeroLength() ? std::optional(t) : std::nullopt;
    };
    std::span<const AcGePoint3d> points = data.points;
    if (closed && points.size() > 2)
        points = points.first(points.size() - 1);
    const std::optional<host::NurbsCurve> through = host::NurbsCurve::throughPoints(
        points, closed, tangent(data.startTangent), tangent(data.endTangent));
    if (!through)
        return Acad::eInvalidInput;
    NurbsData nurbs;
    nurbs.degree = through->degree();
    nurbs.closed = closed;
    nurbs.periodic = closed;
    nurbs.controlPoints = through->controlPoints();
    nurbs.knots = through->knots();
    return write(nurbs, &data);
}

Acad::ErrorStatus AcDbSpline::write(const NurbsData& nurbs, const FitData* fit)
{
    const bool rational = !nurbs.weights.empty();
    if (!host::NurbsCurve::make(nurbs.degree, nurbs.knots, nurbs.controlPoints, nurbs.weights))
        return Acad::eInvalidInput;
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;

    const int kept = integer(kSplinePart, 70, 0) & ~(kClosed | kPeriodic | kRational);
    const int flags = kept | (nurbs.closed ? kClosed : 0) | (nurbs.periodic ? kPeriodic : 0) |
                      (rational ? kRational : 0);
    const double fitTolerance = real(kSplinePart, 44, 1e-10);
    host::TagList& all = tagsForWrite();
    host::TagRange range = rangeOf(all);
    for (std::size_t i = range.last; i-- > range.first;) {
        static constexpr short kOwn[] = {70, 71, 72, 73, 74, 42, 43, 44, 12, 22, 32,
                                         13, 23, 33, 40, 41, 10, 20, 30, 11, 21, 31};
        if (std::find(std::begin(kOwn), std::end(kOwn), all[i].code) != std::end(kOwn)) {
            all.erase(i, i + 1);
            --range.last;
        }
    }
    TagInserter to(all, range.last);
    to.integer(70, flags);
    to.integer(71, nurbs.degree);
    to.integer(72, static_cast<std::int64_t>(nurbs.knots.size()));
    to.integer(73, static_cast<std::int64_t>(nurbs.controlPoints.size()));
    to.integer(74, fit ? static_cast<std::int64_t>(fit->points.size()) : 0);
    to.real(42, nurbs.knotTolerance);
    to.real(43, nurbs.controlPointTolerance);
    if (fit) {
        to.real(44, fit->tolerance > 0.0 ? fit->tolerance : fitTolerance);
        if (fit->tangentsExist && !fit->startTangent.isZeroLength())
            to.point(12, AcGePoint3d() + fit->startTangent);
        if (fit->tangentsExist && !fit->endTangent.isZeroLength())
            to.point(13, AcGePoint3d() + fit->endTangent);
    }
    for (const double knot : nurbs.knots)
        to.real(40, knot);
    for (const double weight : nurbs.weights)
        to.real(41, weight);
    for (const AcGePoint3d& p : nurbs.controlPoints)
        to.point(10, p);
    if (fit)
        for (const AcGePoint3d& p : fit->points)
            to.point(11, p);
    return Acad::eOk;
}

std::optional<host::NurbsCurve> AcDbSpline::curve() const
{
    NurbsData nurbs;
    getNurbsData(nurbs);
    if (!nurbs.controlPoints.empty())
        return host::NurbsCurve::make(nurbs.degree, std::move(nurbs.knots),
                                      std::move(nurbs.controlPoints), std::move(nurbs.weights));
    FitData fit;
    if (getFitData(fit) != Acad::eOk)
        return std::nullopt;
    const auto tangent = [&](const AcGeVector3d& t) {
        return t.isZeroLength() ? std::nullopt : std::optional(t);
    };
    return host::NurbsCurve::throughPoints(fit.points, isClosed(), tangent(fit.startTangent),
                                           tangent(fit.endTangent));
}

Acad::ErrorStatus AcDbSpline::transformBy(const AcGeMatrix3d& map)
{
    static constexpr host::MappedField kFields[] = {
        {10, host::FieldForm::point},     {11, host::FieldForm::point},
        {12, host::FieldForm::direction}, {13, host::FieldForm::direction},
        {44, host::FieldForm::length},    {210, host::FieldForm::direction}};
    const host::PlaneMap mapped(map);
    const Acad::ErrorStatus status = mapped.check(*this, host::PlaneMap::Takes::any);
    if (status != Acad::eOk)
        return status;
    host::mapExtendedData(*this, mapped);
    host::mapFields(*this, kSplinePart, kFields, mapped);
    return Acad::eOk;
}

bool AcDbSpline::strokes(host::StrokeSink& sink) const
{
    const std::optional<host::NurbsCurve> shape = curve();
    if (!shape)
        return false;
    sink.spline(*shape);
    if (isClosed() && !shape->isClosed(AcGeTol(1e-6, 1e-6)))
        sink.segment(shape->pointAt(shape->endParameter()),
                     shape->pointAt(shape->startParameter()));
    return true;
}

std::span<const std::string_view> AcDbSpline::markers() const
{
    static constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDbSpline"};
    return kMarkers;
}

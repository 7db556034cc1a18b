#include "host/db/leader.h"

#include "host/db/dimension_style.h"
#include "host/db/exploding.h"
#include "host/db/reading.h"
#include "host/db/symbol_names.h"
#include "host/db/symbol_tables.h"
#include "host/db/transforming.h"
#include "host/geom/stroke_sink.h"

using host::kLeaderPart;

ACRX_DXF_DEFINE_MEMBERS(AcDbLeader, AcDbCurve, "LEADER")

AcDbObjectId AcDbLeader::dimensionStyle() const
{
    return drawing() ? host::findSymbol(*drawing(), "DIMSTYLE", dimensionStyleName())
                     : AcDbObjectId();
}

Acad::ErrorStatus AcDbLeader::setDimensionStyle(AcDbObjectId style)
{
    if (isWriteEnabled() && !style.isNull() && style == dimensionStyle())
        return Acad::eOk;
    const host::Reading<AcDbDimStyleTableRecord> record(style);
    if (!record)
        return Acad::eInvalidInput;
    return setText(kLeaderPart, 3, record->name(), L"STANDARD");
}

std::vector<AcGePoint3d> AcDbLeader::vertices() const
{
    std::vector<AcGePoint3d> all;
    const host::TagList& own = tags();
    const host::TagRange range =
        host::subclassRange(own, kLeaderPart.marker).value_or(host::TagRange());
    for (std::size_t i = range.first; i < range.last; ++i)
        if (own[i].code == 10)
            all.push_back(host::pointAt(own, i));
    return all;
}

Acad::ErrorStatus AcDbLeader::appendVertex(const AcGePoint3d& place)
{
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    const int count = static_cast<int>(vertices().size());
    setInteger(kLeaderPart, 76, count + 1, -1);
    host::TagList& own = tagsForWrite();
    const host::TagRange range = *host::subclassRange(own, kLeaderPart.marker);
    std::size_t at = own.find(76, range.first, range.last) + 1;
    for (std::size_t i = at; i < range.last; ++i)
        if (own[i].code == 10 || own[i].code == 20 || own[i].code == 30)
            at = i + 1;
    for (const unsigned axis : {0u, 1u, 2u})
        own.insertReal(at + axis, 10 + 10 * static_cast<int>(axis), place[axis]);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLeader::transformBy(const AcGeMatrix3d& map)
{
    static constexpr host::MappedField kFields[] = {
        {10, host::FieldForm::point},      {40, host::FieldForm::length},
        {41, host::FieldForm::length},     {210, host::FieldForm::direction},
        {211, host::FieldForm::direction}, {212, host::FieldForm::vector},
        {213, host::FieldForm::vector}};
    const host::PlaneMap mapped(map);
    const Acad::ErrorStatus status = mapped.check(*this);
    if (status != Acad::eOk)
        return status;
    host::mapExtendedData(*this, mapped);
    host::mapFields(*this, kLeaderPart, kFields, mapped);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLeader::detachAnnotation()
{
    constexpr int kNoAnnotation = 3;
    const Acad::ErrorStatus status = removeFieldOf(host::kLeaderPart, 340);
    return status == Acad::eOk ? setInteger(host::kLeaderPart, 73, kNoAnnotation, kNoAnnotation)
                               : status;
}

bool AcDbLeader::strokes(host::StrokeSink& sink) const
{
    const std::vector<AcGePoint3d> path = vertices();
    if (isSplined())
        if (const auto curve = host::NurbsCurve::throughPoints(path)) {
            sink.spline(*curve);
            return true;
        }
    if (path.size() < 2)
        return false;
    sink.polyline(path, false);
    return true;
}

namespace {

constexpr int kArrowBlock = 341; // DIMLDRBLK

// The filled arrowhead of a dimension style, a third as wide as it is long. A first segment that is
// not twice as long has none.
std::optional<host::Outline> arrowOf(const std::vector<AcGePoint3d>& path,
                                     const AcGeVector3d& normal, AcDbObjectId style)
{
    const host::DimensionStyle look = host::dimensionStyleOf(style);
    const double size = look.scaled(look.asz);
    const host::Reading<AcDbDimStyleTableRecord> record(style);
    const bool hasBlock =
        record && host::handleField(record->tags(), {"AcDbDimStyleTableRecord"}, kArrowBlock) != 0;
    if (path.size() < 2 || !(size > 0.0) || path[0].distanceTo(path[1]) < 2.0 * size || hasBlock)
        return std::nullopt;
    const AcGeVector3d along = (path[1] - path[0]).normal() * size;
    const AcGeVector3d across = normal.crossProduct(along) / 6.0;
    return host::Outline{path[0], path[0] + along - across, path[0] + along + across};
}

} // namespace

Acad::ErrorStatus AcDbLeader::explode(std::vector<std::unique_ptr<AcDbEntity>>& parts) const
{
    host::PartSink sink(*this, parts);
    if (!strokes(sink))
        return sink.outcome();
    const std::optional<host::Outline> arrow =
        hasArrowHead()
            ? arrowOf(vertices(), host::normalField(tags(), host::kLeaderPart), dimensionStyle())
            : std::nullopt;
    if (arrow)
        sink.filled(*arrow);
    return sink.outcome();
}

std::span<const std::string_view> AcDbLeader::markers() const
{
    static constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDbLeader"};
    return kMarkers;
}

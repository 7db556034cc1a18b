#include "host/db/leader.h"

#include "host/db/reading.h"
#include "host/db/symbol_names.h"
#include "host/db/symbol_tables.h"
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

std::span<const std::string_view> AcDbLeader::markers() const
{
    static constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDbLeader"};
    return kMarkers;
}

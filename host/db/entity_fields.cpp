#include "host/db/entity_fields.h"

namespace host {

std::optional<AcGeVector3d> vectorField(const TagList& tags, const Subclass& part, int code)
{
    const std::optional<AcGePoint3d> found = pointField(tags, part, code);
    return found ? std::optional(found->asVector()) : std::nullopt;
}

AcGeVector3d normalField(const TagList& tags, const Subclass& part)
{
    const AcGeVector3d normal = vectorField(tags, part, 210).value_or(AcGeVector3d::kZAxis);
    return normal == AcGeVector3d::kZAxis || normal.isZeroLength() ? AcGeVector3d::kZAxis
                                                                   : normal.normal();
}

AcGePoint3d planePoint(const TagList& tags, const Subclass& part, int code)
{
    AcGePoint3d point = pointField(tags, part, code).value_or(AcGePoint3d());
    const std::size_t x = findField(tags, part, code);
    const bool hasZ = x + 2 < tags.size() && tags[x + 2].code == code + 20;
    if (!hasZ && !hasMarkers(tags))
        point.z = realField(tags, part, 38, point.z);
    return point;
}

AcGePoint3d worldPoint(const TagList& tags, const Subclass& part, int code,
                       const AcGeVector3d& normal)
{
    const AcGePoint3d point = planePoint(tags, part, code);
    return normal == AcGeVector3d::kZAxis ? point : AcGeMatrix3d::arbitraryAxes(normal) * point;
}

AcGePoint3d pointAt(const TagList& tags, std::size_t i)
{
    const int code = tags[i].code;
    AcGePoint3d point(tags.real(i), 0.0, 0.0);
    if (i + 1 < tags.size() && tags[i + 1].code == code + 10) {
        point.y = tags.real(i + 1);
        if (i + 2 < tags.size() && tags[i + 2].code == code + 20)
            point.z = tags.real(i + 2);
    }
    return point;
}

std::size_t findInRecord(const TagList& tags, int code)
{
    const std::size_t embedded = tags.find(101);
    return tags.find(code, recordHead(tags).end, std::min(embedded, dataEnd(tags)));
}

double realInRecord(const TagList& tags, int code, double fallback)
{
    const std::size_t i = findInRecord(tags, code);
    return i == TagList::npos ? fallback : tags.real(i);
}

int integerInRecord(const TagList& tags, int code, int fallback)
{
    const std::size_t i = findInRecord(tags, code);
    return i == TagList::npos ? fallback : static_cast<int>(tags.integer(i));
}

} // namespace host

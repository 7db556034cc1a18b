#include "host/db/angle.h"
#include "host/db/hatch.h"
#include "host/db/transforming.h"

#include <algorithm>

using host::TagList;

Acad::ErrorStatus AcDbHatch::transformBy(const AcGeMatrix3d& map)
{
    const host::PlaneMap mapped(map, normal());
    const Acad::ErrorStatus status = mapped.check(*this);
    if (status != Acad::eOk)
        return status;
    host::mapExtendedData(*this, mapped);
    const AcGePoint3d dummy = point(part(), 10);
    const double raised = (mapped.plane() * AcGePoint3d(0.0, 0.0, dummy.z)).z;
    if (raised != dummy.z)
        setPoint(part(), 10, {dummy.x, dummy.y, raised});
    if (mapped.normal() != mapped.oldNormal())
        setNormal(mapped.normal());
    host::mapHatchLoops(*this, host::hatchParts(tags(), part()).loops, mapped);
    mapPattern(mapped);
    return Acad::eOk;
}

void AcDbHatch::mapPattern(const host::PlaneMap& map)
{
    using host::FieldForm;
    static constexpr host::MappedField kLines[] = {
        {41, FieldForm::length}, {49, FieldForm::length}, {53, FieldForm::angle}};
    static constexpr host::MappedField kBehind[] = {{10, FieldForm::flatPoint},   // seeds
                                                    {11, FieldForm::flatVector}}; // of a polygon
    const std::size_t firstLine = findInPattern(53);
    const bool hasLines = firstLine != TagList::npos;
    const double before = hasLines ? tags().real(firstLine) : 0.0;
    const host::TagRange range = host::hatchParts(tags(), part()).pattern;
    const std::size_t end = std::min(tags().find(98, range.first, range.last), range.last);
    host::mapFields(*this, {range.first, end}, kLines, map);
    // base and offset of a line have their y under the code behind
    for (std::size_t i = range.first; i + 1 < end; ++i) {
        const int code = tags()[i].code;
        if ((code != 43 && code != 45) || tags()[i + 1].code != code + 1)
            continue;
        const AcGePoint3d place(tags().real(i), tags().real(i + 1), 0.0);
        const AcGePoint3d now =
            code == 43 ? map.plane() * place : AcGePoint3d() + map.plane() * place.asVector();
        if (now.x != place.x)
            tagsForWrite().setReal(i, now.x + 0.0);
        if (now.y != place.y)
            tagsForWrite().setReal(i + 1, now.y + 0.0);
    }
    host::mapFields(*this, {end, range.last}, kBehind, map);
    // The lines keep their angle to the pattern's.
    const double turned = hasLines ? tags().real(firstLine) - before : 0.0;
    if (turned != 0.0)
        setPatternReal(52, host::tidyDegrees(patternReal(52, 0.0) + turned), 0.0);
    if (const std::size_t shade = findInPattern(460); shade != TagList::npos) {
        const double angle = host::toDegrees(tags().real(shade));
        const double now = map.degrees(angle);
        if (now != angle)
            tagsForWrite().setReal(shade, host::toRadians(now));
    }
}

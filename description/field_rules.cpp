#include "description/field_rules.h"

#include "store/od_comparison.h"
#include "text/text_comparison.h"

#include <algorithm>

namespace {

bool pointInRange(const AcGePoint3d& point, const OdValue& lower, const OdValue& upper)
{
    if (lower.getType() != OdType::point || upper.getType() != OdType::point)
        return false;
    const AcGePoint3d from = lower.asPoint();
    const AcGePoint3d to = upper.asPoint();
    for (unsigned axis = 0; axis < 3; ++axis) {
        if (!(point[axis] >= from[axis] && point[axis] <= to[axis]))
            return false;
    }
    return true;
}

} // namespace

bool inList(const OdValue& value, std::span<const std::wstring> values)
{
    const OdType type = value.getType();
    if (type == OdType::none)
        return false;
    return std::any_of(values.begin(), values.end(), [&](const std::wstring& entry) {
        return type == OdType::character ? textEqualNoCase(value.asText(), entry)
                                         : valuesEqual(value, OdValue::fromText(type, entry));
    });
}

bool inRange(const OdValue& value, std::wstring_view lowerText, std::wstring_view upperText)
{
    const OdType type = value.getType();
    const OdValue lower = OdValue::fromText(type, lowerText);
    const OdValue upper = OdValue::fromText(type, upperText);
    switch (type) {
    case OdType::integer:
        return value.asInteger() >= lower.asInteger() && value.asInteger() <= upper.asInteger();
    case OdType::real:
        return value.asReal() >= lower.asReal() && value.asReal() <= upper.asReal();
    case OdType::character:
        return textWithinNoCase(value.asText(), lowerText, upperText);
    case OdType::point:
        return pointInRange(value.asPoint(), lower, upper);
    case OdType::none:
        break;
    }
    return false;
}

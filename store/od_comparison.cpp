#include "store/od_comparison.h"

#include "host/db/database.h"
#include "text/number_text.h"

#include <cmath>

namespace {

// Coordinates in a text are held against the text's own, which are zero, whatever the point says.
bool textEqualsPoints(const std::wstring& text)
{
    const auto xyz = leadingPoint(text);
    return xyz && AcGePoint3d(*xyz) == AcGePoint3d::kOrigin;
}

double linearTolerance()
{
    constexpr int kUsualPrecision = 4;
    const AcDbDatabase* database = acdbHostApplicationServices()->workingDatabase();
    // The nearest number to the decimal, which repeated multiplication by 0.1 would miss.
    return 1.0 / std::pow(10.0, database ? database->luprec() : kUsualPrecision);
}

} // namespace

bool valuesEqual(const OdValue& left, const OdValue& right)
{
    const OdType leftType = left.getType();
    const OdType rightType = right.getType();
    if (leftType == OdType::none || rightType == OdType::none)
        return true;
    if (leftType == OdType::point || rightType == OdType::point) {
        if (leftType == rightType)
            return left.asPoint() == right.asPoint();
        return leftType == OdType::character && textEqualsPoints(left.asText());
    }
    if (leftType == OdType::character && rightType == OdType::character)
        return left.asText() == right.asText();
    // Of two types a text is read as the other one, and an integer beside a real as a real.
    if (leftType == OdType::real || rightType == OdType::real)
        return left.asReal() == right.asReal();
    return left.asInteger() == right.asInteger();
}

bool nearlyEqual(double a, double b)
{
    return std::fabs(a - b) < linearTolerance();
}

bool nearlyEqualPoints(const AcGePoint3d& a, const AcGePoint3d& b)
{
    return nearlyEqual(a.x, b.x) && nearlyEqual(a.y, b.y) && nearlyEqual(a.z, b.z);
}

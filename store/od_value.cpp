#include "store/od_value.h"

#include "text/number_text.h"

#include <limits>

namespace {

constexpr std::int32_t kVaryingInteger = std::numeric_limits<std::int32_t>::max();
constexpr double kVaryingReal = std::numeric_limits<double>::max();
constexpr const wchar_t* kVaryingText = L"*VARYING*";
constexpr AcGePoint3d kVaryingPoint{kVaryingReal, kVaryingReal, kVaryingReal};

// X before the first comma, Z behind the last one, Y between them as far as it is a number.
AcGePoint3d pointOfText(std::wstring_view text)
{
    const std::size_t first = text.find(L',');
    const std::size_t last = text.rfind(L',');
    if (first == last)
        throw AcMap::kNotFound;
    return {leadingReal(text.substr(0, first)),
            leadingReal(text.substr(first + 1, last - first - 1)),
            leadingReal(text.substr(last + 1))};
}

} // namespace

OdValue::OdValue(OdType type)
{
    switch (type) {
    case OdType::integer:
        value_ = 0;
        break;
    case OdType::real:
        value_ = 0.0;
        break;
    case OdType::character:
        value_ = Text();
        break;
    case OdType::point:
        value_ = AcGePoint3d();
        break;
    case OdType::none:
        break;
    }
}

OdValue& OdValue::operator=(const OdValue& source)
{
    if (source.getType() == OdType::none)
        return *this;
    switch (getType()) {
    case OdType::none:
        value_ = source.value_;
        break;
    case OdType::integer:
        value_ = source.asInteger();
        break;
    case OdType::real:
        value_ = source.asReal();
        break;
    case OdType::character:
        if (const Text* text = std::get_if<Text>(&source.value_); !text || *text)
            value_ = Text(source.asText());
        break;
    case OdType::point:
        value_ = source.asPoint();
        break;
    }
    return *this;
}

OdValue& OdValue::operator=(OdValue&& source)
{
    const Text* text = std::get_if<Text>(&source.value_);
    if (getType() == OdType::none || (text && *text && getType() == OdType::character))
        value_ = std::move(source.value_);
    else
        *this = std::as_const(source);
    return *this;
}

OdValue OdValue::fromText(OdType type, std::wstring_view text)
{
    switch (type) {
    case OdType::integer:
        return OdValue(leadingInteger(text));
    case OdType::real:
        return OdValue(leadingReal(text));
    case OdType::character:
        return OdValue(std::wstring(text));
    case OdType::point:
        if (const auto xyz = leadingPoint(text))
            return OdValue(AcGePoint3d(*xyz));
        return OdValue(std::int32_t{0});
    case OdType::none:
        break;
    }
    return {};
}

std::int32_t OdValue::asInteger() const
{
    switch (getType()) {
    case OdType::none:
        return 0;
    case OdType::integer:
        return std::get<std::int32_t>(value_);
    case OdType::real:
        return truncated(std::get<double>(value_));
    case OdType::character:
        return leadingInteger(asText());
    case OdType::point:
        break;
    }
    throw AcMap::kNoConversion;
}

double OdValue::asReal() const
{
    switch (getType()) {
    case OdType::integer:
        return std::get<std::int32_t>(value_);
    case OdType::real:
        return std::get<double>(value_);
    case OdType::character:
        return leadingReal(asText());
    case OdType::none:
    case OdType::point:
        break;
    }
    throw AcMap::kNoConversion;
}

AcGePoint3d OdValue::asPoint() const
{
    if (const AcGePoint3d* point = std::get_if<AcGePoint3d>(&value_))
        return *point;
    if (getType() == OdType::character)
        return pointOfText(asText());
    throw AcMap::kNoConversion;
}

std::wstring OdValue::asText() const
{
    switch (getType()) {
    case OdType::integer:
        return integerText(std::get<std::int32_t>(value_));
    case OdType::real:
        return realText(std::get<double>(value_));
    case OdType::character:
        return std::get<Text>(value_).value_or(std::wstring());
    case OdType::point:
        return pointText(std::get<AcGePoint3d>(value_));
    case OdType::none:
        break;
    }
    throw AcMap::kNoConversion;
}

std::wstring OdValue::displayText() const
{
    switch (getType()) {
    case OdType::none:
        return {};
    case OdType::real:
        return trimZeros(realText(std::get<double>(value_), 12));
    default:
        return asText();
    }
}

void OdValue::setVarying()
{
    switch (getType()) {
    case OdType::none:
        break;
    case OdType::integer:
        value_ = kVaryingInteger;
        break;
    case OdType::real:
        value_ = kVaryingReal;
        break;
    case OdType::character:
        value_ = Text(kVaryingText);
        break;
    case OdType::point:
        value_ = kVaryingPoint;
        break;
    }
}

bool IsVarying(const OdValue& value)
{
    switch (value.getType()) {
    case OdType::none:
        return true;
    case OdType::integer:
        return value.asInteger() == kVaryingInteger;
    case OdType::real:
        return value.asReal() == kVaryingReal;
    case OdType::character:
        return value.asText() == kVaryingText;
    case OdType::point:
        // The difference of two such coordinates is 0 or infinite, so no tolerance can matter.
        return value.asPoint() == kVaryingPoint;
    }
    return true;
}

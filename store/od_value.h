#pragma once

#include "host/geom/point.h"
#include "store/od_error.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

// The type of a field's value. The numbers stand in descriptions' models and never change.
enum class OdType : std::int32_t { none = 0, integer = 1, real = 2, character = 3, point = 4 };

// One attribute value of an entity's record: what is stored, shown and compared.
// Assignment converts to the type already held, except to a value of type none, which becomes a
// copy. A conversion that does not exist throws AcMap::EErrCode and leaves the value as it was.
class OdValue {
public:
    OdValue() = default;
    explicit OdValue(OdType type); // zero; a character value has no text yet
    explicit OdValue(std::int32_t value) : value_(value) {}
    explicit OdValue(double value) : value_(value) {}
    explicit OdValue(std::wstring text) : value_(Text(std::move(text))) {}
    explicit OdValue(const wchar_t* text) : value_(Text(text)) {}
    explicit OdValue(const AcGePoint3d& value) : value_(value) {}

    OdValue(const OdValue&) = default;
    OdValue(OdValue&&) noexcept = default;
    OdValue& operator=(const OdValue& source);
    OdValue&
    operator=(OdValue&& source); // NOLINT(performance-noexcept-move-constructor): reading may throw

    // A plain copy, type included; what containers of values need in the place of an assignment.
    void become(OdValue source) noexcept { value_ = std::move(source.value_); }

    // A point's text needs three numbers with commas between; without them the result is the
    // integer 0.
    static OdValue fromText(OdType type, std::wstring_view text);

    OdType getType() const { return static_cast<OdType>(value_.index()); }

    // kNoConversion where there is nothing to read, except that none reads as the integer 0.
    std::int32_t
    asInteger() const;     // truncates a real toward zero; a text gives its leading digits, or 0
    double asReal() const; // a text gives its leading number, or 0
    AcGePoint3d asPoint() const; // kNotFound for a text with fewer than two commas
    std::wstring
    asText() const; // reals and points with six decimals; a text that is not there is empty

    // For the user: a real without trailing zeros, but with one digit behind the point. Never
    // throws.
    std::wstring displayText() const;

    // The mark of its type for "differs between several entities"; none stays none.
    void setVarying();

private:
    using Text = std::optional<std::wstring>; // absent until a text is assigned

    std::variant<std::monostate, std::int32_t, double, Text, AcGePoint3d> value_; // by OdType
};

// Whether the value is the mark that setVarying leaves; true for none.
bool IsVarying(const OdValue& value);

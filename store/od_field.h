#pragma once

#include "store/od_value.h"

#include <string>

// A named value of a record, or a field of a table with its default. A field that is assigned
// becomes a copy; only its value, assigned by itself, converts.
class OdField {
public:
    OdField() = default;
    explicit OdField(std::wstring name, OdType type = OdType::none)
        : value(type), name_(std::move(name))
    {
    }

    OdField(const OdField&) = default;
    OdField(OdField&&) noexcept = default;
    OdField& operator=(OdField source) noexcept
    {
        name_ = std::move(source.name_);
        description = std::move(source.description);
        value.become(std::move(source.value));
        return *this;
    }

    const std::wstring& getName() const { return name_; }
    OdType getType() const { return value.getType(); }

    // Assign with conversion to the field's type, which is returned.
    OdType setInteger(std::int32_t number) { return set(OdValue(number)); }
    OdType setReal(double number) { return set(OdValue(number)); }
    OdType setText(std::wstring text) { return set(OdValue(std::move(text))); }
    OdType setPoint(const AcGePoint3d& point) { return set(OdValue(point)); }

    std::wstring description; // for people; drawings do not keep it
    OdValue value;

private:
    OdType set(OdValue source)
    {
        value = std::move(source);
        return getType();
    }

    std::wstring name_;
};

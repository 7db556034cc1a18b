#pragma once

#include "store/od_value.h"

#include <string>

// A named value of a record, or a field of a table with its default.
class OdField {
public:
    OdField() = default;
    explicit OdField(std::wstring name, OdType type = OdType::none)
        : value(type), name_(std::move(name))
    {
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

#pragma once

#include "description/prop_constraint.h"
#include "host/db/color.h"

#include <algorithm>
#include <cstdint>
#include <string>

// Equality and bounds of each type of property. Numbers have the tolerance of the drawing's LUPREC,
// scales axis by axis; texts are equal without regard to case but ordered with it.
bool sameValue(double left, double right);
bool sameValue(const std::wstring& left, const std::wstring& right);
bool sameValue(const ScaleFactors& left, const ScaleFactors& right);
inline bool sameValue(std::int32_t left, std::int32_t right)
{
    return sameValue(static_cast<double>(left), static_cast<double>(right));
}
inline bool sameValue(std::uint8_t left, std::uint8_t right)
{
    return sameValue(static_cast<double>(left), static_cast<double>(right));
}

// Strictly on the inner side of a bound; a scale with all three axes.
bool isBelow(double left, double right);
bool isBelow(const std::wstring& left, const std::wstring& right);
bool isBelow(const ScaleFactors& left, const ScaleFactors& right);

// A value of an entity against what the description accepts; `any` is the mark of a property that
// is left open. A property that was not given is not tested here.
template <class T> bool matches(const PropConstraint<T>& constraint, const T& any, const T& actual)
{
    if (constraint.value == any || sameValue(actual, constraint.value))
        return true;
    const std::vector<T>& accepted = constraint.accepted;
    if (constraint.mode == kValueAndList)
        return std::any_of(accepted.begin(), accepted.end(), [&](const T& entry) {
            return entry == any || sameValue(actual, entry);
        });
    if (constraint.mode == kValueAndRange && accepted.size() >= 2)
        return (sameValue(actual, accepted[0]) || isBelow(accepted[0], actual)) &&
               (sameValue(actual, accepted[1]) || isBelow(actual, accepted[1]));
    return false;
}

// Whether an entry of -1 accepts a colour that is none.
enum class NoneColor { refused, accepted };

bool matches(const ColorList& colors, const AcCmColor& actual, NoneColor none = NoneColor::refused);

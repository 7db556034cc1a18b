#pragma once

#include "host/edit/question.h"
#include "host/runtime/resbuf.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

// What typed answers mean: numbers, angles, points, keywords.
namespace host {

std::optional<int> typedInteger(std::wstring_view text); // 32 bits
std::optional<double> typedReal(std::wstring_view text);
std::optional<double> typedAngle(std::wstring_view text); // degrees in, radians out

// "x,y", "x,y,z" or "dist<angle" (degrees), with "@" before it relative to `last`; "@" alone is
// `last`. Where z is not typed it is `elevation`, or that of `last`.
std::optional<AcGePoint3d> typedPoint(std::wstring_view text, const AcGePoint3d& last,
                                      double elevation);

// The keywords of one question.
struct Keyword {
    std::wstring typed;    // in full, as listed
    std::wstring shortest; // what has to be typed at least: its capitals
    std::wstring answered; // the global name
};
std::vector<Keyword> parseKeywords(std::wstring_view list);
// Without regard to case; "_" before the text asks for global names only. Null when none matches.
const Keyword* matchKeyword(std::span<const Keyword> keywords, std::wstring_view text);

// An answer as a value of the type that `value` has; else the text of the refusal.
std::optional<std::wstring> readVariableValue(const Answer& answer, resbuf& value);

} // namespace host

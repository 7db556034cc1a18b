#pragma once

#include "host/commands/drawing/drawing_prompts.h"

#include <optional>

// What PLINE and ARC ask for an arc with a known start. Nothing when cancelled.
namespace host {

inline constexpr const wchar_t* kNoArc = L"No arc in this direction ends there.\n";

struct ArcEnd {
    AcGePoint2d place;
    double bulge = 0.0;
};

// The options of a polyline's arcs: Angle, CEnter, Direction, Radius, Second. `direction` is that
// of the segment before.
std::optional<ArcEnd> arcByOption(const std::wstring& keyword, const AcGePoint3d& start,
                                  double direction);

// Between whole turns, not zero; negative is clockwise.
std::optional<double> askIncludedAngle(const AcGePoint3d& base);

// The turn about a centre, by a place in the direction of the end, or by the keywords Angle and
// Length (of the chord).
std::optional<double> askTurnAbout(const AcGePoint3d& centre, const AcGePoint3d& start,
                                   const wchar_t* prompt);

} // namespace host

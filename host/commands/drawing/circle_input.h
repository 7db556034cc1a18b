#pragma once

#include "host/commands/drawing/drawing_prompts.h"

#include <optional>

namespace host {

// A circle in the plane of constant z through its first point.
struct GivenCircle {
    AcGePoint3d centre;
    double radius = 0.0;
};

// Asks on after the keyword 2P, 3P or Ttr. Nothing when cancelled, or when no circle touches.
std::optional<GivenCircle> circleByKeyword(const std::wstring& keyword);

// A radius, or a diameter by the keyword Diameter; `what` as in "Specify radius of circle". The one
// given last is offered (CIRCLERAD) and kept.
std::optional<double> askRadius(const std::wstring& what, const std::wstring& diameter,
                                const AcGePoint3d& centre);

} // namespace host

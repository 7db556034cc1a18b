#pragma once

#include "host/geom/point.h"

#include <optional>
#include <variant>

// Arcs and circles from what a user states of them, in the plane. An arc between two points is told
// by its bulge: the tangent of a quarter of its turn, positive to the left (counter-clockwise).
// Angles are radians.
namespace host {

double bulgeOfTurn(double turn); // the turn within one whole turn either way
// Through a point between the ends; none when the three lie on a line or two of them coincide.
std::optional<double> bulgeThrough(AcGePoint2d from, AcGePoint2d between, AcGePoint2d to);
// Leaving `from` in a direction. Zero when that leads straight to the end, none when the end lies
// exactly behind or coincides.
std::optional<double> bulgeLeaving(AcGePoint2d from, AcGePoint2d to, double direction);
// Counter-clockwise; a negative radius takes the greater arc. None for points farther apart than
// the diameter.
std::optional<double> bulgeOfRadius(AcGePoint2d from, AcGePoint2d to, double radius);
// In which direction a segment of that bulge arrives.
double arrivalDirection(AcGePoint2d from, AcGePoint2d to, double bulge);

// Counter-clockwise from one point to the other about a centre, above zero and up to a whole turn.
double turnBetween(AcGePoint2d centre, AcGePoint2d from, AcGePoint2d to);
// The turn of an arc with that chord; a negative chord takes the greater arc. None for a chord
// longer than the diameter.
std::optional<double> turnOfChord(double radius, double chord);
AcGePoint2d turned(AcGePoint2d point, AcGePoint2d centre, double angle);

struct PlaneCircle {
    AcGePoint2d centre;
    double radius = 0.0;
};
struct PlaneLine { // without ends
    AcGePoint2d point;
    AcGeVector2d direction;
};
using TangentTarget = std::variant<PlaneLine, PlaneCircle>;

std::optional<PlaneCircle> circleThrough(AcGePoint2d a, AcGePoint2d b, AcGePoint2d c);
// The circle of that radius that touches both; of the several there may be the one that touches
// nearest to the two places. None when none does.
std::optional<PlaneCircle> tangentCircle(const TangentTarget& first, AcGePoint2d nearFirst,
                                         const TangentTarget& second, AcGePoint2d nearSecond,
                                         double radius);

} // namespace host

#pragma once

#include "host/db/dimension.h"
#include "host/db/dimension_style.h"

#include <optional>

namespace host {

// What dimensions measure, in the xy plane.

// A length in drawing units, or an angle in radians. None for a dimension that measures nothing:
// parallel lines, places that coincide.
std::optional<double> measured(const AcDbDimension& dimension);
// The same as the dimension's text, in the form of MTEXT; a length starts with the mark of its kind
// ("R") unless it is left out. Empty when there is none.
enum class KindMark { shown, leftOut };
std::wstring measuredText(const AcDbDimension& dimension, const DimensionStyle& style,
                          KindMark mark = KindMark::shown);

// The arc on which the text of an angle or of an arc's length stands.
struct AngularSpan {
    AcGePoint2d centre;
    double radius = 0.0; // of the dimension line
    double start = 0.0;  // radians, counter-clockwise from the x axis
    double sweep = 0.0;  // above 0, below a whole turn
    // How far from the centre, on the ray of each end, the measured thing reaches: it begins and
    // ends there. Negative ones lie on the other side of the centre.
    struct Reach {
        double least = 0.0;
        double most = 0.0;
    };
    Reach first;
    Reach second;

    AcGePoint2d at(double angle) const;
};
std::optional<AngularSpan> angularSpan(const AcDbDimension& dimension); // none for other kinds

// The direction, of length 1, in which a straight dimension measures.
std::optional<AcGeVector2d> straightDirection(const AcDbDimension& dimension);

} // namespace host

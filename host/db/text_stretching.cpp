#include "host/db/text_stretching.h"

#include "host/db/text.h"

#include <cmath>

namespace host {

void stretchText(AcDbText& text, const AcGeMatrix3d& map)
{
    const AcGeMatrix3d plane = AcGeMatrix3d::arbitraryAxes(text.normal());
    const double angle = text.rotation();
    const AcGeVector3d writing = plane * AcGeVector3d(std::cos(angle), std::sin(angle), 0.0);
    const AcGeVector3d letters = plane * AcGeVector3d(-std::sin(angle), std::cos(angle), 0.0);
    const AcGeVector3d along = map * writing;
    const AcGeVector3d leaning = map * (letters + writing * std::tan(text.oblique()));
    const double slant = leaning.dotProduct(along.normal());
    const AcGeVector3d upward = leaning - along.normal() * slant;
    if (along.isZeroLength() || upward.isZeroLength())
        return; // seen from its edge

    const AcGePoint3d position = map * text.position();
    const AcGePoint3d alignment = map * text.alignmentPoint();
    const AcGeVector3d normal = along.crossProduct(upward).normal();
    const AcGeVector3d inPlane = AcGeMatrix3d::arbitraryAxes(normal).inverse() * along;
    const double oblique = std::atan2(slant, upward.length());
    text.setNormal(normal);
    text.setHeight(text.height() * upward.length());
    text.setWidthFactor(text.widthFactor() * along.length() / upward.length());
    text.setRotation(std::atan2(inPlane.y, inPlane.x));
    if (std::abs(oblique - text.oblique()) > 1e-9)
        text.setOblique(oblique);
    text.setPosition(position);
    if (text.justification() != 0)
        text.setAlignmentPoint(alignment);
}

} // namespace host

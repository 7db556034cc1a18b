#pragma once

#include "host/geom/stroke_sink.h"

namespace host {

// Draws a flat figure, and once more raised by its thickness along the normal. Always true.
template <class Draw>
bool strokeThick(StrokeSink& sink, const AcGeVector3d& normal, double thickness, Draw draw)
{
    draw(sink);
    if (thickness != 0.0 && !sink.done()) {
        TransformingSink raised(sink, AcGeMatrix3d::translation(normal * thickness));
        draw(raised);
    }
    return true;
}

} // namespace host

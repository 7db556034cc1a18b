#include "host/commands/drawing/drawn_end.h"

#include "host/db/arc.h"
#include "host/db/line.h"
#include "host/db/object_pointer.h"
#include "host/edit/document.h"
#include "host/edit/entity_search.h"
#include "host/edit/system_variables.h"

namespace host {

namespace {

// An arc is kept counter-clockwise; one that was drawn the other way ends at its start.
DrawnEnd endOf(const Arc3d& arc)
{
    resbuf last;
    const bool known = acedGetVar(L"LASTPOINT", last) == RTNORM;
    if (known && arc.startPoint().isEqualTo(last.resval.rpoint, AcGeTol(1e-6, 1e-6)))
        return {arc.startPoint(), -arc.tangentAt(arc.start).normal(), true};
    return {arc.endPoint(), arc.tangentAt(arc.end).normal(), true};
}

} // namespace

std::optional<DrawnEnd> drawnEnd()
{
    const AcApDocument* const document = curDoc();
    const AcDbObjectId last = document ? lastEntity(*document->database()) : AcDbObjectId();
    if (const AcDbObjectPointer<AcDbLine> line(last, AcDb::kForRead); line)
        return DrawnEnd{line->endPoint(), (line->endPoint() - line->startPoint()).normal()};
    if (const AcDbObjectPointer<AcDbArc> arc(last, AcDb::kForRead); arc)
        return endOf(arc->geometry());
    return std::nullopt;
}

} // namespace host

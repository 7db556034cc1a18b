#include "host/commands/drawing/wipeout_command.h"

#include "host/commands/command_entities.h"
#include "host/commands/drawing/new_entity.h"
#include "host/commands/drawing/vertex_path.h"
#include "host/commands/drawing/wipeout_frames.h"
#include "host/db/database.h"
#include "host/db/image.h"
#include "host/db/lwpolyline.h"
#include "host/db/object_pointer.h"
#include "host/edit/document.h"
#include "host/geom/polyline.h"

#include <cmath>

// Enter at the first prompt asks for a polyline, and Enter on the way closes the polygon. Escape
// leaves nothing. The area lies at the height of its first corner.

namespace host {

namespace {

void draw(std::vector<AcGePoint3d> outline)
{
    for (AcGePoint3d& corner : outline)
        corner.z = outline.front().z;
    if (outline.size() < 3 || std::abs(signedArea(outline)) < 1e-12) {
        refuse(L"The outline encloses nothing.\n");
        return;
    }
    auto wipeout = std::make_unique<AcDbWipeout>();
    wipeout->setOutline(outline);
    appendNew(std::move(wipeout));
}

// The corners of a closed polyline of straight segments; none for another entity.
std::vector<AcGePoint3d> cornersOf(AcDbObjectId id)
{
    std::vector<AcGePoint3d> corners;
    const AcDbObjectPointer<AcDbPolyline> polyline(id, AcDb::kForRead);
    if (!polyline || !polyline->isClosed())
        return corners;
    for (unsigned i = 0; i < polyline->numVerts(); ++i) {
        if (polyline->vertices()[i].bulge != 0.0)
            return {};
        polyline->getPointAt(i, corners.emplace_back());
    }
    return corners;
}

void drawFromPolyline()
{
    for (;;) {
        const std::optional<PickedEntity> picked = pickEntity(L"Select a closed polyline: ");
        if (!picked)
            return;
        const std::vector<AcGePoint3d> corners = cornersOf(picked->id);
        if (corners.size() < 3) {
            refuse(L"Polyline must be closed and made up of only line segments.\n");
            continue;
        }
        const Answered<int> erases =
            askOption(L"Erase polyline? [Yes/No] <No>: ", L"Yes No", L"No");
        if (!erases.isKeyword())
            return;
        draw(corners);
        if (erases.chose(L"Yes"))
            eraseEntity(picked->id);
        return;
    }
}

void askFrames(AcDbDatabase& database)
{
    struct Mode {
        const wchar_t* keyword;
        WipeoutFrames frames;
    };
    static constexpr Mode kModes[] = {{L"ON", WipeoutFrames::shown},
                                      {L"OFF", WipeoutFrames::hidden},
                                      {L"Display", WipeoutFrames::shownButNotPlotted}};
    const Answered<int> answer =
        askOption(L"Enter mode [ON/OFF/Display but not plot] <ON>: ", L"ON OFF Display", L"ON");
    for (const Mode& mode : kModes)
        if (answer.chose(mode.keyword))
            setWipeoutFrames(database, mode.frames);
}

} // namespace

void wipeoutCommand()
{
    const AcApDocument* const document = documentOfCommand();
    if (!document)
        return;
    const Answered<AcGePoint3d> first =
        askPlace({.text = L"Specify first point or [Frames/Polyline] <Polyline>: ",
                  .keywords = L"Frames Polyline",
                  .enterCounts = true});
    if (first.chose(L"Frames")) {
        askFrames(*document->database());
    } else if (first.given()) {
        const VertexPath path = askPath(first.value, {.undoAtFirst = false});
        if (path.end != VertexPath::End::cancelled)
            draw(path.points);
    } else if (!first.cancelled()) {
        drawFromPolyline();
    }
}

} // namespace host

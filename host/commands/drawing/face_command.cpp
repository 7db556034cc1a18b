#include "host/commands/drawing/face_command.h"

#include "host/commands/command_entities.h"
#include "host/commands/drawing/drawing_prompts.h"
#include "host/commands/drawing/new_entity.h"
#include "host/db/face.h"

#include <array>

// A face is in the drawing once its fourth corner is given, or Enter says that it has three. Escape
// leaves the finished ones. "Invisible" before a corner hides the edge that begins there. The last
// two corners of a face are the first two of the next, and their edge is as visible as it was.

namespace host {

namespace {

struct Corner {
    AcGePoint3d place;
    bool hidden = false; // the edge from here to the next corner
};

Answered<Corner> askCorner(const std::wstring& what, const wchar_t* onEnter, const Corner* before)
{
    Answered<Corner> corner;
    PromptForm form{.text = L"Specify " + what + L" point or [Invisible]" + onEnter + L": ",
                    .keywords = L"Invisible",
                    .enterCounts = *onEnter != L'\0'};
    if (before)
        form.base = before->place;
    for (;;) {
        const Answered<AcGePoint3d> place = askPlace(form);
        corner.outcome = place.outcome;
        corner.value.place = place.value;
        if (!place.chose(L"Invisible"))
            return corner;
        corner.value.hidden = true;
    }
}

void drawFace(const std::array<Corner, 4>& corners)
{
    auto face = std::make_unique<AcDbFace>();
    for (int i = 0; i < 4; ++i) {
        face->setVertexAt(i, corners[i].place);
        if (corners[i].hidden)
            face->makeEdgeInvisibleAt(i);
    }
    appendNew(std::move(face));
}

const wchar_t* refusedTriangle(const Corner& a, const Corner& b, const Corner& c)
{
    const bool flat = (b.place - a.place).crossProduct(c.place - a.place).isZeroLength();
    return flat ? kOnALine : nullptr;
}

} // namespace

void faceCommand()
{
    if (!documentOfCommand())
        return;
    const Answered<Corner> first = askCorner(L"first", L"", nullptr);
    if (!first.given())
        return;
    const Answered<Corner> second =
        askUntil([&] { return askCorner(L"second", L"", &first.value); },
                 [&](const Corner& corner) {
                     return corner.place.isEqualTo(first.value.place) ? kSamePlace : nullptr;
                 });
    if (!second.given())
        return;
    std::array<Corner, 4> corners{first.value, second.value};
    for (;;) {
        const Answered<Corner> third =
            askUntil([&] { return askCorner(L"third", L" <exit>", &corners[1]); },
                     [&](const Corner& corner) {
                         // after a triangle the strip goes on from a single corner
                         const bool single = corners[0].place.isEqualTo(corners[1].place);
                         return corner.place.isEqualTo(corners[1].place) ? kSamePlace
                                : single                                 ? nullptr
                                         : refusedTriangle(corners[0], corners[1], corner);
                     });
        if (!third.given())
            return;
        corners[2] = third.value;
        const Answered<Corner> fourth =
            askCorner(L"fourth", L" <create three-sided face>", &corners[2]);
        if (fourth.cancelled())
            return;
        corners[3] = fourth.value;
        if (fourth.enter())
            corners[3].place = corners[2].place;
        drawFace(corners);
        corners[0] = corners[2];
        corners[1] = corners[3];
        corners[1].hidden = false;
    }
}

} // namespace host

#include "host/commands/undo_commands.h"

#include "host/commands/command_entities.h"
#include "host/edit/command_engine.h"
#include "host/edit/command_line.h"
#include "host/edit/document.h"
#include "host/edit/prompts.h"

#include <map>

namespace host {

namespace {

// What UNDO keeps for a drawing; by database number, which is never used twice.
struct UndoPlaces {
    std::vector<std::size_t> marks; // steps in the journal when the mark was set
    bool groupOpen = false;
};

UndoPlaces& placesOf(const Drawing& drawing)
{
    static std::map<std::uint32_t, UndoPlaces> places;
    return places[drawing.number];
}

Drawing* drawingOfCommand()
{
    AcApDocument* const document = documentOfCommand();
    return document ? &document->database()->drawing() : nullptr;
}

// False when there was nothing to take back.
bool undoStep(Drawing& drawing)
{
    const std::wstring name = engine().steps().undo(drawing);
    if (name.empty())
        return false;
    print(name + L"\n");
    std::vector<std::size_t>& marks = placesOf(drawing).marks;
    while (!marks.empty() && marks.back() > drawing.undo.undoable())
        marks.pop_back();
    return true;
}

void undoSteps(Drawing& drawing, std::int64_t count)
{
    const UndoPlaces& places = placesOf(drawing);
    for (std::int64_t done = 0; done < count; ++done) {
        if (done > 0 && !places.marks.empty() && places.marks.back() == drawing.undo.undoable()) {
            print(L"Mark encountered.\n");
            return;
        }
        if (!undoStep(drawing)) {
            print(done == 0 ? L"Nothing to undo.\n" : L"Everything has been undone.\n");
            return;
        }
    }
}

void beginGroup(Drawing& drawing)
{
    UndoPlaces& places = placesOf(drawing);
    if (!std::exchange(places.groupOpen, true))
        engine().steps().begin();
}

void endGroup(Drawing& drawing)
{
    UndoPlaces& places = placesOf(drawing);
    if (std::exchange(places.groupOpen, false))
        engine().steps().end();
    else
        print(L"No group of commands was begun.\n");
}

void setMark(Drawing& drawing)
{
    placesOf(drawing).marks.push_back(drawing.undo.undoable());
}

void undoToMark(Drawing& drawing)
{
    std::vector<std::size_t>& marks = placesOf(drawing).marks;
    std::size_t place = 0;
    if (!marks.empty()) {
        place = marks.back();
        marks.pop_back();
    } else if (!confirmed(L"This will undo everything. OK?", true)) {
        return;
    }
    if (drawing.undo.undoable() <= place)
        print(L"Nothing to undo.\n");
    while (drawing.undo.undoable() > place && undoStep(drawing)) {
    }
}

struct UndoOption {
    const wchar_t* keyword;
    void (*run)(Drawing& drawing);
};

constexpr UndoOption kOptions[] = {
    {L"BEgin", beginGroup},
    {L"End", endGroup},
    {L"Mark", setMark},
    {L"Back", undoToMark},
};

} // namespace

void uCommand()
{
    if (Drawing* const drawing = drawingOfCommand())
        undoSteps(*drawing, 1);
}

void redoCommand()
{
    Drawing* const drawing = drawingOfCommand();
    if (!drawing)
        return;
    const std::wstring name = engine().steps().redo(*drawing);
    print(name.empty() ? std::wstring(L"Nothing to redo.\n") : name + L"\n");
}

void undoCommand()
{
    Drawing* const drawing = drawingOfCommand();
    if (!drawing)
        return;
    int count = 1;
    acedInitGet(RSG_NOZERO | RSG_NONEG, L"BEgin End Mark Back");
    const int result =
        acedGetInt(L"Enter the number of operations to undo or [BEgin/End/Mark/Back] <1>: ", count);
    if (result == RTNORM || result == RTNONE) {
        undoSteps(*drawing, result == RTNONE ? 1 : count);
    } else if (result == RTKWORD) {
        std::wstring keyword;
        acedGetInput(keyword);
        for (const UndoOption& option : kOptions)
            if (keyword == option.keyword)
                option.run(*drawing);
    }
}

} // namespace host

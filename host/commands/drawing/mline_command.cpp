#include "host/commands/drawing/mline_command.h"

#include "host/commands/command_entities.h"
#include "host/commands/drawing/new_entity.h"
#include "host/commands/drawing/vertex_path.h"
#include "host/db/database.h"
#include "host/db/dictionary.h"
#include "host/db/mline.h"
#include "host/db/object_pointer.h"
#include "host/edit/command_engine.h"
#include "host/edit/command_line.h"
#include "host/edit/document.h"
#include "host/edit/system_variables.h"
#include "host/text/case_mapping.h"
#include "host/text/wide_format.h"

#include <iterator>

// The multiline comes into the drawing at the end. Escape leaves what was drawn so far, as Enter
// does; a start point alone leaves nothing.

namespace host {

namespace {

constexpr const wchar_t* kScale = L"CMLSCALE";
constexpr const wchar_t* kJustification = L"CMLJUST";
constexpr const wchar_t* kStyle = L"CMLSTYLE";
constexpr const wchar_t* kJustifications[] = {L"Top", L"Zero", L"Bottom"}; // by CMLJUST
constexpr const wchar_t* kDefinitions = L"acad.mln";
constexpr const wchar_t* kStyles = L"ACAD_MLINESTYLE";

std::wstring currentStyle()
{
    resbuf value;
    return acedGetVar(kStyle, value) == RTNORM ? value.resval.rstring : L"Standard";
}

const wchar_t* currentJustification()
{
    return kJustifications[integerVariable(kJustification, 0)];
}

std::wstring settings()
{
    return std::wstring(L"Current settings: Justification = ") + currentJustification() +
           format(L", Scale = %.2f, Style = ", realVariable(kScale, 20.0)) +
           upperCased(currentStyle()) + L"\n";
}

bool askJustification()
{
    const Answered<int> answer =
        askOption(std::wstring(L"Enter justification type [Top/Zero/Bottom] <") +
                      lowerCased(currentJustification()) + L">: ",
                  L"Top Zero Bottom", currentJustification());
    for (int i = 0; i < static_cast<int>(std::size(kJustifications)); ++i)
        if (answer.chose(kJustifications[i]))
            setInteger(kJustification, i);
    return answer.isKeyword();
}

bool askScale()
{
    const Answered<double> scale =
        askNumber({.text = format(L"Enter mline scale <%.2f>: ", realVariable(kScale, 20.0)),
                   .enterCounts = true});
    if (scale.given())
        setReal(kScale, scale.value);
    return !scale.cancelled();
}

void listStyles(AcDbDatabase& database)
{
    print(L"Loaded multiline styles:\n");
    const AcDbObjectPointer<AcDbDictionary> styles(standardDictionary(database.drawing(), kStyles),
                                                   AcDb::kForRead);
    if (styles)
        for (const AcDbDictionary::Entry& entry : styles->entries())
            if (!entry.id.isErased())
                print(L"    " + entry.name + L"\n");
}

// Of the drawing, or else of the definition file.
bool makeCurrent(const std::wstring& name)
{
    resbuf value{static_cast<short>(RTSTR), {}};
    value.resval.rstring = name;
    if (acedSetVar(kStyle, value) == RTNORM)
        return true;
    return acdbLoadMlineStyleFile(name, kDefinitions) == Acad::eOk &&
           acedSetVar(kStyle, value) == RTNORM;
}

bool askStyle(AcDbDatabase& database)
{
    for (;;) {
        std::wstring name;
        if (acedGetString(0, L"Enter mline style name or [?]: ", name) != RTNORM)
            return false;
        if (name == L"?")
            listStyles(database);
        else if (name.empty() || makeCurrent(name))
            return true;
        else
            print(L"Multiline style \"" + name + L"\" not found.\n");
    }
}

Answered<AcGePoint3d> askStart(AcDbDatabase& database)
{
    for (;;) {
        engine().printForPrompt(settings());
        Answered<AcGePoint3d> start =
            askPlace({.text = L"Specify start point or [Justification/Scale/STyle]: ",
                      .keywords = L"Justification Scale STyle"});
        if (!start.isKeyword())
            return start;
        const bool settled = start.chose(L"Justification") ? askJustification()
                             : start.chose(L"Scale")       ? askScale()
                                                           : askStyle(database);
        if (!settled)
            return {};
    }
}

AcDbObjectId loadedStyle(AcDbDatabase& database, const std::wstring& name)
{
    const AcDbObjectPointer<AcDbDictionary> styles(standardDictionary(database.drawing(), kStyles),
                                                   AcDb::kForRead);
    AcDbObjectId id;
    if (styles)
        styles->getAt(name, id);
    return id;
}

// Old drawings have no style until one is needed.
AcDbObjectId currentStyleId(AcDbDatabase& database)
{
    const std::wstring name = currentStyle();
    AcDbObjectId id = loadedStyle(database, name);
    if (id.isNull() && acdbLoadMlineStyleFile(name, kDefinitions) == Acad::eOk)
        id = loadedStyle(database, name);
    return id;
}

} // namespace

void mlineCommand()
{
    AcApDocument* const document = documentOfCommand();
    if (!document)
        return;
    AcDbDatabase& database = *document->database();
    const Answered<AcGePoint3d> start = askStart(database);
    if (!start.given())
        return;
    const VertexPath path = askPath(start.value, {.undoAtFirst = false});
    if (path.points.size() < 2)
        return;
    const AcDbObjectPointer<AcDbMline> lines(appendNew(std::make_unique<AcDbMline>()),
                                             AcDb::kForWrite);
    if (!lines)
        return;
    lines->setStyle(currentStyleId(database));
    lines->setScale(realVariable(kScale, 20.0));
    lines->setJustification(integerVariable(kJustification, 0));
    for (const AcGePoint3d& place : path.points)
        lines->appendSeg(place);
    lines->setClosedMline(path.isClosed());
}

} // namespace host

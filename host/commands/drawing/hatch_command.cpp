#include "host/commands/drawing/hatch_command.h"

#include "host/commands/command_entities.h"
#include "host/commands/drawing/drawing_prompts.h"
#include "host/commands/drawing/hatch_boundaries.h"
#include "host/commands/drawing/new_entity.h"
#include "host/commands/drawing/vertex_path.h"
#include "host/db/lwpolyline.h"
#include "host/db/object_pointer.h"
#include "host/edit/command_engine.h"
#include "host/edit/document.h"
#include "host/edit/entity_search.h"
#include "host/edit/selection.h"
#include "host/edit/system_variables.h"
#include "host/edit/typed_values.h"
#include "host/text/case_mapping.h"

namespace host {

namespace {

constexpr const wchar_t* kUserPattern = L"_USER";
constexpr const wchar_t* kSolidPattern = L"SOLID";

std::wstring textVariable(const wchar_t* name)
{
    resbuf value;
    return acedGetVar(name, value) == RTNORM ? value.resval.rstring : std::wstring();
}

void setText(const wchar_t* name, std::wstring_view text)
{
    resbuf value;
    value.restype = static_cast<short>(RTSTR);
    value.resval.rstring = text;
    acedSetVar(name, value);
}

bool isUserPattern(const std::wstring& name)
{
    return equalNoCase(name, kUserPattern) || equalNoCase(name, L"U");
}

AcDbHatch::HatchStyle islandStyle()
{
    return static_cast<AcDbHatch::HatchStyle>(integerVariable(L"HPISLANDDETECTION", 0));
}

// A pattern of the common file, or of one of its own.
bool takePattern(AcDbHatch& hatch, const std::wstring& name)
{
    if (isUserPattern(name))
        return hatch.setPattern(AcDbHatch::kUserDefined, kUserPattern) == Acad::eOk;
    return hatch.setPattern(AcDbHatch::kPreDefined, name) == Acad::eOk ||
           hatch.setPattern(AcDbHatch::kCustomDefined, name) == Acad::eOk;
}

// As its file spells it; empty for one that isn't found.
std::wstring knownPattern(const std::wstring& name)
{
    AcDbHatch scratch;
    return takePattern(scratch, name) ? scratch.patternName() : std::wstring();
}

void tellPattern()
{
    engine().printForPrompt(L"Current hatch pattern:  " + textVariable(L"HPNAME") + L"\n");
}

// ---- Properties ----

bool askScaleAndAngle()
{
    const double scaleNow = realVariable(L"HPSCALE", 1.0);
    const Answered<double> scale =
        askNumber({.text = L"Specify a scale for the pattern" + bracketed(scaleNow) + L": ",
                   .enterCounts = true,
                   .bits = RSG_NOZERO | RSG_NONEG});
    if (scale.cancelled())
        return false;
    if (scale.given())
        setReal(L"HPSCALE", scale.value);
    const Answered<double> angle =
        askTurn({.text = L"Specify an angle for the pattern <" +
                         degreesText(realVariable(L"HPANG", 0.0)) + L">: ",
                 .enterCounts = true});
    if (angle.given())
        setReal(L"HPANG", angle.value);
    return !angle.cancelled();
}

bool askCrosshatch()
{
    const Answered<double> angle =
        askTurn({.text = L"Specify angle for crosshatch lines <" +
                         degreesText(realVariable(L"HPANG", 0.0)) + L">: ",
                 .enterCounts = true});
    if (angle.cancelled())
        return false;
    if (angle.given())
        setReal(L"HPANG", angle.value);
    const Answered<double> spacing =
        askLength({.text = L"Specify spacing between the lines" +
                           bracketed(realVariable(L"HPSPACE", 1.0)) + L": ",
                   .enterCounts = true,
                   .bits = RSG_NOZERO | RSG_NONEG});
    if (spacing.cancelled())
        return false;
    if (spacing.given())
        setReal(L"HPSPACE", spacing.value);
    const bool now = integerVariable(L"HPDOUBLE", 0) != 0;
    const Answered<int> crossed =
        askOption(std::wstring(L"Double hatch area? [Yes/No] <") + (now ? L"Y" : L"N") + L">: ",
                  L"Yes No", now ? L"Yes" : L"No");
    if (crossed.isKeyword())
        setInteger(L"HPDOUBLE", crossed.keyword == L"Yes");
    return crossed.isKeyword();
}

// Solid and User defined by their names or the first letter, as options.
std::wstring patternOption(std::wstring name)
{
    static const std::vector<Keyword> options = parseKeywords(L"Solid User");
    const Keyword* const option = matchKeyword(options, name);
    if (!option)
        return name;
    return option->typed == L"Solid" ? kSolidPattern : kUserPattern;
}

bool askProperties()
{
    for (;;) {
        const std::wstring now = textVariable(L"HPNAME");
        const std::wstring prompt =
            L"Enter a pattern name or [Solid/User defined] <" + now + L">: ";
        std::wstring name;
        if (acedGetString(0, prompt.c_str(), name) != RTNORM)
            return false;
        name = patternOption(name.empty() ? now : name);
        const std::wstring known = knownPattern(name);
        if (known.empty()) {
            refuse((L"Cannot find the pattern \"" + name + L"\".\n").c_str());
            continue;
        }
        setText(L"HPNAME", known);
        if (isUserPattern(known))
            return askCrosshatch();
        return equalNoCase(known, kSolidPattern) || askScaleAndAngle();
    }
}

// ---- Advanced ----

bool askStyle()
{
    static constexpr const wchar_t* kNames[] = {L"Normal", L"Outer", L"Ignore"};
    const std::wstring now = kNames[islandStyle()];
    const Answered<int> style =
        askOption(L"Enter hatching style [Ignore/Outer/Normal] <" + now + L">: ",
                  L"Ignore Outer Normal", now.c_str());
    for (int i = 0; i < 3; ++i)
        if (style.chose(kNames[i]))
            setInteger(L"HPISLANDDETECTION", i);
    return style.isKeyword();
}

bool askSwitch(const wchar_t* question, const wchar_t* variable)
{
    const bool now = integerVariable(variable, 0) != 0;
    const Answered<int> answer =
        askOption(std::wstring(question) + L" [Yes/No] <" + (now ? L"Y" : L"N") + L">: ", L"Yes No",
                  now ? L"Yes" : L"No");
    if (answer.isKeyword())
        setInteger(variable, answer.keyword == L"Yes");
    return answer.isKeyword();
}

bool askAdvanced()
{
    for (;;) {
        const Answered<int> option =
            askOption(L"Enter option [Style/Associativity/separate Hatches] <exit>: ",
                      L"Style Associativity Hatches eXit", L"eXit");
        if (option.cancelled())
            return false;
        if (option.chose(L"eXit"))
            return true;
        const bool goesOn = option.chose(L"Style") ? askStyle()
                            : option.chose(L"Associativity")
                                ? askSwitch(L"Do you want associativity?", L"HPASSOC")
                                : askSwitch(L"Create separate hatches?", L"HPSEPARATE");
        if (!goesOn)
            return false;
    }
}

// ---- the areas ----

AcDbObjectId keepOutline(const std::vector<AcGePoint3d>& points)
{
    auto polyline = std::make_unique<AcDbPolyline>();
    for (unsigned i = 0; i < points.size(); ++i)
        polyline->addVertexAt(i, points[i].convert2d());
    polyline->setElevation(points.front().z);
    polyline->setClosed(true);
    return appendNew(std::move(polyline));
}

HatchArea areaOf(const std::vector<AcGePoint3d>& points, AcDbObjectId kept)
{
    HatchLoop loop;
    loop.type = AcDbHatch::kExternal | AcDbHatch::kPolyline;
    for (const AcGePoint3d& point : points)
        loop.polyline.push_back({point.convert2d()});
    if (!kept.isNull())
        loop.sources = {kept.handle().value()};
    return {{{std::move(loop), 0}}, points.front().z};
}

bool askBoundaries(std::vector<HatchArea>& areas)
{
    const Answered<int> retain =
        askOption(L"Retain polyline boundary? [Yes/No] <N>: ", L"Yes No", L"No");
    const wchar_t* prompt = L"Specify start point: ";
    while (!retain.cancelled()) {
        const Answered<AcGePoint3d> start = askPlace({.text = prompt, .enterCounts = true});
        if (start.enter())
            return true;
        if (!start.given())
            return false;
        const VertexPath path = askPath(start.value);
        if (path.end == VertexPath::End::cancelled)
            return false;
        if (path.points.size() > 2)
            areas.push_back(areaOf(path.points, retain.chose(L"Yes") ? keepOutline(path.points)
                                                                     : AcDbObjectId()));
        prompt = L"Specify start point for new boundary or <Accept>: ";
    }
    return false;
}

bool askObjects(std::vector<HatchArea>& areas)
{
    std::vector<AcDbObjectId> selected;
    if (selectObjects(selected) != RTNORM)
        return false;
    if (selected.empty())
        return true;
    if (std::optional<HatchArea> area = HatchBoundaries(selected).outlines())
        areas.push_back(std::move(*area));
    else
        refuse(L"The selected objects enclose no area.\n");
    return true;
}

// ---- the hatch ----

bool fill(AcDbHatch& hatch)
{
    const std::wstring name = textVariable(L"HPNAME");
    const bool user = isUserPattern(name);
    if (!equalNoCase(name, kSolidPattern)) {
        hatch.setPatternScale(user ? realVariable(L"HPSPACE", 1.0) : realVariable(L"HPSCALE", 1.0));
        hatch.setPatternAngle(realVariable(L"HPANG", 0.0));
        hatch.setPatternDouble(user && integerVariable(L"HPDOUBLE", 0) != 0);
    }
    return takePattern(hatch, name);
}

void appendHatch(std::span<const HatchArea> areas)
{
    std::vector<HatchLoop> loops;
    bool associative = integerVariable(L"HPASSOC", 1) != 0;
    for (const HatchArea& area : areas)
        for (HatchLoop& loop : area.loops(islandStyle())) {
            associative = associative && !loop.sources.empty();
            loops.push_back(std::move(loop));
        }
    if (!associative)
        for (HatchLoop& loop : loops)
            loop.sources.clear();

    auto made = std::make_unique<AcDbHatch>();
    made->setElevation(areas.front().elevation);
    made->setLoops(loops);
    const AcDbObjectId id = appendNew(std::move(made));
    const AcDbObjectPointer<AcDbHatch> hatch(id, AcDb::kForWrite);
    if (!hatch)
        return;
    hatch->setHatchStyle(islandStyle());
    hatch->setAssociative(associative);
    if (!fill(*hatch)) {
        refuse((L"Cannot find the pattern \"" + textVariable(L"HPNAME") + L"\".\n").c_str());
        hatch->erase();
        return;
    }
    hatch->evaluateHatch();
    for (const AcDbObjectId source : hatch->getAssocObjIds())
        if (const AcDbObjectPointer<AcDbEntity> entity(source, AcDb::kForWrite); entity)
            entity->addPersistentReactor(id);
}

void appendHatches(const std::vector<HatchArea>& areas)
{
    if (areas.empty())
        return;
    if (integerVariable(L"HPSEPARATE", 0) == 0)
        return appendHatch(areas);
    for (const HatchArea& area : areas)
        appendHatch(std::span(&area, 1));
}

class HatchInput {
public:
    explicit HatchInput(AcDbDatabase& database) : database_(database) {}

    // Until Enter; false when cancelled.
    bool ask()
    {
        tellPattern();
        for (;;) {
            const Answered<AcGePoint3d> answer = askPlace({
                .text = L"Specify internal point or "
                        L"[Properties/Select objects/draW boundary/Advanced/Undo]: ",
                .keywords = L"Properties Select draW Advanced Undo",
                .enterCounts = true,
            });
            if (answer.enter())
                return true;
            const bool goesOn = answer.given()       ? takePoint(answer.value)
                                : answer.isKeyword() ? takeOption(answer.keyword)
                                                     : false;
            if (!goesOn)
                return false;
        }
    }
    const std::vector<HatchArea>& areas() const { return areas_; }

private:
    bool takePoint(const AcGePoint3d& point)
    {
        if (!boundaries_) {
            engine().printForPrompt(L"Selecting everything visible...\n"
                                    L"Analyzing the selected data...\n");
            boundaries_.emplace(visibleEntities(database_));
        }
        if (std::optional<HatchArea> area = boundaries_->around(point))
            areas_.push_back(std::move(*area));
        else
            refuse(L"Valid hatch boundary not found.\n");
        return true;
    }

    bool takeOption(const std::wstring& option)
    {
        if (option == L"Properties") {
            if (!askProperties())
                return false;
            tellPattern();
            return true;
        }
        if (option == L"Select")
            return askObjects(areas_);
        if (option == L"draW") {
            boundaries_.reset(); // those drawn now count, too
            return askBoundaries(areas_);
        }
        if (option == L"Advanced")
            return askAdvanced();
        if (areas_.empty())
            refuse(L"Nothing to undo.\n");
        else
            areas_.pop_back();
        return true;
    }

    AcDbDatabase& database_;
    std::optional<HatchBoundaries> boundaries_; // of what can be seen, once asked for
    std::vector<HatchArea> areas_;
};

} // namespace

void hatchCommand()
{
    const AcApDocument* const document = documentOfCommand();
    if (!document)
        return;
    HatchInput input(*document->database());
    if (input.ask())
        appendHatches(input.areas());
}

} // namespace host

#include "host/commands/drawing/spline_command.h"

#include "host/commands/command_entities.h"
#include "host/commands/drawing/drawing_prompts.h"
#include "host/commands/drawing/new_entity.h"
#include "host/db/spline.h"
#include "host/edit/command_engine.h"
#include "host/edit/system_variables.h"

// The curve comes into the drawing at the end. Escape at any of its prompts leaves nothing: it
// would not be known how the curve ends.

namespace host {

namespace {

constexpr const wchar_t* kMethod = L"SPLMETHOD"; // 0 through points, 1 control points
constexpr const wchar_t* kDegree = L"SPLDEGREE"; // of one with control points

bool byControlPoints()
{
    return integerVariable(kMethod, 0) == 1;
}

std::wstring settings()
{
    return byControlPoints() ? L"Current settings: Method=CV   Degree=" +
                                   std::to_wstring(integerVariable(kDegree, 3)) + L"\n"
                             : L"Current settings: Method=Fit   Knots=Chord\n";
}

bool askMethod()
{
    const Answered<int> method =
        askOption(std::wstring(L"Enter spline creation method [Fit/CV] <") +
                      (byControlPoints() ? L"CV" : L"Fit") + L">: ",
                  L"Fit CV", byControlPoints() ? L"CV" : L"Fit");
    if (!method.isKeyword())
        return false;
    setInteger(kMethod, method.chose(L"CV") ? 1 : 0);
    return true;
}

bool askDegree()
{
    const int now = integerVariable(kDegree, 3);
    const Answered<int> degree = askUntil(
        [&] {
            return askCount({.text = L"Enter degree of spline <" + std::to_wstring(now) + L">: ",
                             .enterCounts = true});
        },
        [](int value) {
            return value < 1 || value > 10 ? L"Requires an integer between 1 and 10.\n" : nullptr;
        });
    if (degree.given())
        setInteger(kDegree, degree.value);
    return !degree.cancelled();
}

// After as many settings as the user changes.
Answered<AcGePoint3d> askFirst()
{
    for (;;) {
        engine().printForPrompt(settings());
        const bool control = byControlPoints();
        Answered<AcGePoint3d> first =
            askPlace({.text = control ? L"Specify first point or [Method/Degree]: "
                                      : L"Specify first point or [Method]: ",
                      .keywords = control ? L"Method Degree" : L"Method"});
        if (!first.isKeyword())
            return first;
        const bool settled = first.chose(L"Method") ? askMethod() : askDegree();
        if (!settled)
            return {};
    }
}

enum class PathEnd { cancelled, open, closed };

struct ControlPath {
    std::vector<AcGePoint3d> points;

    PathEnd ask()
    {
        for (;;) {
            const std::size_t count = points.size();
            const Answered<AcGePoint3d> answer =
                askOtherPlace({.text = count > 2   ? L"Enter next point or [Close/Undo]: "
                                       : count > 1 ? L"Enter next point or [Undo]: "
                                                   : L"Enter next point: ",
                               .keywords = count > 2   ? L"Close Undo"
                                           : count > 1 ? L"Undo"
                                                       : L"",
                               .base = points.back(),
                               .enterCounts = true});
            if (answer.given())
                points.push_back(answer.value);
            else if (answer.chose(L"Undo"))
                points.pop_back();
            else
                return answer.enter()       ? PathEnd::open
                       : answer.isKeyword() ? PathEnd::closed
                                            : PathEnd::cancelled;
        }
    }
};

void drawControlled(const AcGePoint3d& first)
{
    ControlPath path{{first}};
    const PathEnd end = path.ask();
    if (end == PathEnd::cancelled)
        return;
    const std::optional<NurbsCurve> curve = NurbsCurve::ofControlPoints(
        integerVariable(kDegree, 3), path.points, end == PathEnd::closed);
    if (!curve)
        return;
    AcDbSpline::NurbsData data;
    data.degree = curve->degree();
    data.closed = data.periodic = end == PathEnd::closed;
    data.controlPoints = curve->controlPoints();
    data.knots = curve->knots();
    auto spline = std::make_unique<AcDbSpline>();
    spline->setNurbsData(data);
    appendNew(std::move(spline));
}

class FitPath {
public:
    explicit FitPath(const AcGePoint3d& first) { data_.points.push_back(first); }
    PathEnd ask();
    const AcDbSpline::FitData& data() const { return data_; }

private:
    bool askTolerance();
    bool askTangent(bool atStart);
    void undo();

    AcDbSpline::FitData data_;
};

bool FitPath::askTolerance()
{
    const Answered<double> tolerance =
        askLength({.text = L"Specify fit tolerance" + bracketed(data_.tolerance) + L": ",
                   .base = data_.points.back(),
                   .enterCounts = true,
                   .bits = RSG_NONEG});
    if (tolerance.given())
        data_.tolerance = tolerance.value;
    return !tolerance.cancelled();
}

bool FitPath::askTangent(bool atStart)
{
    const AcGePoint3d& at = data_.points.back();
    const Answered<AcGePoint3d> to = askOtherPlace(
        {.text = atStart ? L"Specify start tangent: " : L"Specify end tangent: ", .base = at});
    if (!to.given())
        return false;
    (atStart ? data_.startTangent : data_.endTangent) = (to.value - at).normal();
    data_.tangentsExist = true;
    return true;
}

void FitPath::undo()
{
    data_.points.pop_back();
    setLastPoint(data_.points.back());
}

PathEnd FitPath::ask()
{
    struct Offer {
        const wchar_t* options;
        const wchar_t* keywords;
    };
    static constexpr Offer kOffers[] = {
        {L"[start Tangency/toLerance]", L"Tangency toLerance"},
        {L"[end Tangency/toLerance/Undo]", L"Tangency toLerance Undo"},
        {L"[end Tangency/toLerance/Undo/Close]", L"Tangency toLerance Undo Close"}};
    for (;;) {
        const std::size_t count = data_.points.size();
        const Offer& offer = kOffers[std::min<std::size_t>(count, 3) - 1];
        const Answered<AcGePoint3d> answer =
            askOtherPlace({.text = std::wstring(L"Enter next point or ") + offer.options + L": ",
                           .keywords = offer.keywords,
                           .base = data_.points.back(),
                           .enterCounts = true});
        bool goesOn = true;
        if (answer.given())
            data_.points.push_back(answer.value);
        else if (answer.enter())
            return PathEnd::open;
        else if (answer.chose(L"Close"))
            return PathEnd::closed;
        else if (answer.chose(L"Undo"))
            undo();
        else if (answer.chose(L"toLerance"))
            goesOn = askTolerance();
        else if (answer.chose(L"Tangency") && count > 1)
            return askTangent(false) ? PathEnd::open : PathEnd::cancelled;
        else
            goesOn = answer.isKeyword() && askTangent(true);
        if (!goesOn)
            return PathEnd::cancelled;
    }
}

void drawThrough(const AcGePoint3d& first)
{
    FitPath path(first);
    const PathEnd end = path.ask();
    if (end == PathEnd::cancelled || path.data().points.size() < 2)
        return;
    auto spline = std::make_unique<AcDbSpline>();
    const Acad::ErrorStatus set = end == PathEnd::closed ? spline->setClosedFitData(path.data())
                                                         : spline->setFitData(path.data());
    if (set == Acad::eOk)
        appendNew(std::move(spline));
    else
        refuse(L"No curve runs through these points.\n");
}

} // namespace

void splineCommand()
{
    if (!documentOfCommand())
        return;
    const Answered<AcGePoint3d> first = askFirst();
    if (!first.given())
        return;
    if (byControlPoints())
        drawControlled(first.value);
    else
        drawThrough(first.value);
}

} // namespace host

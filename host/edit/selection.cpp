#include "host/edit/selection.h"

#include "host/db/database.h"
#include "host/edit/command_engine.h"
#include "host/edit/pick_first.h"
#include "host/edit/prompts.h"
#include "host/edit/system_variables.h"
#include "host/edit/typed_values.h"
#include "host/text/wide_format.h"

#include <unordered_set>

// "Select objects: " is asked until Enter. Each answer brings some entities, by one row of the
// table of ways at the end of the class, and they join the selection or, after R, leave it.

namespace host {

namespace {

using Ids = std::vector<AcDbObjectId>;

constexpr const wchar_t* kExpected =
    L"Expects a point or\nWindow/Last/Crossing/BOX/ALL/Fence/WPolygon/CPolygon/Add/Remove/"
    L"Multiple/Previous/Undo/AUto/SIngle\n";

class ObjectSelection {
public:
    ObjectSelection(AcDbDatabase& database, const ResbufChain* filter, std::wstring_view prompt)
        : database_(database), filter_(filter), prompt_(prompt)
    {
    }

    int run(Ids& selected);

private:
    // What one answer did.
    enum class Step { again, selected, cancelled, invalid };
    struct Way {
        const wchar_t* keyword;
        Step (ObjectSelection::*select)(Ids& found);
    };
    static const Way kWays[];

    Step answer(const Answer& answer, Ids& found);
    Step byText(const std::wstring& text, Ids& found);
    void join(Ids found);
    void leave(const Ids& found);
    Step takeBack(Ids&);
    Ids current() const;
    void keepFiltered(Ids& found) const;

    Step corners(AcGePoint2d& first, AcGePoint2d& second);
    Step rectangle(Ids& found, std::optional<Reach> reach);
    Step points(const wchar_t* first, const wchar_t* next, std::size_t least,
                std::vector<AcGePoint2d>& shape);
    Step polygon(Ids& found, Reach reach);

    Step window(Ids& found) { return rectangle(found, Reach::inside); }
    Step crossing(Ids& found) { return rectangle(found, Reach::touching); }
    Step box(Ids& found) { return rectangle(found, std::nullopt); }
    Step windowPolygon(Ids& found) { return polygon(found, Reach::inside); }
    Step crossingPolygon(Ids& found) { return polygon(found, Reach::touching); }
    Step fence(Ids& found);
    Step all(Ids& found);
    Step last(Ids& found);
    Step previous(Ids& found);
    Step add(Ids&);
    Step remove(Ids&);
    Step single(Ids&);
    Step noChange(Ids&) { return Step::again; }

    struct Change {
        bool removal;
        Ids ids;
    };

    AcDbDatabase& database_;
    const ResbufChain* filter_;
    std::wstring prompt_;
    Ids order_; // as they came; some may have left since
    std::unordered_set<AcDbObjectId> members_;
    std::vector<Change> changes_;
    bool removing_ = false;
    bool single_ = false;
};

const ObjectSelection::Way ObjectSelection::kWays[] = {
    {L"Window", &ObjectSelection::window},
    {L"Last", &ObjectSelection::last},
    {L"Crossing", &ObjectSelection::crossing},
    {L"BOX", &ObjectSelection::box},
    {L"ALL", &ObjectSelection::all},
    {L"Fence", &ObjectSelection::fence},
    {L"WPolygon", &ObjectSelection::windowPolygon},
    {L"CPolygon", &ObjectSelection::crossingPolygon},
    {L"Add", &ObjectSelection::add},
    {L"Remove", &ObjectSelection::remove},
    {L"Multiple", &ObjectSelection::noChange},
    {L"Previous", &ObjectSelection::previous},
    {L"Undo", &ObjectSelection::takeBack},
    {L"AUto", &ObjectSelection::noChange},
    {L"SIngle", &ObjectSelection::single},
};

int ObjectSelection::run(Ids& selected)
{
    const OneQuestion whole(engine());
    for (;;) {
        Question question;
        question.kind = WaitKind::selection;
        question.prompt = removing_ ? L"Remove objects: " : prompt_;
        for (const Way& way : kWays)
            question.keywords.emplace_back(way.keyword);
        Answer given;
        const int result =
            engine().ask(question, [&](const Answer& answer) -> std::optional<std::wstring> {
                given = answer;
                return std::nullopt;
            });
        if (result != RTNORM)
            return result;
        if (given.kind == Answer::Kind::text && given.text.empty())
            break;
        Ids found;
        const Step step = answer(given, found);
        if (step == Step::cancelled)
            return RTCAN;
        if (step == Step::invalid)
            engine().printForPrompt(std::wstring(L"*Invalid selection*\n") + kExpected);
        if (step != Step::selected)
            continue;
        keepFiltered(found);
        if (removing_)
            leave(found);
        else
            join(std::move(found));
        if (single_ && !members_.empty())
            break;
    }
    selected = current();
    if (!selected.empty())
        setPreviousSelection(selected);
    return RTNORM;
}

ObjectSelection::Step ObjectSelection::answer(const Answer& answer, Ids& found)
{
    switch (answer.kind) {
    case Answer::Kind::entities:
        found = answer.entities;
        return Step::selected;
    case Answer::Kind::point:
        found = {entityAt(database_, answer.point)};
        return Step::selected;
    case Answer::Kind::text:
        break;
    }
    return byText(answer.text, found);
}

ObjectSelection::Step ObjectSelection::byText(const std::wstring& text, Ids& found)
{
    if (text == L"?") {
        engine().printForPrompt(kExpected);
        return Step::again;
    }
    if (const std::optional<AcDbObjectId> named = entityByHandent(database_, text)) {
        if (named->isNull())
            return Step::invalid;
        found = {*named};
        return Step::selected;
    }
    std::vector<Keyword> keywords;
    for (const Way& way : kWays)
        keywords.push_back(parseKeywords(way.keyword).front());
    if (const Keyword* const keyword = matchKeyword(keywords, text))
        return (this->*kWays[keyword - keywords.data()].select)(found);
    resbuf value;
    acedGetVar(L"LASTPOINT", value);
    const std::optional<AcGePoint3d> point =
        typedPoint(text, value.resval.rpoint, realVariable(L"ELEVATION", 0.0));
    if (!point)
        return Step::invalid;
    value.resval.rpoint = *point;
    acedSetVar(L"LASTPOINT", value);
    found = {entityAt(database_, *point)};
    return Step::selected;
}

void ObjectSelection::keepFiltered(Ids& found) const
{
    std::erase_if(found, [&](AcDbObjectId id) {
        return id.isNull() || id.isErased() || (filter_ && !passesFilter(id, *filter_));
    });
}

void ObjectSelection::join(Ids found)
{
    const std::size_t count = found.size();
    std::erase_if(found, [&](AcDbObjectId id) { return !members_.insert(id).second; });
    std::wstring told = format(L"%zu found", count);
    if (found.size() < count)
        told += format(L" (%zu duplicate)", count - found.size());
    if (!changes_.empty())
        told += format(L", %zu total", members_.size());
    engine().printForPrompt(told + L"\n");
    if (found.empty())
        return;
    order_.insert(order_.end(), found.begin(), found.end());
    changes_.push_back({false, std::move(found)});
}

void ObjectSelection::leave(const Ids& found)
{
    Change change{true, {}};
    for (const AcDbObjectId id : found)
        if (members_.erase(id))
            change.ids.push_back(id);
    engine().printForPrompt(format(L"%zu found, %zu removed, %zu total\n", found.size(),
                                   change.ids.size(), members_.size()));
    if (change.ids.empty())
        return;
    order_ = current();
    changes_.push_back(std::move(change));
}

ObjectSelection::Step ObjectSelection::takeBack(Ids&)
{
    if (changes_.empty()) {
        engine().printForPrompt(L"Nothing to undo.\n");
        return Step::again;
    }
    const Change change = std::move(changes_.back());
    changes_.pop_back();
    for (const AcDbObjectId id : change.ids) {
        if (change.removal) {
            members_.insert(id);
            order_.push_back(id);
        } else {
            members_.erase(id);
        }
    }
    order_ = current();
    return Step::again;
}

Ids ObjectSelection::current() const
{
    Ids ids = order_;
    if (ids.size() != members_.size())
        std::erase_if(ids, [&](AcDbObjectId id) { return !members_.contains(id); });
    return ids;
}

ObjectSelection::Step ObjectSelection::corners(AcGePoint2d& first, AcGePoint2d& second)
{
    ads_point from{};
    ads_point to{};
    acedInitGet(RSG_NONULL, nullptr);
    if (acedGetPoint(nullptr, L"Specify first corner: ", from) != RTNORM)
        return Step::cancelled;
    acedInitGet(RSG_NONULL, nullptr);
    if (acedGetCorner(from, L"Specify opposite corner: ", to) != RTNORM)
        return Step::cancelled;
    first = {from[0], from[1]};
    second = {to[0], to[1]};
    return Step::selected;
}

// Without a reach the order of the corners decides: left to right is a window.
ObjectSelection::Step ObjectSelection::rectangle(Ids& found, std::optional<Reach> reach)
{
    AcGePoint2d first;
    AcGePoint2d second;
    if (const Step step = corners(first, second); step != Step::selected)
        return step;
    found = entitiesIn(database_, SelectionShape::rectangle(first, second),
                       reach.value_or(first.x <= second.x ? Reach::inside : Reach::touching));
    return Step::selected;
}

ObjectSelection::Step ObjectSelection::points(const wchar_t* first, const wchar_t* next,
                                              std::size_t least, std::vector<AcGePoint2d>& shape)
{
    ads_point at{};
    for (;;) {
        acedInitGet(shape.empty() ? RSG_NONULL : 0, shape.empty() ? nullptr : L"Undo");
        const ads_point base = at;
        const int result =
            acedGetPoint(shape.empty() ? nullptr : &base, shape.empty() ? first : next, at);
        if (result == RTNORM)
            shape.emplace_back(at[0], at[1]);
        else if (result == RTKWORD)
            shape.pop_back();
        else if (result == RTNONE)
            return shape.size() < least ? Step::invalid : Step::selected;
        else
            return Step::cancelled;
    }
}

ObjectSelection::Step ObjectSelection::polygon(Ids& found, Reach reach)
{
    std::vector<AcGePoint2d> shape;
    const Step step =
        points(L"First polygon point: ", L"Specify endpoint of line or [Undo]: ", 3, shape);
    if (step == Step::selected)
        found = entitiesIn(database_, SelectionShape::polygon(std::move(shape)), reach);
    return step;
}

ObjectSelection::Step ObjectSelection::fence(Ids& found)
{
    std::vector<AcGePoint2d> shape;
    const Step step =
        points(L"Specify first fence point: ", L"Specify next fence point or [Undo]: ", 2, shape);
    if (step == Step::selected)
        found = entitiesIn(database_, SelectionShape::fence(std::move(shape)), Reach::touching);
    return step;
}

ObjectSelection::Step ObjectSelection::all(Ids& found)
{
    found = allEntities(database_);
    return Step::selected;
}

ObjectSelection::Step ObjectSelection::last(Ids& found)
{
    found = {lastEntity(database_)};
    return Step::selected;
}

ObjectSelection::Step ObjectSelection::previous(Ids& found)
{
    found = previousSelection();
    if (!found.empty())
        return Step::selected;
    engine().printForPrompt(L"No previous selection set.\n");
    return Step::again;
}

ObjectSelection::Step ObjectSelection::add(Ids&)
{
    removing_ = false;
    return Step::again;
}

ObjectSelection::Step ObjectSelection::remove(Ids&)
{
    removing_ = true;
    return Step::again;
}

ObjectSelection::Step ObjectSelection::single(Ids&)
{
    single_ = true;
    return Step::again;
}

} // namespace

int selectObjects(Ids& selected, const ResbufChain* filter, std::wstring_view prompt)
{
    selected.clear();
    AcDbDatabase* const database = acdbHostApplicationServices()->workingDatabase();
    if (!database || !engineExists())
        return RTERROR;
    return ObjectSelection(*database, filter, prompt).run(selected);
}

} // namespace host

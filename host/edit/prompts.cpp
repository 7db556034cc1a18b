#include "host/edit/prompts.h"

#include "host/edit/command_engine.h"
#include "host/edit/selection.h"
#include "host/edit/selection_set.h"
#include "host/edit/system_variables.h"
#include "host/edit/typed_values.h"
#include "host/text/case_mapping.h"

#include <cmath>
#include <numbers>

namespace host {

namespace {

// What acedInitGet left for the next question.
struct Conditions {
    int bits = 0;
    std::vector<Keyword> keywords;

    bool forbids(InitGetBits bit) const { return (bits & bit) != 0; }
    bool takesKeywords() const { return !keywords.empty() || (bits & RSG_OTHER); }
};

Conditions nextConditions;
std::wstring lastInput;

// The texts of refusals, with and without keywords.
struct Refusals {
    const wchar_t* plain;
    const wchar_t* withKeywords;
};

constexpr Refusals kInteger = {L"Requires an integer value.\n",
                               L"Requires an integer value or option keyword.\n"};
constexpr Refusals kReal = {L"Requires numeric value.\n",
                            L"Requires numeric value or option keyword.\n"};
constexpr Refusals kPoint = {L"Invalid point.\n", L"Point or option keyword required.\n"};
constexpr Refusals kDistance = {L"Requires numeric distance or two points.\n",
                                L"Requires numeric distance, two points, or option keyword.\n"};
constexpr Refusals kSecondPoint = {
    L"Requires numeric distance or second point.\n",
    L"Requires numeric distance, second point, or option keyword.\n"};
constexpr Refusals kAngle = {L"Requires numeric angle or two points.\n",
                             L"Requires numeric angle, two points, or option keyword.\n"};
constexpr Refusals kSecondAngle = {L"Requires valid numeric angle or second point.\n",
                                   L"Requires valid numeric angle, second point, or option "
                                   L"keyword.\n"};
constexpr Refusals kKeyword = {L"Invalid option keyword.\n", L"Invalid option keyword.\n"};
constexpr Refusals kEntityRefusal = {L"Invalid selection.\n",
                                     L"Invalid selection or option keyword.\n"};

std::wstring refusal(const Refusals& texts, const Conditions& conditions)
{
    return conditions.takesKeywords() ? texts.withKeywords : texts.plain;
}

std::optional<std::wstring> refusedNumber(double value, const Conditions& conditions)
{
    const bool zero = conditions.forbids(RSG_NOZERO);
    const bool negative = conditions.forbids(RSG_NONEG);
    if (zero && negative && value <= 0.0)
        return L"Value must be positive and nonzero.\n";
    if (zero && value == 0.0)
        return L"Value must be nonzero.\n";
    if (negative && value < 0.0)
        return L"Value must be positive.\n";
    return std::nullopt;
}

AcGePoint3d lastPoint()
{
    resbuf value;
    return acedGetVar(L"LASTPOINT", value) == RTNORM ? AcGePoint3d(value.resval.rpoint)
                                                     : AcGePoint3d();
}

void setLastPoint(const AcGePoint3d& point)
{
    resbuf value{static_cast<short>(RT3DPOINT), {}};
    value.resval.rpoint = point;
    acedSetVar(L"LASTPOINT", value);
}

std::optional<AcGePoint3d> pointOf(const Answer& answer)
{
    if (answer.kind == Answer::Kind::point)
        return answer.point;
    if (answer.kind != Answer::Kind::text)
        return std::nullopt;
    return typedPoint(answer.text, lastPoint(), realVariable(L"ELEVATION", 0.0));
}

// Asks under the conditions. `take` gets what is neither Enter nor a keyword, and answers whether
// it took it; a text for why not stands in `why`.
using Take = std::function<bool(const Answer&, std::wstring& why)>;

int askWith(const Conditions& conditions, WaitKind kind, const wchar_t* prompt,
            const ads_point* base, const Refusals& texts, const Take& take)
{
    if (!engineExists())
        return RTERROR;
    Question question;
    question.kind = kind;
    question.prompt = prompt ? prompt : L"";
    if (base)
        question.base = AcGePoint3d(*base);
    for (const Keyword& keyword : conditions.keywords)
        question.keywords.push_back(keyword.typed);

    int outcome = RTNORM;
    const int result =
        engine().ask(question, [&](const Answer& answer) -> std::optional<std::wstring> {
            outcome = RTNORM;
            const bool isText = answer.kind == Answer::Kind::text;
            if (isText && answer.text.empty()) {
                if (conditions.forbids(RSG_NONULL))
                    return refusal(texts, conditions);
                outcome = RTNONE;
                return std::nullopt;
            }
            if (isText)
                if (const Keyword* const keyword = matchKeyword(conditions.keywords, answer.text)) {
                    lastInput = keyword->answered;
                    outcome = RTKWORD;
                    return std::nullopt;
                }
            std::wstring why;
            if (take(answer, why))
                return std::nullopt;
            if (!why.empty())
                return why;
            if (isText && conditions.forbids(RSG_OTHER)) {
                lastInput = answer.text;
                outcome = RTKWORD;
                return std::nullopt;
            }
            return refusal(texts, conditions);
        });
    return result == RTNORM ? outcome : result;
}

int askPoint(const Conditions& conditions, const ads_point* base, const wchar_t* prompt,
             AcGePoint3d& result)
{
    const int outcome = askWith(conditions, WaitKind::point, prompt, base, kPoint,
                                [&](const Answer& answer, std::wstring&) {
                                    const std::optional<AcGePoint3d> point = pointOf(answer);
                                    result = point.value_or(result);
                                    return point.has_value();
                                });
    if (outcome == RTNORM)
        setLastPoint(result);
    return outcome;
}

// A measure that is typed, or shown by a second point; the first is the base, or asked for first.
template <class Typed, class Shown>
int askMeasure(const ads_point* base, const wchar_t* prompt, const Refusals& first,
               const Refusals& second, Typed typed, Shown shown, double& result)
{
    const Conditions conditions = std::exchange(nextConditions, {});
    std::optional<AcGePoint3d> from;
    if (base)
        from = AcGePoint3d(*base);
    std::optional<AcGePoint3d> firstPoint;
    const auto take = [&](const Answer& answer, std::wstring& why) {
        std::optional<double> value;
        if (answer.kind == Answer::Kind::text)
            value = typed(answer.text);
        if (!value)
            if (const std::optional<AcGePoint3d> point = pointOf(answer)) {
                setLastPoint(*point);
                if (!from) {
                    firstPoint = point;
                    return true;
                }
                value = shown(*from, *point);
            }
        if (!value)
            return false;
        if (std::optional<std::wstring> refused = refusedNumber(*value, conditions)) {
            why = *refused;
            return false;
        }
        result = *value;
        return true;
    };
    const int outcome =
        askWith(conditions, WaitKind::point, prompt, base, base ? second : first, take);
    if (outcome != RTNORM || !firstPoint)
        return outcome;
    from = firstPoint;
    const ads_point start = *firstPoint;
    return askWith(Conditions{RSG_NONULL, {}}, WaitKind::point, L"Specify second point: ", &start,
                   second, take);
}

int askAngle(const ads_point* base, const wchar_t* prompt, double& result)
{
    return askMeasure(
        base, prompt, kAngle, kSecondAngle, typedAngle,
        [](const AcGePoint3d& from, const AcGePoint3d& to) {
            const double angle = std::atan2(to.y - from.y, to.x - from.x);
            return angle < 0.0 ? angle + 2.0 * std::numbers::pi : angle;
        },
        result);
}

} // namespace

} // namespace host

using host::Answer;
using host::Conditions;
using host::WaitKind;

int acedInitGet(int bits, const wchar_t* keywords)
{
    host::nextConditions = {bits, host::parseKeywords(keywords ? keywords : L"")};
    return RTNORM;
}

int acedGetString(int cronly, const wchar_t* prompt, std::wstring& result)
{
    const Conditions conditions = std::exchange(host::nextConditions, {});
    if (!host::engineExists())
        return RTERROR;
    host::Question question;
    question.prompt = prompt ? prompt : L"";
    question.takesSpaces = cronly != 0;
    return host::engine().ask(question, [&](const Answer& answer) -> std::optional<std::wstring> {
        if (answer.text.empty() && conditions.forbids(RSG_NONULL))
            return L"";
        result = answer.text;
        return std::nullopt;
    });
}

int acedGetKword(const wchar_t* prompt, std::wstring& result)
{
    const Conditions conditions = std::exchange(host::nextConditions, {});
    const int outcome =
        host::askWith(conditions, WaitKind::keyword, prompt, nullptr, host::kKeyword,
                      [](const Answer&, std::wstring&) { return false; });
    if (outcome != RTKWORD)
        return outcome;
    result = host::lastInput;
    return RTNORM;
}

int acedGetInt(const wchar_t* prompt, int& result)
{
    const Conditions conditions = std::exchange(host::nextConditions, {});
    return host::askWith(conditions, WaitKind::number, prompt, nullptr, host::kInteger,
                         [&](const Answer& answer, std::wstring& why) {
                             const std::optional<int> value = host::typedInteger(answer.text);
                             if (!value)
                                 return false;
                             why = host::refusedNumber(*value, conditions).value_or(L"");
                             if (why.empty())
                                 result = *value;
                             return why.empty();
                         });
}

int acedGetReal(const wchar_t* prompt, double& result)
{
    const Conditions conditions = std::exchange(host::nextConditions, {});
    return host::askWith(conditions, WaitKind::number, prompt, nullptr, host::kReal,
                         [&](const Answer& answer, std::wstring& why) {
                             const std::optional<double> value = host::typedReal(answer.text);
                             if (!value)
                                 return false;
                             why = host::refusedNumber(*value, conditions).value_or(L"");
                             if (why.empty())
                                 result = *value;
                             return why.empty();
                         });
}

int acedGetPoint(const ads_point* base, const wchar_t* prompt, ads_point& result)
{
    const Conditions conditions = std::exchange(host::nextConditions, {});
    AcGePoint3d point;
    const int outcome = host::askPoint(conditions, base, prompt, point);
    if (outcome == RTNORM)
        result = point;
    return outcome;
}

int acedGetCorner(const ads_point& base, const wchar_t* prompt, ads_point& result)
{
    return acedGetPoint(&base, prompt, result);
}

int acedGetDist(const ads_point* base, const wchar_t* prompt, double& result)
{
    return host::askMeasure(
        base, prompt, host::kDistance, host::kSecondPoint, host::typedReal,
        [](const AcGePoint3d& from, const AcGePoint3d& to) { return from.distanceTo(to); }, result);
}

int acedGetAngle(const ads_point* base, const wchar_t* prompt, double& result)
{
    return host::askAngle(base, prompt, result);
}

int acedGetOrient(const ads_point* base, const wchar_t* prompt, double& result)
{
    return host::askAngle(base, prompt, result);
}

int acedGetInput(std::wstring& keyword)
{
    keyword = host::lastInput;
    return RTNORM;
}

int acedEntSel(const wchar_t* prompt, ads_name& entity, ads_point& point)
{
    const Conditions conditions = std::exchange(host::nextConditions, {});
    AcDbDatabase* const database = acdbHostApplicationServices()->workingDatabase();
    if (!database)
        return RTERROR;
    AcDbObjectId found;
    AcGePoint3d at = host::lastPoint();
    const int outcome = host::askWith(
        conditions, WaitKind::entity, prompt ? prompt : L"Select object: ", nullptr,
        host::kEntityRefusal, [&](const Answer& answer, std::wstring&) {
            if (answer.kind == Answer::Kind::entities) {
                found = answer.entities.empty() ? AcDbObjectId() : answer.entities.front();
                return true;
            }
            if (answer.kind == Answer::Kind::text) {
                if (const auto named = host::entityByHandent(*database, answer.text)) {
                    found = *named;
                    return !found.isNull();
                }
                if (host::equalNoCase(answer.text, L"L") ||
                    host::equalNoCase(answer.text, L"Last")) {
                    found = host::lastEntity(*database);
                    return true;
                }
            }
            const std::optional<AcGePoint3d> picked = host::pointOf(answer);
            if (!picked)
                return false;
            at = *picked;
            found = host::entityAt(*database, *picked);
            return true;
        });
    if (outcome != RTNORM)
        return outcome == RTNONE ? RTERROR : outcome;
    host::setLastPoint(at);
    if (acdbGetAdsName(entity, found) != Acad::eOk)
        return RTERROR;
    point = at;
    return RTNORM;
}

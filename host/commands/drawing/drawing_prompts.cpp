#include "host/commands/drawing/drawing_prompts.h"

#include "host/db/angle.h"
#include "host/edit/command_engine.h"
#include "host/edit/selection_set.h"
#include "host/edit/system_variables.h"
#include "host/edit/typed_values.h"
#include "host/text/wide_format.h"

#include <cmath>

namespace host {

namespace {

template <class Value, class Ask> Answered<Value> ask(const PromptForm& form, int bits, Ask call)
{
    Answered<Value> answer;
    acedInitGet(form.bits | bits | (form.enterCounts ? 0 : RSG_NONULL), form.keywords);
    ads_point base{};
    if (form.base)
        base = *form.base;
    answer.outcome = call(form.base ? &base : nullptr, form.text.c_str(), answer.value);
    if (answer.isKeyword())
        acedGetInput(answer.keyword);
    return answer;
}

} // namespace

Answered<AcGePoint3d> askPlace(const PromptForm& form)
{
    return ask<AcGePoint3d>(form, 0,
                            [](const ads_point* base, const wchar_t* prompt, AcGePoint3d& value) {
                                ads_point point{};
                                const int outcome = acedGetPoint(base, prompt, point);
                                value = point;
                                return outcome;
                            });
}

Answered<AcGePoint3d> askOtherPlace(const PromptForm& form)
{
    return askUntil([&] { return askPlace(form); },
                    [&](const AcGePoint3d& p) {
                        return form.base && p.isEqualTo(*form.base) ? kSamePlace : nullptr;
                    });
}

Answered<AcGePoint3d> askOtherPlaceInPlane(const PromptForm& form)
{
    return askUntil([&] { return askPlace(form); },
                    [&](const AcGePoint3d& p) {
                        const bool same =
                            form.base && p.convert2d().isEqualTo(form.base->convert2d());
                        return same ? kSamePlace : nullptr;
                    });
}

Answered<double> askLength(const PromptForm& form)
{
    return ask<double>(form, 0, acedGetDist);
}

Answered<double> askTurn(const PromptForm& form)
{
    return ask<double>(form, 0, acedGetAngle);
}

Answered<double> askNumber(const PromptForm& form)
{
    return ask<double>(form, 0, [](const ads_point*, const wchar_t* prompt, double& value) {
        return acedGetReal(prompt, value);
    });
}

Answered<int> askCount(const PromptForm& form)
{
    return ask<int>(form, 0, [](const ads_point*, const wchar_t* prompt, int& value) {
        return acedGetInt(prompt, value);
    });
}

Answered<int> askOption(const std::wstring& text, const wchar_t* keywords, const wchar_t* fallback)
{
    Answered<int> answer;
    acedInitGet(*fallback ? 0 : RSG_NONULL, keywords);
    answer.outcome = acedGetKword(text.c_str(), answer.keyword);
    if (answer.enter())
        answer.keyword = fallback;
    if (answer.given() || answer.enter())
        answer.outcome = RTKWORD;
    return answer;
}

Answered<double> askAngleFrom(const PromptForm& form, double zero)
{
    Answered<double> angle;
    for (;;) {
        PromptForm open = form;
        open.bits |= RSG_OTHER;
        const Answered<AcGePoint3d> answer = askPlace(open);
        angle.outcome = answer.outcome;
        angle.keyword = answer.keyword;
        if (answer.given()) {
            const AcGeVector3d to = answer.value - form.base.value_or(AcGePoint3d());
            angle.value = std::atan2(to.y, to.x) - zero;
            return angle;
        }
        if (!answer.isKeyword() ||
            matchKeyword(parseKeywords(form.keywords), answer.keyword) != nullptr)
            return angle;
        if (const std::optional<double> typed = typedAngle(answer.keyword)) {
            angle.outcome = RTNORM;
            angle.value = *typed;
            return angle;
        }
        refuse(L"Requires valid numeric angle, second point, or option keyword.\n");
    }
}

void refuse(const wchar_t* why)
{
    engine().print(why);
}

std::optional<PickedEntity> pickEntity(const wchar_t* prompt)
{
    for (;;) {
        ads_name name{};
        ads_point place{};
        const int outcome = acedEntSel(prompt, name, place);
        PickedEntity picked;
        picked.place = place;
        if (outcome == RTNORM && acdbGetObjectId(picked.id, name) == Acad::eOk)
            return picked;
        if (outcome != RTERROR || !engine().onFiber())
            return std::nullopt;
        refuse(L"Nothing is there.\n");
    }
}

std::wstring lengthText(double value)
{
    return format(L"%.*f", integerVariable(L"LUPREC", 4), value);
}

std::wstring degreesText(double radians)
{
    return format(L"%.*f", integerVariable(L"AUPREC", 0), toDegrees(radians));
}

std::wstring bracketed(double value)
{
    return L" <" + lengthText(value) + L">";
}

void setReal(const wchar_t* variable, double value)
{
    resbuf buffer{static_cast<short>(RTREAL), {}};
    buffer.resval.rreal = value;
    acedSetVar(variable, buffer);
}

void setInteger(const wchar_t* variable, int value)
{
    resbuf buffer{static_cast<short>(RTSHORT), {}};
    buffer.resval.rint = static_cast<std::int16_t>(value);
    acedSetVar(variable, buffer);
}

void setLastPoint(const AcGePoint3d& place)
{
    resbuf buffer{static_cast<short>(RT3DPOINT), {}};
    buffer.resval.rpoint = place;
    acedSetVar(L"LASTPOINT", buffer);
}

} // namespace host

#pragma once

#include "host/db/object_id.h"
#include "host/edit/prompts.h"
#include "host/geom/point.h"

#include <optional>
#include <string>
#include <string_view>

namespace host {

// The prompts of drawing commands: what is asked, and how it was answered.

struct PromptForm {
    std::wstring text;             // with the options in brackets, up to ": "
    const wchar_t* keywords = L""; // as acedInitGet takes them
    std::optional<AcGePoint3d> base;
    bool enterCounts = false; // else Enter alone is refused
    int bits = 0;             // further ones of InitGetBits
};

template <class Value> struct Answered {
    int outcome = RTCAN;
    Value value{};
    std::wstring keyword;

    bool given() const { return outcome == RTNORM; }
    bool enter() const { return outcome == RTNONE; }
    bool isKeyword() const { return outcome == RTKWORD; }
    bool chose(std::wstring_view word) const { return isKeyword() && keyword == word; }
    bool cancelled() const { return !given() && !enter() && !isKeyword(); }
};

Answered<AcGePoint3d> askPlace(const PromptForm& form);
// Refuses a place that coincides with the base, in space or seen from above.
Answered<AcGePoint3d> askOtherPlace(const PromptForm& form);
Answered<AcGePoint3d> askOtherPlaceInPlane(const PromptForm& form);
Answered<double> askLength(const PromptForm& form); // a number, or shown by points
Answered<double> askTurn(const PromptForm& form);   // radians
Answered<double> askNumber(const PromptForm& form); // typed only
Answered<int> askCount(const PromptForm& form);
// The keyword stands in `keyword`; Enter alone is `fallback`.
Answered<int> askOption(const std::wstring& text, const wchar_t* keywords,
                        const wchar_t* fallback = L"");

// A direction in the plane: typed in degrees from a line that is itself turned by `zero`, or shown
// by a point seen from the base. Radians from that line.
Answered<double> askAngleFrom(const PromptForm& form, double zero);

void refuse(const wchar_t* why); // a text with its line end

// Asks again while `refusal` has a text for the value (null when there is none).
template <class Ask, class Refusal> auto askUntil(Ask ask, Refusal refusal)
{
    for (;;) {
        auto answer = ask();
        if (!answer.given())
            return answer;
        const wchar_t* const why = refusal(answer.value);
        if (!why)
            return answer;
        refuse(why);
    }
}
inline constexpr const wchar_t* kSamePlace = L"The points coincide.\n";
inline constexpr const wchar_t* kOnALine = L"The points lie on a line.\n";

// One entity and the point by which it was chosen; nothing when cancelled. Asks again at an empty
// place.
struct PickedEntity {
    AcDbObjectId id;
    AcGePoint3d place;
};
std::optional<PickedEntity> pickEntity(const wchar_t* prompt);

// As the prompts show them: lengths after LUPREC, angles in degrees after AUPREC.
std::wstring lengthText(double value);
std::wstring degreesText(double radians);
std::wstring bracketed(double value); // " <2.5000>"

void setReal(const wchar_t* variable, double value);
void setInteger(const wchar_t* variable, int value);
void setLastPoint(const AcGePoint3d& place); // what "@" counts from

} // namespace host

#include "draw/drawing_scripts.h"

#include "draw/finish_steps.h"
#include "draw/given_property.h"
#include "draw/hatch_boundary.h"
#include "host/text/case_mapping.h"
#include "host/text/wide_format.h"

namespace {

using Props = GraphicProps;

enum class Collects { ownTypes, everything };
enum class Repeats { asAsked, never };

// What an object must give for a row to apply; nothing: always.
struct Condition {
    PropConstraint<std::wstring> Props::*property = nullptr; // given, and
    std::wstring_view word;                                  // this word, unless empty
    bool (*test)(const Props& props) = nullptr;
};

constexpr Condition kAlways{};

constexpr Condition is(PropConstraint<std::wstring> Props::*property, std::wstring_view word)
{
    return {property, word, nullptr};
}

constexpr Condition given(PropConstraint<std::wstring> Props::*property)
{
    return {property, {}, nullptr};
}

constexpr Condition when(bool (*test)(const Props& props))
{
    return {nullptr, {}, test};
}

struct ScriptRow {
    std::wstring_view type;
    Condition condition;
    const wchar_t* line;                          // null: the object is not drawn
    std::wstring (*argument)(const Props& props); // behind the line and a blank; null: none
    const wchar_t* name = nullptr;
    FinishStep finish = nullptr;
    Collects collects = Collects::ownTypes;
    Repeats repeats = Repeats::asAsked;
};

constexpr std::wstring_view kSolid = L"solid";

bool holds(const Condition& condition, const Props& props)
{
    if (condition.property)
        return isGiven(props, condition.property) &&
               (condition.word.empty() || (props.*condition.property).value == condition.word);
    return !condition.test || condition.test(props);
}

std::wstring objectName(const Props& props)
{
    return props.name;
}

template <auto Property> std::wstring valueOf(const Props& props)
{
    return (props.*Property).value;
}

std::wstring patternName(const Props& props)
{
    return host::lowerCased(givenOr(props, &Props::pattern, std::wstring()));
}

// Nothing stands for the host's default.
std::wstring numberText(const Props& props, PropConstraint<double> Props::*property)
{
    return isGiven(props, property) ? host::format(L"%lf", (props.*property).value)
                                    : std::wstring();
}

std::wstring patternAnswers(const Props& props)
{
    return host::format(L"\"%s\" %s %s", patternName(props).c_str(),
                        numberText(props, &Props::patternScale).c_str(),
                        numberText(props, &Props::patternAngle).c_str());
}

bool hasRadius(const Props& props)
{
    return isGiven(props, &Props::circleRadius);
}

bool isUnknownCircleMode(const Props& props)
{
    return isGiven(props, &Props::circleMode) && props.circleMode.value != L"center";
}

bool isSolid(const Props& props)
{
    return patternName(props) == kSolid;
}

// The first row of the type that applies counts.
const ScriptRow kScripts[] = {
    {L"3DFace", kAlways, L"_.3dface", nullptr, L"3dface", FinishObject},
    {L"3DPolyline", kAlways, L"_.3dpoly", nullptr, L"3dpoly", Finish3dPolyline},
    // the end of this command is never met: its entities stay as the host drew them
    {L"Arc", kAlways, L"_.arc", nullptr, L"3dface", FinishObject},
    {L"BlockReference", given(&Props::blockName), L"kelmaro_impl_insrt", objectName,
     L"kelmaro_impl_insrt", FinishObject},
    {L"Circle", is(&Props::circleMode, L"2p"), L"_.circle _2p", nullptr, L"circle", FinishObject},
    {L"Circle", is(&Props::circleMode, L"3p"), L"_.circle _3p", nullptr, L"circle", FinishObject},
    {L"Circle", when(isUnknownCircleMode), nullptr, nullptr},
    {L"Circle", when(hasRadius), L"_.point", nullptr, L"point", FinishCircleFromPoint,
     Collects::everything},
    {L"Circle", kAlways, L"_.circle", nullptr, L"circle", FinishObject},
    {L"Dimension", is(&Props::dimensionMode, L"aligned"), L"_.dimaligned", nullptr, L"dimaligned",
     FinishDimension},
    {L"Dimension", is(&Props::dimensionMode, L"angular"), L"_.dimangular", nullptr, L"dimangular",
     FinishDimension},
    {L"Dimension", is(&Props::dimensionMode, L"arc"), L"_.dimarc", nullptr, L"dimarc",
     FinishDimension},
    {L"Dimension", is(&Props::dimensionMode, L"diameter"), L"_.dimdiameter", nullptr,
     L"dimdiameter", FinishDimension},
    {L"Dimension", is(&Props::dimensionMode, L"jogged"), L"_.dimjogged", nullptr, L"dimjogged",
     FinishDimension},
    {L"Dimension", is(&Props::dimensionMode, L"linear"), L"_.dimlinear", nullptr, L"dimlinear",
     FinishDimension},
    {L"Dimension", is(&Props::dimensionMode, L"ordinate"), L"_.dimordinate", nullptr,
     L"dimordinate", FinishDimension},
    {L"Dimension", is(&Props::dimensionMode, L"radius"), L"_.dimradius", nullptr, L"dimradius",
     FinishDimension},
    {L"Dimension", given(&Props::dimensionMode), nullptr, nullptr},
    {L"Dimension", kAlways, L"_.dim", nullptr, L"dim", FinishDimension},
    // an ellipse is no dimension: the step gives it the common properties and the records
    {L"Ellipse", is(&Props::ellipseMode, L"arc"), L"_.ellipse", valueOf<&Props::ellipseMode>,
     L"ellipse", FinishDimension},
    {L"Ellipse", kAlways, L"_.ellipse", nullptr, L"ellipse", FinishDimension},
    {L"Hatch", is(&Props::hatchMode, L"boundary"), L"_.pline", nullptr, L"pline",
     FinishHatchBoundary, Collects::everything},
    {L"Hatch", when(isSolid), L"_.-hatch _p SOLID", nullptr, L"-hatch", FinishHatch,
     Collects::ownTypes, Repeats::never},
    {L"Hatch", kAlways, L"_.-hatch _p", patternAnswers, L"-hatch", FinishHatch, Collects::ownTypes,
     Repeats::never},
    {L"Line", kAlways, L"_.line", nullptr, L"line", FinishObject},
    {L"Mesh", given(&Props::meshMode), L"_.mesh", valueOf<&Props::meshMode>, L"mesh", FinishObject},
    {L"Mesh", kAlways, L"_.mesh", nullptr, L"mesh", FinishObject},
    {L"MLeader", kAlways, L"_.mleader", nullptr, L"mleader", FinishMLeader},
    {L"Mline", given(&Props::mlineStyle), L"_.mline _style", valueOf<&Props::mlineStyle>, L"mline",
     FinishMline},
    {L"Mline", kAlways, L"_.mline", nullptr, L"mline", FinishMline},
    {L"MPolygon", kAlways, L"_.mpolygon", nullptr, L"mpolygon", FinishMPolygon},
    {L"MText", kAlways, L"kelmaro_impl_mtxt", objectName, L"kelmaro_impl_mtxt", FinishObject},
    {L"Point", kAlways, L"_.point", nullptr, L"point", FinishObject},
    {L"Polyline", kAlways, L"_.pline", nullptr, L"pline", FinishPolyline},
    {L"Ray", kAlways, L"_.ray", nullptr, L"ray", FinishObject},
    {L"Spline", kAlways, L"_.spline", nullptr, L"spline", FinishSpline},
    {L"Text", kAlways, L"kelmaro_impl_txt", objectName, L"kelmaro_impl_txt", FinishObject},
    {L"Wipeout", kAlways, L"_.wipeout", nullptr, L"wipeout", FinishObject},
    {L"Xline", kAlways, L"_.xline", nullptr, L"xline", FinishObject},
};

DrawingScript scriptOf(const ScriptRow& row, const Props& props)
{
    DrawingScript script;
    script.commandText = row.line;
    if (row.argument)
        script.commandText += L' ' + row.argument(props);
    script.commandText += L'\n';
    script.commandName = row.name;
    script.typeFilter = row.collects == Collects::ownTypes;
    script.repeat = row.repeats == Repeats::asAsked;
    script.finish = row.finish;
    return script;
}

} // namespace

ScriptChoice chooseScript(const GraphicProps& props)
{
    if (!props.types.empty())
        for (const ScriptRow& row : kScripts)
            if (host::equalNoCase(row.type, props.types.front()) && holds(row.condition, props))
                return row.line ? ScriptChoice{scriptOf(row, props), false} : ScriptChoice{};
    return {std::nullopt, true};
}

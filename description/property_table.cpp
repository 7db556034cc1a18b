#include "description/property_table.h"

#include "text/text_comparison.h"

namespace {

constexpr PropertyWord kColorWords[] = {{L"ByBlock", 0}, {L"ByLayer", 256}};
constexpr PropertyWord kBackgroundWords[] = {{L"ByBlock", 0}, {L"ByLayer", 256}, {L"None", -1}};
constexpr PropertyWord kLineWeightWords[] = {{L"ByBlock", -2}, {L"ByLayer", -1}, {L"Default", -3}};
constexpr PropertyWord kCircleModes[] = {{L"Center"}, {L"2P"}, {L"3P"}};
constexpr PropertyWord kDimensionModes[] = {{L"Aligned"},  {L"Angular"}, {L"Arc"},
                                            {L"Diameter"}, {L"Jogged"},  {L"Linear"},
                                            {L"Ordinate"}, {L"Radius"}};
constexpr PropertyWord kEllipseModes[] = {{L"Arc"}, {L"Center"}};
constexpr PropertyWord kHatchModes[] = {{L"Boundary"}, {L"Point"}};
constexpr PropertyWord kMeshModes[] = {{L"Box"},    {L"Cone"},  {L"Cylinder"}, {L"Pyramid"},
                                       {L"Sphere"}, {L"Wedge"}, {L"Torus"}};
constexpr PropertyWord kMlineJustifications[] = {{L"Top", 0}, {L"Zero", 1}, {L"Bottom", 2}};
constexpr PropertyWord kAttachmentPoints[] = {
    {L"TopLeft", 1},      {L"TopCenter", 2},    {L"TopRight", 3},     {L"MiddleLeft", 4},
    {L"MiddleCenter", 5}, {L"MiddleRight", 6},  {L"BottomLeft", 7},   {L"BottomCenter", 8},
    {L"BottomRight", 9},  {L"BaseLeft", 10},    {L"BaseCenter", 11},  {L"BaseRight", 12},
    {L"BaseAlign", 13},   {L"BottomAlign", 14}, {L"MiddleAlign", 15}, {L"TopAlign", 16},
    {L"BaseFit", 17},     {L"BottomFit", 18},   {L"MiddleFit", 19},   {L"TopFit", 20},
    {L"BaseMid", 21},     {L"BottomMid", 22},   {L"MiddleMid", 23},   {L"TopMid", 24},
};
constexpr PropertyWord kTextJustifications[] = {
    {L"Left", 0},        {L"Center", 1},        {L"Right", 2},         {L"Aligned", 3},
    {L"Middle", 4},      {L"Fit", 5},           {L"TopLeft", 6},       {L"TopCenter", 7},
    {L"TopRight", 8},    {L"MiddleLeft", 9},    {L"MiddleCenter", 10}, {L"MiddleRight", 11},
    {L"BottomLeft", 12}, {L"BottomCenter", 13}, {L"BottomRight", 14},
};

using Props = GraphicProps;
using Grammar = PropertyGrammar;

const PropertyRow kProperties[] = {
    {L"color", L"color", &Props::color, Grammar::color, 1, kColorWords},
    {L"layer", L"layer", &Props::layer, Grammar::name, 2},
    {L"linetype", L"linetype", &Props::linetype, Grammar::name, 3},
    {L"linetypescale", L"linetypeScale", &Props::linetypeScale, Grammar::number, 4},
    {L"lineweight", L"lineWeight", &Props::lineWeight, Grammar::wordOrNumber, 5, kLineWeightWords},
    {L"angle", L"angle", &Props::angle, Grammar::number, 29},
    {L"blockname", L"blockName", &Props::blockName, Grammar::name, 7},
    {L"rotate", L"rotate", &Props::rotate, Grammar::positive, 28},
    {L"blockscale", L"blockScale", &Props::blockScale, Grammar::scale, 8},
    {L"circlemode", L"circleMode", &Props::circleMode, Grammar::word, 10, kCircleModes},
    {L"circleradius", L"circleRadius", &Props::circleRadius, Grammar::number, 11},
    {L"closed", L"closed", &Props::closed, Grammar::nonZero, 9},
    {L"dimensionmode", L"dimensionMode", &Props::dimensionMode, Grammar::word, 12, kDimensionModes},
    {L"dimensionstyle", L"dimensionStyle", &Props::dimensionStyle, Grammar::name, 13},
    {L"ellipsemode", L"ellipseMode", &Props::ellipseMode, Grammar::word, 14, kEllipseModes},
    {L"backgroundcolor", L"backgroundColor", &Props::backgroundColor, Grammar::color, 6,
     kBackgroundWords},
    {L"hatchmode", L"hatchMode", &Props::hatchMode, Grammar::word, 26, kHatchModes},
    {L"pattern", L"pattern", &Props::pattern, Grammar::name, 23},
    {L"patternangle", L"patternAngle", &Props::patternAngle, Grammar::number, 24},
    {L"patternscale", L"patternScale", &Props::patternScale, Grammar::number, 27},
    {L"meshmode", L"meshMode", &Props::meshMode, Grammar::word, 15, kMeshModes},
    {L"mleaderstyle", L"mleaderStyle", &Props::mleaderStyle, Grammar::name, 18},
    {L"mlinejustification", L"mlineJustification", &Props::mlineJustification, Grammar::code, 19,
     kMlineJustifications},
    {L"mlinescale", L"mlineScale", &Props::mlineScale, Grammar::number, 20},
    {L"mlinestyle", L"mlineStyle", &Props::mlineStyle, Grammar::name, 21},
    {L"patterncolor", L"patternColor", &Props::patternColor, Grammar::color, 25, kColorWords},
    {L"mtextattachmentpoint", L"mtextAttachmentPoint", &Props::mtextAttachmentPoint, Grammar::code,
     22, kAttachmentPoints},
    {L"constantwidth", L"constantWidth", &Props::constantWidth, Grammar::number, 16},
    {L"elevation", L"elevation", &Props::elevation, Grammar::number, 17},
    {L"textheight", L"textHeight", &Props::textHeight, Grammar::number, 31},
    {L"textjustification", L"textJustification", &Props::textJustification, Grammar::code, 32,
     kTextJustifications},
    {L"textstyle", L"textStyle", &Props::textStyle, Grammar::name, 33},
    {L"text", L"text", &Props::text, Grammar::text, 30},
    {L"explode", L"explode", &Props::explode, Grammar::positiveText, 0},
};

} // namespace

std::span<const PropertyRow> propertyTable()
{
    return kProperties;
}

const PropertyRow* findProperty(std::wstring_view keyword)
{
    for (const PropertyRow& row : kProperties) {
        if (row.keyword == keyword)
            return &row;
    }
    return nullptr;
}

std::optional<std::int32_t> codeOfWord(std::span<const PropertyWord> words, std::wstring_view word)
{
    for (const PropertyWord& known : words) {
        if (textEqualNoCase(known.written, word))
            return known.code;
    }
    return std::nullopt;
}

std::wstring_view wordOfCode(std::span<const PropertyWord> words, std::int32_t code)
{
    for (const PropertyWord& known : words) {
        if (known.code == code)
            return known.written;
    }
    return {};
}

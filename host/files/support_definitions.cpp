#include "host/files/support_definitions.h"

#include <charconv>
#include <cmath>
#include <string_view>
#include <vector>

namespace host {

namespace {

constexpr double kRoot2 = 1.4142135623730951;
constexpr double kRoot3 = 1.7320508075688772;

std::string numberText(double value)
{
    constexpr int kDigits = 9; // a printed number scaled shows no rounding
    char text[32];
    const auto [end, error] =
        std::to_chars(text, text + sizeof text, value, std::chars_format::general, kDigits);
    return error == std::errc() && value != 0 ? std::string(text, end) : "0"; // no "-0"
}

using Dashes = std::vector<double>;

// ---- patterns ----

struct Family {
    double angle; // degrees
    double x, y;
    double along, across;
    Dashes dashes = {};
};

struct Pattern {
    std::string_view name;
    std::string_view description;
    std::vector<Family> families;
};

// Hexagons with two sides along `angle`.
std::vector<Family> hexagons(double side, double angle)
{
    const double along = 1.5 * side;
    const double across = side * kRoot3 / 2;
    const Dashes drawn = {side, -2 * side};
    const double turn = angle * std::acos(-1.0) / 180;
    return {{angle, 0, 0, along, across, drawn},
            {angle + 120, 0, 0, along, across, drawn},
            {angle + 60, side * std::cos(turn), side * std::sin(turn), along, across, drawn}};
}

// Upright triangles in rows, one side apart, every second row shifted by one side.
std::vector<Family> triangles(double side)
{
    const double across = side * kRoot3;
    const Dashes drawn = {side, -side};
    return {{0, 0, 0, side, across, drawn},
            {60, 0, 0, side, across, drawn},
            {120, side, 0, side, across, drawn}};
}

// Two triangles of that side laid over each other, one of them upside down.
std::vector<Family> stars(double side)
{
    const double across = side * kRoot3;
    const double height = side * kRoot3 / 2;
    const Dashes drawn = {side, -side};
    std::vector<Family> families = triangles(side);
    families.push_back({0, 0, height * 2 / 3, side, across, drawn});
    for (const double angle : {60.0, 120.0})
        families.push_back({angle, side / 2, -height / 3, side, across, drawn});
    return families;
}

// Courses of bricks, each shifted by half a brick.
std::vector<Family> bricks(double length, double height)
{
    return {{0, 0, 0, 0, height}, {90, 0, 0, height, length / 2, {height, -height}}};
}

std::vector<Pattern> patterns()
{
    constexpr double s = 0.125;          // between the lines of plain hatchings
    constexpr double slant = s * kRoot2; // the same, measured along x for lines of 45 degrees
    return {
        {"SOLID", "The whole area filled", {{45, 0, 0, 0, s}}},
        {"ANSI31", "Slanted lines: iron, masonry", {{45, 0, 0, 0, s}}},
        {"ANSI32", "Slanted pairs: steel", {{45, 0, 0, 0, 3 * s}, {45, slant, 0, 0, 3 * s}}},
        {"ANSI33",
         "Slanted lines, every second one dashed: bronze, brass",
         {{45, 0, 0, 0, 2 * s}, {45, slant, 0, 0, 2 * s, {s, -s / 2}}}},
        {"ANSI34",
         "Slanted groups of four: plastic, rubber",
         {{45, 0, 0, 0, 6 * s},
          {45, slant, 0, 0, 6 * s},
          {45, 2 * slant, 0, 0, 6 * s},
          {45, 3 * slant, 0, 0, 6 * s}}},
        {"ANSI35",
         "Slanted lines, every second one with dots: fire brick",
         {{45, 0, 0, 0, 2 * s}, {45, slant, 0, 0, 2 * s, {2.5 * s, -s / 2, 0, -s / 2}}}},
        {"ANSI36",
         "Slanted dashes with dots: marble, slate, glass",
         {{45, 0, 0, 1.75 * s, s, {2.5 * s, -s / 2, 0, -s / 2}}}},
        {"ANSI37", "Slanted net: lead, zinc", {{45, 0, 0, 0, s}, {135, 0, 0, 0, s}}},
        {"ANSI38",
         "Slanted lines with crossing dashes: aluminium",
         {{45, 0, 0, 0, s}, {135, 0, 0, 2 * s, s, {2.5 * s, -1.5 * s}}}},
        {"ANGLE",
         "Angle steel",
         {{0, 0, 0, 0, 2 * s, {1.5 * s, -s / 2}}, {90, 0, 0, 0, 2 * s, {1.5 * s, -s / 2}}}},
        {"BOX",
         "Boxes in a grid",
         {{0, 0, 0, 0, 4 * s, {3 * s, -s}},
          {0, 0, 3 * s, 0, 4 * s, {3 * s, -s}},
          {90, 0, 0, 0, 4 * s, {3 * s, -s}},
          {90, 3 * s, 0, 0, 4 * s, {3 * s, -s}}}},
        {"BRASS",
         "Lines, every second one dashed",
         {{0, 0, 0, 0, 2 * s}, {0, 0, s, 0, 2 * s, {s, -s / 2}}}},
        {"BRICK", "Brick wall", bricks(4 * s, 2 * s)},
        {"CLAY",
         "Three lines and a dashed one",
         {{0, 0, 0, 0, 2 * s},
          {0, 0, s / 3, 0, 2 * s},
          {0, 0, 2 * s / 3, 0, 2 * s},
          {0, 0, 1.25 * s, 0, 2 * s, {1.5 * s, -s}}}},
        {"CORK",
         "Lines with slanted strokes",
         {{0, 0, 0, 0, s},
          {135, s / 2, -s / 2, 0, 2 * slant, {slant, -slant}},
          {135, s, -s / 2, 0, 2 * slant, {slant, -slant}}}},
        {"CROSS",
         "Plus signs",
         {{0, -s / 2, 0, 2 * s, 2 * s, {s, -3 * s}}, {90, 0, -s / 2, 2 * s, 2 * s, {s, -3 * s}}}},
        {"DASH", "Dashed lines", {{0, 0, 0, s, s, {s, -s}}}},
        {"DOLMIT",
         "Layered rock: courses with slanted joints",
         {{0, 0, 0, 0, 2 * s}, {45, 0, 0, -3 * slant, slant, {2 * slant, -6 * slant}}}},
        {"DOTS", "Dots", {{0, 0, 0, s / 4, s / 2, {0, -s / 2}}}},
        {"EARTH",
         "Ground: strokes across and upright by turns",
         {{0, 0, 0.04, 0.2, 0.2, {0.2, -0.2}},
          {0, 0, 0.1, 0.2, 0.2, {0.2, -0.2}},
          {0, 0, 0.16, 0.2, 0.2, {0.2, -0.2}},
          {90, 0.04, 0.2, 0.2, 0.2, {0.2, -0.2}},
          {90, 0.1, 0.2, 0.2, 0.2, {0.2, -0.2}},
          {90, 0.16, 0.2, 0.2, 0.2, {0.2, -0.2}}}},
        {"FLEX",
         "Flexible material: lines with bends",
         {{0, 0, 0, 0, 2 * s, {2 * s, -2 * s}},
          {45, 2 * s, 0, slant, slant, {slant, -3 * slant}},
          {135, 4 * s, 0, -slant, slant, {slant, -3 * slant}}}},
        {"GRASS",
         "Tufts of grass",
         {{90, 0, 0, 0.5, 0.5, {0.15, -0.85}},
          {45, 0, 0, 0, kRoot2 / 2, {0.12, 0.12 - kRoot2 / 2}},
          {135, 0, 0, 0, kRoot2 / 2, {0.12, 0.12 - kRoot2 / 2}}}},
        {"GRATE", "Grating", {{0, 0, 0, 0, s / 4}, {90, 0, 0, 0, s}}},
        {"HEX", "Hexagons lying on a side", hexagons(s, 0)},
        {"HONEY", "Honeycomb: hexagons standing on a point", hexagons(1.5 * s, 30)},
        {"HOUND",
         "Woven checks",
         {{0, 0, 0, 2 * s, s / 2, {6 * s, -2 * s}}, {90, 0, 0, -2 * s, s / 2, {6 * s, -2 * s}}}},
        {"INSUL",
         "Insulation: a line and two dashed ones",
         {{0, 0, 0, 0, 3 * s}, {0, 0, s, 0, 3 * s, {s, -s}}, {0, 0, 2 * s, 0, 3 * s, {s, -s}}}},
        {"LINE", "Lines", {{0, 0, 0, 0, s}}},
        {"MUDST", "Mud and sand", {{0, 0, 0, 4 * s, 2 * s, {2 * s, -s, 0, -s, 0, -s}}}},
        {"NET", "Squared net", {{0, 0, 0, 0, s}, {90, 0, 0, 0, s}}},
        {"NET3", "Net of triangles", {{0, 0, 0, 0, s}, {60, 0, 0, 0, s}, {120, 0, 0, 0, s}}},
        {"PLAST",
         "Groups of three lines",
         {{0, 0, 0, 0, 2 * s}, {0, 0, s / 4, 0, 2 * s}, {0, 0, s / 2, 0, 2 * s}}},
        {"PLASTI",
         "Groups of three lines and one between",
         {{0, 0, 0, 0, 2 * s},
          {0, 0, s / 4, 0, 2 * s},
          {0, 0, s / 2, 0, 2 * s},
          {0, 0, 1.25 * s, 0, 2 * s}}},
        {"SACNCR",
         "Concrete: slanted lines and dots",
         {{45, 0, 0, 0, 0.75 * s}, {45, slant / 2, 0, 0, 0.75 * s, {0, -0.75 * s}}}},
        {"SQUARE",
         "Small squares in a grid",
         {{0, 0, 0, 0, s, {s, -s}}, {90, 0, 0, 0, s, {s, -s}}}},
        {"STARS", "Stars of six points", stars(s)},
        {"STEEL", "Close slanted pairs", {{45, 0, 0, 0, s}, {45, 0, s / 2, 0, s}}},
        {"SWAMP",
         "Tufts on water",
         {{0, -0.2, 0, 0.5, kRoot3 / 2, {0.4, -0.6}},
          {60, 0, 0, 0.5, kRoot3 / 2, {0.1, -0.9}},
          {90, 0, 0, kRoot3 / 2, 0.5, {0.15, 0.15 - kRoot3}},
          {120, 0, 0, 0.5, kRoot3 / 2, {0.1, -0.9}}}},
        {"TRANS",
         "Heat transfer: a line and a dashed one",
         {{0, 0, 0, 0, 2 * s}, {0, 0, s, 0, 2 * s, {s, -s}}}},
        {"TRIANG", "Triangles in rows", triangles(1.5 * s)},
        {"ZIGZAG", "Steps", {{0, 0, 0, s, s, {s, -s}}, {90, s, 0, s, s, {s, -s}}}},
        {"AR-B816", "Block wall, blocks of 16 by 8, true size", bricks(16, 8)},
        {"AR-BRSTD", "Brick wall, bricks of 8 by 2 2/3, true size", bricks(8, 8.0 / 3)},
    };
}

// ---- linetypes ----

struct Linetype {
    std::string_view name;
    std::string_view description;
    Dashes dashes;
};

// In inches; each comes with a variant of half and one of double the size.
std::vector<Linetype> scaledLinetypes()
{
    constexpr double dash = 0.5, gap = -0.25, stroke = 1.25, dot = 0;
    return {
        {"BORDER", "Border", {dash, gap, dash, gap, dot, gap}},
        {"CENTER", "Centre line", {stroke, gap, -gap, gap}},
        {"DASHDOT", "Dash and dot", {dash, gap, dot, gap}},
        {"DASHED", "Dashed", {dash, gap}},
        {"DIVIDE", "Divide", {dash, gap, dot, gap, dot, gap}},
        {"DOT", "Dotted", {dot, gap}},
        {"HIDDEN", "Hidden edge", {dash / 2, gap / 2}},
        {"PHANTOM", "Phantom", {stroke, gap, -gap, gap, -gap, gap}},
    };
}

// In millimetres, for a pen of 1 mm.
std::vector<Linetype> penLinetypes()
{
    constexpr double dash = 12, longDash = 24, shortDash = 6, gap = -3, wide = -18, dot = 0;
    return {
        {"ACAD_ISO02W100", "Dash", {dash, gap}},
        {"ACAD_ISO03W100", "Dash and space", {dash, wide}},
        {"ACAD_ISO04W100", "Long dash and dot", {longDash, gap, dot, gap}},
        {"ACAD_ISO05W100", "Long dash and two dots", {longDash, gap, dot, gap, dot, gap}},
        {"ACAD_ISO06W100",
         "Long dash and three dots",
         {longDash, gap, dot, gap, dot, gap, dot, gap}},
        {"ACAD_ISO07W100", "Dot", {dot, gap}},
        {"ACAD_ISO08W100", "Long dash and short dash", {longDash, gap, shortDash, gap}},
        {"ACAD_ISO09W100",
         "Long dash and two short dashes",
         {longDash, gap, shortDash, gap, shortDash, gap}},
        {"ACAD_ISO10W100", "Dash and dot", {dash, gap, dot, gap}},
        {"ACAD_ISO11W100", "Two dashes and dot", {dash, gap, dash, gap, dot, gap}},
        {"ACAD_ISO12W100", "Dash and two dots", {dash, gap, dot, gap, dot, gap}},
        {"ACAD_ISO13W100", "Two dashes and two dots", {dash, gap, dash, gap, dot, gap, dot, gap}},
        {"ACAD_ISO14W100", "Dash and three dots", {dash, gap, dot, gap, dot, gap, dot, gap}},
        {"ACAD_ISO15W100",
         "Two dashes and three dots",
         {dash, gap, dash, gap, dot, gap, dot, gap, dot, gap}},
    };
}

// "__ . __ . ": a dash is as many strokes as the shortest gap goes into it, a gap a blank for each.
std::string drawingOf(const Dashes& dashes)
{
    constexpr std::size_t kWidth = 32;
    double unit = 0;
    for (const double dash : dashes)
        if (dash < 0 && (unit == 0 || -dash < unit))
            unit = -dash;
    std::string period;
    for (const double dash : dashes) {
        const auto count = static_cast<std::size_t>(std::lround(std::abs(dash) / unit));
        period += dash == 0 ? std::string(1, '.') : std::string(count, dash > 0 ? '_' : ' ');
    }
    std::string drawn = period;
    while (drawn.size() + period.size() <= kWidth)
        drawn += period;
    drawn.erase(drawn.find_last_not_of(' ') + 1);
    return drawn;
}

void addLinetype(std::string& text, std::string_view name, std::string_view description,
                 const Dashes& dashes, double scale)
{
    text.append("*").append(name).append(",").append(description);
    text.append(" ").append(drawingOf(dashes)).append("\nA");
    for (const double dash : dashes)
        text.append(",").append(numberText(dash * scale));
    text += '\n';
}

} // namespace

std::string patternDefinitions(double scale)
{
    std::string text =
        scale == 1.0 ? ";; Hatch patterns, in inches.\n" : ";; Hatch patterns, in millimetres.\n";
    for (const Pattern& pattern : patterns()) {
        text.append("*").append(pattern.name).append(", ").append(pattern.description);
        text += '\n';
        for (const Family& family : pattern.families) {
            text.append(numberText(family.angle)).append(", ");
            text.append(numberText(family.x * scale)).append(",");
            text.append(numberText(family.y * scale)).append(", ");
            text.append(numberText(family.along * scale)).append(",");
            text.append(numberText(family.across * scale));
            const char* apart = ", ";
            for (const double dash : family.dashes) {
                text.append(apart).append(numberText(dash * scale));
                apart = ",";
            }
            text += '\n';
        }
    }
    return text;
}

std::string linetypeDefinitions(double scale)
{
    struct Variant {
        std::string_view suffix;
        std::string_view size;
        double factor;
    };
    constexpr Variant variants[] = {{"", "", 1}, {"2", " (half)", 0.5}, {"X2", " (double)", 2}};

    std::string text =
        scale == 1.0 ? ";; Linetypes, in inches.\n" : ";; Linetypes, in millimetres.\n";
    for (const Linetype& linetype : scaledLinetypes())
        for (const Variant& variant : variants)
            addLinetype(text, std::string(linetype.name).append(variant.suffix),
                        std::string(linetype.description).append(variant.size), linetype.dashes,
                        scale * variant.factor);
    for (const Linetype& linetype : penLinetypes())
        addLinetype(text, linetype.name, linetype.description, linetype.dashes,
                    scale / kMillimetresPerInch);
    return text;
}

// The code line of the first "0" is left out, that of the "0" behind a style stands.
std::string multilineStyleDefinitions(double)
{
    return "MLSTYLE\n"
           "  2\nSTANDARD\n 70\n0\n  3\n\n 62\n256\n 51\n90.0\n 52\n90.0\n 71\n2\n"
           " 49\n0.5\n 62\n256\n  6\nBYLAYER\n"
           " 49\n-0.5\n 62\n256\n  6\nBYLAYER\n"
           "  0\n";
}

} // namespace host

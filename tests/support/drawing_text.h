#pragma once

#include "host/geom/stroke_sink.h"
#include "tests/support/read_drawing.h"

#include <algorithm>
#include <cstdio>
#include <string>
#include <string_view>

namespace host::test {

// Tags in one line, "0 LINE|8 0|10 1.5", as lines of a DXF file.
inline std::string dxf(std::string_view tags)
{
    std::string lines;
    while (!tags.empty()) {
        const std::size_t end = std::min(tags.find('|'), tags.size());
        const std::string_view tag = tags.substr(0, end);
        tags.remove_prefix(std::min(end + 1, tags.size()));
        const std::size_t blank = std::min(tag.find(' '), tag.size());
        lines.append(tag.substr(0, blank)).append("\n");
        lines.append(tag.substr(std::min(blank + 1, tag.size()))).append("\n");
    }
    return lines;
}

// The parts of a drawing, each in the notation of `dxf`; sections without records are left out.
struct DrawingText {
    DxfVersion version = DxfVersion::r2018;
    std::string tables;
    std::string blocks;
    std::string entities;
    std::string objects;

    std::string text() const
    {
        char number[8];
        std::snprintf(number, sizeof number, "AC%04d", static_cast<int>(version));
        return "0\nSECTION\n2\nHEADER\n9\n$ACADVER\n1\n" + std::string(number) + "\n0\nENDSEC\n" +
               section("TABLES", tables) + section("BLOCKS", blocks) +
               section("ENTITIES", entities) + section("OBJECTS", objects) + "0\nEOF\n";
    }

private:
    static std::string section(std::string_view name, std::string_view records)
    {
        if (records.empty())
            return {};
        return "0\nSECTION\n2\n" + std::string(name) + "\n" + dxf(records) + "0\nENDSEC\n";
    }
};

inline ReadDrawing openText(std::string_view entities, DxfVersion version = DxfVersion::r2018)
{
    return ReadDrawing(DrawingText{.version = version, .entities = std::string(entities)}.text());
}

// Hears what an entity draws, as one line of text for each stroke: "line 0,0 10,0", "closed ...",
// "arc centre start end", "fill", "text corner along up", "point". Coordinates are rounded to
// thousandths, and z is left out where it is 0.
class StrokeText : public StrokeSink {
public:
    void polyline(std::span<const AcGePoint3d> points, bool closed) override
    {
        add(closed ? "closed" : "line", points);
    }
    void arc(const Arc3d& arc) override
    {
        const AcGePoint3d places[] = {arc.centre, arc.startPoint(), arc.endPoint()};
        add("arc", places);
    }
    void filledArea(std::span<const Outline> outlines) override
    {
        for (const Outline& outline : outlines)
            add("fill", outline);
    }
    void textBox(const TextBox& box) override
    {
        const AcGePoint3d places[] = {box.corner, AcGePoint3d() + box.along,
                                      AcGePoint3d() + box.up};
        add("text", places);
    }
    void point(const AcGePoint3d& position) override { add("point", {&position, 1}); }

    std::string text;

private:
    static std::string number(double value)
    {
        char digits[40];
        std::snprintf(digits, sizeof digits, "%.3f", value + 0.0);
        std::string written = digits;
        while (written.back() == '0')
            written.pop_back();
        if (written.back() == '.')
            written.pop_back();
        return written == "-0" ? "0" : written;
    }
    void add(std::string_view kind, std::span<const AcGePoint3d> points)
    {
        text += kind;
        for (const AcGePoint3d& p : points) {
            text += " " + number(p.x) + "," + number(p.y);
            if (number(p.z) != "0")
                text += "," + number(p.z);
        }
        text += "\n";
    }
};

} // namespace host::test

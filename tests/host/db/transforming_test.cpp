#include "host/db/attribute.h"
#include "host/db/block_reference.h"
#include "host/db/dimension.h"
#include "host/db/hatch.h"
#include "host/db/lwpolyline.h"
#include "host/db/mtext.h"
#include "host/db/readable_text.h"
#include "host/geom/polyline.h"
#include "tests/support/drawing_text.h"

#include <numbers>

using host::DxfVersion;
using host::test::DrawingText;
using host::test::dxf;
using host::test::openText;

namespace {

// What an entity draws: lists of places, and arcs, which may run either way round.
struct Drawn {
    char kind;
    std::vector<AcGePoint3d> places;
    std::optional<host::Arc3d> arc;
};

class DrawnSink : public host::StrokeSink {
public:
    void polyline(std::span<const AcGePoint3d> points, bool closed) override
    {
        all.push_back({closed ? 'c' : 'l', {points.begin(), points.end()}, {}});
    }
    void arc(const host::Arc3d& arc) override { all.push_back({'a', {}, arc}); }
    void spline(const host::NurbsCurve& curve) override
    {
        Drawn drawn{'s', {}, {}};
        for (int i = 0; i <= 16; ++i)
            drawn.places.push_back(
                curve.pointAt(curve.startParameter() +
                              (curve.endParameter() - curve.startParameter()) * i / 16.0));
        all.push_back(drawn);
    }
    void filledArea(std::span<const host::Outline> outlines) override
    {
        for (const host::Outline& outline : outlines)
            all.push_back({'f', outline, {}});
    }
    void textBox(const host::TextBox& box) override { all.push_back({'t', box.outline(), {}}); }
    void point(const AcGePoint3d& position) override { all.push_back({'p', {position}, {}}); }

    std::vector<Drawn> all;
};

std::vector<Drawn> drawnBy(ReadDrawing& drawing)
{
    AcDbObjectPointer<AcDbEntity> entity(drawing.idOf("A0"), AcDb::kForRead);
    DrawnSink sink;
    if (entity)
        entity->strokes(sink);
    return sink.all;
}

std::vector<Drawn> mapped(std::vector<Drawn> all, const AcGeMatrix3d& map)
{
    for (Drawn& one : all) {
        for (AcGePoint3d& p : one.places)
            p = map * p;
        if (one.arc)
            one.arc = one.arc->transformed(map);
    }
    return all;
}

const AcGeTol kNear(1e-6, 1e-6);

bool covers(const host::Arc3d& a, const host::Arc3d& b)
{
    for (int i = 0; i <= 16; ++i) {
        const AcGePoint3d p = b.pointAt(b.start + b.sweep() * i / 16.0);
        if (!a.closestPoint(p).isEqualTo(p, kNear))
            return false;
    }
    return true;
}

bool runsAlong(const std::vector<AcGePoint3d>& outline, const std::vector<AcGePoint3d>& other)
{
    return std::all_of(outline.begin(), outline.end(), [&](const AcGePoint3d& p) {
        return host::closestOnPolyline(other, true, p).distanceTo(p) < 5e-3;
    });
}

bool sameDrawn(const Drawn& a, const Drawn& b, bool readableText)
{
    if (a.kind != b.kind || !a.arc != !b.arc)
        return false;
    if (a.kind == 'f') // a curve is sampled as rounding has it
        return runsAlong(a.places, b.places) && runsAlong(b.places, a.places);
    if (a.places.size() != b.places.size())
        return false;
    if (a.arc)
        return covers(*a.arc, *b.arc) && covers(*b.arc, *a.arc);
    if (a.kind == 't' && readableText)
        return std::is_permutation(
            a.places.begin(), a.places.end(), b.places.begin(),
            [](const AcGePoint3d& p, const AcGePoint3d& q) { return p.isEqualTo(q, kNear); });
    const auto near = [](const AcGePoint3d& p, const AcGePoint3d& q) {
        return p.isEqualTo(q, kNear);
    };
    // a segment of a pattern may run either way
    return std::equal(a.places.begin(), a.places.end(), b.places.begin(), near) ||
           (a.places.size() == 2 &&
            std::equal(a.places.rbegin(), a.places.rend(), b.places.begin(), near));
}

bool sameAll(const std::vector<Drawn>& a, std::vector<Drawn> b, bool readableText)
{
    if (a.size() != b.size())
        return false;
    for (const Drawn& one : a) {
        const auto other = std::find_if(b.begin(), b.end(), [&](const Drawn& drawn) {
            return sameDrawn(one, drawn, readableText);
        });
        if (other == b.end())
            return false;
        b.erase(other);
    }
    return true;
}

Acad::ErrorStatus transform(ReadDrawing& drawing, const AcGeMatrix3d& map)
{
    AcDbObjectPointer<AcDbEntity> entity(drawing.idOf("A0"), AcDb::kForWrite);
    return entity ? entity->transformBy(map) : entity.openStatus();
}

struct Map {
    const char* name;
    AcGeMatrix3d map;
};
const Map kMaps[] = {
    {"moved", AcGeMatrix3d::translation({5.0, -3.0, 2.0})},
    {"turned", AcGeMatrix3d::rotation(std::numbers::pi / 6.0, AcGeVector3d::kZAxis, {1, 2, 0})},
    {"scaled", AcGeMatrix3d::scaling(2.5, {3, 1, 0})},
    {"mirrored", AcGeMatrix3d::mirroring({2, 0, 0}, {-0.34202014332566877, 0.9396926207859083, 0})},
    {"mirrored to the back", AcGeMatrix3d::mirroring({0, 0, 1}, AcGeVector3d::kZAxis)},
    {"tilted", AcGeMatrix3d::rotation(1.1, {1, 2, 3}, {1, 0, 1})},
    {"tilted, mirrored and scaled", AcGeMatrix3d::rotation(1.1, {1, 2, 3}) *
                                        AcGeMatrix3d::mirroring({1, 1, 1}, {1, 0, 2}) *
                                        AcGeMatrix3d::scaling(0.5)},
};

enum Oddity {
    kNone,
    kReadable, // mirrored text can be read, in the mirrored place
    kUpright,  // stays level
    kEndless,  // drawn up to a fixed distance
    kMeasures, // readable, and another text at another scale
};

struct Kind {
    std::string entity;
    DxfVersion version = DxfVersion::r2018;
    Oddity oddity = kNone;
};

const std::string kIn = "|100 AcDbEntity|8 0|100 ";
const std::string kTurned = "|210 0.36|220 0.48|230 0.8";
const std::string kText = "0 TEXT|5 A0" + kIn + "AcDbText|10 1|20 2|30 0|40 2|1 note|51 15";

const std::vector<Kind>& kinds()
{
    const std::string line = "0 LINE|5 A0" + kIn + "AcDbLine|10 1|20 2|30 3|11 4|21 5|31 6";
    const std::string circle = "0 CIRCLE|5 A0" + kIn + "AcDbCircle|39 1|10 1|20 2|30 3|40 5";
    const std::string arc = "0 ARC|5 A0" + kIn + "AcDbCircle|10 1|20 2|30 3|40 5";
    const std::string ellipse =
        "0 ELLIPSE|5 A0" + kIn + "AcDbEllipse|10 1|20 2|30 0|11 3|21 1|31 0";
    const std::string path = "0 LWPOLYLINE|5 A0" + kIn +
                             "AcDbPolyline|90 3|70 1|38 2|39 1|10 0|20 0|42 0.5|10 4|20 0|40 1|41 "
                             "2|10 4|20 3|42 -1";
    const std::string old = "0 POLYLINE|5 A0|8 0|66 1|10 0|20 0|30 5|70 1|39 2";
    const std::string oldVertices =
        "|0 VERTEX|5 A1|8 0|10 0|20 0|30 5|42 0.3|0 VERTEX|5 A2|8 0|10 "
        "4|20 1|30 5|0 VERTEX|5 A3|8 0|10 2|20 6|30 5|0 SEQEND|5 A4|8 0";
    const std::string insert = "0 INSERT|5 A0|8 0|66 1|2 B|10 10|20 2|30 1|41 2|42 3|43 1|50 30";
    const std::string attribute = "|0 ATTRIB|5 A1|8 0|10 10|20 5|40 1|1 mine|2 TAG|70 0|72 2|11 "
                                  "12|21 5|0 SEQEND|5 A3|8 0";
    const std::string hatch = "0 HATCH|5 A0" + kIn + "AcDbHatch|10 0|20 0|30 5";
    const std::string filled =
        "|2 SOLID|70 1|71 0|91 3|92 1|93 3|72 1|10 -5|20 0|11 5|21 0|72 2|10 0|20 0|40 5|50 0|51 "
        "90|73 1|72 4|94 3|73 0|74 0|95 8|96 4|40 0|40 0|40 0|40 0|40 1|40 1|40 1|40 1|10 0|20 "
        "5|10 -2|20 6|10 -4|20 4|10 -5|20 0|97 0|97 0|92 1|93 1|72 3|10 1|20 2|11 0|21 1|40 0.5|50 "
        "0|51 360|73 0|97 0|92 2|72 1|73 1|93 3|10 0|20 0|42 0|10 2|20 0|42 0.7|10 2|20 2|42 0|97 "
        "0|75 0|76 1|98 0";
    const std::string clockwise =
        "|2 SOLID|70 1|71 0|91 1|92 1|93 2|72 2|10 0|20 0|40 5|50 300|51 480|73 0|72 1|10 -2.5|20 "
        "-4.3301270189|11 2.5|21 4.3301270189|97 0|75 0|76 1|98 0";
    const std::string patterned =
        "|2 ANSI31|70 0|71 0|91 1|92 1|93 4|72 1|10 0|20 0|11 7|21 1|72 1|10 7|20 1|11 6|21 6|72 "
        "1|10 6|20 6|11 1|21 5|72 1|10 1|20 5|11 0|21 0|97 0|75 0|76 1|52 0|41 1|77 0|78 1|53 "
        "45|43 0.3|44 0.1|45 -0.9|46 1.1|79 2|49 1.37|49 -0.51|98 1|10 3|20 3";
    const std::string dimension = "0 DIMENSION|5 A0|8 0|2 *D1|10 5|20 5|11 1|21 2|12 1|22 1|70 0|3 "
                                  "STANDARD|13 0|23 0|14 5|24 0|42 5";
    static const std::vector<Kind> all = {
        {line},
        {line + "|39 2" + kTurned},
        {"0 LINE|5 A0|8 0|38 7|10 1|20 2|11 4|21 5", DxfVersion::r12},
        {"0 POINT|5 A0" + kIn + "AcDbPoint|10 1|20 2|30 3|39 4"},
        {circle},
        {circle + kTurned},
        {arc + "|100 AcDbArc|50 350|51 75"},
        {arc + kTurned + "|100 AcDbArc|50 10|51 300"},
        {arc + "|100 AcDbArc|50 10|51 300|210 0|220 0|230 -1"},
        {ellipse + "|210 0|220 0|230 1|40 0.5|41 0|42 6.283185307179586"},
        {ellipse + "|210 0|220 0|230 1|40 0.5|41 0.5|42 2.5"},
        {ellipse + "|210 0|220 0|230 -1|40 0.5|41 5.5|42 7.5"},
        {"0 RAY|5 A0" + kIn + "AcDbRay|10 1|20 2|30 0|11 0.6|21 0.8|31 0", DxfVersion::r2018,
         kEndless},
        {"0 XLINE|5 A0" + kIn + "AcDbXline|10 1|20 2|30 0|11 0|21 0|31 1", DxfVersion::r2018,
         kEndless},
        {"0 SOLID|5 A0|8 0|10 0|20 0|11 4|21 0|12 0|22 4|13 4|23 4|39 1", DxfVersion::r12},
        {"0 TRACE|5 A0" + kIn +
         "AcDbTrace|10 0|20 0|30 1|11 4|21 0|31 1|12 0|22 4|32 1|13 5|23 4|33 1" + kTurned},
        {"0 3DFACE|5 A0" + kIn +
         "AcDbFace|10 0|20 0|30 1|11 4|21 0|31 2|12 0|22 4|32 3|13 5|23 "
         "4|33 1|70 2"},
        {path},
        {path + kTurned},
        {old + oldVertices, DxfVersion::r12},
        {old + kTurned + oldVertices, DxfVersion::r12},
        {"0 POLYLINE|5 A0|8 0|66 1|70 8|0 VERTEX|5 A1|8 0|10 0|20 0|30 1|70 32|0 VERTEX|5 A2|8 "
         "0|10 4|20 4|30 2|70 32|0 SEQEND|5 A3|8 0",
         DxfVersion::r12},
        {"0 POLYLINE|5 A0|8 0|66 1|70 17|71 2|72 2|0 VERTEX|5 A1|8 0|10 0|20 0|70 64|0 VERTEX|5 "
         "A2|8 0|10 5|20 0|70 64|0 VERTEX|5 A3|8 0|10 0|20 4|30 1|70 64|0 VERTEX|5 A4|8 0|10 6|20 "
         "5|70 64|0 SEQEND|5 A5|8 0",
         DxfVersion::r12},
        {"0 POLYLINE|5 A0|8 0|66 1|70 64|71 3|72 1|0 VERTEX|5 A1|8 0|10 0|20 0|70 192|0 VERTEX|5 "
         "A2|8 0|10 5|20 0|70 192|0 VERTEX|5 A3|8 0|10 0|20 4|30 1|70 192|0 VERTEX|5 A4|8 0|10 "
         "0|20 0|70 128|71 1|72 2|73 -3|0 SEQEND|5 A5|8 0",
         DxfVersion::r12},
        {"0 MESH|5 A0" + kIn +
         "AcDbSubDMesh|71 2|72 0|91 0|92 3|10 0|20 0|30 0|10 4|20 0|30 1|10 "
         "0|20 4|30 2|93 4|90 3|90 0|90 1|90 2|94 0|95 0|90 0"},
        {"0 SPLINE|5 A0" + kIn +
         "AcDbSpline|210 0|220 0|230 1|70 8|71 3|72 8|73 4|74 0|40 0|40 0|40 0|40 0|40 1|40 1|40 "
         "1|40 1|10 0|20 0|30 0|10 1|20 3|30 0|10 4|20 3|30 0|10 5|20 0|30 0"},
        {"0 SPLINE|5 A0" + kIn +
         "AcDbSpline|70 8|71 3|72 0|73 0|74 3|44 0.1|12 0|22 1|32 0|11 "
         "0|21 0|31 0|11 4|21 3|31 1|11 8|21 0|31 0"},
        {kText},
        {kText + "|50 20|72 1|11 1|21 2|31 0" + kTurned + "|100 AcDbText|73 3"},
        {kText + "|71 2|50 20|72 2|11 1|21 2|31 0|100 AcDbText|73 2"},
        {kText + "|72 5|11 7|21 4|31 0|100 AcDbText"},
        {kText + "|71 6|72 3|11 7|21 4|31 0|100 AcDbText"},
        {"0 ATTDEF|5 A0|8 0|10 1|20 2|40 2|1 v|3 p|2 TAG|70 0|50 45", DxfVersion::r12},
        {"0 MTEXT|5 A0" + kIn + "AcDbMText|10 1|20 2|30 0|40 2|41 9|71 5|1 two words\\Pthree"},
        {"0 MTEXT|5 A0" + kIn + "AcDbMText|10 1|20 2|30 0|40 2|41 9|71 3|1 note|50 30"},
        {"0 MTEXT|5 A0" + kIn +
         "AcDbMText|10 1|20 2|30 0|40 2|71 7|1 note|210 0|220 0|230 -1|11 "
         "0|21 1|31 0"},
        {insert + attribute, DxfVersion::r12},
        {insert + kTurned + attribute, DxfVersion::r12},
        {"0 INSERT|5 A0|8 0|2 B|10 10|20 2|41 -1|50 30|70 2|71 3|44 5|45 3", DxfVersion::r12},
        {"0 SHAPE|5 A0" + kIn + "AcDbShape|10 1|20 2|30 0|40 3|2 BAT|50 30|41 2"},
        {"0 TOLERANCE|5 A0" + kIn + "AcDbFcf|3 Standard|10 1|20 2|30 0|1 x|11 1|21 0|31 0"},
        {"0 LEADER|5 A0" + kIn +
         "AcDbLeader|3 Standard|71 1|72 1|73 3|76 3|10 0|20 0|30 0|10 4|20 "
         "4|30 0|10 6|20 4|30 1|210 0|220 0|230 1"},
        {"0 MULTILEADER|5 A0" + kIn +
             "AcDbMLeader|270 2|300 CONTEXT_DATA{|40 1|10 8|20 5|30 0|41 2|290 1|304 note|11 0|21 "
             "0|31 1|340 50|12 9|22 6|32 0|13 1|23 0|33 0|42 0|43 0|302 LEADER{|290 1|291 1|10 "
             "8|20 5|30 0|11 1|21 0|31 0|90 0|40 0.5|304 LEADER_LINE{|10 0|20 0|30 0|10 4|20 5|30 "
             "0|91 0|305 }|271 0|303 }|272 9|273 9|301 }|340 51|45 1",
         DxfVersion::r2018, kReadable},
        {"0 MLINE|5 A0" + kIn +
         "AcDbMline|2 STANDARD|340 0|40 1|70 1|71 1|72 2|73 2|10 0|20 0|30 0|210 0|220 0|230 1|11 "
         "0|21 0|31 0|12 1|22 0|32 0|13 0|23 1|33 0|74 2|41 0.5|41 0|75 0|74 2|41 -0.25|41 0|75 "
         "0|11 6|21 0|31 0|12 1|22 0|32 0|13 0|23 1|33 0|74 2|41 0.5|41 0|75 0|74 2|41 -0.25|41 "
         "0|75 0"},
        {hatch + "|210 0|220 0|230 1" + filled},
        {hatch + kTurned + filled},
        {hatch + "|210 0|220 0|230 1" + clockwise},
        {hatch + "|210 0|220 0|230 1" + patterned},
        {hatch + kTurned + patterned},
        {"0 MPOLYGON|5 A0" + kIn +
         "AcDbMPolygon|70 1|10 0|20 0|30 2|210 0|220 0|230 1|2 SOLID|71 "
         "1|91 1|92 2|72 1|73 1|93 3|10 0|20 0|42 0|10 8|20 0|42 1|10 "
         "8|20 8|42 0|97 0|75 0|76 1|63 3|11 0|21 0|99 0"},
        {"0 WIPEOUT|5 A0" + kIn +
         "AcDbWipeout|90 0|10 10|20 20|30 0|11 4|21 0|31 0|12 0|22 4|32 "
         "0|13 1|23 1|340 0|70 7|280 1|281 50|282 50|283 0|71 2|91 4|14 "
         "-0.5|24 0.5|14 0.5|24 0.5|14 0|24 -0.5|14 -0.5|24 0.5"},
        {"0 IMAGE|5 A0" + kIn +
         "AcDbRasterImage|90 0|10 1|20 2|30 0|11 0.1|21 0|31 0|12 0|22 "
         "0.1|32 0|13 640|23 480|340 0|70 7|280 0"},
        {dimension, DxfVersion::r12, kMeasures},
        {"0 VIEWPORT|5 A0" + kIn + "AcDbViewport|10 10|20 5|30 0|40 8|41 4|68 1|69 2",
         DxfVersion::r2018, kUpright},
    };
    return all;
}

ReadDrawing drawingOf(const Kind& kind)
{
    DrawingText text{.version = kind.version, .entities = kind.entity};
    text.blocks = "0 BLOCK|8 0|2 B|70 0|10 1|20 1|0 LINE|8 0|10 1|20 1|11 3|21 1|0 ARC|8 0|10 1|20 "
                  "1|40 2|50 0|51 90|0 ENDBLK|8 0|0 BLOCK|8 0|2 *D1|70 1|10 0|20 0|0 LINE|8 0|10 "
                  "0|20 5|11 5|21 5|0 TEXT|8 0|10 2|20 5.5|40 1|1 5.00|0 ENDBLK|8 0";
    return ReadDrawing(text.text());
}

} // namespace

TEST(Transforming, WhatIsDrawnGoesAlongWithEveryKind)
{
    for (const Kind& kind : kinds())
        for (const Map& map : kMaps) {
            const bool readable = kind.oddity == kReadable || kind.oddity == kMeasures;
            const bool turns = map.map.axis(0).normal() != AcGeVector3d::kXAxis ||
                               map.map.axis(2).normal() != AcGeVector3d::kZAxis;
            const bool scales = std::abs(std::abs(map.map.det()) - 1.0) > 0.01;
            if ((kind.oddity == kUpright && turns) ||
                ((kind.oddity == kEndless || kind.oddity == kMeasures) && scales))
                continue;
            SCOPED_TRACE(kind.entity + " " + map.name);
            ReadDrawing drawing = drawingOf(kind);
            const std::vector<Drawn> before = drawnBy(drawing);
            ASSERT_FALSE(before.empty());
            ASSERT_EQ(transform(drawing, map.map), Acad::eOk);
            EXPECT_TRUE(sameAll(drawnBy(drawing), mapped(before, map.map), readable));
            ASSERT_EQ(transform(drawing, map.map.inverse()), Acad::eOk);
            EXPECT_TRUE(sameAll(drawnBy(drawing), before, readable));
        }
}

TEST(Transforming, SeveralScalesForThoseThatTakeThem)
{
    const AcGeMatrix3d flatter = AcGeMatrix3d::scaling({2.0, 0.5, 1.0}, {1, 1, 0});
    const std::string_view taking[] = {"LINE",   "POINT", "ELLIPSE", "RAY",   "XLINE",
                                       "3DFACE", "MESH",  "SPLINE",  "IMAGE", "WIPEOUT"};
    for (const Kind& kind : kinds()) {
        SCOPED_TRACE(kind.entity);
        const std::string_view type =
            std::string_view(kind.entity).substr(2, kind.entity.find('|') - 2);
        const bool spatial = kind.entity.find("|70 8|0 V") != std::string::npos ||
                             kind.entity.find("|70 17|71") != std::string::npos ||
                             kind.entity.find("|70 64|71") != std::string::npos;
        ReadDrawing drawing = drawingOf(kind);
        const std::vector<Drawn> before = drawnBy(drawing);
        const std::string record = drawing.record(drawing.idOf("A0"));
        if (!spatial && std::find(std::begin(taking), std::end(taking), type) == std::end(taking)) {
            EXPECT_EQ(transform(drawing, flatter), Acad::eCannotScaleNonUniformly);
            EXPECT_EQ(drawing.record(drawing.idOf("A0")), record);
        } else if (kind.oddity != kEndless && kind.entity.find("|39 ") == std::string::npos &&
                   kind.entity.find("|74 3") == std::string::npos) {
            // a curve through points is made anew
            EXPECT_EQ(transform(drawing, flatter), Acad::eOk);
            EXPECT_TRUE(sameAll(drawnBy(drawing), mapped(before, flatter), false));
        }
    }
    ReadDrawing level = drawingOf({"0 INSERT|5 A0|8 0|2 B|10 10|20 2|41 2|50 90", DxfVersion::r12});
    const std::vector<Drawn> before = drawnBy(level);
    EXPECT_EQ(transform(level, flatter), Acad::eOk);
    EXPECT_TRUE(sameAll(drawnBy(level), mapped(before, flatter), false));
    EXPECT_EQ(transform(level, AcGeMatrix3d::scaling(0.0)), Acad::eInvalidInput);
}

// Only what the map changes is written, and as a person would write it.
TEST(Transforming, ChangesTheTagsOfWhatMovesOnly)
{
    const AcGeMatrix3d right = AcGeMatrix3d::translation({10.0, 0.0, 0.0});
    const AcGeMatrix3d quarter =
        AcGeMatrix3d::rotation(std::numbers::pi / 2.0, AcGeVector3d::kZAxis);
    const AcGeMatrix3d twice = AcGeMatrix3d::scaling(2.0);
    const AcGeMatrix3d across = AcGeMatrix3d::mirroring({0, 0, 0}, AcGeVector3d::kXAxis);
    const std::string line = "0 LINE|5 A0|100 AcDbEntity|8 0|100 AcDbLine";
    const std::string arc = "0 ARC|5 A0|100 AcDbEntity|8 0|100 AcDbCircle";
    const std::string path = "0 LWPOLYLINE|5 A0|100 AcDbEntity|8 0|100 AcDbPolyline|90 2|70 0";
    const std::string insert = "0 INSERT|5 A0|100 AcDbEntity|8 0|100 AcDbBlockReference|2 B";
    const std::string text = "0 TEXT|5 A0|100 AcDbEntity|8 0|100 AcDbText";
    struct Case {
        std::string before;
        AcGeMatrix3d map;
        std::string after;
    };
    const Case cases[] = {
        {line + "|10 1|20 2|30 3|11 4|21 5|31 6", right,
         line + "|10 11.0|20 2|30 3|11 14.0|21 5|31 6"},
        {line + "|10 1|20 0|11 4|21 0", quarter, line + "|10 0.0|20 1.0|11 0.0|21 4.0"},
        {arc + "|10 1|20 0|30 0|40 2|100 AcDbArc|50 10|51 90.5", quarter,
         arc + "|10 0.0|20 1.0|30 0|40 2|100 AcDbArc|50 100.0|51 180.5"},
        {arc + "|10 1|20 0|30 0|40 2|100 AcDbArc|50 10|51 80", across,
         arc + "|10 -1.0|20 0|30 0|40 2|100 AcDbArc|50 100.0|51 170.0"},
        {path + "|10 1|20 0|42 0.5|10 2|20 0", across, path + "|10 -1.0|20 0|42 -0.5|10 -2.0|20 0"},
        {path + "|43 0.5|38 1|10 1|20 0|10 2|20 0", twice,
         path + "|43 1.0|38 2.0|10 2.0|20 0|10 4.0|20 0"},
        {insert + "|10 1|20 0|30 0", quarter, insert + "|10 0.0|20 1.0|30 0|50 90.0"},
        {insert + "|10 1|20 0|30 0|50 30", across, insert + "|10 -1.0|20 0|30 0|41 -1.0|50 330.0"},
        {text + "|10 1|20 0|30 0|40 2|1 x|100 AcDbText", across,
         text + "|10 -1.0|20 0|30 0|40 2|1 x|71 2|100 AcDbText"},
        {text + "|10 1|20 0|30 0|40 2|1 x|72 1|11 3|21 0|31 0|100 AcDbText", right,
         text + "|10 11.0|20 0|30 0|40 2|1 x|72 1|11 13.0|21 0|31 0|100 AcDbText"},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.after);
        ReadDrawing drawing = openText(row.before);
        ASSERT_EQ(transform(drawing, row.map), Acad::eOk);
        EXPECT_EQ(drawing.record(drawing.idOf("A0")), dxf(row.after));
        AcDbObjectPointer<AcDbEntity> entity(drawing.idOf("A0"), AcDb::kForRead);
        EXPECT_EQ(entity->upgradeOpen(), Acad::eOk);
        EXPECT_EQ(entity->transformBy(AcGeMatrix3d::kIdentity), Acad::eOk);
        EXPECT_EQ(drawing.record(drawing.idOf("A0")), dxf(row.after));
    }
}

// What applications keep with an entity: 1010 stays, the others follow as their codes say.
TEST(Transforming, ExtendedDataFollows)
{
    const std::string line = "0 LINE|5 A0|100 AcDbEntity|8 0|100 AcDbLine|10 0|20 ";
    const std::string text = "0 MTEXT|5 A0|100 AcDbEntity|8 0|100 AcDbMText|10 0|20 ";
    const AcGeMatrix3d map = AcGeMatrix3d::translation({0.0, 5.0, 0.0}) *
                             AcGeMatrix3d::rotation(std::numbers::pi / 2, AcGeVector3d::kZAxis) *
                             AcGeMatrix3d::scaling(2.0);
    const std::pair<std::string, std::string> cases[] = {
        {line + "0|11 4|21 0|1001 A|1010 1|1020 0|1030 0|1011 1|1021 0|1031 0|1012 1|1022 0|1032 "
                "0|1013 1|1023 0|1033 0|1040 3|1041 3|1042 3",
         line + "5.0|11 0.0|21 13.0|1001 A|1010 1|1020 0|1030 0|1011 0.0|1021 7.0|1031 0|1012 "
                "0.0|1022 "
                "2.0|1032 0|1013 0.0|1023 1.0|1033 0|1040 3|1041 6.0|1042 6.0"},
        {text +
             "0|30 0|40 1|41 9|1 x|1001 ACAD|1000 ACAD_MTEXT_COLUMN_INFO_BEGIN|1070 48|1040 9|1000 "
             "ACAD_MTEXT_COLUMN_INFO_END|1070 44|1040 1",
         text + "5.0|30 0|40 2.0|41 18.0|1 x|11 0.0|21 1.0|31 0.0|1001 ACAD|1000 "
                "ACAD_MTEXT_COLUMN_INFO_BEGIN|1070 48|1040 18.0|1000 "
                "ACAD_MTEXT_COLUMN_INFO_END|1070 44|1040 1"},
    };
    for (const auto& [before, after] : cases) {
        ReadDrawing drawing = openText(before);
        ASSERT_EQ(transform(drawing, map), Acad::eOk);
        EXPECT_EQ(drawing.record(drawing.idOf("A0")), dxf(after));
    }
}

TEST(Transforming, PatternOfAHatchTurnsAndScales)
{
    const std::string head = "0 HATCH|5 A0|100 AcDbEntity|8 0|100 AcDbHatch|10 0|20 0|30 0|210 "
                             "0|220 0|230 1|2 ANSI31|70 0|71 0|91 0|75 0|76 1";
    const auto lines = [&](const char* angle, const char* scale, const char* line) {
        return head + "|52 " + angle + "|41 " + scale + "|77 0|78 1|53 " + line + "|98 1|10 ";
    };
    struct Case {
        AcGeMatrix3d map;
        std::string after;
    };
    const Case cases[] = {
        {AcGeMatrix3d::translation({5, 1, 0}),
         lines("0", "1", "45|43 6.0|44 3.0|45 -1|46 1|79 1|49 3") + "8.0|20 4.0"},
        {AcGeMatrix3d::scaling(2.0),
         lines("0", "2.0", "45|43 2.0|44 4.0|45 -2.0|46 2.0|79 1|49 6.0") + "6.0|20 6.0"},
        {AcGeMatrix3d::rotation(std::numbers::pi / 2, AcGeVector3d::kZAxis),
         lines("90.0", "1", "135.0|43 -2.0|44 1.0|45 -1|46 -1.0|79 1|49 3") + "-3.0|20 3"},
        {AcGeMatrix3d::mirroring({0, 0, 0}, AcGeVector3d::kXAxis),
         lines("90.0", "1", "135.0|43 -1.0|44 2|45 1.0|46 1|79 1|49 3") + "-3.0|20 3"},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.after);
        ReadDrawing drawing =
            openText(lines("0", "1", "45|43 1|44 2|45 -1|46 1|79 1|49 3") + "3|20 3");
        ASSERT_EQ(transform(drawing, row.map), Acad::eOk);
        EXPECT_EQ(drawing.record(drawing.idOf("A0")), dxf(row.after));
    }
}

TEST(Transforming, DimensionsTakeTheirPlacesAndTheirBlockAlong)
{
    const std::string head = "0 DIMENSION|5 A0|8 0|2 *D1|70 ";
    ReadDrawing drawing = drawingOf(
        {head + "0|10 5|20 5|11 2|21 5|13 0|23 0|14 5|24 0|42 5|3 STANDARD", DxfVersion::r12});
    ASSERT_EQ(
        transform(drawing, AcGeMatrix3d::rotation(std::numbers::pi / 2, AcGeVector3d::kZAxis)),
        Acad::eOk);
    EXPECT_EQ(drawing.record(drawing.idOf("A0")),
              dxf(head + "0|10 -5.0|20 5|11 -5.0|21 2.0|13 0|23 0|14 0.0|24 5.0|42 5|3 STANDARD|50 "
                         "90.0"));
    ASSERT_EQ(transform(drawing, AcGeMatrix3d::scaling(2.0)), Acad::eOk);
    AcDbObjectPointer<AcDbDimension> dimension(drawing.idOf("A0"), AcDb::kForRead);
    EXPECT_EQ(dimension->measurement(), 10.0);
    const host::TagList& tags = dimension->tags();
    EXPECT_TRUE(host::pointAt(tags, tags.find(14)).isEqualTo({0.0, 10.0, 0.0}));
}

// Readable text lies in the mirrored place: the same corners, written the nearer way.
TEST(Transforming, ReadableTextTakesTheMirroredPlace)
{
    const AcGeMatrix3d across = AcGeMatrix3d::mirroring({0, 0, 0}, AcGeVector3d::kXAxis);
    const AcGeMatrix3d over = AcGeMatrix3d::mirroring({0, 0, 0}, AcGeVector3d::kYAxis);
    struct Case {
        std::string angle;
        AcGeMatrix3d map;
        double degrees;
    };
    const Case cases[] = {{"0", across, 0},  {"0", over, 0},     {"30", across, 330},
                          {"30", over, 330}, {"90", across, 90}, {"200", across, 160}};
    const std::string text = "0 TEXT|5 A0" + kIn + "AcDbText|10 1|20 2|30 0|40 2|1 note|50 ";
    const std::string lines =
        "0 MTEXT|5 A0" + kIn + "AcDbMText|10 1|20 2|30 0|40 2|71 1|1 note|50 ";
    const std::string centred = "|72 1|11 3|21 4|31 0|100 AcDbText|73 3";
    for (const Case& row : cases)
        for (const std::string& record :
             {text + row.angle, text + row.angle + centred, lines + row.angle}) {
            SCOPED_TRACE(record);
            ReadDrawing drawing = openText(record);
            const std::vector<Drawn> before = drawnBy(drawing);
            double rotation = 0.0;
            {
                AcDbObjectPointer<AcDbEntity> entity(drawing.idOf("A0"), AcDb::kForWrite);
                ASSERT_EQ(host::transformReadably(*entity, row.map), Acad::eOk);
                const AcDbText* const one = AcDbText::cast(entity.object());
                rotation = one ? one->rotation() : AcDbMText::cast(entity.object())->rotation();
            }
            EXPECT_NEAR(std::remainder(rotation * 180.0 / std::numbers::pi - row.degrees, 360.0),
                        0.0, 1e-9);
            EXPECT_TRUE(sameAll(drawnBy(drawing), mapped(before, row.map), true));
            EXPECT_EQ(drawing.record(drawing.idOf("A0")).find("\n210\n"), std::string::npos);
        }
}

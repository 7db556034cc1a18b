#include "host/db/attribute.h"
#include "host/db/block_reference.h"
#include "host/db/block_table.h"
#include "host/db/face.h"
#include "host/db/hatch.h"
#include "host/db/line.h"
#include "host/db/lwpolyline.h"
#include "host/db/object_pointer.h"
#include "host/db/solid_trace.h"
#include "host/geom/polyline.h"
#include "tests/support/drawing_text.h"

using host::DxfVersion;
using host::test::DrawingText;
using host::test::openText;

namespace {

// All that is drawn, as segments.
class Segments : public host::StrokeSink {
public:
    void polyline(std::span<const AcGePoint3d> points, bool closed) override
    {
        for (std::size_t i = 0; i + 1 < points.size(); ++i)
            all.push_back({points[i], points[i + 1]});
        if (closed || points.size() == 1)
            all.push_back({points.back(), points.front()});
    }
    double chordTolerance() const override { return 1e-4; }

    // A place on these segments that lies on none of the others; empty when all do.
    std::string beside(const Segments& others) const
    {
        for (const auto& [from, to] : all)
            for (const double t : {0.0, 0.21, 0.5, 0.83, 1.0}) {
                const AcGePoint3d place = interpolated(from, to, t);
                double nearest = 1e300;
                for (const auto& [a, b] : others.all)
                    nearest =
                        std::min(nearest, host::closestOnSegment(a, b, place).distanceTo(place));
                if (!(nearest < 4e-3)) // curves are sampled
                    return std::to_string(place.x) + "," + std::to_string(place.y) + "," +
                           std::to_string(place.z);
            }
        return {};
    }

    std::vector<std::pair<AcGePoint3d, AcGePoint3d>> all;
};

// An entity before and after: what it draws, what its parts draw once they stand in model space.
struct Exploded {
    Acad::ErrorStatus status = Acad::eOk;
    std::string kinds; // of the parts, "AcDbLine*2 AcDbArc"
    std::vector<AcDbObjectId> parts;
    Segments before;
    Segments after;
};

Exploded explode(ReadDrawing& drawing, const char* handle = "A0")
{
    Exploded result;
    std::vector<std::unique_ptr<AcDbEntity>> parts;
    {
        const AcDbObjectPointer<AcDbEntity> whole(drawing.idOf(handle), AcDb::kForRead);
        if (!whole) {
            result.kinds = "nothing to explode";
            return result;
        }
        whole->strokes(result.before);
        result.status = whole->explode(parts);
    }
    std::vector<std::pair<std::string, int>> kinds;
    const AcDbObjectPointer<AcDbBlockTableRecord> space(drawing.database().modelSpaceId(),
                                                        AcDb::kForWrite);
    for (std::unique_ptr<AcDbEntity>& part : parts) {
        const std::string kind = host::toUtf8(part->isA()->name());
        if (kinds.empty() || kinds.back().first != kind)
            kinds.push_back({kind, 0});
        ++kinds.back().second;
        AcDbObjectPointer<AcDbEntity> entity;
        entity.acquire(part.release());
        AcDbObjectId id;
        EXPECT_EQ(space->appendAcDbEntity(id, entity.object()), Acad::eOk);
        entity->strokes(result.after);
        result.parts.push_back(id);
    }
    for (const auto& [kind, count] : kinds)
        result.kinds += (result.kinds.empty() ? "" : " ") + kind +
                        (count > 1 ? "*" + std::to_string(count) : "");
    return result;
}

const std::string kIn = "|100 AcDbEntity|8 0|100 ";
const std::string kTilted = "|210 0.48|220 -0.6|230 0.64";

struct Case {
    std::string_view name;
    std::string entity; // of handle A0
    std::string kinds;
    DxfVersion version = DxfVersion::r2018;
};

const std::string kOldMesh = "|0 VERTEX|5 A1|8 0|10 0|20 0|30 0|70 64|0 VERTEX|5 A2|8 0|10 5|20 "
                             "0|30 1|70 64|0 VERTEX|5 A3|8 0|10 0|20 4|30 2|70 64|0 VERTEX|5 A4|8 "
                             "0|10 6|20 5|30 3|70 64|0 VERTEX|5 A5|8 0|10 1|20 9|30 3|70 64|0 "
                             "VERTEX|5 A6|8 0|10 7|20 9|30 3|70 64|0 SEQEND|5 A7|8 0";
const std::string kSolidHatch =
    "0 HATCH|5 A0" + kIn +
    "AcDbHatch|10 0|20 0|30 0|210 0|220 0|230 1|2 SOLID|70 1|71 0|91 1|92 2|72 0|73 1|93 3|10 0|20 "
    "0|10 8|20 0|10 8|20 8|97 0|75 0|76 1|98 0";

std::vector<Case> entities()
{
    const std::string path = "AcDbPolyline|90 4|70 1|38 2|43 1|10 0|20 0|42 0.5|10 4|20 0|10 4|20 "
                             "3|42 -1|10 0|20 5";
    return {
        {"lines and arcs", "0 LWPOLYLINE|5 A0" + kIn + path, "AcDbArc AcDbLine AcDbArc AcDbLine"},
        {"tilted and thick", "0 LWPOLYLINE|5 A0" + kIn + path + "|39 3" + kTilted,
         "AcDbArc AcDbLine AcDbArc AcDbLine"},
        {"a ring",
         "0 LWPOLYLINE|5 A0" + kIn + "AcDbPolyline|90 2|70 1|10 0|20 0|42 1|10 4|20 0|42 1",
         "AcDbArc*2"},
        {"points that coincide",
         "0 LWPOLYLINE|5 A0" + kIn + "AcDbPolyline|90 3|70 0|10 0|20 0|10 0|20 0|10 4|20 0",
         "AcDbLine"},
        {"old polyline",
         "0 POLYLINE|5 A0|8 0|66 1|10 0|20 0|30 5|70 0|0 VERTEX|5 A1|8 0|10 0|20 0|30 5|42 0.3|0 "
         "VERTEX|5 A2|8 0|10 4|20 1|30 5|0 VERTEX|5 A3|8 0|10 2|20 6|30 5|0 SEQEND|5 A4|8 0",
         "AcDbArc AcDbLine", DxfVersion::r12},
        {"in space",
         "0 POLYLINE|5 A0|8 0|66 1|70 9|0 VERTEX|5 A1|8 0|10 0|20 0|30 1|70 32|0 VERTEX|5 A2|8 "
         "0|10 4|20 4|30 2|70 32|0 VERTEX|5 A3|8 0|10 9|20 4|30 2|70 32|0 SEQEND|5 A4|8 0",
         "AcDbLine*3", DxfVersion::r12},
        {"grid", "0 POLYLINE|5 A0|8 0|66 1|70 16|71 3|72 2" + kOldMesh, "AcDbFace*2",
         DxfVersion::r12},
        {"closed grid", "0 POLYLINE|5 A0|8 0|66 1|70 17|71 3|72 2" + kOldMesh, "AcDbFace*3",
         DxfVersion::r12},
        {"faces with an edge that is not drawn, a line and a point",
         "0 POLYLINE|5 A0|8 0|66 1|70 64|71 4|72 3|0 VERTEX|5 A1|8 0|10 0|20 0|70 192|0 VERTEX|5 "
         "A2|8 0|10 5|20 0|70 192|0 VERTEX|5 A3|8 0|10 5|20 4|30 1|70 192|0 VERTEX|5 A4|8 0|10 "
         "0|20 4|70 192|0 VERTEX|5 A5|8 0|10 0|20 0|70 128|71 1|72 -2|73 3|74 4|0 VERTEX|5 A6|8 "
         "0|10 0|20 0|70 128|71 1|72 2|73 -3|0 VERTEX|5 A7|8 0|10 0|20 0|70 128|71 1|72 3|0 "
         "SEQEND|5 A8|8 0",
         "AcDbFace*2 AcDbLine", DxfVersion::r12},
        {"mesh of a triangle and a hexagon",
         "0 MESH|5 A0" + kIn +
             "AcDbSubDMesh|71 2|72 0|91 0|92 7|10 0|20 0|30 0|10 4|20 0|30 1|10 6|20 3|30 2|10 "
             "4|20 6|30 1|10 0|20 6|30 0|10 -2|20 3|30 0|10 1|20 1|30 9|93 11|90 6|90 0|90 1|90 "
             "2|90 3|90 4|90 5|90 3|90 0|90 1|90 6|94 0|95 0|90 0",
         "AcDbFace*3"},
        {"pattern",
         "0 HATCH|5 A0" + kIn + "AcDbHatch|10 0|20 0|30 5" + kTilted +
             "|2 ANSI31|70 0|71 0|91 1|92 2|72 0|73 1|93 4|10 0|20 0|10 8|20 0|10 8|20 8|10 0|20 "
             "8|97 0|75 0|76 1|52 0|41 1|77 0|78 1|53 0|43 0|44 1|45 0|46 2|79 2|49 3|49 -1|98 0",
         "AcDbLine*8"},
        {"several lines of text",
         "0 MTEXT|5 A0" + kIn + "AcDbMText|10 1|20 2|30 0|40 2|41 9|71 5|1 two words\\Pthree|50 30",
         "AcDbText*3"},
        {"text of the other side",
         "0 MTEXT|5 A0" + kIn +
             "AcDbMText|10 1|20 2|30 0|40 2|71 7|1 note|210 0|220 0|230 -1|11 0|21 1|31 0",
         "AcDbText"},
        {"leader",
         "0 LEADER|5 A0" + kIn +
             "AcDbLeader|3 Standard|71 0|72 0|73 3|76 3|10 0|20 0|30 0|10 4|20 4|30 0|10 6|20 4|30 "
             "1",
         "AcDbLine*2"},
        {"splined leader",
         "0 LEADER|5 A0" + kIn +
             "AcDbLeader|3 Standard|71 0|72 1|73 3|76 3|10 0|20 0|30 0|10 4|20 4|30 0|10 6|20 4|30 "
             "1",
         "AcDbSpline"},
        {"multileader",
         "0 MULTILEADER|5 A0" + kIn +
             "AcDbMLeader|270 2|300 CONTEXT_DATA{|40 1|10 8|20 5|30 0|41 2|290 1|304 "
             "note\\Pmore|11 0|21 0|31 1|12 9|22 6|32 0|13 0.8|23 0.6|33 0|42 0|43 0|302 "
             "LEADER{|290 1|291 1|10 8|20 5|30 0|11 1|21 0|31 0|90 0|40 0.5|304 LEADER_LINE{|10 "
             "0|20 0|30 0|10 4|20 5|30 0|91 0|305 }|271 0|303 }|301 }|45 1",
         "AcDbLine*3 AcDbMText"},
        {"multiline",
         "0 MLINE|5 A0" + kIn +
             "AcDbMline|2 STANDARD|340 0|40 1|70 1|71 1|72 2|73 2|10 0|20 0|30 0|210 0|220 0|230 "
             "1|11 0|21 0|31 0|12 1|22 0|32 0|13 0|23 1|33 0|74 2|41 0.5|41 0|75 0|74 2|41 "
             "-0.25|41 0|75 0|11 6|21 0|31 0|12 1|22 0|32 0|13 0|23 1|33 0|74 2|41 0.5|41 0|75 "
             "0|74 2|41 -0.25|41 0|75 0",
         "AcDbLine*2"},
    };
}

// Blocks of R12: B holds one of much, from its base point (1, 1), and a reference to INNER.
const std::string kInnerBlock = "0 BLOCK|8 0|2 INNER|70 2|10 0|20 0|0 LINE|8 0|10 0|20 0|11 2|21 "
                                "1|0 ENDBLK|8 0|";
const std::string kBlock =
    kInnerBlock +
    "0 BLOCK|8 0|2 B|70 2|10 1|20 1|0 LINE|8 0|10 1|20 1|11 3|21 1|0 CIRCLE|8 0|10 4|20 2|40 1|0 "
    "ARC|8 0|10 4|20 2|40 2|50 300|51 45|0 TEXT|8 0|10 2|20 3|40 1|1 words|50 20|0 POLYLINE|8 "
    "0|66 1|70 0|0 VERTEX|8 0|10 1|20 5|42 0.4|0 VERTEX|8 0|10 3|20 6|0 VERTEX|8 0|10 4|20 9|0 "
    "SEQEND|8 0|0 POLYLINE|8 0|66 1|70 8|0 VERTEX|8 0|10 0|20 0|30 1|70 32|0 VERTEX|8 0|10 4|20 "
    "4|30 2|70 32|0 SEQEND|8 0|0 INSERT|8 0|66 1|2 INNER|10 2|20 2|50 90|0 ATTRIB|8 0|10 3|20 "
    "3|40 1|1 mine|2 TAG|70 0|0 SEQEND|8 0|0 ENDBLK|8 0";

ReadDrawing withReference(const std::string& fields)
{
    return ReadDrawing(DrawingText{.version = DxfVersion::r12,
                                   .blocks = kBlock,
                                   .entities = "0 INSERT|5 A0|8 0|2 B|10 10|20 2|30 1" + fields}
                           .text());
}

} // namespace

TEST(Explode, PartsDrawWhatTheWholeDrew)
{
    for (const Case& row : entities()) {
        SCOPED_TRACE(row.name);
        ReadDrawing drawing = openText(row.entity, row.version);
        const Exploded exploded = explode(drawing);
        EXPECT_EQ(exploded.status, Acad::eOk);
        EXPECT_EQ(exploded.kinds, row.kinds);
        EXPECT_FALSE(exploded.before.all.empty());
        EXPECT_EQ(exploded.before.beside(exploded.after), "") << "lost";
        EXPECT_EQ(exploded.after.beside(exploded.before), "") << "added";
    }
}

TEST(Explode, BlockReferencesFallApartUnderEveryMap)
{
    const std::string similar =
        "AcDbLine AcDbCircle AcDbArc AcDbText AcDb2dPolyline AcDb3dPolyline "
        "AcDbBlockReference";
    const std::string stretched = "AcDbLine AcDbEllipse*2 AcDbText AcDbEllipse AcDbLine "
                                  "AcDb3dPolyline AcDbBlockReference";
    const std::pair<std::string, std::string> cases[] = {
        {"", similar},
        {"|41 2|42 2|43 2|50 30", similar},
        {"|41 -2|42 2|43 2|50 30", similar},
        {"|41 2|42 2|43 2" + kTilted, similar},
        {"|41 2|42 3|43 1|50 30", stretched},
        {"|41 -2|42 0.5|43 1" + kTilted, stretched},
    };
    for (const auto& [fields, kinds] : cases) {
        SCOPED_TRACE(fields);
        ReadDrawing drawing = withReference(fields);
        const Exploded exploded = explode(drawing);
        EXPECT_EQ(exploded.status, Acad::eOk);
        EXPECT_EQ(exploded.kinds, kinds);
        EXPECT_EQ(exploded.before.beside(exploded.after), "") << "lost";
        EXPECT_EQ(exploded.after.beside(exploded.before), "") << "added";
    }
}

TEST(Explode, FilledAreasAndPolylinesFollowAnyMap)
{
    const std::string head = "|330 50|100 AcDbEntity|8 0|100 ";
    const std::string tables = "0 TABLE|2 BLOCK_RECORD|5 1|330 0|100 AcDbSymbolTable|70 1|0 "
                               "BLOCK_RECORD|5 50|330 1|100 AcDbSymbolTableRecord|100 "
                               "AcDbBlockTableRecord|2 B|0 ENDTAB";
    const std::string filled = "AcDbHatch|10 0|20 0|30 1|210 0|220 0|230 1|2 SOLID|70 1|71 0|91 1|";
    const std::string rest = "|97 0|75 0|76 1|98 0";
    const std::pair<std::string, std::string> cases[] = {
        {"0 HATCH|5 A2" + head + filled + "92 2|72 0|73 1|93 3|10 0|20 0|10 8|20 0|10 8|20 8" +
             rest,
         "AcDbHatch"},
        {"0 HATCH|5 A2" + head + filled +
             "92 2|72 1|73 1|93 3|10 0|20 0|42 0.5|10 8|20 0|42 0|10 8|20 8|42 -0.3" + rest,
         "AcDbHatch"},
        {"0 HATCH|5 A2" + head + filled +
             "92 1|93 3|72 1|10 -5|20 0|11 5|21 0|72 2|10 0|20 0|40 5|50 0|51 90|73 1|72 3|10 "
             "0|20 0|11 0|21 5|40 1|50 0|51 90|73 1" +
             rest,
         "AcDbHatch"},
        {"0 HATCH|5 A2" + head + filled +
             "92 1|93 1|72 3|10 1|20 2|11 1|21 1|40 0.5|50 0|51 360|73 "
             "0" +
             rest,
         "AcDbHatch"},
        {"0 SOLID|5 A2" + head +
             "AcDbTrace|10 0|20 0|30 1|11 4|21 0|31 1|12 0|22 4|32 1|13 5|23 4|33 1",
         "AcDbSolid"},
        {"0 LWPOLYLINE|5 A2" + head + "AcDbPolyline|90 3|70 1|38 2|10 0|20 0|10 4|20 0|10 4|20 3",
         "AcDbPolyline"},
        {"0 LWPOLYLINE|5 A2" + head + "AcDbPolyline|90 2|70 0|38 2|10 0|20 0|42 1|10 4|20 0",
         "AcDbEllipse"},
    };
    for (const auto& [entity, kind] : cases)
        for (const std::string& turn : {std::string(), kTilted}) {
            SCOPED_TRACE(entity + turn);
            ReadDrawing drawing(DrawingText{
                .version = DxfVersion::r2018,
                .tables = tables,
                .blocks = "0 BLOCK|5 51|330 50|100 AcDbEntity|8 0|100 AcDbBlockBegin|2 "
                          "B|70 0|10 0|20 0|30 0|3 B|1 |" +
                          entity + "|0 ENDBLK|5 52|330 50|100 AcDbEntity|8 0|100 AcDbBlockEnd",
                .entities = "0 INSERT|5 A0" + kIn +
                            "AcDbBlockReference|2 B|10 10|20 0|30 0|41 2|42 -0.5|43 "
                            "1|50 30" +
                            turn}
                                    .text());
            const Exploded exploded = explode(drawing);
            EXPECT_EQ(exploded.kinds, kind);
            EXPECT_EQ(exploded.before.beside(exploded.after), "") << "lost";
            EXPECT_EQ(exploded.after.beside(exploded.before), "") << "added";
        }
}

TEST(Explode, WhatIsSimpleOrNotUnderstoodStaysWhole)
{
    const std::string cases[] = {
        "0 LINE|5 A0" + kIn + "AcDbLine|10 0|20 0|30 0|11 4|21 0|31 0",
        "0 CIRCLE|5 A0" + kIn + "AcDbCircle|10 0|20 0|30 0|40 2",
        kSolidHatch,
        "0 3DSOLID|5 A0" + kIn + "AcDbModelerGeometry|70 1",
        "0 REGION|5 A0" + kIn + "AcDbModelerGeometry|70 1",
        "0 INSERT|5 A0" + kIn + "AcDbBlockReference|2 NONE|10 0|20 0|30 0",
        "0 LWPOLYLINE|5 A0" + kIn + "AcDbPolyline|90 1|70 0|10 0|20 0",
        "0 DIMENSION|5 A0" + kIn +
            "AcDbDimension|2 *D9|10 0|20 0|30 0|70 0|100 AcDbAlignedDimension",
    };
    for (const std::string& entity : cases) {
        SCOPED_TRACE(entity);
        ReadDrawing drawing = openText(entity);
        EXPECT_NE(explode(drawing).status, Acad::eOk);
        EXPECT_EQ(explode(drawing).kinds, "");
    }
    for (const char* const foreign : {"0 WEIRD|8 0|10 1", "0 ACAD_PROXY_ENTITY|8 0|90 498"}) {
        ReadDrawing drawing(
            DrawingText{.version = DxfVersion::r12,
                        .blocks = "0 BLOCK|8 0|2 B|70 0|10 0|20 0|0 LINE|8 0|10 0|20 0|11 1|21 0|" +
                                  std::string(foreign) + "|0 ENDBLK|8 0",
                        .entities = "0 INSERT|5 A0|8 0|2 B|10 10|20 0"}
                .text());
        EXPECT_NE(explode(drawing).status, Acad::eOk);
        EXPECT_EQ(explode(drawing).kinds, "") << "in whole or not at all";
    }
    ReadDrawing array = withReference("|70 2|71 2|44 5|45 5");
    EXPECT_EQ(explode(array).status, Acad::eNotApplicable);
}

TEST(Explode, PartsHaveThePropertiesOfTheWhole)
{
    ReadDrawing drawing = openText("0 LWPOLYLINE|5 A0|330 1F|100 AcDbEntity|67 1|8 Walls|6 "
                                   "DASHED|62 5|420 11259375|440 33554559|48 2.5|60 1|370 50|100 "
                                   "AcDbPolyline|90 2|70 0|10 0|20 0|10 4|20 0");
    const Exploded exploded = explode(drawing);
    ASSERT_EQ(exploded.kinds, "AcDbLine");
    const std::string record = drawing.record(exploded.parts[0]);
    EXPECT_NE(record.find("100\nAcDbEntity\n8\nWalls\n6\nDASHED\n62\n5\n420\n11259375\n440\n"
                          "33554559\n48\n2.5\n60\n1\n370\n50\n100\nAcDbLine\n"),
              std::string::npos)
        << record;
}

TEST(Explode, BlocksOfMultileadersBecomeReferences)
{
    const std::string leader =
        "0 MULTILEADER|5 A0" + kIn +
        "AcDbMLeader|270 2|300 CONTEXT_DATA{|40 1|10 8|20 5|30 0|41 2|290 0|296 1|341 50|14 0|24 "
        "0|34 1|15 9|25 6|35 0|16 2|26 2|36 2|46 0.5|302 LEADER{|290 1|291 1|10 8|20 5|30 0|11 "
        "1|21 0|31 0|90 0|40 0.5|304 LEADER_LINE{|10 0|20 0|30 0|91 0|305 }|271 0|303 }|301 }|341 "
        "0";
    const auto drawingOf = [&](const std::string& more) {
        return DrawingText{
            .version = DxfVersion::r2018,
            .tables = "0 TABLE|2 BLOCK_RECORD|5 1|330 0|100 AcDbSymbolTable|70 1|0 BLOCK_RECORD|5 "
                      "50|330 1|100 AcDbSymbolTableRecord|100 AcDbBlockTableRecord|2 B|0 ENDTAB",
            .blocks = "0 BLOCK|5 51|330 50|100 AcDbEntity|8 0|100 AcDbBlockBegin|2 B|70 0|10 0|20 "
                      "0|30 0|3 B|1 |0 ENDBLK|5 52|330 50|100 AcDbEntity|8 0|100 AcDbBlockEnd",
            .entities = leader + more}
            .text();
    };
    ReadDrawing drawing(drawingOf(""));
    const Exploded exploded = explode(drawing);
    ASSERT_EQ(exploded.kinds, "AcDbLine*2 AcDbBlockReference");
    const AcDbObjectPointer<AcDbBlockReference> reference(exploded.parts[2], AcDb::kForRead);
    EXPECT_EQ(reference->blockName(), L"B");
    EXPECT_TRUE(reference->position().isEqualTo({9.0, 6.0, 0.0}));
    EXPECT_EQ(reference->scaleFactors(), AcGeScale3d(2.0));
    EXPECT_DOUBLE_EQ(reference->rotation(), 0.5);
    ReadDrawing lettered(drawingOf("|330 60|177 0|44 0|302 text"));
    EXPECT_EQ(explode(lettered).status, Acad::eNotApplicable);
}

TEST(Explode, LeadersShowTheirArrowheadWhereThereIsRoom)
{
    const std::string head =
        "0 LEADER|5 A0" + kIn + "AcDbLeader|3 Standard|71 1|72 0|73 3|76 2|10 0|20 0|30 0|";
    ReadDrawing drawing = openText(head + "10 4|20 0|30 0");
    const Exploded exploded = explode(drawing);
    ASSERT_EQ(exploded.kinds, "AcDbLine AcDbSolid");
    const AcDbObjectPointer<AcDbSolid> arrow(exploded.parts[1], AcDb::kForRead);
    EXPECT_TRUE(arrow->getPointAt(0).isEqualTo({0.0, 0.0, 0.0}));
    EXPECT_TRUE(arrow->getPointAt(1).isEqualTo({0.18, -0.03, 0.0}));
    EXPECT_TRUE(arrow->getPointAt(2).isEqualTo({0.18, 0.03, 0.0}));
    ReadDrawing shorter = openText(head + "10 0.3|20 0|30 0");
    EXPECT_EQ(explode(shorter).kinds, "AcDbLine");
}

TEST(Explode, LinesOfAMultilineHaveTheColoursOfItsStyle)
{
    const std::string line =
        "AcDbMline|2 S|340 B1|40 1|70 1|71 1|72 2|73 2|10 0|20 0|30 0|210 0|220 "
        "0|230 1";
    const std::string vertex = "|21 0|31 0|12 1|22 0|32 0|13 0|23 1|33 0|74 2|41 0.5|41 0|75 0|74 "
                               "2|41 -0.25|41 0|75 0";
    ReadDrawing drawing(DrawingText{
        .version = DxfVersion::r2018,
        .entities = "0 MLINE|5 A0|100 AcDbEntity|8 0|62 5|100 " + line + "|11 0" + vertex +
                    "|11 6" + vertex,
        .objects = "0 DICTIONARY|5 C|330 0|100 AcDbDictionary|281 1|3 ACAD_MLINESTYLE|350 B0|0 "
                   "DICTIONARY|5 B0|330 C|100 AcDbDictionary|281 1|3 S|350 B1|0 MLINESTYLE|5 "
                   "B1|330 B0|100 AcDbMlineStyle|2 S|70 0|3 |62 256|51 90|52 90|71 2|49 0.5|62 "
                   "3|6 DASHED|49 -0.25|62 256|6 BYLAYER"}
                            .text());
    const Exploded exploded = explode(drawing);
    ASSERT_EQ(exploded.kinds, "AcDbLine*2");
    const auto look = [&](AcDbObjectId id) {
        const AcDbObjectPointer<AcDbLine> part(id, AcDb::kForRead);
        return std::to_wstring(part->colorIndex()) + L" " + part->linetype();
    };
    EXPECT_EQ(look(exploded.parts[0]), L"3 DASHED");
    EXPECT_EQ(look(exploded.parts[1]), L"5 ByLayer");
}

TEST(Explode, ByBlockStaysInReferencesAndIsResolvedInDimensions)
{
    const std::string contents = "|70 1|10 0|20 0|0 LINE|8 0|62 0|6 BYBLOCK|10 0|20 0|11 1|21 0|0 "
                                 "LINE|8 Own|62 3|10 0|20 0|11 1|21 0|0 ENDBLK|8 0|";
    ReadDrawing drawing(
        DrawingText{.version = DxfVersion::r12,
                    .blocks = "0 BLOCK|8 0|2 *D1" + contents + "0 BLOCK|8 0|2 B" + contents,
                    .entities = "0 DIMENSION|5 A0|8 Dims|62 5|6 DOT|2 *D1|10 5|20 5|11 1|21 2|12 "
                                "1|22 1|70 0|13 0|23 0|14 5|24 0|0 INSERT|5 B0|8 Dims|62 5|2 B|10 "
                                "0|20 0"}
            .text());
    const auto look = [&](AcDbObjectId id) {
        const AcDbObjectPointer<AcDbLine> line(id, AcDb::kForRead);
        return host::toUtf8(line->layer() + L" " + std::to_wstring(line->colorIndex()) + L" " +
                            line->linetype()) +
               " " + std::to_string(static_cast<int>(line->startPoint().x));
    };
    const Exploded dimension = explode(drawing, "A0");
    ASSERT_EQ(dimension.kinds, "AcDbLine*2");
    EXPECT_EQ(look(dimension.parts[0]), "Dims 5 DOT 1");
    EXPECT_EQ(look(dimension.parts[1]), "Own 3 ByLayer 1");
    const Exploded reference = explode(drawing, "B0");
    ASSERT_EQ(reference.kinds, "AcDbLine*2");
    EXPECT_EQ(look(reference.parts[0]).substr(0, 4), "0 0 ");
}

TEST(Explode, AttributesBecomeTheirDefinitions)
{
    ReadDrawing drawing(
        DrawingText{.version = DxfVersion::r12,
                    .blocks = "0 BLOCK|8 0|2 B|70 2|10 0|20 0|0 ATTDEF|8 0|10 1|20 2|40 1|1 none|3 "
                              "Number|2 NO|70 0|0 ENDBLK|8 0",
                    .entities = "0 INSERT|5 A0|8 0|66 1|2 B|10 10|20 0|41 2|42 2|43 2|0 ATTRIB|5 "
                                "A1|8 0|10 12|20 4|40 2|1 7|2 NO|70 0|0 SEQEND|5 A2|8 0"}
            .text());
    const Exploded exploded = explode(drawing);
    ASSERT_EQ(exploded.kinds, "AcDbAttributeDefinition");
    const AcDbObjectPointer<AcDbAttributeDefinition> one(exploded.parts[0], AcDb::kForRead);
    EXPECT_EQ(one->tag() + L"=" + one->textString(), L"NO=none");
    EXPECT_EQ(one->height(), 2.0);
    EXPECT_EQ(one->position(), AcGePoint3d(12.0, 4.0, 0.0));
}

TEST(Explode, CopiesKeepTheirChildrenAndLetGoOfTheBlock)
{
    ReadDrawing drawing = withReference("");
    const Exploded exploded = explode(drawing);
    const std::string written = drawing.written();
    ReadDrawing again(written); // vertices, attributes and their ends are in order
    EXPECT_TRUE(again.drawing().warnings.empty());
    ASSERT_EQ(exploded.parts.size(), 7u);
    const std::pair<std::size_t, std::size_t> children[] = {{4, 3}, {5, 2}, {6, 1}};
    for (const auto& [part, count] : children) {
        const AcDbObjectId id = again.idOf(handleText(exploded.parts[part]));
        EXPECT_EQ(again.drawing().children(id.stubNumber()).size(), count);
    }

    ReadDrawing hatched(DrawingText{
        .version = DxfVersion::r2018,
        .tables = "0 TABLE|2 BLOCK_RECORD|5 1|330 0|100 AcDbSymbolTable|70 1|0 BLOCK_RECORD|5 "
                  "50|330 1|100 AcDbSymbolTableRecord|100 AcDbBlockTableRecord|2 B|0 ENDTAB",
        .blocks = "0 BLOCK|5 51|330 50|100 AcDbEntity|8 0|100 AcDbBlockBegin|2 B|70 0|10 0|20 "
                  "0|30 0|3 B|1 |0 HATCH|5 A2|330 50|100 AcDbEntity|8 0|100 AcDbHatch|10 0|20 "
                  "0|30 0|210 0|220 0|230 1|2 SOLID|70 1|71 1|91 1|92 2|72 0|73 1|93 3|10 0|20 "
                  "0|10 8|20 0|10 8|20 8|97 1|330 A3|75 0|76 1|98 0|0 CIRCLE|5 A3|330 50|100 "
                  "AcDbEntity|8 0|100 AcDbCircle|10 0|20 0|30 0|40 1|0 ENDBLK|5 52|330 50|100 "
                  "AcDbEntity|8 0|100 AcDbBlockEnd",
        .entities = "0 INSERT|5 A0" + kIn + "AcDbBlockReference|2 B|10 10|20 0|30 0"}
                            .text());
    const Exploded parts = explode(hatched);
    ASSERT_EQ(parts.kinds, "AcDbHatch AcDbCircle");
    const AcDbObjectPointer<AcDbHatch> hatch(parts.parts[0], AcDb::kForRead);
    EXPECT_FALSE(hatch->associative());
    EXPECT_TRUE(hatch->getAssocObjIds().empty());
}

TEST(Explode, PolygonsOfRingsGiveTheirRingsAndTheFilling)
{
    const std::string rings =
        "AcDbMPolygon|70 1|10 0|20 0|30 2|210 0|220 0|230 1|2 %|71 $|91 1|92 2|72 1|73 1|93 3|10 "
        "0|20 0|42 0|10 8|20 0|42 1|10 8|20 8|42 0|97 0|75 0|76 1|";
    const auto polygon = [&](const char* pattern, const char* solid, const std::string& rest) {
        std::string text = "0 MPOLYGON|5 A0" + kIn + rings + rest;
        text.replace(text.find('%'), 1, pattern);
        return text.replace(text.find('$'), 1, solid);
    };
    ReadDrawing solid = openText(polygon("SOLID", "1", "63 3|11 0|21 0|99 0"));
    const Exploded filled = explode(solid);
    ASSERT_EQ(filled.kinds, "AcDbPolyline AcDbHatch");
    EXPECT_EQ(AcDbObjectPointer<AcDbPolyline>(filled.parts[0], AcDb::kForRead)->elevation(), 2.0);
    {
        const AcDbObjectPointer<AcDbHatch> hatch(filled.parts[1], AcDb::kForRead);
        EXPECT_TRUE(hatch->isSolidFill());
        EXPECT_EQ(hatch->colorIndex(), 3);
    }
    EXPECT_EQ(filled.before.beside(filled.after), "");
    EXPECT_EQ(filled.after.beside(filled.before), "");

    ReadDrawing lined =
        openText(polygon("LINES", "0",
                         "52 30|41 2|77 0|78 1|53 30|43 1|44 1|45 -1|46 1.7320508|79 0|63 "
                         "256|11 0|21 0|99 0"));
    const Exploded pattern = explode(lined);
    ASSERT_EQ(pattern.kinds, "AcDbPolyline AcDbHatch");
    EXPECT_EQ(pattern.before.beside(pattern.after), "");
}

#include "templates/object_from_entity.h"

#include "templates/object_writer.h"
#include "tests/support/opened_drawing.h"
#include "tests/templates/look_drawing.h"

#include <algorithm>

namespace {

class ObjectFromEntityTest : public DrawingTest {
protected:
    GraphicProps propsOf(const std::string& handle)
    {
        const AcDbObjectPointer<AcDbEntity> entity(idOf(handle), AcDb::kForRead);
        GraphicProps props;
        props.meshMode.mode = kOneValue; // of an object before
        if (entity)
            ObjectFromEntity(props, *entity);
        return props;
    }
    // The lines of properties from `first` on, without their beginning; "|" for a tab.
    std::wstring linesOf(const std::string& handle, const wchar_t* first)
    {
        std::wstring text;
        WriteObject(propsOf(handle), text);
        text.erase(0, std::min(text.find(std::wstring(L"\t\tobj_prop\t") + first), text.size()));
        const std::wstring begin = L"\t\tobj_prop\t";
        for (std::size_t at = text.find(begin); at != text.npos; at = text.find(begin))
            text.erase(at, begin.size());
        std::replace(text.begin(), text.end(), L'\t', L'|');
        return text;
    }
};

} // namespace

TEST_F(ObjectFromEntityTest, WhatEveryEntityTells)
{
    DxfDrawing drawing;
    look::addResources(drawing);
    const std::pair<std::string, const wchar_t*> cases[] = {
        {drawing.line("0"), L"color|ByLayer\nlayer|0\nlinetype|ByLayer\nlinetypeScale|1.0000\n"
                            L"lineWeight|ByLayer\n"},
        {drawing.line("Walls", "6\nDashed\n62\n0\n48\n2.5\n370\n-2\n"),
         L"color|ByBlock\nlayer|Walls\nlinetype|Dashed\nlinetypeScale|2.5000\n"
         L"lineWeight|ByBlock\n"},
        {drawing.line("Walls", "62\n12\n370\n-3\n"),
         L"color|12\nlayer|Walls\nlinetype|ByLayer\nlinetypeScale|1.0000\nlineWeight|Default\n"},
        {drawing.line("Walls", "62\n12\n420\n16711935\n370\n25\n"),
         L"color|(255 0 255)\nlayer|Walls\nlinetype|ByLayer\nlinetypeScale|1.0000\n"
         L"lineWeight|25\n"},
    };
    open(drawing);
    for (const auto& [handle, lines] : cases)
        EXPECT_EQ(linesOf(handle, L"color"), lines);

    const GraphicProps props = propsOf(cases[1].first);
    EXPECT_EQ(props.types, std::vector<std::wstring>{L"Line"});
    EXPECT_EQ(props.layer, (PropConstraint<std::wstring>{kOneValue, L"Walls", {}}));
    EXPECT_FALSE(props.meshMode.isGiven());
    EXPECT_FALSE(props.closed.isGiven());
    EXPECT_TRUE(props.name.empty() && props.tables.empty());
}

TEST_F(ObjectFromEntityTest, WhatEachClassTells)
{
    using namespace look;
    struct Case {
        const char* name;
        const char* type;
        const char* marker;
        std::string body;
        const wchar_t* first;
        const wchar_t* lines;
    };
    const Case cases[] = {
        {"a circle has no radius of its own", "CIRCLE", "AcDbCircle", origin + "40\n5.0\n",
         L"circle", L"circleMode|Center\n"},
        {"an ellipse no mode", "ELLIPSE", "AcDbEllipse",
         origin + "11\n1.0\n21\n0.0\n31\n0.0\n40\n0.5\n41\n0.0\n42\n3.0\n", L"ellipseMode", L""},
        {"3D polyline", "POLYLINE", "AcDb3dPolyline",
         "66\n1\n" + origin + "70\n9\n0\nSEQEND\n5\nF30\n100\nAcDbEntity\n8\n0\n", L"closed",
         L"closed|1\n"},
        {"polyline without its elevation", "LWPOLYLINE", "AcDbPolyline",
         path("1", "43\n0.5\n") + "10\n0.0\n20\n0.0\n10\n1.0\n20\n0.0\n", L"closed",
         L"closed|1\nconstantWidth|0.5000\n"},
        {"a tapered one has no width", "LWPOLYLINE", "AcDbPolyline",
         "90\n2\n70\n0\n10\n0.0\n20\n0.0\n40\n0.5\n41\n1.5\n10\n1.0\n20\n0.0\n", L"closed",
         L"closed|0\n"},
        {"spline", "SPLINE", "AcDbSpline", "70\n8\n71\n3\n72\n0\n73\n0\n74\n0\n", L"closed",
         L"closed|0\n"},
        {"reference in its block's units", "INSERT", "AcDbBlockReference",
         reference("Door", "0.002", "0.002", "30.0"), L"blockName",
         L"blockName|Door\nrotate|1\nblockScale|2.0000\n"},
        {"not rotated", "INSERT", "AcDbBlockReference", reference("Door", "0.001", "0.003", "0.0"),
         L"blockName", L"blockName|Door\nblockScale|(1.0000 1.0000 3.0000)\n"},
        // 0.005 degrees are 0.00009 radians, less than the fourth decimal
        {"hardly rotated", "INSERT", "AcDbBlockReference",
         reference("Door", "0.001", "0.001", "0.005"), L"blockName",
         L"blockName|Door\nblockScale|1.0000\n"},
        {"text without its contents", "TEXT", "AcDbText", text("2.5", "90.0"), L"rotate",
         L"rotate|1\ntextHeight|2.5000\ntextJustification|TopCenter\ntextStyle|Notes\n"},
        {"level text", "TEXT", "AcDbText", text("2.5", "0.0"), L"textHeight",
         L"textHeight|2.5000\ntextJustification|TopCenter\ntextStyle|Notes\n"},
        {"paragraphs", "MTEXT", "AcDbMText",
         origin + "40\n3.0\n41\n0.0\n71\n5\n72\n1\n1\nNorth\n7\nNotes\n11\n0.0\n21\n1.0\n31\n0.0\n",
         L"rotate",
         L"rotate|1\nmtextAttachmentPoint|MiddleCenter\ntextHeight|3.0000\ntextStyle|Notes\n"},
        {"hatch without background", "HATCH", "AcDbHatch",
         hatch("ANSI31", "45.0") + "1001\nHATCHBACKGROUNDCOLOR\n1071\n-1023410173\n", L"pattern",
         L"pattern|ANSI31\npatternAngle|45.0000\npatternScale|2.0000\n"},
        {"polygon without pattern colour", "MPOLYGON", "AcDbMPolygon",
         "70\n1\n" + origin +
             "210\n0.0\n220\n0.0\n230\n1.0\n2\nANSI31\n71\n0\n91\n0\n76\n1\n52\n30.0\n41\n4.0\n"
             "77\n0\n78\n0\n63\n5\n11\n0.0\n21\n0.0\n99\n0\n",
         L"pattern", L"pattern|ANSI31\npatternAngle|30.0000\npatternScale|4.0000\n"},
        {"dimension", "DIMENSION", "AcDbDimension",
         origin + "70\n0\n3\nSurvey\n100\nAcDbAlignedDimension\n13\n0.0\n23\n0.0\n33\n0.0\n14\n"
                  "1.0\n24\n0.0\n34\n0.0\n50\n0.0\n100\nAcDbRotatedDimension\n",
         L"dimensionMode", L"dimensionMode|Linear\ndimensionStyle|Survey\n"},
        {"multiline", "MLINE", "AcDbMline",
         "2\nSTANDARD\n340\nF18\n40\n20.0\n70\n2\n71\n3\n72\n2\n73\n2\n" + origin +
             "210\n0.0\n220\n0.0\n230\n1.0\n",
         L"closed",
         L"closed|1\nmlineJustification|Bottom\nmlineScale|20.0000\nmlineStyle|Standard\n"},
    };
    DxfDrawing drawing;
    addResources(drawing);
    std::vector<std::string> handles;
    for (const Case& row : cases)
        handles.push_back(drawing.entity(row.type, row.marker, row.body));
    open(drawing);
    for (std::size_t at = 0; at < handles.size(); ++at) {
        SCOPED_TRACE(cases[at].name);
        EXPECT_EQ(linesOf(handles[at], cases[at].first), cases[at].lines);
    }
}

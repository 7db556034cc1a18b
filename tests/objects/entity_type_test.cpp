#include "objects/entity_type.h"

#include "tests/support/opened_drawing.h"

namespace {

class EntityTypeTest : public DrawingTest {
protected:
    std::wstring typeOf(const std::string& handle)
    {
        const AcDbObjectPointer<AcDbEntity> entity(idOf(handle), AcDb::kForRead);
        return entity ? entityTypeName(*entity) : L"not opened";
    }
};

constexpr const char* kPoint = "10\n1.0\n20\n2.0\n30\n0.0\n";

} // namespace

TEST_F(EntityTypeTest, ExactClassesHaveWords)
{
    const std::tuple<const char*, const char*, std::string, const wchar_t*> cases[] = {
        {"3DFACE", "AcDbFace", kPoint, L"3DFace"},
        {"3DSOLID", "AcDbModelerGeometry", "70\n1\n100\nAcDb3dSolid\n", L"3DSolid"},
        {"ARC", "AcDbCircle", std::string(kPoint) + "40\n1.0\n100\nAcDbArc\n50\n0.0\n51\n90.0\n",
         L"Arc"},
        {"INSERT", "AcDbBlockReference", "2\nDOOR\n" + std::string(kPoint), L"BlockReference"},
        {"CIRCLE", "AcDbCircle", std::string(kPoint) + "40\n1.0\n", L"Circle"},
        {"ELLIPSE", "AcDbEllipse",
         std::string(kPoint) + "11\n1.0\n21\n0.0\n31\n0.0\n40\n0.5\n41\n0.0\n42\n1.0\n",
         L"Ellipse"},
        {"LINE", "AcDbLine", kPoint, L"Line"},
        {"LWPOLYLINE", "AcDbPolyline", "90\n0\n70\n0\n", L"Polyline"},
        {"MTEXT", "AcDbMText", std::string(kPoint) + "40\n1.0\n1\nx\n", L"MText"},
        {"POINT", "AcDbPoint", kPoint, L"Point"},
        {"RAY", "AcDbRay", std::string(kPoint) + "11\n1.0\n21\n0.0\n31\n0.0\n", L"Ray"},
        {"SPLINE", "AcDbSpline", "70\n8\n71\n3\n72\n0\n73\n0\n74\n0\n", L"Spline"},
        {"TEXT", "AcDbText", std::string(kPoint) + "40\n1.0\n1\nx\n100\nAcDbText\n", L"Text"},
        {"XLINE", "AcDbXline", std::string(kPoint) + "11\n1.0\n21\n0.0\n31\n0.0\n", L"Xline"},
        {"MLINE", "AcDbMline", "2\nSTANDARD\n40\n1.0\n70\n0\n71\n1\n72\n0\n73\n2\n", L"Mline"},
        {"HATCH", "AcDbHatch", std::string(kPoint) + "2\nSOLID\n70\n1\n71\n0\n91\n0\n", L"Hatch"},
    };
    DxfDrawing drawing;
    drawing.block("DOOR");
    std::vector<std::string> handles;
    for (const auto& [type, marker, body, word] : cases)
        handles.push_back(drawing.entity(type, marker, body));
    open(drawing);
    for (std::size_t at = 0; at < std::size(cases); ++at)
        EXPECT_EQ(typeOf(handles[at]), std::get<3>(cases[at])) << std::get<0>(cases[at]);
}

TEST_F(EntityTypeTest, EveryKindOfDimensionIsADimension)
{
    DxfDrawing drawing;
    std::vector<std::string> handles;
    const std::pair<int, const char*> kinds[] = {
        {1, "AcDbAlignedDimension"}, {3, "AcDbDiametricDimension"}, {6, "AcDbOrdinateDimension"}};
    for (const auto& [kind, marker] : kinds)
        handles.push_back(drawing.entity("DIMENSION", "AcDbDimension",
                                         "70\n" + std::to_string(kind) + "\n3\nStandard\n100\n" +
                                             marker + "\n13\n0.0\n23\n0.0\n33\n0.0\n"));
    open(drawing);
    for (const std::string& handle : handles)
        EXPECT_EQ(typeOf(handle), L"Dimension");
}

TEST_F(EntityTypeTest, OthersAnswerWithTheirLastMarkerOrTheirDxfName)
{
    DxfDrawing drawing;
    drawing.dxfClass("SURVEYMARK", "SrvMark", true);
    const std::string trace = drawing.entity("TRACE", "AcDbTrace", kPoint);
    const std::string mark =
        drawing.entity("SURVEYMARK", "SrvBase", "90\n1\n100\nSrvMark\n40\n2.0\n");
    const std::string bare = drawing.entity("SURVEYMARK", "", "");
    open(drawing);
    EXPECT_EQ(typeOf(trace), L"AcDbTrace");
    EXPECT_EQ(typeOf(mark), L"SrvMark");
    EXPECT_EQ(typeOf(bare), L"SURVEYMARK");
}

TEST_F(EntityTypeTest, AProxyAnswersWithTheClassItStandsFor)
{
    DxfDrawing drawing;
    drawing.dxfClass("SURVEYMARK", "SrvMark", true);
    const std::string proxy =
        drawing.entity("ACAD_PROXY_ENTITY", "AcDbProxyEntity", "90\n498\n91\n500\n93\n0\n94\n0\n");
    open(drawing);
    EXPECT_EQ(typeOf(proxy), L"SrvMark");
}

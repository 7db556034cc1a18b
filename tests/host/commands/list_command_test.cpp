#include "tests/support/opened_drawing.h"

namespace {

using ListCommand = DrawingTest;

std::string dictionary(const std::string& handle, const std::string& entries)
{
    return "0\nDICTIONARY\n5\n" + handle + "\n330\n0\n100\nAcDbDictionary\n280\n1\n281\n1\n" +
           entries;
}

std::string xrecord(const std::string& handle, const std::string& items)
{
    return "0\nXRECORD\n5\n" + handle + "\n330\n0\n100\nAcDbXrecord\n280\n1\n" + items;
}

std::string extension(const char* handle)
{
    return std::string("102\n{ACAD_XDICTIONARY\n360\n") + handle + "\n102\n}\n";
}

TEST_F(ListCommand, TellsTypeLayerHandleAndProperties)
{
    DxfDrawing drawing;
    drawing.layer("walls");
    drawing.linetype("DASHED");
    drawing.entity("CIRCLE", "AcDbCircle", "10\n1.5\n20\n-2.0\n30\n0.0\n40\n0.25\n", "walls",
                   "6\nDASHED\n62\n1\n48\n2.0\n370\n25\n");
    open(drawing);
    EXPECT_EQ(transcript(L"LIST\nALL\n\n"), L"Command: LIST\n"
                                            L"Select objects: ALL\n"
                                            L"1 found\n"
                                            L"Select objects: \n"
                                            L"CIRCLE              Layer: \"walls\"\n"
                                            L"  Handle = 102\n"
                                            L"  Color: 1 (red)\n"
                                            L"  Linetype: \"DASHED\"\n"
                                            L"  Linetype scale: 2.0\n"
                                            L"  Lineweight: 0.25 mm\n"
                                            L"  Center: 1.5,-2.0,0.0\n"
                                            L"  Radius: 0.25\n"
                                            L"Command: ");
}

TEST_F(ListCommand, TakesThePickFirstSetWithoutAsking)
{
    DxfDrawing drawing;
    drawing.line();
    drawing.circle(1.0);
    open(drawing);
    type(L"PSELECT\n(handent \"101\")\n\nLIST\n");
    const std::wstring told = printed();
    EXPECT_EQ(told.find(L"LINE "), std::wstring::npos);
    EXPECT_NE(told.find(L"LIST\nCIRCLE              Layer: \"0\"\n  Handle = 101\n"),
              std::wstring::npos);
}

TEST_F(ListCommand, NamesTheFieldsThatTheDrawingDefines)
{
    DxfDrawing drawing;
    drawing.line("0", {}, extension("A1"));
    drawing.rootEntry("ODEMUDATA", "B1");
    drawing.object(dictionary("B1", "3\npipe\n360\nB2\n"));
    drawing.object(
        xrecord("B2", "1\nmaterial\n1\n\n1\nbuilt\n90\n0\n1\ndepth\n40\n0.0\n1\nshaft\n10\n0.0\n"
                      "20\n0.0\n30\n0.0\n"));
    drawing.object(dictionary("A1", "3\nPIPE\n360\nA2\n3\nother\n360\nA3\n"));
    drawing.object(xrecord("A2", "1\nclay\n90\n1931\n40\n2.5\n10\n1.0\n20\n2.0\n30\n3.0\n"
                                 "1\nsteel\n90\n-1\n40\n0.1\n10\n4.0\n20\n5.0\n30\n6.0\n"));
    drawing.object(xrecord("A3", "70\n3\n290\n1\n330\n2F\n310\nCAFE\n1\ntext\n"));
    open(drawing);
    const std::wstring told = transcript(L"LIST\nALL\n\n");
    EXPECT_NE(told.find(L"  Record \"PIPE\"\n"
                        L"    material: \"clay\"\n"
                        L"    built: 1931\n"
                        L"    depth: 2.5\n"
                        L"    shaft: 1.0,2.0,3.0\n"
                        L"  Record \"PIPE\"\n"
                        L"    material: \"steel\"\n"
                        L"    built: -1\n"
                        L"    depth: 0.1\n"
                        L"    shaft: 4.0,5.0,6.0\n"
                        L"  Record \"other\"\n"
                        L"    70: 3\n"
                        L"    290: 1\n"
                        L"    330: 2F\n"
                        L"    310: CAFE\n"
                        L"    1: \"text\"\n"
                        L"Command: "),
              std::wstring::npos)
        << std::string(told.begin(), told.end());
}

TEST_F(ListCommand, ShowsCodesWhereTheDefinitionDoesNotFit)
{
    DxfDrawing drawing;
    drawing.line("0", {}, extension("A1"));
    drawing.rootEntry("ODEMUDATA", "B1");
    drawing.object(dictionary("B1", "3\npipe\n360\nB2\n"));
    drawing.object(xrecord("B2", "1\nmaterial\n1\n\n1\nbuilt\n90\n0\n"));
    drawing.object(dictionary("A1", "3\npipe\n360\nA2\n"));
    drawing.object(xrecord("A2", "1\nclay\n90\n1931\n1\nsteel\n"));
    open(drawing);
    EXPECT_NE(transcript(L"LIST\nALL\n\n")
                  .find(L"  Record \"pipe\"\n"
                        L"    1: \"clay\"\n"
                        L"    90: 1931\n"
                        L"    1: \"steel\"\n"),
              std::wstring::npos);
}

TEST_F(ListCommand, DescribesEachClassInItsOwnWords)
{
    const struct {
        const char* type;
        const char* marker;
        const char* body;
        const wchar_t* told;
    } cases[] = {
        {"LINE", "AcDbLine", "10\n0.0\n20\n0.0\n30\n0.0\n11\n3.0\n21\n4.0\n31\n0.0\n",
         L"  From: 0.0,0.0,0.0\n  To: 3.0,4.0,0.0\n  Length: 5.0\n"},
        {"POINT", "AcDbPoint", "10\n7.0\n20\n8.0\n30\n9.0\n39\n2.0\n",
         L"  Position: 7.0,8.0,9.0\n  Thickness: 2.0\n"},
        {"LWPOLYLINE", "AcDbPolyline",
         "90\n2\n70\n1\n43\n0.5\n38\n3.0\n10\n0.0\n20\n0.0\n42\n1.0\n10\n4.0\n20\n0.0\n",
         L"  Closed: yes\n  Elevation: 3.0\n  Constant width: 0.5\n  Vertex: 0.0,0.0, bulge 1.0"},
        {"TEXT", "AcDbText", "10\n1.0\n20\n2.0\n30\n0.0\n40\n2.5\n1\nHello\n50\n45.0\n",
         L"  Text: \"Hello\"\n  Style: \"STANDARD\"\n  Position: 1.0,2.0,0.0\n"
         L"  Justification: Left\n  Height: 2.5\n  Rotation: 45\n"},
        {"INSERT", "AcDbBlockReference",
         "2\ntree\n10\n1.0\n20\n2.0\n30\n0.0\n41\n2.0\n42\n3.0\n43\n4.0\n50\n30.0\n",
         L"  Block: \"tree\"\n  Position: 1.0,2.0,0.0\n  Scale factors: 2.0,3.0,4.0\n"
         L"  Rotation: 30\n"},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.type);
        DxfDrawing drawing;
        drawing.block("tree");
        drawing.entity(row.type, row.marker, row.body);
        open(drawing, std::string(row.type) + ".dxf");
        const std::wstring told = transcript(L"LIST\nALL\n\n");
        EXPECT_NE(told.find(row.told), std::wstring::npos) << std::string(told.begin(), told.end());
    }
}

TEST_F(ListCommand, TellsTheTypeOfWhatItDoesNotUnderstand)
{
    DxfDrawing drawing;
    drawing.dxfClass("ACME_PIPE", "AcmePipe", true);
    drawing.entity("ACME_PIPE", "AcmePipe", "40\n1.0\n");
    open(drawing);
    EXPECT_NE(transcript(L"LIST\nALL\n\n").find(L"ACME_PIPE           Layer: \"0\"\n"),
              std::wstring::npos);
}

} // namespace

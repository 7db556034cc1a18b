#include "host/db/dictionary.h"
#include "host/db/layout.h"
#include "host/db/object_pointer.h"
#include "host/db/proxy_class.h"
#include "host/db/style_objects.h"
#include "tests/support/dxf_drawing.h"
#include "tests/support/read_drawing.h"

namespace {

std::string dictionary(const char* handle, const std::string& entries)
{
    return std::string("0\nDICTIONARY\n5\n") + handle + "\n330\nC\n100\nAcDbDictionary\n" + entries;
}

std::string layout(const char* handle, const char* name, int order, const char* block)
{
    return std::string("0\nLAYOUT\n5\n") + handle +
           "\n330\n400\n100\nAcDbPlotSettings\n1\npage\n2\nplotter\n70\n" +
           (order == 0 ? "1024" : "0") + "\n100\nAcDbLayout\n1\n" + name + "\n70\n1\n71\n" +
           std::to_string(order) + "\n330\n" + block + "\n";
}

TEST(Layout, NamesItsTabAndItsSpace)
{
    DxfDrawing drawing;
    drawing.rootEntry("ACAD_LAYOUT", "400");
    drawing.object(
        dictionary("400", "3\nModel\n350\n401\n3\nSheet\n350\n402\n3\nLost\n350\n403\n"));
    drawing.object(layout("401", "Model", 0, "1F"));
    drawing.object(layout("402", "Sheet", 1, "1B"));
    drawing.object(layout("403", "Lost", 2, "DEAD"));
    ReadDrawing read(drawing.text());
    struct Row {
        const char* handle;
        const wchar_t* name;
        int order;
        bool selected;
        AcDbObjectId block;
    };
    const Row rows[] = {
        {"401", L"Model", 0, true, read.database().modelSpaceId()},
        {"402", L"Sheet", 1, false, read.database().paperSpaceId()},
        {"403", L"Lost", 2, false, {}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.handle);
        AcDbObjectPointer<AcDbLayout> open(read.idOf(row.handle), AcDb::kForRead);
        ASSERT_EQ(open.openStatus(), Acad::eOk);
        EXPECT_EQ(open->getLayoutName(), row.name); // not the page setup's
        EXPECT_EQ(open->getPlotSettingsName(), L"page");
        EXPECT_EQ(open->getTabOrder(), row.order);
        EXPECT_EQ(open->getTabSelected(), row.selected);
        EXPECT_EQ(open->modelType(), row.selected);
        EXPECT_EQ(open->getBlockTableRecordId(), row.block);
    }
}

TEST(StyleObjects, NameIsTheirOwnOrTheirKey)
{
    DxfDrawing drawing;
    drawing.rootEntry("ACAD_MLINESTYLE", "400");
    drawing.rootEntry("ACAD_MLEADERSTYLE", "410");
    drawing.object(dictionary("400", "3\nROAD\n350\n401\n"));
    drawing.object(
        "0\nMLINESTYLE\n5\n401\n330\n400\n100\nAcDbMlineStyle\n2\nRoad\n70\n0\n3\ntwo lanes\n");
    drawing.object(dictionary("410", "3\nOther\n350\n412\n3\nNote\n350\n411\n"));
    drawing.object("0\nMLEADERSTYLE\n5\n411\n330\n410\n100\nAcDbMLeaderStyle\n3\nfor notes\n");
    ReadDrawing read(drawing.text());
    AcDbObjectPointer<AcDbMlineStyle> mline(read.idOf("401"), AcDb::kForRead);
    ASSERT_EQ(mline.openStatus(), Acad::eOk);
    EXPECT_EQ(mline->name(), L"Road");
    EXPECT_EQ(mline->description(), L"two lanes");
    AcDbObjectPointer<AcDbMLeaderStyle> leader(read.idOf("411"), AcDb::kForRead);
    ASSERT_EQ(leader.openStatus(), Acad::eOk);
    EXPECT_EQ(leader->name(), L"Note");
}

TEST(Group, LosesAMemberThatIsErasedAndUndoBringsItBack)
{
    DxfDrawing drawing;
    const std::string inGroup = "102\n{ACAD_REACTORS\n330\n401\n102\n}\n";
    const std::string first = drawing.line("0", "", inGroup);
    const std::string second = drawing.line("0", "", inGroup);
    drawing.rootEntry("ACAD_GROUP", "400");
    drawing.object(dictionary("400", "3\nTrees\n350\n401\n"));
    drawing.object(
        "0\nGROUP\n5\n401\n330\n400\n100\nAcDbGroup\n300\nall trees\n70\n0\n71\n1\n340\n" + first +
        "\n340\n" + second + "\n");
    ReadDrawing read(drawing.text());
    const auto members = [&] {
        AcDbObjectPointer<AcDbGroup> group(read.idOf("401"), AcDb::kForRead);
        EXPECT_EQ(group->name(), L"Trees");
        return group->allEntityIds();
    };
    EXPECT_EQ(members().size(), 2u);
    read.drawing().undo.beginGroup(L"ERASE");
    AcDbObjectPointer<AcDbObject>(read.idOf(first), AcDb::kForWrite)->erase();
    read.drawing().undo.endGroup(read.drawing());
    EXPECT_EQ(members(), std::vector<AcDbObjectId>{read.idOf(second)});
    EXPECT_EQ(read.record(read.idOf("401")).find("340\n" + first), std::string::npos);
    read.drawing().undo.undo(read.drawing());
    EXPECT_EQ(read.written(), drawing.text());
}

TEST(DeclaredClass, IsFoundByNumberAndByName)
{
    DxfDrawing drawing;
    drawing.dxfClass("WELL", "AcWell", true);
    drawing.dxfClass("PUMP", "AcPump", false);
    ReadDrawing read(drawing.text());
    const auto named = [](const std::optional<host::DeclaredClass>& found) {
        return found ? found->className : std::wstring();
    };
    const std::pair<int, const wchar_t*> rows[] = {
        {499, L""}, {500, L"AcWell"}, {501, L"AcPump"}, {502, L""}, {-1, L""}};
    for (const auto& [number, name] : rows)
        EXPECT_EQ(named(host::declaredClass(read.drawing(), number)), name) << number;
    EXPECT_EQ(named(host::declaredClass(read.drawing(), "PUMP")), L"AcPump");
    EXPECT_EQ(named(host::declaredClass(read.drawing(), "pum")), L"");
    ReadDrawing bare("0\nEOF\n");
    EXPECT_FALSE(host::declaredClass(bare.drawing(), 500));
}

} // namespace

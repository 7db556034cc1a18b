#include "host/db/block_table.h"
#include "host/db/dictionary.h"
#include "host/db/dimension_kinds.h"
#include "host/db/entity.h"
#include "host/text/encoding.h"
#include "tests/support/opened_drawing.h"

namespace {

const std::string kPath =
    "90\n3\n70\n0\n10\n0.0\n20\n0.0\n42\n1.0\n10\n4.0\n20\n0.0\n10\n4.0\n20\n3.0\n";
const std::string kPoint =
    "0\nPOINT\n5\nE1\n100\nAcDbEntity\n8\n0\n100\nAcDbPoint\n10\n1.0\n20\n2.0\n30\n0.0\n";

std::string reference(const char* block)
{
    return std::string("2\n") + block + "\n10\n10.0\n20\n0.0\n30\n0.0\n";
}

class ExplodeCommand : public DrawingTest {
protected:
    void openPlan()
    {
        DxfDrawing drawing;
        drawing.layer("Shut", 4);
        drawing.block("Tree", 0, kPoint);
        drawing.block("Whole", 0, kPoint, "280\n0\n");
        path_ = drawing.entity("LWPOLYLINE", "AcDbPolyline", kPath, "0", "62\n1\n",
                               "102\n{ACAD_XDICTIONARY\n360\nD1\n102\n}\n");
        line_ = drawing.line();
        locked_ = drawing.entity("LWPOLYLINE", "AcDbPolyline", kPath, "Shut");
        tree_ = drawing.entity("INSERT", "AcDbBlockReference", reference("Tree"));
        whole_ = drawing.entity("INSERT", "AcDbBlockReference", reference("Whole"));
        drawing.object(
            "0\nDICTIONARY\n5\nD1\n330\n" + path_ +
            "\n100\nAcDbDictionary\n280\n1\n281\n1\n3\nDATA\n360\nD2\n0\nXRECORD\n5\nD2\n"
            "330\nD1\n100\nAcDbXrecord\n280\n1\n1\ntext\n");
        open(drawing);
        type(L"");
        printed();
    }
    static std::wstring picked(const std::string& handle)
    {
        return L"(handent \"" + std::wstring(handle.begin(), handle.end()) + L"\")";
    }
    // The kinds of model space in order, with their colours.
    std::string space()
    {
        std::string text;
        for (const AcDbObjectId id : entities()) {
            const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
            text += host::toUtf8(entity->isA()->name()).substr(4) + " " +
                    std::to_string(entity->colorIndex()) + "; ";
        }
        return text;
    }

    std::string path_, line_, locked_, tree_, whole_;
};

const std::string kPlan =
    "Polyline 1; Line 256; Polyline 256; BlockReference 256; BlockReference 256; ";

} // namespace

TEST_F(ExplodeCommand, PartsTakeThePlaceOfTheWholeAndItsRecordsGo)
{
    openPlan();
    const std::wstring all = picked(path_) + L"\n" + picked(tree_) + L"\n";
    EXPECT_EQ(transcript(L"explode\n" + all + L"\n"),
              L"explode\nSelect objects: " + picked(path_) + L"\n1 found\nSelect objects: " +
                  picked(tree_) + L"\n1 found, 2 total\nSelect objects: \nCommand: ");
    EXPECT_EQ(space(), "Line 256; Polyline 256; BlockReference 256; Arc 1; Line 1; Point 256; ");
    EXPECT_TRUE(idOf("D1").isErased());
    EXPECT_TRUE(idOf("D2").isErased());
    type(L"u\n");
    EXPECT_EQ(space(), kPlan);
    EXPECT_FALSE(idOf("D2").isErased());
}

TEST_F(ExplodeCommand, WhatStaysIsCounted)
{
    openPlan();
    struct Case {
        std::vector<std::string> picked;
        const wchar_t* told;
    };
    const Case cases[] = {
        {{line_}, L"1 could not be exploded.\n"},
        {{line_, whole_}, L"2 could not be exploded.\n"},
        {{locked_}, L"1 was on a locked layer.\n"},
        {{locked_, line_}, L"1 was on a locked layer.\n1 could not be exploded.\n"},
    };
    for (const Case& row : cases) {
        std::wstring typed = L"explode\n";
        for (const std::string& handle : row.picked)
            typed += picked(handle) + L"\n";
        const std::wstring printed = transcript(typed + L"\n");
        const std::size_t end = printed.rfind(L"Select objects: \n");
        EXPECT_EQ(printed.substr(end + 17), row.told + std::wstring(L"Command: "));
        EXPECT_EQ(space(), kPlan);
    }
}

TEST_F(ExplodeCommand, DimensionsOutOfABlockAreDrawnAnew)
{
    DxfDrawing drawing;
    const std::string picture = drawing.block("*D1", 0, kPoint);
    drawing.block("Plan", 0,
                  "0\nDIMENSION\n5\nE2\n100\nAcDbEntity\n8\n0\n100\nAcDbDimension\n2\n*D1\n10\n5."
                  "0\n20\n5.0\n30\n0.0\n70\n1\n3\nStandard\n100\nAcDbAlignedDimension\n13\n0.0\n"
                  "23\n0.0\n33\n0.0\n14\n5.0\n24\n0.0\n34\n0.0\n");
    const std::string plan = drawing.entity("INSERT", "AcDbBlockReference",
                                            reference("Plan") + "41\n2.0\n42\n2.0\n43\n2.0\n");
    open(drawing);
    type(L"explode " + picked(plan) + L"\n\n");
    const AcDbObjectPointer<AcDbAlignedDimension> dimension(entities().front(), AcDb::kForRead);
    ASSERT_TRUE(dimension);
    EXPECT_EQ(dimension->xLine2Point(), AcGePoint3d(20.0, 0.0, 0.0));
    EXPECT_NEAR(dimension->measurement(), 10.0, 1e-9);
    EXPECT_FALSE(dimension->dimBlockId().isNull());
    EXPECT_NE(dimension->dimBlockId(), idOf(picture));
    AcDbExtents extents;
    ASSERT_EQ(dimension->getGeomExtents(extents), Acad::eOk);
    EXPECT_NEAR(extents.maxPoint().x - extents.minPoint().x, 10.0, 1.0);
}

TEST_F(ExplodeCommand, TakesThePickFirstSetAndClearsIt)
{
    openPlan();
    type(L"pselect " + picked(tree_) + L"\n\n");
    EXPECT_EQ(transcript(L"explode\n"), L"explode\nCommand: ");
    EXPECT_TRUE(idOf(tree_).isErased());
    EXPECT_TRUE(host::currentPickFirst().empty());
}

TEST_F(ExplodeCommand, CancelAndAnEmptySelectionLeaveEverything)
{
    openPlan();
    for (const wchar_t* const typed : {L"explode\n\n", L"explode\nall\n\x3"}) {
        type(typed);
        EXPECT_EQ(space(), kPlan);
    }
}

#include "tests/classify/records_test.h"

#include "tests/host/io/independent_proof.h"
#include "tests/support/draw_order.h"

namespace {

class SortTest : public RecordsTest {
protected:
    std::string drawn()
    {
        std::string letters;
        for (const AcDbObjectId entity : drawOrderOf(database()))
            for (char letter = 'A'; letter <= 'F'; ++letter)
                if (id(letter) == entity)
                    letters += letter;
        return letters;
    }
    int sortents() { return host::integerVariable(L"SORTENTS", -1); }
};

} // namespace

TEST_F(SortTest, TheHighestPriorityIsDrawnLastAndTheUnclassifiedFirst)
{
    classify('A', "Wall"); // 3
    classify('B', "Gate"); // 1
    classify('C', "Road"); // 2
    classify('C', "Gate");
    const std::wstring printed = printedBy("ABCD", L"kelmaro_sort\n");
    // E and F, which were not sorted, keep their places
    EXPECT_EQ(drawn(), "DBCAEF");
    EXPECT_EQ(selected(), "ABCD");
    for (const wchar_t* word : {L"Error", L"Completed", L"Selected", L"Unknown"})
        EXPECT_FALSE(tells(printed, word));
    type(L"u\nu\n"); // the regeneration, then the sorting
    EXPECT_EQ(drawn(), "");
}

TEST_F(SortTest, EqualOnesStandAsExchangesLeaveThem)
{
    classify('A', "Road");
    classify('B', "Road");
    classify('C', "Gate");
    // C changes places with A, which ends behind B
    printedBy("ABC", L"kelmaro_sort\n");
    EXPECT_EQ(drawn(), "CBADEF");
}

TEST_F(SortTest, ALaterSortStartsFromTheEarlierOne)
{
    classify('A', "Wall");
    classify('B', "Gate");
    printedBy("AB", L"kelmaro_sort\n");
    EXPECT_EQ(drawn(), "BACDEF");
    clear('A');
    classify('F', "Gate");
    printedBy("ABF", L"kelmaro_sort\n");
    EXPECT_EQ(drawn(), "ABCDEF");
}

TEST_F(SortTest, WholeDrawingLeavesLockedLayersAlone)
{
    classify('A', "Wall");
    classify('E', "Gate");
    printedBy("", L"kelmaro_sort\n\n");
    EXPECT_EQ(drawn().find('E'), 4u);
    EXPECT_EQ(drawn().back(), 'A');
}

TEST_F(SortTest, TheHostIsMadeToHonourTheOrder)
{
    type(L"setvar sortents 5\n");
    ASSERT_EQ(sortents(), 5);
    printedBy("AB", L"kelmaro_sort\n");
    EXPECT_EQ(sortents(), 127);
}

// Another program finds as little wrong with the sorted drawing as with the one before.
TEST_F(SortTest, TheSavedTableIsSoundToOthers)
{
    if (!host::test::proofAvailable())
        GTEST_SKIP() << "the distribution's ezdxf is not installed";
    const auto proof = [&] {
        std::string bytes;
        host::drawingFormat().write(database().drawing(), bytes);
        return host::test::proofOf(bytes);
    };
    classify('A', "Wall");
    const std::string before = proof();
    ASSERT_TRUE(before.starts_with("AC1015 6 ")) << before;
    printedBy("", L"kelmaro_sort\n\n");
    EXPECT_EQ(drawn(), "BCDFEA");
    EXPECT_EQ(proof(), before);
}

TEST_F(SortTest, NothingUsableEndsSilently)
{
    const std::wstring printed = printedBy("E", L"kelmaro_sort\n");
    EXPECT_FALSE(tells(printed, L"Error"));
    EXPECT_TRUE(drawOrderOf(database()).empty());
    open(DxfDrawing(), "empty.dxf");
    EXPECT_TRUE(tells(transcript(L"kelmaro_sort\n\n"), L"Error: no objects selected.\n"));
}

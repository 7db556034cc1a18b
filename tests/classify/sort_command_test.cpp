#include "tests/classify/records_test.h"

#include "host/db/block_table.h"
#include "host/db/sort_ents_table.h"
#include "host/edit/document.h"
#include "objects/validation.h"
#include "tests/host/io/independent_proof.h"

#include <limits>
#include <random>

namespace {

class SortTest : public RecordsTest {
protected:
    std::vector<AcDbObjectId> drawOrder()
    {
        AcDbObjectPointer<AcDbBlockTableRecord> space(database().modelSpaceId(), AcDb::kForWrite);
        AcDbSortentsTable* opened = nullptr;
        if (space->getSortentsTable(opened, AcDb::kForRead, false) != Acad::eOk)
            return {};
        AcDbObjectPointer<AcDbSortentsTable> table;
        table.acquire(opened);
        return table->getFullDrawOrder();
    }
    std::string drawn()
    {
        std::string letters;
        for (const AcDbObjectId entity : drawOrder())
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
    EXPECT_TRUE(drawOrder().empty());
    open(DxfDrawing(), "empty.dxf");
    EXPECT_TRUE(tells(transcript(L"kelmaro_sort\n\n"), L"Error: no objects selected.\n"));
}

// Against the plain way: every object asked for every entity, and the whole list exchanged.
TEST_F(SortTest, IsThatOfAPlainWalkOnRandomDrawings)
{
    std::mt19937 random(8);
    const auto below = [&](int count) {
        return static_cast<std::size_t>(std::uniform_int_distribution<>(0, count - 1)(random));
    };
    constexpr int kDrawings = 40;
    const char* const names[] = {"Wall", "Gate", "Road"};
    for (int round = 0; round < kDrawings; ++round) {
        DxfDrawing drawing;
        std::vector<std::string> handles(2 + below(14));
        for (std::string& handle : handles)
            handle = drawing.line();
        open(drawing, "random" + std::to_string(round) + ".dxf");
        for (const std::string& handle : handles)
            for (std::size_t records = below(3); records > 0; --records)
                classifyAs(description(), storeId(), idOf(handle), wide(names[below(3)]));

        std::vector<std::pair<std::int32_t, AcDbObjectId>> plain;
        StoredTables tables(storeId());
        for (const std::string& handle : handles) {
            std::int32_t best = std::numeric_limits<std::int32_t>::min();
            for (const auto& [name, object] : description().objects)
                if (object.priority > best && validateObject(description(), tables, idOf(handle),
                                                             name, Values::any, Fields::all))
                    best = object.priority;
            plain.emplace_back(best, idOf(handle));
        }
        for (bool changed = true; changed;) {
            changed = false;
            for (std::size_t i = 0; i < plain.size(); ++i)
                for (std::size_t j = i + 1; j < plain.size(); ++j)
                    if (plain[i].first > plain[j].first) {
                        std::swap(plain[i], plain[j]);
                        changed = true;
                    }
        }
        std::vector<AcDbObjectId> expected;
        for (const auto& [priority, entity] : plain)
            expected.push_back(entity);

        type(L"kelmaro_sort\n\n");
        ASSERT_EQ(drawOrder(), expected) << "drawing " << round;
        session().documents().closeDocument(curDoc());
    }
}

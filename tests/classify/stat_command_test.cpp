#include "tests/classify/records_test.h"

namespace {

// The report as it stands between the echo of what was typed and the next prompt.
std::wstring report(const std::wstring& printed)
{
    const std::size_t begin = printed.find(L"Objects: ");
    const std::size_t end = printed.find(L'\n', printed.find(L"Invalid definitions: "));
    return begin == std::wstring::npos || end == std::wstring::npos
               ? printed
               : printed.substr(begin, end + 1 - begin);
}

} // namespace

TEST_F(RecordsTest, StatisticsCountEntitiesObjectsAndIllegalOnes)
{
    classify('A', "Wall");
    classify('B', "Wall");
    classify('C', "Road");
    classify('C', "Gate"); // two objects at once
    classify('D', "Road");
    classify('D', "Road"); // twice the same
    classify('E', "Wall"); // on the locked layer
    // the height that the defaults leave is 2.0, which is none of the list
    setField(storeId(), id('A'), L"HEIGHT", OdValue(2.5));
    setField(storeId(), id('C'), L"OWNER", OdValue(L"nobody")); // not required
    EXPECT_EQ(report(printedBy("", L"kelmaro_stat\n\n")), L"Objects: 5 (1 unclassified)\n"
                                                          L"Classes: 3\n"
                                                          L"\tGate: 1 (0 invalid)\n"
                                                          L"\tRoad: 2 (0 invalid)\n"
                                                          L"\tWall: 2 (0 invalid)\n"
                                                          L"\n"
                                                          L"Invalid definitions: 1\n");
    EXPECT_EQ(report(printedBy("CF", L"kelmaro_stat\n")), L"Objects: 2 (1 unclassified)\n"
                                                          L"Classes: 2\n"
                                                          L"\tGate: 1 (0 invalid)\n"
                                                          L"\tRoad: 1 (0 invalid)\n"
                                                          L"\n"
                                                          L"Invalid definitions: 0\n");
    EXPECT_EQ(selected(), "CF");
}

TEST_F(RecordsTest, StatisticsOfNothingUsableAreZeros)
{
    EXPECT_EQ(report(printedBy("E", L"kelmaro_stat\n")),
              L"Objects: 0 (0 unclassified)\nClasses: 0\nInvalid definitions: 0\n");
}

TEST_F(RecordsTest, ARecordThatDoesNotValidateLeavesItsEntityUnclassified)
{
    addRow('A', L"OWNERS", {L"gate", L"city"}); // leads to Gate, but is none
    addRow('B', L"WALLS", {L"Wall", L"2"});     // lacks the second table
    EXPECT_EQ(report(printedBy("AB", L"kelmaro_stat\n")),
              L"Objects: 2 (2 unclassified)\nClasses: 0\nInvalid definitions: 0\n");
}

TEST_F(RecordsTest, AnEmptyDrawingHasNoStatistics)
{
    open(DxfDrawing(), "empty.dxf");
    const std::wstring printed = transcript(L"kelmaro_stat\n\n");
    EXPECT_TRUE(tells(printed, L"Error: no objects selected.\n"));
    EXPECT_FALSE(tells(printed, L"Objects:"));
}

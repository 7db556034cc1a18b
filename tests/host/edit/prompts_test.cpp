#include "host/edit/typed_values.h"
#include "tests/support/command_test.h"

#include <cmath>

namespace {

// What the test command of a case does, and what it found.
int result;
std::wstring text;
double number;
int integer;
ads_point point;

class PromptsTest : public CommandTest {
protected:
    PromptsTest()
    {
        text.clear();
        number = 0.0;
        integer = 0;
        point = {};
        result = 0;
    }
    // The transcript behind the command's own line.
    std::wstring run(void (*function)(), const std::wstring& typed)
    {
        session().commands().removeGroup(L"TEST");
        command(L"T", function);
        std::wstring shown = transcript(L"t " + typed);
        shown.erase(0, shown.find(L"t\n") + 2);
        if (shown.ends_with(L"Command: "))
            shown.erase(shown.size() - 9);
        return shown;
    }
};

} // namespace

TEST_F(PromptsTest, IntegersAreRefusedByTheirConditions)
{
    EXPECT_EQ(run(
                  [] {
                      acedInitGet(RSG_NONULL | RSG_NOZERO | RSG_NONEG, nullptr);
                      result = acedGetInt(L"N: ", integer);
                  },
                  L"\n0\n-3\n1.5\n2147483648\n+12\n"),
              L"N: \nRequires an integer value.\nN: 0\nValue must be positive and nonzero.\n"
              L"N: -3\nValue must be positive and nonzero.\nN: 1.5\nRequires an integer value.\n"
              L"N: 2147483648\nRequires an integer value.\nN: +12\n");
    EXPECT_EQ(result, RTNORM);
    EXPECT_EQ(integer, 12);

    run([] { result = acedGetInt(L"N: ", integer); }, L"\n");
    EXPECT_EQ(result, RTNONE); // conditions last for one question
}

TEST_F(PromptsTest, KeywordsAnswerByTheirCapitals)
{
    const std::pair<const wchar_t*, const wchar_t*> cases[] = {
        {L"y", L"Yes"},      {L"YE", L"Yes"},    {L"no", L"No"},
        {L"x", L"eXit"},     {L"exit", L"eXit"}, {L"lt", L"LType"},
        {L"ltyp", L"LType"}, {L"la", L"LAYER"},  {L"_No", L"No"},
    };
    for (const auto& [typed, keyword] : cases) {
        run(
            [] {
                acedInitGet(RSG_NONULL, L"Yes No eXit LType LAYER,LA");
                result = acedGetKword(L"K: ", text);
            },
            std::wstring(typed) + L"\n");
        EXPECT_EQ(text, keyword) << typed;
    }
    for (const wchar_t* typed : {L"l", L"e", L"yet", L"_"}) {
        EXPECT_EQ(run(
                      [] {
                          acedInitGet(0, L"Yes No eXit LType LAYER,LA");
                          result = acedGetKword(L"K: ", text);
                      },
                      std::wstring(typed) + L"\n\n"),
                  L"K: " + std::wstring(typed) + L"\nInvalid option keyword.\nK: \n");
        EXPECT_EQ(result, RTNONE);
    }
}

TEST_F(PromptsTest, KeywordsHaveGlobalNames)
{
    const std::vector<host::Keyword> keywords = host::parseKeywords(L"Ja Nein _Yes No");
    ASSERT_EQ(keywords.size(), 2u);
    EXPECT_EQ(host::matchKeyword(keywords, L"n")->answered, L"No");
    EXPECT_EQ(host::matchKeyword(keywords, L"_y")->answered, L"Yes");
    EXPECT_EQ(host::matchKeyword(keywords, L"y"), nullptr);
    EXPECT_EQ(host::matchKeyword(keywords, L"_j"), nullptr);
}

TEST_F(PromptsTest, PointsAreAbsoluteRelativeAndPolar)
{
    const AcGePoint3d last(10, 20, 5);
    struct Case {
        const wchar_t* typed;
        std::optional<AcGePoint3d> point;
    };
    const Case cases[] = {
        {L"1,2", AcGePoint3d(1, 2, 7)},
        {L"1,2,3", AcGePoint3d(1, 2, 3)},
        {L"-1.5,2e1", AcGePoint3d(-1.5, 20, 7)},
        {L"@1,2", AcGePoint3d(11, 22, 5)},
        {L"@1,2,3", AcGePoint3d(11, 22, 8)},
        {L"@", last},
        {L"@2<90", AcGePoint3d(10, 22, 5)},
        {L"3<180", AcGePoint3d(-3, 0, 7)},
        {L"1", std::nullopt},
        {L"1,", std::nullopt},
        {L"1,2,3,4", std::nullopt},
        {L"1,b", std::nullopt},
        {L"@<5", std::nullopt},
        {L"", std::nullopt},
    };
    for (const Case& each : cases) {
        const std::optional<AcGePoint3d> found = host::typedPoint(each.typed, last, 7.0);
        ASSERT_EQ(found.has_value(), each.point.has_value()) << each.typed;
        if (found) {
            EXPECT_TRUE(found->isEqualTo(*each.point, AcGeTol(1e-9, 1e-9))) << each.typed;
        }
    }
}

TEST_F(PromptsTest, PointsCountFromTheOneBefore)
{
    EXPECT_EQ(run(
                  [] {
                      ads_point first{};
                      acedGetPoint(nullptr, L"P1: ", first);
                      acedInitGet(0, L"Close");
                      result = acedGetPoint(&first, L"P2: ", point);
                  },
                  L"5,5 zz @1,1\n"),
              L"P1: 5,5\nP2: zz\nPoint or option keyword required.\nP2: @1,1\n");
    EXPECT_EQ(point, (ads_point{6, 6, 0}));
    run([] { result = acedGetPoint(nullptr, L"P: ", point); }, L"@2,0\n");
    EXPECT_EQ(point, (ads_point{8, 6, 0}));
}

TEST_F(PromptsTest, AnyTextIsTakenWhereAllowed)
{
    run(
        [] {
            acedInitGet(RSG_OTHER, L"Base");
            result = acedGetPoint(nullptr, L"P: ", point);
            acedGetInput(text);
        },
        L"(something else)\n");
    EXPECT_EQ(result, RTKWORD);
    EXPECT_EQ(text, L"(something else)");
}

TEST_F(PromptsTest, DistancesAndAnglesByNumbersAndPoints)
{
    run([] { result = acedGetDist(nullptr, L"D: ", number); }, L"2.5\n");
    EXPECT_DOUBLE_EQ(number, 2.5);
    EXPECT_EQ(run([] { result = acedGetDist(nullptr, L"D: ", number); }, L"1,1 a 4,5\n"),
              L"D: 1,1\nSpecify second point: a\nRequires numeric distance or second point.\n"
              L"Specify second point: 4,5\n");
    EXPECT_DOUBLE_EQ(number, 5.0);
    run([] { result = acedGetAngle(nullptr, L"A: ", number); }, L"90\n");
    EXPECT_NEAR(number, 1.5707963267948966, 1e-15);
    run(
        [] {
            const ads_point base{1, 1, 0};
            result = acedGetAngle(&base, L"A: ", number);
        },
        L"1,0\n");
    EXPECT_NEAR(number, 4.71238898038469, 1e-14); // straight down
}

TEST_F(PromptsTest, OutsideOfACommandNothingIsAsked)
{
    printed();
    EXPECT_EQ(acedGetString(0, L"S: ", text), RTERROR);
    EXPECT_EQ(printed(), L"");
}

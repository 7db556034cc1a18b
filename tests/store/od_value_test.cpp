#include "store/od_field.h"
#include "store/od_value.h"

#include <gtest/gtest.h>

#include <limits>
#include <ostream>

namespace {

// A value with its type, so that 1 and 1.0 and "1" read differently.
std::wstring shown(const OdValue& value)
{
    static constexpr const wchar_t* kNames[] = {L"none", L"integer ", L"real ", L"character ",
                                                L"point "};
    return kNames[static_cast<int>(value.getType())] + value.displayText();
}

const OdValue kNone;
const OdValue kInteger(std::int32_t{-7});
const OdValue kReal(-3.9);
const OdValue kText(L"12abc");
const OdValue kPointText(L"1,2,3,4");
const OdValue kPoint(AcGePoint3d(1.0, 2.0, 3.0));

} // namespace

TEST(OdValue, AssignmentConvertsToTheTypeHeld)
{
    const struct {
        OdType held;
        OdValue source;
        std::wstring result;
    } cases[] = {
        {OdType::none, kReal, L"real -3.9"},
        {OdType::none, kPoint, L"point 1.000000,2.000000,3.000000"},
        {OdType::integer, kInteger, L"integer -7"},
        {OdType::integer, kReal, L"integer -3"},
        {OdType::integer, kText, L"integer 12"},
        {OdType::integer, OdValue(L"abc"), L"integer 0"},
        {OdType::integer, kNone, L"integer 0"},
        {OdType::real, kInteger, L"real -7.0"},
        {OdType::real, OdValue(L" 2.5e1m"), L"real 25.0"},
        {OdType::character, kInteger, L"character -7"},
        {OdType::character, kReal, L"character -3.900000"},
        {OdType::character, kPoint, L"character 1.000000,2.000000,3.000000"},
        {OdType::point, kPointText, L"point 1.000000,2.000000,4.000000"},
        {OdType::point, OdValue(L"x, 2y,,z"), L"point 0.000000,2.000000,0.000000"},
    };
    for (const auto& [held, source, result] : cases) {
        OdValue value(held);
        value = source;
        EXPECT_EQ(shown(value), result);
        OdValue moved(held);
        moved = OdValue(source);
        EXPECT_EQ(shown(moved), result);
    }
}

TEST(OdValue, ConversionsThatDoNotExistThrowAndChangeNothing)
{
    const struct {
        OdValue held;
        OdValue source;
        AcMap::EErrCode code;
    } cases[] = {
        {kInteger, kPoint, AcMap::kNoConversion},
        {kReal, kPoint, AcMap::kNoConversion},
        {kPoint, kInteger, AcMap::kNoConversion},
        {kPoint, kReal, AcMap::kNoConversion},
        {kPoint, OdValue(L"1"), AcMap::kNotFound},
        {kPoint, OdValue(L"1,2"), AcMap::kNotFound},
        {kPoint, OdValue(OdType::character), AcMap::kNotFound},
    };
    for (const auto& [held, source, code] : cases) {
        OdValue value(held);
        try {
            value = source;
            ADD_FAILURE() << "no code " << code;
        } catch (AcMap::EErrCode thrown) {
            EXPECT_EQ(thrown, code);
        }
        EXPECT_EQ(shown(value), shown(held));
    }
}

TEST(OdValue, ATextThatIsNotThereChangesNoText)
{
    OdValue value(L"kept");
    value = OdValue(OdType::character);
    EXPECT_EQ(value.asText(), L"kept");
    value = OdValue(L"");
    EXPECT_EQ(value.asText(), L"");
}

TEST(OdValue, ReadersTreatNoneDifferently)
{
    EXPECT_EQ(kNone.asInteger(), 0);
    EXPECT_THROW(kNone.asReal(), AcMap::EErrCode);
    EXPECT_THROW(kNone.asPoint(), AcMap::EErrCode);
    EXPECT_THROW(kNone.asText(), AcMap::EErrCode);
    EXPECT_EQ(kNone.displayText(), L"");
    EXPECT_EQ(kReal.asInteger(), -3);
    EXPECT_EQ(kText.asReal(), 12.0);
    EXPECT_THROW(kPoint.asInteger(), AcMap::EErrCode);
    EXPECT_THROW(kReal.asPoint(), AcMap::EErrCode);
}

TEST(OdValue, TextForms)
{
    EXPECT_EQ(OdValue(1.0).displayText(), L"1.0");
    EXPECT_EQ(OdValue(0.1).displayText(), L"0.1");
    EXPECT_EQ(OdValue(1e-13).displayText(), L"0.0");
    EXPECT_EQ(OdValue(0.1).asText(), L"0.100000");
    EXPECT_EQ(OdValue(AcGePoint3d(0.5, 0.0, 1e6)).displayText(),
              L"0.500000,0.000000,1000000.000000");
}

TEST(OdValue, FromText)
{
    EXPECT_EQ(shown(OdValue::fromText(OdType::integer, L"3.7")), L"integer 3");
    EXPECT_EQ(shown(OdValue::fromText(OdType::real, L"3.7")), L"real 3.7");
    EXPECT_EQ(shown(OdValue::fromText(OdType::character, L" a ")), L"character  a ");
    EXPECT_EQ(shown(OdValue::fromText(OdType::point, L"1,2,3")),
              L"point 1.000000,2.000000,3.000000");
    EXPECT_EQ(shown(OdValue::fromText(OdType::point, L"1,2")), L"integer 0");
    EXPECT_EQ(shown(OdValue::fromText(OdType::none, L"1")), L"none");
}

TEST(OdValue, TheMarkForDifferingValuesKeepsTheType)
{
    for (const OdType type : {OdType::integer, OdType::real, OdType::character, OdType::point}) {
        OdValue value(type);
        EXPECT_FALSE(IsVarying(value));
        value.setVarying();
        EXPECT_EQ(value.getType(), type);
        EXPECT_TRUE(IsVarying(value));
    }
    EXPECT_FALSE(IsVarying(OdValue(L"*Varying*")));
    EXPECT_FALSE(IsVarying(OdValue(AcGePoint3d(std::numeric_limits<double>::max(), 0.0, 0.0))));
    OdValue none;
    none.setVarying();
    EXPECT_EQ(none.getType(), OdType::none);
}

// Lists of fields are copied over each other element by element; a conversion there would silently
// change the shape of a record.
TEST(OdField, BecomesACopyWhileItsValueConverts)
{
    std::vector<OdField> fields{OdField(L"a", OdType::integer), OdField(L"b", OdType::point)};
    const std::vector<OdField> others{OdField(L"x", OdType::character),
                                      OdField(L"y", OdType::integer)};
    fields = others;
    EXPECT_EQ(fields[0].getType(), OdType::character);
    EXPECT_EQ(fields[1].getName(), L"y");
    EXPECT_EQ(fields[1].setReal(2.9), OdType::integer);
    EXPECT_EQ(fields[1].value.asInteger(), 2);
    EXPECT_THROW(fields[1].setPoint({}), AcMap::EErrCode);
}

#include "description/host_variable.h"

#include "host/edit/system_variables.h"
#include "host/text/encoding.h"
#include "tests/support/opened_drawing.h"

namespace {

using Type = HostVariableType;

class HostVariableTest : public DrawingTest {
protected:
    HostVariableTest() { session().documents().newDocument(); } // has every variable

    static std::wstring shown(const wchar_t* name)
    {
        resbuf value;
        return acedGetVar(name, value) == RTNORM ? host::variableText(value) : L"none";
    }
    // As a description would have it, with a value for every type.
    static HostVariable variable(const wchar_t* name, Type type)
    {
        return {name, type, 6, {7.5, 8.0, 9.0}, L"0"};
    }
};

} // namespace

TEST_F(HostVariableTest, TypeAndValueComeFromTheHostButForPoints)
{
    struct Row {
        const wchar_t* name;
        Type type;
        const wchar_t* before;
        const wchar_t* after; // written anew with the other value, then with the one that was read
        const wchar_t* back;
    };
    for (const Row& row :
         {Row{L"LUPREC", Type::shortInteger, L"4", L"6", L"4"},
          Row{L"textsize", Type::real, L"2.5000", L"7.5000", L"2.5000"},
          Row{L"TEXTSTYLE", Type::text, L"\"Standard\"", L"\"Standard\"", L"\"Standard\""},
          Row{L"LIMMAX", Type::point2d, L"420.0000,297.0000", L"7.5000,8.0000", L"7.5000,8.0000"},
          Row{L"INSBASE", Type::point3d, L"0.0000,0.0000,0.0000", L"7.5000,8.0000,9.0000",
              L"7.5000,8.0000,9.0000"}}) {
        SCOPED_TRACE(host::toUtf8(row.name));
        EXPECT_EQ(shown(row.name), row.before);
        HostVariable read = variable(row.name, Type::unknown);
        ASSERT_TRUE(ReadHostVariable(read));
        EXPECT_EQ(read.type, row.type);
        WriteHostVariable(variable(row.name, row.type));
        EXPECT_EQ(shown(row.name), row.after);
        EXPECT_TRUE(WriteHostVariable(read));
        EXPECT_EQ(shown(row.name), row.back);
    }
}

TEST_F(HostVariableTest, ALongIsWrittenAsAShort)
{
    HostVariable precision = variable(L"LUPREC", Type::longInteger);
    EXPECT_TRUE(WriteHostVariable(precision));
    precision.integer = 0x10005; // of which the host sees the low half
    EXPECT_TRUE(WriteHostVariable(precision));
    EXPECT_EQ(shown(L"LUPREC"), L"5");

    HostVariable version = variable(L"ACADMAINTVER", Type::unknown);
    ASSERT_TRUE(ReadHostVariable(version));
    EXPECT_EQ(version.type, Type::longInteger);
    EXPECT_EQ(version.integer, 29);
}

TEST_F(HostVariableTest, WhatTheHostRefuses)
{
    HostVariable nobody = variable(L"NOSUCH", Type::real);
    EXPECT_FALSE(ReadHostVariable(nobody));
    EXPECT_EQ(nobody.type, Type::real);
    EXPECT_FALSE(WriteHostVariable(nobody));
    EXPECT_FALSE(WriteHostVariable(variable(L"LUPREC", Type::unknown)));
    EXPECT_FALSE(WriteHostVariable(variable(L"LUPREC", Type::text)));
    EXPECT_EQ(shown(L"LUPREC"), L"4");
}

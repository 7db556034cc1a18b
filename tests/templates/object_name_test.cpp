#include "templates/object_name.h"

#include <gtest/gtest.h>

#include <tuple>

namespace {

std::wstring nameOf(std::wstring_view format, const wchar_t* layer)
{
    GraphicProps props;
    props.layer = {kOneValue, layer, {}};
    props.types = {L"MText", L"Line"};
    return FormatObjectName(format, props, 12);
}

} // namespace

TEST(ObjectName, PlaceholdersInTheirOrder)
{
    const std::tuple<const wchar_t*, const wchar_t*, const wchar_t*> cases[] = {
        {L"%t_%i_%L", L"Walls", L"mtext_12_Walls"},
        {L"%T-%l-%i", L"Walls", L"MText-walls-12"},
        {L"%i%i %t%T", L"Walls", L"1212 mtextMText"},
        {L"%I %x %% plain", L"Walls", L"%I %x %% plain"},
        // what a layer's name brings along
        {L"%L", L"%t!", L"mtext!"},
        {L"%L", L"A%l", L"Aa%l"},
        {L"%l", L"%T", L"mtext"},
        {L"%L", L"%i", L"%i"},
        {L"a%Lb%L", L"%L", L"a%Lb%L"},
        {L"%l", L"%L", L"%l"},
        // a mark that comes about at the border
        {L"%LL", L"%", L"%"},
        {L"%%ii", L"x", L"%12i"},
    };
    for (const auto& [format, layer, name] : cases) {
        SCOPED_TRACE(std::string(format, format + std::wcslen(format)));
        EXPECT_EQ(nameOf(format, layer), name);
    }
}

// Each pass of such a layer's name makes new marks at the border of the last ones.
TEST(ObjectName, EndsAlways)
{
    EXPECT_LT(nameOf(L"%%LL%%LL%%LL%%LL", L"LLL%%%").size(), 10000u);
}

TEST(ObjectName, FormatsThatTellObjectsApart)
{
    for (const wchar_t* const format : {L"%T%i", L"%t%i", L"%i_%l_%T"})
        EXPECT_TRUE(isObjectNameFormat(format));
    for (const wchar_t* const format : {L"", L"%t", L"%T", L"%i", L"%i%L", L"% t%i", L"%I%t"})
        EXPECT_FALSE(isObjectNameFormat(format));
}

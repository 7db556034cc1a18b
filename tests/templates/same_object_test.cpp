#include "templates/same_object.h"

#include <gtest/gtest.h>

#include <cmath>
#include <set>
#include <string>

TEST(SameObject, EveryPartCounts)
{
    struct Case {
        const char* name;
        void (*change)(GraphicProps& props);
    };
    const Case cases[] = {
        {"a real's last bit",
         [](GraphicProps& p) { p.textHeight.value = std::nextafter(2.5, 3.0); }},
        {"mode", [](GraphicProps& p) { p.textHeight.mode = kValueAndList; }},
        {"accepted", [](GraphicProps& p) { p.layer.accepted = {L"b"}; }},
        {"case", [](GraphicProps& p) { p.layer.value = L"walls"; }},
        {"colour",
         [](GraphicProps& p) {
             p.color = {{1}, {2}};
         }},
        {"colour parts",
         [](GraphicProps& p) {
             p.color = {{1, 2, 3}};
         }},
        {"scale",
         [](GraphicProps& p) {
             p.blockScale = {kOneValue, {1.0, 1.0, 2.0}, {}};
         }},
        {"code",
         [](GraphicProps& p) {
             p.textJustification = {kOneValue, 0, {}};
         }},
        {"byte",
         [](GraphicProps& p) {
             p.closed = {kOneValue, 0, {}};
         }},
        {"explode", [](GraphicProps& p) { p.explode = true; }},
        {"name", [](GraphicProps& p) { p.name = L"B"; }},
        {"types",
         [](GraphicProps& p) {
             p.types = {L"Text", L"Line"};
         }},
        {"table", [](GraphicProps& p) { p.tables[0].name = L"U"; }},
        {"one more table", [](GraphicProps& p) { p.tables.push_back({}); }},
        {"field", [](GraphicProps& p) { p.tables[0].fields[0].flags = kConstField; }},
        {"field's values", [](GraphicProps& p) { p.tables[0].fields[0].values = {L"1"}; }},
    };
    GraphicProps base;
    base.name = L"A";
    base.types = {L"Text"};
    base.layer = {kOneValue, L"Walls", {}};
    base.textHeight = {kOneValue, 2.5, {}};
    base.color = {{1}};
    base.tables = {{L"T", {FieldDef{}}}};

    UniqueObjects unique;
    unique.add(base);
    unique.add(base);
    EXPECT_EQ(unique.objects().size(), 1u);
    std::size_t count = 1;
    for (const Case& row : cases) {
        SCOPED_TRACE(row.name);
        GraphicProps changed = base;
        row.change(changed);
        EXPECT_FALSE(SameObject(base, changed));
        unique.add(changed);
        EXPECT_EQ(unique.objects().size(), ++count);
        unique.add(changed);
        EXPECT_EQ(unique.objects().size(), count);
    }
}

TEST(SameObject, ZeroHasTwoSigns)
{
    GraphicProps plus;
    plus.patternAngle = {kOneValue, 0.0, {}};
    GraphicProps minus = plus;
    minus.patternAngle.value = -0.0;
    UniqueObjects unique;
    unique.add(minus);
    unique.add(plus);
    ASSERT_EQ(unique.objects().size(), 1u);
    EXPECT_TRUE(std::signbit(unique.objects()[0].patternAngle.value));
}

// Without which every new look would be compared with all before it.
TEST(SameObject, LooksHaveHashesOfTheirOwn)
{
    std::set<std::size_t> hashes;
    for (int look = 0; look < 5000; ++look) {
        GraphicProps props;
        props.types = {L"Line"};
        props.color = {{look % 250 + 1}};
        props.layer = {kOneValue, L"L" + std::to_wstring(look / 1000), {}};
        props.linetypeScale = {kOneValue, 1.0 + look / 250 % 4, {}};
        hashes.insert(hashOfObject(props));
    }
    EXPECT_EQ(hashes.size(), 5000u);
}

#include "host/db/tag_view.h"

#include "host/db/entity.h"
#include "host/io/text_form.h"
#include "tests/support/drawing_text.h"

#include <limits>

namespace {

using host::Subclass;
using host::TagList;
using host::TagRange;
using host::test::dxf;

constexpr std::size_t npos = TagList::npos;
constexpr double kNone = std::numeric_limits<double>::quiet_NaN(); // a fallback equal to nothing

std::shared_ptr<host::TagSource> plainSource()
{
    const auto version = host::DxfVersion::r2018;
    return std::make_shared<host::TagSource>(
        nullptr, std::make_unique<host::TextForm>(version, host::pageOfDrawing(version, ""),
                                                  host::TextStyle{"\n", 0, 0, 0}));
}

// A record in the notation of `dxf`, written and shown in a plain text form.
class Record : public host::TagWriter {
public:
    explicit Record(std::string_view text) : tags_(plainSource())
    {
        const std::string_view bytes = tags_.source()->keep(dxf(text));
        tags_.splitRecord(bytes.data(), bytes.size());
    }
    const TagList& tags() const override { return tags_; }
    TagList& tagsForWrite() override
    {
        ++writes;
        return tags_;
    }
    std::string shown() const
    {
        std::string lines;
        for (const host::Tag& tag : tags_)
            tags_.form().write(tag, lines);
        std::string text;
        for (std::size_t i = 0, line = 0; i < lines.size(); ++i)
            text += lines[i] != '\n' ? lines[i] : ++line % 2 == 1 ? ' ' : '|';
        if (!text.empty())
            text.pop_back();
        return text;
    }

    int writes = 0;

private:
    TagList tags_;
};

constexpr short kOrder[] = {39, 10, 40, 210};
constexpr Subclass kCircle{"AcDbCircle", kOrder};

TEST(TagView, FieldsAreFoundInTheirSubclass)
{
    struct Case {
        const char* name;
        const char* record;
        Subclass part;
        int code;
        std::size_t at;
    };
    const Case cases[] = {
        {"under its marker", "0 X|5 1|100 AcDbEntity|8 A|40 9|100 AcDbCircle|40 2", kCircle, 40, 6},
        {"not under the one before", "0 X|5 1|100 AcDbEntity|40 9|100 AcDbCircle|10 2", kCircle, 40,
         npos},
        {"the marker twice, in the second part",
         "0 X|100 AcDbCircle|10 1|100 AcDbArc|40 9|100 AcDbCircle|40 3", kCircle, 40, 6},
        {"the marker twice, the first part counts",
         "0 X|100 AcDbCircle|40 1|100 AcDbArc|50 9|100 AcDbCircle|40 3", kCircle, 40, 2},
        {"the marker twice in a row", "0 X|100 AcDbCircle|100 AcDbCircle|40 3", kCircle, 40, 3},
        {"no marker at all", "0 CIRCLE|5 1|8 A|10 0|20 0|40 4", kCircle, 40, 5},
        {"no marker, extended data ends the record", "0 CIRCLE|8 A|1001 APP|1040 1|40 2", kCircle,
         40, npos},
        {"the common marker alone holds everything", "0 CIRCLE|100 AcDbEntity|8 A|40 4", kCircle,
         40, 3},
        {"another marker does not", "0 CIRCLE|100 AcDbEntity|8 A|100 AcDbArc|40 4", kCircle, 40,
         npos},
        {"a marker is compared whole", "0 CIRCLE|100 AcDbCircles|40 4", kCircle, 40, npos},
        {"an embedded object is not the entity's",
         "0 X|100 AcDbCircle|10 1|101 Embedded Object|40 7", kCircle, 40, npos},
        {"101 with another text is a field", "0 X|100 AcDbCircle|101 other|40 7", kCircle, 40, 3},
        {"extended data is not the entity's", "0 X|100 AcDbCircle|10 1|1001 APP|40 7", kCircle, 40,
         npos},
        {"a bracketed group of the head holds no field",
         "0 X|5 1|102 {ACAD_REACTORS|330 A|102 }|8 B|70 1",
         {"AcDbX"},
         330,
         npos},
        {"nor does an owner", "0 X|5 1|330 A|100 AcDbX|70 1", {"AcDbX"}, 330, npos},
        {"a pointer under the marker does", "0 X|5 1|330 A|100 AcDbX|330 1", {"AcDbX"}, 330, 4},
        {"a type alone", "0 X", kCircle, 40, npos},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(findField(Record(row.record).tags(), row.part, row.code), row.at);
    }
}

TEST(TagView, TheHeadIsHandleGroupsAndOwner)
{
    struct Case {
        const char* name;
        const char* record;
        std::size_t handle, owner, end;
        TagRange dictionary, reactors;
    };
    const Case cases[] = {
        {"all",
         "0 X|5 1|102 {ACAD_XDICTIONARY|360 A|102 }|102 {ACAD_REACTORS|330 B|102 }|330 C|"
         "100 M|5 2",
         1,
         8,
         9,
         {2, 5},
         {5, 8}},
        {"groups the other way round",
         "0 X|5 1|102 {ACAD_REACTORS|330 B|330 D|102 }|"
         "102 {ACAD_XDICTIONARY|360 A|102 }|330 C|100 M",
         1,
         9,
         10,
         {6, 9},
         {2, 6}},
        {"groups behind the owner",
         "0 X|5 1|330 C|102 {ACAD_REACTORS|330 B|102 }|100 M",
         1,
         2,
         6,
         {},
         {3, 6}},
        {"another group", "0 X|5 1|102 {OTHER|330 B|102 }|330 C|100 M", 1, 5, 6, {}, {}},
        {"a 330 in a group is no owner",
         "0 X|5 1|102 {ACAD_REACTORS|330 B|102 }|100 M",
         1,
         npos,
         5,
         {},
         {2, 5}},
        {"102 without a brace is a field",
         "0 MATERIAL|5 1|102 MATERIAL|330 C|100 M",
         1,
         npos,
         2,
         {},
         {}},
        {"a bracket that nothing closes",
         "0 X|5 1|102 {ACAD_REACTORS|330 B|100 M|102 }",
         1,
         npos,
         2,
         {},
         {}},
        {"a remark", "0 X|999 hello|5 1|330 C|100 M", 2, 3, 4, {}, {}},
        {"no markers", "0 LINE|5 1|8 A", 1, npos, 2, {}, {}},
        {"layer before the handle", "0 LINE|8 A|5 1|10 0", 2, npos, 1, {}, {}},
        {"no handle, 5 in extended data is none", "0 LINE|8 A|1001 APP|5 1", npos, npos, 1, {}, {}},
        {"dimension style", "0 DIMSTYLE|105 1|330 C|100 M|5 BLOCK", 1, 2, 3, {}, {}},
        {"old dimension style", "0 DIMSTYLE|105 1|2 S|5 BLOCK", 1, npos, 2, {}, {}},
        {"dimension style without handle", "0 DIMSTYLE|2 S|5 BLOCK", npos, npos, 1, {}, {}},
        {"dimension style that begins with its arrow",
         "0 DIMSTYLE|5 BLOCK|2 S",
         npos,
         npos,
         1,
         {},
         {}},
        {"a second 5 is a field", "0 X|5 1|5 2|330 C", 1, npos, 2, {}, {}},
        {"a type alone", "0 X", npos, npos, 1, {}, {}},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.name);
        const host::RecordHead head = recordHead(Record(row.record).tags());
        EXPECT_EQ(head.handle, row.handle);
        EXPECT_EQ(head.owner, row.owner);
        EXPECT_EQ(head.end, row.end);
        EXPECT_EQ(head.dictionary.first, row.dictionary.first);
        EXPECT_EQ(head.dictionary.last, row.dictionary.last);
        EXPECT_EQ(head.reactors.first, row.reactors.first);
        EXPECT_EQ(head.reactors.last, row.reactors.last);
    }
}

TEST(TagView, InsertedFieldsStandBehindTheirPredecessor)
{
    struct Case {
        const char* name;
        const char* before;
        Subclass part;
        int code;
        const char* after; // with a 7 inserted
    };
    const Subclass& common = host::kEntityPart;
    const Case cases[] = {
        {"behind the nearest", "0 X|5 1|100 AcDbEntity|8 A|6 L|100 AcDbCircle", common, 62,
         "0 X|5 1|100 AcDbEntity|8 A|6 L|62 7|100 AcDbCircle"},
        {"behind a farther one", "0 X|5 1|100 AcDbEntity|8 A|370 5|100 AcDbCircle", common, 62,
         "0 X|5 1|100 AcDbEntity|8 A|62 7|370 5|100 AcDbCircle"},
        {"at the start of the part", "0 X|100 AcDbEntity|8 A|100 AcDbCircle|10 1|20 2|40 3",
         kCircle, 39, "0 X|100 AcDbEntity|8 A|100 AcDbCircle|39 7|10 1|20 2|40 3"},
        {"behind the whole of a point", "0 X|100 AcDbCircle|10 1|20 2|30 3|210 0", kCircle, 40,
         "0 X|100 AcDbCircle|10 1|20 2|30 3|40 7|210 0"},
        {"behind a flat point", "0 X|100 AcDbCircle|10 1|20 2|210 0", kCircle, 40,
         "0 X|100 AcDbCircle|10 1|20 2|40 7|210 0"},
        {"a code without order ends the part", "0 X|100 AcDbCircle|10 1|20 2|1001 APP", kCircle, 70,
         "0 X|100 AcDbCircle|10 1|20 2|70 7|1001 APP"},
        {"before an embedded object", "0 X|100 AcDbCircle|10 1|101 Embedded Object|70 2", kCircle,
         70, "0 X|100 AcDbCircle|10 1|70 7|101 Embedded Object|70 2"},
        {"behind the last of repeated predecessors", "0 X|100 AcDbEntity|8 A|310 0A|310 0B", common,
         370, "0 X|100 AcDbEntity|8 A|310 0A|310 0B|370 7"},
        {"no markers: behind the layer", "0 CIRCLE|5 1|8 A|10 1|20 2|40 3", common, 62,
         "0 CIRCLE|5 1|8 A|62 7|10 1|20 2|40 3"},
        {"no markers: what has no predecessor stays behind the common codes",
         "0 CIRCLE|5 1|8 A|10 1|20 2|40 3", kCircle, 39, "0 CIRCLE|5 1|8 A|39 7|10 1|20 2|40 3"},
        {"no markers, nothing near: behind the head", "0 CIRCLE|5 1|1 T", kCircle, 39,
         "0 CIRCLE|5 1|39 7|1 T"},
        {"no markers: a space goes before the layer", "0 CIRCLE|5 1|8 A|10 1", common, 67,
         "0 CIRCLE|5 1|67 7|8 A|10 1"},
        {"no markers, no order: before the extended data", "0 CIRCLE|5 1|8 A|1001 APP", kCircle, 70,
         "0 CIRCLE|5 1|8 A|70 7|1001 APP"},
        {"a part that is missing: before the extended data", "0 X|100 AcDbArc|50 1|1001 APP",
         kCircle, 40, "0 X|100 AcDbArc|50 1|40 7|1001 APP"},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.name);
        Record record(row.before);
        record.tagsForWrite().insertBytes(placeOfField(record.tags(), row.part, row.code), row.code,
                                          "7");
        EXPECT_EQ(record.shown(), row.after);
    }
}

TEST(TagView, SettersWriteOnlyWhatDiffers)
{
    struct Case {
        const char* name;
        const char* before;
        bool (*set)(Record&);
        const char* after; // null: nothing is written
    };
    using R = Record&;
    const Case cases[] = {
        {"equal real in another spelling", "0 X|100 AcDbCircle|40 2.500e0",
         [](R r) { return setRealField(r, kCircle, 40, 2.5, 0.0); }, nullptr},
        {"other real", "0 X|100 AcDbCircle|40 2.500",
         [](R r) { return setRealField(r, kCircle, 40, 3.0, 0.0); }, "0 X|100 AcDbCircle|40 3.0"},
        {"a missing default", "0 X|100 AcDbCircle|10 1",
         [](R r) { return setRealField(r, kCircle, 39, 0.0, 0.0); }, nullptr},
        {"a missing field that is always written", "0 X|100 AcDbCircle|10 1",
         [](R r) { return setRealField(r, kCircle, 40, 0.0, kNone); },
         "0 X|100 AcDbCircle|10 1|40 0.0"},
        {"back to the default keeps the tag", "0 X|100 AcDbCircle|39 5|40 1",
         [](R r) { return setRealField(r, kCircle, 39, 0.0, 0.0); },
         "0 X|100 AcDbCircle|39 0.0|40 1"},
        {"equal integer with blanks", "0 X|100 AcDbCircle|70    3",
         [](R r) { return setIntegerField(r, kCircle, 70, 3, 0); }, nullptr},
        {"other integer", "0 X|100 AcDbCircle|70 3",
         [](R r) { return setIntegerField(r, kCircle, 70, -4, 0); }, "0 X|100 AcDbCircle|70 -4"},
        {"equal text behind an escape", "0 X|100 AcDbCircle|1 a\\U+00E9",
         [](R r) { return setTextField(r, kCircle, 1, L"a\u00E9", L""); }, nullptr},
        {"text in another case is another", "0 X|100 AcDbCircle|1 abc",
         [](R r) { return setTextField(r, kCircle, 1, L"ABC", L""); }, "0 X|100 AcDbCircle|1 ABC"},
        {"no text instead of a text", "0 X|100 AcDbCircle|1 abc",
         [](R r) { return setTextField(r, kCircle, 1, L"", L""); }, "0 X|100 AcDbCircle|1 "},
        {"equal handle in another spelling", "0 X|100 AcDbCircle|340 00ab",
         [](R r) { return setHandleField(r, kCircle, 340, 0xAB); }, nullptr},
        {"other handle", "0 X|100 AcDbCircle|340 AB",
         [](R r) { return setHandleField(r, kCircle, 340, 0x1F2); }, "0 X|100 AcDbCircle|340 1F2"},
        {"no handle where there is none", "0 X|100 AcDbCircle|40 1",
         [](R r) { return setHandleField(r, kCircle, 340, 0); }, nullptr},
        {"equal point", "0 X|100 AcDbCircle|10 1|20 2.00|30 0",
         [](R r) {
             return setPointField(r, kCircle, 10, {1, 2, 0});
         },
         nullptr},
        {"a flat point that stays flat", "0 X|100 AcDbCircle|10 1|20 2|40 5",
         [](R r) {
             return setPointField(r, kCircle, 10, {1, 2, 0});
         },
         nullptr},
        {"one coordinate", "0 X|100 AcDbCircle|10 1.50|20 2.50|30 0.00",
         [](R r) {
             return setPointField(r, kCircle, 10, {1.5, 7, 0});
         },
         "0 X|100 AcDbCircle|10 1.50|20 7.0|30 0.00"},
        {"a flat point that gets a height", "0 X|100 AcDbCircle|10 1|20 2|40 5",
         [](R r) {
             return setPointField(r, kCircle, 10, {1, 2, 3});
         },
         "0 X|100 AcDbCircle|10 1|20 2|30 3.0|40 5"},
        {"a point where there is none", "0 X|100 AcDbCircle|39 1|40 5",
         [](R r) {
             return setPointField(r, kCircle, 10, {1, 2, 0});
         },
         "0 X|100 AcDbCircle|39 1|10 1.0|20 2.0|30 0.0|40 5"},
        {"the common part, which the record lacks", "0 X|5 1|330 2|62 0|100 AcDbArc|50 1",
         [](R r) { return setIntegerField(r, host::kEntityPart, 62, 3, 256); },
         "0 X|5 1|330 2|62 0|100 AcDbEntity|62 3|100 AcDbArc|50 1"},
        {"a part of its own, which the record lacks", "0 X|5 1|100 AcDbArc|50 1|1001 APP",
         [](R r) { return setRealField(r, kCircle, 40, 2.0, 0.0); },
         "0 X|5 1|100 AcDbArc|50 1|100 AcDbCircle|40 2.0|1001 APP"},
        {"a field taken out", "0 X|40 1|100 AcDbCircle|40 2|62 3",
         [](R r) { return removeField(r, kCircle, 40); }, "0 X|40 1|100 AcDbCircle|62 3"},
        {"a field that is not there", "0 X|40 1|100 AcDbCircle|62 3",
         [](R r) { return removeField(r, kCircle, 40); }, nullptr},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.name);
        Record record(row.before);
        const std::string before = record.shown();
        EXPECT_EQ(row.set(record), row.after != nullptr);
        EXPECT_EQ(record.writes > 0, row.after != nullptr);
        EXPECT_EQ(record.shown(), row.after ? std::string(row.after) : before);
    }
}

TEST(TagView, AChangedValueKeepsItsCodeLine)
{
    TagList own(plainSource());
    const std::string_view bytes = own.source()->keep("  0\nX\n 040\n2\n");
    own.splitRecord(bytes.data(), bytes.size());
    own.setReal(1, 3.0);
    std::string written;
    own.form().write(own[1], written);
    EXPECT_EQ(written, " 040\n3.0\n");
}

TEST(TagView, CopiesInAnotherFormKeepTheirValues)
{
    const auto version = host::DxfVersion::r2000;
    const auto wide = std::make_shared<host::TagSource>(
        nullptr,
        std::make_unique<host::TextForm>(version, host::pageOfDrawing(version, "ANSI_1252"),
                                         host::TextStyle{"\r\n", 3, 6, 9}));
    const Record record("0 X|999 remark|5 00a|1 \xC3\xA9|40 1e1|70 3|90 70000|290 1|310 0aFf");
    const TagList copy = record.tags().inSource(wide);
    std::string bytes;
    for (const host::Tag& tag : copy)
        copy.form().write(tag, bytes);
    EXPECT_EQ(bytes, "  0\r\nX\r\n  5\r\nA\r\n  1\r\n\xE9\r\n 40\r\n10.0\r\n 70\r\n     3\r\n"
                     " 90\r\n    70000\r\n290\r\n     1\r\n310\r\n0AFF\r\n");
}

} // namespace

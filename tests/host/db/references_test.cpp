#include "host/db/references.h"

#include "tests/support/drawing_text.h"

using host::test::dxf;
using host::test::openText;

namespace {

std::string shown(const host::TagList& tags)
{
    constexpr const char* kKinds[] = {"soft", "hard", "soft owner", "hard owner", "name"};
    std::string text;
    for (const host::Reference& reference : host::referencesOf(tags)) {
        text += (text.empty() ? "" : ", ") + std::string(kKinds[static_cast<int>(reference.kind)]);
        if (!reference.table.empty())
            text += " " + std::string(reference.table);
        text += " " + std::string(tags[reference.at].bytes());
    }
    return text;
}

} // namespace

TEST(References, AreFoundByCodeTypeAndMarker)
{
    struct Row {
        const char* title;
        const char* tags;
        const char* references;
    };
    const Row rows[] = {
        {"an entity's own handle and owner are none",
         "0 TEXT|5 A0|330 1F|100 AcDbEntity|8 Walls|6 Dashed|100 AcDbText|1 8|7 Notes",
         "name LAYER Walls, name LTYPE Dashed, name STYLE Notes"},
        {"an 8 outside of the entity's part is none",
         "0 MLINE|5 A0|100 AcDbEntity|8 0|100 AcDbMline|2 STANDARD|340 B1|100 Other|8 x|6 y",
         "name LAYER 0, hard B1"},
        {"groups of the head",
         "0 POINT|5 A0|102 {ACAD_REACTORS|330 B1|102 }|102 {ACAD_XDICTIONARY|360 B2|102 }|330 "
         "1F|100 AcDbEntity|8 0|100 AcDbPoint|10 0",
         "soft B1, hard owner B2, name LAYER 0"},
        {"a dimension",
         "0 DIMENSION|5 A0|100 AcDbEntity|8 0|100 AcDbDimension|2 *D1|3 Small|1 text|100 "
         "AcDbAlignedDimension|100 AcDbRotatedDimension",
         "name LAYER 0, name BLOCK_RECORD *D1, name DIMSTYLE Small"},
        {"extended data",
         "0 POINT|5 A0|100 AcDbEntity|8 0|100 AcDbPoint|1001 APP|1000 8|1003 Roads|1005 B1|1040 7",
         "name LAYER 0, name APPID APP, name LAYER Roads, soft B1"},
        {"an embedded object has a style too",
         "0 ATTDEF|5 A0|100 AcDbEntity|8 0|100 AcDbText|7 S1|101 Embedded Object|7 S2|8 x",
         "name LAYER 0, name STYLE S1, name STYLE S2"},
        {"free handles are not followed",
         "0 POINT|5 A0|100 AcDbEntity|8 0|100 AcDbPoint|320 B1|329 B2|390 B3",
         "name LAYER 0, hard B3"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.title);
        ReadDrawing drawing = openText(row.tags);
        EXPECT_EQ(shown(*drawing.drawing().tagsOf(drawing.idOf("A0").stubNumber())),
                  row.references);
    }
}

TEST(References, PayloadOfAnXrecordNamesNothing)
{
    ReadDrawing drawing(host::test::DrawingText{
        .objects = "0 DICTIONARY|5 C|330 0|100 AcDbDictionary|3 X|360 A0|0 XRECORD|5 A0|330 C|100 "
                   "AcDbXrecord|280 1|8 Walls|6 Dashed|1001 APP|102 {|330 B1|340 B2|350 B3|360 "
                   "B4|1005 B5|5 B6"}
                            .text());
    EXPECT_EQ(shown(*drawing.drawing().tagsOf(drawing.idOf("A0").stubNumber())),
              "soft B1, hard B2, soft owner B3, hard owner B4, soft B5");
}

TEST(References, RecordsWithoutMarkersAreSearchedWhole)
{
    ReadDrawing drawing = openText("0 INSERT|8 Trees|5 A0|2 OAK|6 Dashed|10 1|1001 APP|1000 x",
                                   host::DxfVersion::r12);
    EXPECT_EQ(shown(*drawing.drawing().tagsOf(drawing.idOf("A0").stubNumber())),
              "name LAYER Trees, name BLOCK_RECORD OAK, name LTYPE Dashed, name APPID APP");
}

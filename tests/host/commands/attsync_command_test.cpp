#include "host/db/attribute.h"
#include "host/db/block_reference.h"
#include "host/db/block_table.h"
#include "host/text/encoding.h"
#include "tests/support/drawing_text.h"
#include "tests/support/opened_drawing.h"

#include <fstream>

namespace {

std::string definition(const char* handle, const char* tag, const char* value, double x,
                       int flags = 0)
{
    return std::string("0\nATTDEF\n5\n") + handle +
           "\n100\nAcDbEntity\n8\n0\n62\n3\n100\nAcDbText\n10\n" + std::to_string(x) +
           "\n20\n2.0\n30\n0.0\n40\n0.5\n1\n" + value +
           "\n100\nAcDbAttributeDefinition\n3\nprompt\n2\n" + tag + "\n70\n" +
           std::to_string(flags) + "\n";
}

std::string attribute(const char* handle, const char* owner, const char* tag, const char* value)
{
    return std::string("0\nATTRIB\n5\n") + handle + "\n330\n" + owner +
           "\n100\nAcDbEntity\n8\n0\n100\nAcDbText\n10\n77.0\n20\n77.0\n30\n0.0\n40\n9.0\n1\n" +
           value + "\n100\nAcDbAttribute\n2\n" + tag + "\n70\n0\n";
}

std::string insertBody(const char* block, double x, const std::string& attributes)
{
    return std::string(attributes.empty() ? "" : "66\n1\n") + "2\n" + block + "\n10\n" +
           std::to_string(x) + "\n20\n0.0\n30\n0.0\n41\n2.0\n42\n2.0\n43\n2.0\n" + attributes +
           (attributes.empty() ? ""
                               : "0\nSEQEND\n5\nF0" + std::to_string(int(x)) +
                                     "\n330\nF00\n100\nAcDbEntity\n8\n0\n");
}

class AttsyncCommand : public DrawingTest {
protected:
    // A drawing with one reference of "Door", 10 to the right at twice the size, with these
    // attributes.
    void openDoor(const std::string& definitions, const std::string& attributes,
                  const char* layer = "0")
    {
        DxfDrawing drawing;
        drawing.layer("Shut", 4);
        drawing.block("Door", 0, definitions);
        drawing.block("Plain");
        door_ = drawing.entity("INSERT", "AcDbBlockReference", insertBody("Door", 10, attributes),
                               layer);
        open(drawing);
        type(L"");
        printed();
    }

    std::string attributes(const std::string& handle)
    {
        const AcDbObjectPointer<AcDbBlockReference> found(idOf(handle), AcDb::kForRead);
        if (!found)
            return "none";
        std::string text;
        for (const AcDbObjectId id : found->attributes()) {
            const AcDbObjectPointer<AcDbAttribute> one(id, AcDb::kForRead);
            const AcGePoint3d at = one->position();
            char place[64];
            std::snprintf(place, sizeof place, " %g,%g h%g c%d", at.x, at.y, one->height(),
                          one->colorIndex());
            text += host::toUtf8(one->tag() + L"=" + one->textString()) + place + "; ";
        }
        return text;
    }

    std::string door_;
};

} // namespace

TEST_F(AttsyncCommand, AttributesBecomeWhatTheBlockDefines)
{
    struct Case {
        const char* what;
        std::string definitions;
        std::string attributes;
        const char* after;
    };
    const Case cases[] = {
        {"moved and resized, the value stays", definition("E1", "NUMBER", "?", 1.0),
         attribute("F1", "F00", "NUMBER", "12"), "NUMBER=12 12,4 h1 c3; "},
        {"added, with the definition's value",
         definition("E1", "NUMBER", "?", 1.0) + definition("E2", "MAKER", "ACME", 3.0),
         attribute("F1", "F00", "NUMBER", "12"), "NUMBER=12 12,4 h1 c3; MAKER=ACME 16,4 h1 c3; "},
        {"added in front",
         definition("E2", "MAKER", "ACME", 3.0) + definition("E1", "NUMBER", "?", 1.0),
         attribute("F1", "F00", "NUMBER", "12"), "MAKER=ACME 16,4 h1 c3; NUMBER=12 12,4 h1 c3; "},
        {"removed", definition("E1", "NUMBER", "?", 1.0),
         attribute("F1", "F00", "GONE", "x") + attribute("F2", "F00", "number", "12"),
         "NUMBER=12 12,4 h1 c3; "},
        {"in another order", definition("E1", "A", "?", 1.0) + definition("E2", "B", "?", 2.0),
         attribute("F1", "F00", "B", "b") + attribute("F2", "F00", "A", "a"),
         "A=a 12,4 h1 c3; B=b 14,4 h1 c3; "},
        {"two of one tag keep their values in order",
         definition("E1", "A", "?", 1.0) + definition("E2", "A", "?", 2.0),
         attribute("F1", "F00", "A", "first") + attribute("F2", "F00", "A", "second"),
         "A=first 12,4 h1 c3; A=second 14,4 h1 c3; "},
        {"constant ones belong to the block", definition("E1", "FIXED", "oak", 1.0, 2),
         attribute("F1", "F00", "FIXED", "pine"), ""},
        {"none before", definition("E1", "NUMBER", "7", 1.0), "", "NUMBER=7 12,4 h1 c3; "},
        {"none any more", "", attribute("F1", "F00", "NUMBER", "12"), ""},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.what);
        openDoor(row.definitions, row.attributes);
        const std::string before = attributes(door_);
        EXPECT_EQ(transcript(L"_.attsync _n door\n"),
                  L"_.attsync\nEnter an option [?/Name/Select] <Select>: _n\n"
                  L"Enter block name to synchronize or [?]: door\nCommand: ");
        EXPECT_EQ(attributes(door_), row.after);
        type(L"_.u\n");
        EXPECT_EQ(attributes(door_), before);
    }
}

TEST_F(AttsyncCommand, KeptAttributesKeepTheirHandles)
{
    openDoor(definition("E1", "A", "?", 1.0) + definition("E2", "B", "new", 2.0),
             attribute("F1", "F00", "A", "a"));
    type(L"attsync n Door\n");
    const AcDbObjectPointer<AcDbAttribute> kept(idOf("F1"), AcDb::kForRead);
    ASSERT_TRUE(kept);
    EXPECT_EQ(kept->textString(), L"a");
}

TEST_F(AttsyncCommand, ReachesDynamicReferencesAndThoseInsideBlocks)
{
    DxfDrawing drawing;
    const std::string dynamic = drawing.block(
        "Door", 0, definition("E1", "A", "?", 5.0) + definition("E2", "B", "new", 6.0), {},
        "102\n{ACAD_XDICTIONARY\n360\nD1\n102\n}\n");
    drawing.block("*U7", 0, definition("E3", "A", "?", 1.0) + definition("E4", "OLD", "?", 2.0),
                  "1001\nAcDbBlockRepBTag\n1070\n1\n1005\n" + dynamic + "\n");
    drawing.block("Room", 0,
                  "0\nINSERT\n5\nE9\n100\nAcDbEntity\n8\n0\n100\nAcDbBlockReference\n2\nDoor\n10\n"
                  "0.0\n20\n0.0\n30\n0.0\n");
    const std::string set = drawing.entity("INSERT", "AcDbBlockReference",
                                           insertBody("*U7", 10, attribute("F1", "F00", "A", "a")));
    drawing.object("0\nDICTIONARY\n5\nD1\n330\n" + dynamic +
                   "\n100\nAcDbDictionary\n281\n1\n3\nACAD_ENHANCEDBLOCK\n360\nD2\n0\n"
                   "ACAD_EVALUATION_GRAPH\n5\nD2\n330\nD1\n100\nAcDbEvalGraph\n");
    open(drawing);
    type(L"attsync n door\n");
    EXPECT_EQ(attributes(set), "A=a 20,4 h1 c3; B=new 22,4 h1 c3; ");
    EXPECT_EQ(attributes("E9"), "A=? 5,2 h0.5 c3; B=new 6,2 h0.5 c3; ");
    EXPECT_TRUE(idOf("E4").isErased());
}

TEST_F(AttsyncCommand, WorksInTheOldestDrawings)
{
    const std::filesystem::path path = folder() / "old.dxf";
    std::ofstream(path)
        << host::test::DrawingText{.version = host::DxfVersion::r12,
                                   .blocks = "0 BLOCK|8 0|2 Door|70 2|10 0|20 0|0 ATTDEF|5 E1|8 "
                                             "0|62 3|10 1|20 2|40 0.5|1 ?|3 "
                                             "ask|2 A|70 0|0 ATTDEF|5 E2|8 0|10 3|20 2|40 0.5|1 "
                                             "new|3 ask|2 B|70 0|0 ENDBLK|8 "
                                             "0",
                                   .entities = "0 INSERT|5 F0|8 0|66 1|2 Door|10 10|20 0|41 2|42 "
                                               "2|43 2|0 ATTRIB|5 F1|8 0|10 "
                                               "77|20 77|40 9|1 a|2 A|70 0|0 SEQEND|5 F2|8 0"}
               .text();
    std::wstring message;
    ASSERT_NE(session().documents().openDocument(path, false, message), nullptr);
    type(L"attsync n door\n");
    EXPECT_EQ(attributes("F0"), "A=a 12,4 h1 c3; B=new 16,4 h1 c256; ");
    type(L"qsave\n");
    std::ifstream saved(path);
    const std::string text(std::istreambuf_iterator<char>(saved), {});
    EXPECT_EQ(text.find("100\nAcDb"), std::string::npos) << text;
}

TEST_F(AttsyncCommand, WhatLiesOnLockedLayersStaysAndIsCounted)
{
    openDoor(definition("E1", "A", "?", 1.0), attribute("F1", "F00", "A", "a"), "Shut");
    EXPECT_NE(transcript(L"attsync n door\n").find(L"1 was on a locked layer.\n"),
              std::wstring::npos);
    EXPECT_EQ(attributes(door_), "A=a 77,77 h9 c256; ");
}

TEST_F(AttsyncCommand, TextsOfSeveralLinesAreKeptWhole)
{
    const auto embedded = [](const char* lines, const char* place) {
        return std::string("101\nEmbedded Object\n10\n") + place + "\n20\n2.0\n30\n0.0\n40\n0.5\n" +
               lines + "7\nStandard\n";
    };
    openDoor(definition("E1", "A", "?", 1.0) + embedded("1\n?\n", "1.0"),
             attribute("F1", "F00", "A", "first") + embedded("3\nfirst\\Psec\n1\nond\n", "77.0"));
    type(L"attsync n Door\n");
    const AcDbObjectPointer<AcDbAttribute> kept(idOf("F1"), AcDb::kForRead);
    const host::TagList& tags = kept->tags();
    const std::size_t from = tags.find(101);
    ASSERT_NE(from, host::TagList::npos);
    EXPECT_EQ(tags.real(tags.find(10, from)), 12.0);
    EXPECT_EQ(tags.text(tags.find(3, from)) + tags.text(tags.find(1, from)), L"first\\Psecond");
    EXPECT_EQ(tags.find(1, tags.find(1, from) + 1), host::TagList::npos);
}

TEST_F(AttsyncCommand, AttributesComeBackInAWholeSequence)
{
    openDoor("", attribute("F1", "F00", "A", "a"));
    type(L"attsync n Door\n");
    {
        AcDbObjectId block;
        AcDbObjectPointer<AcDbBlockTable>(database().blockTableId(), AcDb::kForRead)
            ->getAt(L"Door", block);
        const AcDbObjectPointer<AcDbBlockTableRecord> door(block, AcDb::kForWrite);
        AcDbObjectPointer<AcDbAttributeDefinition> model;
        model.create();
        model->setTag(L"B");
        model->setHeight(1.0);
        model->setTextString(L"b");
        ASSERT_EQ(door->appendAcDbEntity(model.object()), Acad::eOk);
    }
    type(L"attsync n Door\nqsave\n");
    std::wstring message;
    const AcApDocument* const again =
        session().documents().openDocument(folder() / "drawing.dxf", true, message);
    ASSERT_NE(again, nullptr) << host::toUtf8(message);
    EXPECT_TRUE(again->database()->drawing().warnings.empty());
    EXPECT_EQ(attributes(door_), "B=b 10,0 h2 c256; ");
}

TEST_F(AttsyncCommand, PromptsAndRefusals)
{
    openDoor(definition("E1", "A", "?", 1.0), "");
    EXPECT_EQ(transcript(L"attsync ? n nowhere\n"),
              L"attsync\nEnter an option [?/Name/Select] <Select>: ?\n"
              L"Blocks with attributes:\n    \"Door\"\n"
              L"Enter an option [?/Name/Select] <Select>: n\n"
              L"Enter block name to synchronize or [?]: nowhere\n"
              L"Cannot find block \"nowhere\".\nCommand: ");
    EXPECT_NE(transcript(L"attsync n plain\n").find(L"Block \"Plain\" has no attributes.\n"),
              std::wstring::npos);
    EXPECT_NE(transcript(L"attsync\n\nl\nn\n\x3").find(L"ATTSYNC block Door? [Yes/No] <Yes>: n"),
              std::wstring::npos);
    EXPECT_EQ(attributes(door_), "");
    type(L"attsync s l\n\n");
    EXPECT_EQ(attributes(door_), "A=? 12,4 h1 c3; ");
}

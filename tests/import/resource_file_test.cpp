#include "import/resource_file.h"

#include "host/db/block_table.h"
#include "host/db/database.h"
#include "host/db/dictionary.h"
#include "host/db/drawing_format.h"
#include "host/db/layout.h"
#include "host/db/symbol_tables.h"
#include "host/edit/environment.h"
#include "host/text/case_mapping.h"
#include "host/text/encoding.h"
#include "import/block_file.h"
#include "import/resource_presence.h"
#include "tests/host/io/independent_proof.h"
#include "tests/support/opened_drawing.h"
#include "tests/support/resource_drawing.h"

#include <algorithm>

namespace {

using enum ResourceKind;
using Names = std::vector<std::wstring>;

// Everything that a drawing can supply, twice: "A..." and "B...".
ResourceDrawing fullDrawing()
{
    ResourceDrawing drawing;
    for (const std::string letter : {"A", "B"}) {
        drawing.block(letter + "Block", 0, drawing.lineIn(letter + "Inner"));
        drawing.dimensionStyle(letter + "Dim");
        drawing.layer(letter + "Layer", 0, 3);
        drawing.layer(letter + "Inner");
        drawing.layout(letter + "Tab");
        drawing.linetype(letter + "Type");
        drawing.mleaderStyle(letter + "Leader");
        drawing.mlineStyle(letter + "Mline");
        drawing.textStyle(letter + "Style");
    }
    return drawing;
}

class ResourceFileTest : public DrawingTest {
protected:
    bool has(ResourceKind kind, std::wstring_view name)
    {
        return ResourcePresence(kind, database()).has(name);
    }
    // All that a table or dictionary of the working drawing has, lower-cased.
    Names all(ResourceKind kind)
    {
        Names names;
        if (isSymbolKind(kind)) {
            const AcDbObjectPointer<AcDbSymbolTable> table(ownerOf(kind, database()),
                                                           AcDb::kForRead);
            for (const auto entry = table->newIterator(); !entry->done(); entry->step()) {
                const AcDbObjectPointer<AcDbSymbolTableRecord> record(entry->getRecordId(),
                                                                      AcDb::kForRead);
                names.push_back(host::lowerCased(record->name()));
            }
            return names;
        }
        const AcDbObjectPointer<AcDbDictionary> dictionary(ownerOf(kind, database()),
                                                           AcDb::kForRead);
        if (!dictionary)
            return names;
        for (const auto entry = dictionary->newIterator(); !entry->done(); entry->next())
            names.push_back(host::lowerCased(entry->name()));
        return names;
    }
    std::wstring writeFile(const std::string& name, const std::string& bytes)
    {
        std::ofstream(folder() / name, std::ios::binary) << bytes;
        return (folder() / name).wstring();
    }
    // Loads one kind; what was found, or nothing when the load failed.
    std::optional<Names> load(std::wstring_view path, ResourceKind kind, Names wanted)
    {
        ResourceNames names;
        names[kind] = std::move(wanted);
        if (!LoadResource(path, bitOf(kind), names))
            return std::nullopt;
        return names[kind];
    }
};

struct KindCase {
    ResourceKind kind;
    std::wstring a; // what fullDrawing supplies of the kind
    std::wstring b;
};
const KindCase kKinds[] = {
    {block, L"ablock", L"bblock"},      {dimensionStyle, L"adim", L"bdim"},
    {layer, L"alayer", L"blayer"},      {layout, L"atab", L"btab"},
    {linetype, L"atype", L"btype"},     {mleaderStyle, L"aleader", L"bleader"},
    {mlineStyle, L"amline", L"bmline"}, {textStyle, L"astyle", L"bstyle"},
};

} // namespace

TEST_F(ResourceFileTest, ADrawingSuppliesWhatIsWanted)
{
    const std::wstring path = fullDrawing().write(folder(), "full.dwg").wstring();
    for (const KindCase& each : kKinds) {
        SCOPED_TRACE(host::toUtf8(each.a));
        EXPECT_FALSE(has(each.kind, each.a));
        EXPECT_EQ(load(path, each.kind, {L"missing", each.a}), Names{each.a});
        EXPECT_TRUE(has(each.kind, each.a));
        EXPECT_FALSE(has(each.kind, each.b));
    }
    EXPECT_TRUE(has(layer, L"ainner")); // what a wanted block needs
    EXPECT_FALSE(has(layer, L"binner"));
}

TEST_F(ResourceFileTest, AnEmptyListTakesAllOfTheFile)
{
    const std::wstring path = fullDrawing().write(folder(), "full.dwt").wstring();
    for (const KindCase& each : kKinds) {
        SCOPED_TRACE(host::toUtf8(each.a));
        const std::optional<Names> found = load(path, each.kind, {});
        ASSERT_TRUE(found);
        for (const std::wstring& name : {each.a, each.b}) {
            EXPECT_EQ(std::count(found->begin(), found->end(), name), 1);
            EXPECT_TRUE(has(each.kind, name));
        }
    }
    EXPECT_EQ(load(path, block, {}), (Names{L"ablock", L"bblock"})); // no space
    EXPECT_EQ(load(path, layer, {}), (Names{L"0", L"alayer", L"ainner", L"blayer", L"binner"}));
}

TEST_F(ResourceFileTest, SeveralKindsComeInOneGo)
{
    const std::wstring path = fullDrawing().write(folder(), "full.dwg").wstring();
    ResourceNames names;
    names[layer] = {L"blayer"};
    names[textStyle] = {L"astyle", L"none"};
    names[linetype] = {L"atype"}; // not asked for
    ASSERT_TRUE(LoadResource(path, bitOf(layer) | bitOf(textStyle), names));
    EXPECT_EQ(names[layer], Names{L"blayer"});
    EXPECT_EQ(names[textStyle], Names{L"astyle"});
    EXPECT_EQ(names[linetype], Names{}); // only what was found goes out
    EXPECT_FALSE(has(linetype, L"atype"));
}

TEST_F(ResourceFileTest, WhatTheDrawingHasStaysAsItIs)
{
    DxfDrawing working;
    working.layer("Alayer", 0, 5);
    open(working);
    const std::wstring path = fullDrawing().write(folder(), "full.dwg").wstring();
    EXPECT_EQ(load(path, layer, {L"alayer"}), Names{L"alayer"}); // the file has it, so it counts
    AcDbObjectId id;
    const AcDbObjectPointer<AcDbLayerTable> layers(database().layerTableId(), AcDb::kForRead);
    ASSERT_EQ(layers->getAt(L"ALayer", id), Acad::eOk);
    const AcDbObjectPointer<AcDbLayerTableRecord> record(id, AcDb::kForRead);
    EXPECT_EQ(record->color().colorIndex(), 5);
    EXPECT_EQ(record->name(), L"Alayer");
}

TEST_F(ResourceFileTest, ATabOfTheSameNameIsNotTaken)
{
    ResourceDrawing file = fullDrawing();
    file.layout("Model");
    const std::wstring path = file.write(folder(), "tabs.dwg").wstring();
    ASSERT_EQ(load(path, layout, {L"atab"}), Names{L"atab"});
    const Names before = all(layout);
    EXPECT_EQ(load(path, layout, {L"atab"}), Names{});
    EXPECT_EQ(load(path, layout, {L"model"}), Names{});
    EXPECT_EQ(all(layout), before);
    EXPECT_EQ(load(path, layout, {}), Names{L"btab"});
}

TEST_F(ResourceFileTest, ALayoutBringsItsSpace)
{
    const std::wstring path = fullDrawing().write(folder(), "tabs.dwg").wstring();
    ASSERT_EQ(load(path, layout, {L"btab"}), Names{L"btab"});
    const AcDbObjectPointer<AcDbDictionary> layouts(ownerOf(layout, database()), AcDb::kForRead);
    AcDbObjectId id;
    ASSERT_EQ(layouts->getAt(L"BTab", id), Acad::eOk);
    const AcDbObjectPointer<AcDbLayout> tab(id, AcDb::kForRead);
    EXPECT_EQ(tab->getTabOrder(), 2); // behind the two that a new drawing has
    const AcDbObjectPointer<AcDbBlockTableRecord> space(tab->getBlockTableRecordId(),
                                                        AcDb::kForRead);
    ASSERT_TRUE(space);
    EXPECT_TRUE(space->isLayout());
    std::unique_ptr<AcDbBlockTableRecordIterator> entity;
    ASSERT_EQ(space->newIterator(entity), Acad::eOk);
    EXPECT_FALSE(entity->done());
}

TEST_F(ResourceFileTest, BlocksThatHoldThemselvesAreLeftOut)
{
    ResourceDrawing file;
    file.block("Self", 0, file.referenceIn("SELF"));
    file.block("Ring", 0, file.referenceIn("Back"));
    file.block("Back", 0, file.lineIn("0") + file.referenceIn("Ring"));
    file.block("Outer", 0, file.referenceIn("Self"));
    file.block("Inner", 0, file.lineIn("0"));
    file.block("Good", 0, file.referenceIn("Inner") + file.referenceIn("Inner"));
    file.block("Lost", 0, file.referenceIn("nowhere"));
    file.block("*U7", 0, file.lineIn("0"));
    const std::wstring path = file.write(folder(), "blocks.dwg").wstring();
    EXPECT_EQ(load(path, block, {}), (Names{L"inner", L"good", L"lost"}));
    EXPECT_EQ(load(path, block, {L"outer", L"back"}), Names{});
    EXPECT_FALSE(has(block, L"self"));
    EXPECT_FALSE(has(block, L"ring"));
}

TEST_F(ResourceFileTest, AFileWithoutTheDictionariesSuppliesNothing)
{
    const std::wstring path = DxfDrawing().write(folder(), "bare.dwg").wstring();
    for (const ResourceKind kind : {layout, mleaderStyle, mlineStyle})
        EXPECT_EQ(load(path, kind, {L"x"}), Names{}) << static_cast<int>(kind);
}

TEST_F(ResourceFileTest, OtherReadersFindNoFaultInWhatCame)
{
    if (!host::test::proofAvailable())
        GTEST_SKIP() << "ezdxf is not installed";
    ResourceDrawing file = fullDrawing();
    file.block("Ring", 0, file.referenceIn("Ring"));
    file.line("ALayer");
    const std::wstring path = file.write(folder(), "full.dwg").wstring();
    for (const KindCase& each : kKinds)
        ASSERT_TRUE(load(path, each.kind, {})) << host::toUtf8(each.a);
    ASSERT_TRUE(LoadBlockFile(path, L"Whole", database()));
    ASSERT_EQ(load(writeFile("t.lin", "*Dot,. .\nA,0,-.25\n"), linetype, {}), Names{L"dot"});
    std::string bytes;
    host::drawingFormat().write(database().drawing(), bytes);
    EXPECT_EQ(host::test::proofOf(bytes), "AC1032 0 0 0\n");
}

TEST_F(ResourceFileTest, RefusesWhatItCannotUse)
{
    const std::string drawing = fullDrawing().text();
    const std::string lin = "*ONE,one\nA,1,-1\n";
    const std::wstring link = (folder() / "folder.dwg").wstring();
    std::filesystem::create_directory(folder() / "folder.dwg");
    const struct {
        const char* name;
        std::wstring path;
        ResourceKinds kinds;
    } cases[] = {
        {"no kind", writeFile("full.dwg", drawing), 0},
        {"missing", (folder() / "none.dwg").wstring(), bitOf(layer)},
        {"a folder", link, bitOf(layer)},
        {"capitals", writeFile("CAPITALS.DWG", drawing), bitOf(layer)},
        {"two extensions", writeFile("full.dwg.dwg", drawing), bitOf(layer)},
        {"another extension", writeFile("full.dxf", drawing), bitOf(layer)},
        {"cut off", writeFile("cut.dwg", drawing.substr(0, drawing.size() / 2)), bitOf(layer)},
        {"empty", writeFile("empty.dwg", ""), bitOf(layer)},
        {"no drawing", writeFile("text.dwt", lin), bitOf(layer)},
        {"layers of a linetype file", writeFile("one.lin", lin), bitOf(layer)},
        {"linetypes of a pattern file", writeFile("one.pat", lin), bitOf(linetype)},
        {"linetypes of a multiline file", writeFile("one.mln", lin), bitOf(linetype)},
    };
    for (const auto& [name, path, kinds] : cases) {
        SCOPED_TRACE(name);
        ResourceNames names;
        names[layer] = {L"alayer"};
        names[linetype] = {L"one"};
        EXPECT_FALSE(LoadResource(path, kinds, names));
        EXPECT_EQ(names[layer], Names{L"alayer"});
        EXPECT_EQ(names[linetype], Names{L"one"});
    }
    EXPECT_FALSE(has(layer, L"alayer"));
    EXPECT_FALSE(has(linetype, L"one"));
}

TEST_F(ResourceFileTest, LinetypesOfAFile)
{
    const std::wstring path = writeFile(
        "types.lin", ";; types\n*Dash,__ __\nA,.5,-.25\n*DOT,. .\nA,0,-.25\n*Broken\nA,x,y\n");
    EXPECT_EQ(load(path, linetype, {L"dot", L"none", L"broken"}), Names{L"dot"});
    EXPECT_TRUE(has(linetype, L"DOT"));
    EXPECT_FALSE(has(linetype, L"dash"));
    EXPECT_EQ(load(path, linetype, {L"dot"}), Names{}); // is there already, so nothing was loaded
    EXPECT_EQ(load(path, linetype, {}), (Names{L"dash", L"dot", L"broken"}));
    EXPECT_TRUE(has(linetype, L"dash"));
    EXPECT_FALSE(has(linetype, L"broken"));
}

TEST_F(ResourceFileTest, MultilineStylesOfAFile)
{
    const std::wstring path =
        writeFile("styles.mln", "MLSTYLE\n  2\nWALL\n 70\n0\n  3\n\n 62\n256\n 51\n90.0\n 52\n"
                                "90.0\n 71\n2\n 49\n0.5\n 62\n256\n  6\nBYLAYER\n 49\n-0.5\n 62\n"
                                "256\n  6\nBYLAYER\n  0\n");
    EXPECT_EQ(load(path, mlineStyle, {}), Names{});
    EXPECT_FALSE(has(mlineStyle, L"wall"));
    EXPECT_EQ(load(path, mlineStyle, {L"none", L"wall"}), Names{L"wall"});
    EXPECT_TRUE(has(mlineStyle, L"wall"));
}

TEST_F(ResourceFileTest, PatternsAreAddedToTheFilesOfTheHost)
{
    const std::filesystem::path support = folder() / "profile" / "support";
    const auto bytes = [&](const char* name) {
        std::ifstream file(support / name, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(file), {});
    };
    std::ofstream(support / "acad.pat", std::ios::app) << "*Tiles, known\n0, 0,0, 0,7\n";
    const std::string inches = bytes("acad.pat");
    const std::string metric = bytes("acadiso.pat");
    const std::wstring path = writeFile(
        "own.pat", "; ours\n*TILES, square\n0, 0,0, 0,1\n90, 0,0, 0,1\n*Other\n0, 0,0, 0,2\n");

    EXPECT_EQ(load(path, pattern, {}), Names{});
    EXPECT_FALSE(has(pattern, L"tiles"));
    EXPECT_EQ(load(path, pattern, {L"none", L"tiles"}), Names{L"tiles"});
    EXPECT_TRUE(has(pattern, L"tiles"));
    EXPECT_FALSE(has(pattern, L"other"));
    EXPECT_EQ(bytes("acad.pat"), inches); // it had one of that name
    const std::string added = metric + "\n*TILES, square\n0, 0,0, 0,1\n90, 0,0, 0,1\n\n";
    EXPECT_EQ(bytes("acadiso.pat"), added);

    EXPECT_EQ(load(path, pattern, {L"tiles"}), Names{L"tiles"});
    EXPECT_EQ(bytes("acadiso.pat"), added);
}

TEST_F(ResourceFileTest, PatternsNeedAFolderThatTakesThem)
{
    std::filesystem::remove(folder() / "profile" / "support" / "acad.pat");
    const std::wstring path = writeFile("own.pat", "*TILES\n0, 0,0, 0,1\n");
    EXPECT_EQ(load(path, pattern, {L"tiles"}), std::nullopt);
    EXPECT_EQ(load(path, pattern, {}), Names{}); // nothing to add, so none is needed
}

TEST_F(ResourceFileTest, BrokenPatternLinesDoNotReachTheDrawing)
{
    const std::wstring path =
        writeFile("own.pat", "*BAD\nnot, a, line\n*GOOD\n0, 0,0, 0,1\n*BARE\n");
    EXPECT_EQ(load(path, pattern, {L"bad", L"good", L"bare"}), (Names{L"bad", L"good", L"bare"}));
    EXPECT_FALSE(has(pattern, L"bad"));
    EXPECT_TRUE(has(pattern, L"good"));
    EXPECT_FALSE(has(pattern, L"bare"));
}

TEST_F(ResourceFileTest, PresenceIsAskedOfTheKindsOwnTable)
{
    const struct {
        ResourceKind kind;
        const wchar_t* name;
        bool present;
    } cases[] = {
        {block, L"*model_space", true},
        {dimensionStyle, L"standard", true},
        {layer, L"0", true},
        {layer, L"standard", false},
        {layout, L"Layout1", true},
        {linetype, L"continuous", true},
        {linetype, L"0", false},
        {mleaderStyle, L"STANDARD", true},
        {mlineStyle, L"standard", true},
        {pattern, L"ansi31", true},
        {pattern, L"standard", false},
        {textStyle, L"Standard", true},
    };
    for (const auto& [kind, name, present] : cases)
        EXPECT_EQ(has(kind, name), present) << host::toUtf8(name) << static_cast<int>(kind);
    EXPECT_FALSE(ResourcePresence(pattern, database()).has(L"_user"));
    EXPECT_TRUE(ResourcePresence(pattern, database(), AcDbHatch::kUserDefined).has(L"_user"));
}

#include "host/db/symbol_tables.h"
#include "host/text/case_mapping.h"
#include "import/resource_presence.h"
#include "tests/description/description_test.h"
#include "tests/support/resource_drawing.h"

namespace {

using enum ResourceKind;

class ResourceResolution : public DescriptionTest {
protected:
    // An object of this name with these property lines.
    static std::wstring object(const std::wstring& name, const std::wstring& properties)
    {
        std::wstring lines = L"obj_name\t" + name + L"\t1\t1\nobj_type\tLine\n";
        for (std::size_t at = 0; at < properties.size();) {
            const std::size_t end = std::min(properties.find(L';', at), properties.size());
            std::wstring line = properties.substr(at, end - at);
            std::replace(line.begin(), line.end(), L' ', L'\t');
            lines += L"obj_prop\t" + line + L"\n";
            at = end + 1;
        }
        return lines;
    }
    void layersIn(const char* file, std::initializer_list<const char*> names, int color = 3)
    {
        DxfDrawing drawing;
        for (const char* name : names)
            drawing.layer(name, 0, color);
        drawing.write(folder(), file);
    }
    std::wstring path(const std::wstring& name)
    {
        return host::lowerCased(folder().wstring() + L"/" + name);
    }
    bool has(ResourceKind kind, std::wstring_view name)
    {
        return ResourcePresence(kind, database()).has(name);
    }
    // "a:0 b:1": the names of an index and the numbers of their files.
    static std::wstring entries(const ResourceIndex& index)
    {
        std::wstring text;
        for (const auto& [key, entry] : index) {
            EXPECT_EQ(key, entry.name);
            text += (text.empty() ? L"" : L" ") + key + L":" + std::to_wstring(entry.fileIndex);
        }
        return text;
    }
    int colorOf(std::wstring_view layerName)
    {
        AcDbObjectId id;
        const AcDbObjectPointer<AcDbLayerTable> table(database().layerTableId(), AcDb::kForRead);
        if (table->getAt(layerName, id) != Acad::eOk)
            return -1;
        const AcDbObjectPointer<AcDbLayerTableRecord> record(id, AcDb::kForRead);
        return record->color().colorIndex();
    }
};

} // namespace

TEST_F(ResourceResolution, TheFirstFileByNameSuppliesAName)
{
    layersIn("B.dwg", {"Roads", "Paths"}, 2);
    layersIn("a.dwg", {"ROADS"}, 1);
    layersIn("c.dwg", {"Roads"}, 3);
    EXPECT_EQ(messagesOf(L"layer\tc.dwg\nlayer\tB.dwg\nlayer\ta.dwg\n" +
                         object(L"x", L"layer roads;linetype continuous") +
                         object(L"y", L"layer Paths")),
              L"");
    // Nothing is left for the last file, so it is asked for all that it has.
    EXPECT_EQ(entries(description_.layerIndex), L"0:2 paths:1 roads:0");
    EXPECT_EQ(description_.resourceFiles,
              (std::vector<std::wstring>{path(L"a.dwg"), path(L"b.dwg"), path(L"c.dwg")}));
    EXPECT_EQ(colorOf(L"roads"), 1);
    EXPECT_EQ(colorOf(L"paths"), 2);
    EXPECT_EQ(entries(description_.linetypeIndex), L"");
}

TEST_F(ResourceResolution, WhatNobodyNamesIsNotTaken)
{
    layersIn("a.dwg", {"Roads", "Walls"});
    EXPECT_EQ(messagesOf(L"layer\ta.dwg\n" + object(L"x", L"layer roads")), L"");
    EXPECT_TRUE(has(layer, L"roads"));
    EXPECT_FALSE(has(layer, L"walls"));
}

TEST_F(ResourceResolution, AFileThatNoObjectNeedsIsNotOpened)
{
    std::ofstream(folder() / "damaged.dwg") << "no drawing";
    const std::wstring lines = object(L"x", L"linetype continuous;textheight 2");
    EXPECT_EQ(messagesOf(L"layer\tdamaged.dwg\nblockreference\tdamaged.dwg\n" + lines), L"");
    EXPECT_TRUE(description_.resourceFiles.empty());
    EXPECT_EQ(messagesOf(L"layout\tdamaged.dwg\n" + lines),
              L"error: unable to load '" + path(L"damaged.dwg") + L"'\n");
    EXPECT_TRUE(isEmpty());
}

TEST_F(ResourceResolution, DirectivesForOneFileAddUp)
{
    ResourceDrawing drawing;
    drawing.layer("Roads");
    drawing.linetype("Dashes");
    drawing.textStyle("Notes");
    drawing.write(folder(), "all.dwg");
    EXPECT_EQ(messagesOf(L"layer\tall.dwg\nlinetype\tALL.*\n" +
                         object(L"x", L"layer roads;linetype dashes;textstyle notes")),
              L"warning: textstyle 'notes' not found\n");
    EXPECT_EQ(description_.resourceFiles.size(), 1U);
    EXPECT_EQ(entries(description_.layerIndex), L"roads:0");
    EXPECT_EQ(entries(description_.linetypeIndex), L"dashes:0");
}

TEST_F(ResourceResolution, EveryKindIsIndexed)
{
    ResourceDrawing drawing;
    drawing.block("Tree", 0, drawing.lineIn("0"));
    drawing.dimensionStyle("Survey");
    drawing.layer("Roads");
    drawing.layout("Sheet");
    drawing.linetype("Dashes");
    drawing.mleaderStyle("Arrow");
    drawing.mlineStyle("Wall");
    drawing.textStyle("Notes");
    drawing.write(folder(), "all.dwg");
    std::ofstream(folder() / "own.pat") << "*TILES\n0, 0,0, 0,1\n";
    std::wstring source = L"pattern\town.pat\n";
    for (const wchar_t* keyword : {L"blockreference", L"dimension", L"layer", L"layout",
                                   L"linetype", L"mleader", L"mline", L"textstyle"})
        source += std::wstring(keyword) + L"\tall.dwg\n";
    EXPECT_EQ(messagesOf(source +
                         object(L"x", L"blockname tree;dimensionstyle survey;layer roads;linetype "
                                      L"dashes;mleaderstyle arrow;mlinestyle wall;pattern tiles;"
                                      L"textstyle notes")),
              L"");
    const Description& read = description_;
    EXPECT_EQ(entries(read.blockIndex), L"tree:0");
    EXPECT_EQ(entries(read.dimensionStyleIndex), L"survey:0");
    EXPECT_EQ(entries(read.layerIndex), L"roads:0");
    EXPECT_EQ(entries(read.linetypeIndex), L"dashes:0");
    EXPECT_EQ(entries(read.mleaderStyleIndex), L"arrow:0");
    EXPECT_EQ(entries(read.mlineStyleIndex), L"wall:0");
    EXPECT_EQ(entries(read.patternIndex), L"tiles:1");
    EXPECT_EQ(entries(read.textStyleIndex), L"notes:0");
    EXPECT_TRUE(has(layout, L"sheet"));
    EXPECT_TRUE(has(mlineStyle, L"wall"));
}

TEST_F(ResourceResolution, ABlockFileGoesBeforeABlockOfADrawing)
{
    ResourceDrawing drawing;
    drawing.block("Tree", 0, drawing.lineIn("0"));
    drawing.block("Bush", 0, drawing.lineIn("0"));
    drawing.write(folder(), "blocks.dwg");
    DxfDrawing().write(folder(), "tree.dwg");
    DxfDrawing().write(folder(), "unused.dwg");
    EXPECT_EQ(messagesOf(L"blockreference\tblocks.dwg\nblockreferencefile\t*.dwg\n" +
                         object(L"x", L"blockname Tree") + object(L"y", L"blockname bush")),
              L"");
    EXPECT_EQ(entries(description_.blockIndex), L"bush:0");
    ASSERT_EQ(description_.blockFiles.size(), 1U);
    EXPECT_EQ(description_.blockFiles.begin()->first, L"tree");
    EXPECT_FALSE(has(block, L"tree")); // it is loaded when it is drawn
}

TEST_F(ResourceResolution, WarnsOfWhatIsNowhereKindByKind)
{
    const std::wstring all = L"textstyle t;pattern p;mlinestyle ml;mleaderstyle md;linetype lt;"
                             L"layer la;dimensionstyle d;blockname b";
    EXPECT_EQ(messagesOf(object(L"x", all) + object(L"a", L"layer z y,*,la;linetype x *,w")),
              L"warning: block 'b' not found\n"
              L"warning: dimension 'd' not found\n"
              L"warning: layer 'z' not found\n"
              L"warning: layer 'y' not found\n"
              L"warning: layer 'la' not found\n"
              L"warning: linetype 'x' not found\n"
              L"warning: linetype 'w' not found\n"
              L"warning: linetype 'lt' not found\n"
              L"warning: mleader 'md' not found\n"
              L"warning: mline 'ml' not found\n"
              L"warning: pattern 'p' not found\n"
              L"warning: textstyle 't' not found\n");
    EXPECT_EQ(description_.objects.size(), 2U);
}

TEST_F(ResourceResolution, WhatIsOpenOrOnlyAcceptedNeedsNoFile)
{
    EXPECT_EQ(messagesOf(object(L"x", L"layer *;linetype * continuous;textstyle standard nowhere;"
                                      L"blockname *model_space nowhere;mlinestyle *;"
                                      L"pattern ansi31 nowhere;dimensionstyle STANDARD nowhere;"
                                      L"mleaderstyle standard nowhere")),
              L"");
}

TEST_F(ResourceResolution, AFileThatCannotBeUsedDropsTheModel)
{
    layersIn("a.dwg", {"Roads"});
    const std::string whole = DxfDrawing().text();
    std::ofstream(folder() / "cut.dwg") << whole.substr(0, whole.size() - 9);
    std::ofstream(folder() / "text.dwt") << "*DASH\nA,1,-1\n";
    std::filesystem::create_directory(folder() / "Old.DWG");
    layersIn("Old.DWG/b.dwg", {"Roads"}); // lower-cased, its folder has the extension first
    const std::pair<const wchar_t*, const wchar_t*> cases[] = {
        {L"cut.dwg", L"cut.dwg"},
        {L"text.dwt", L"text.dwt"},
        {L"Old.DWG\\b.dwg", L"old.dwg/b.dwg"}};
    for (const auto& [file, told] : cases) {
        EXPECT_EQ(messagesOf(std::wstring(L"layer\t") + file + L"\n" +
                             object(L"x", L"layer roads;linetype none")),
                  L"error: unable to load '" + path(told) + L"'\n");
        EXPECT_TRUE(isEmpty());
    }
    // What other files had supplied by then stays in the drawing.
    EXPECT_EQ(messagesOf(L"layer\ta.dwg\nlayer\tcut.dwg\n" + object(L"x", L"layer roads")),
              L"error: unable to load '" + path(L"cut.dwg") + L"'\n");
    EXPECT_TRUE(has(layer, L"roads"));
}

TEST_F(ResourceResolution, APatternFileNeedsAFolderThatTakesIt)
{
    std::filesystem::remove(folder() / "profile" / "support" / "acadiso.pat");
    std::ofstream(folder() / "own.pat") << "*TILES\n0, 0,0, 0,1\n";
    EXPECT_EQ(messagesOf(L"pattern\town.pat\n" + object(L"x", L"pattern tiles")),
              L"error: unable to load '" + path(L"own.pat") + L"'\n");
}

TEST_F(ResourceResolution, AnErrorInTheLinesComesBeforeAnyFile)
{
    layersIn("a.dwg", {"Roads"});
    EXPECT_EQ(messagesOf(L"layer\ta.dwg\n" + object(L"x", L"layer roads") + L"foo\n"),
              L"5: error: invalid syntax: 'foo'\n");
    EXPECT_FALSE(has(layer, L"roads"));
}

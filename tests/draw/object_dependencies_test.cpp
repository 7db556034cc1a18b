#include "draw/object_dependencies.h"

#include "draw/named_styles.h"
#include "host/db/symbol_tables.h"
#include "tests/support/opened_drawing.h"

namespace {

PropConstraint<std::wstring> named(const wchar_t* name)
{
    return {kOneValue, name, {}};
}

// A resource drawing with a block, a layer, a text style and a dimension style; a plain drawing is
// open.
class DependenciesTest : public DrawingTest {
protected:
    DependenciesTest()
    {
        DxfDrawing resources;
        resources.layer("Plots", 0, 3);
        resources.textStyle("Labels");
        resources.dimensionStyle("Plan");
        resources.block("Tree");
        const std::filesystem::path path = resources.write(folder(), "resources.dwg");
        DxfDrawing drawing;
        drawing.layer("Walls");
        open(drawing);
        description.resourceFiles = {path.wstring()};
    }

    ResourceDef inFile(const wchar_t* name, int file = 0) { return {name, file}; }
    bool hasLayer(const wchar_t* name)
    {
        const AcDbObjectPointer<AcDbLayerTable> table(database().layerTableId(), AcDb::kForRead);
        return table->has(name);
    }
    bool hasBlock(const wchar_t* name) { return !blockNamed(database(), name).isNull(); }
    bool hasDimensionStyle(const wchar_t* name)
    {
        return !dimensionStyleNamed(database(), name).isNull();
    }

    Description description;
    GraphicProps props;
};

} // namespace

TEST_F(DependenciesTest, WhatIsMissingComesFromItsFile)
{
    description.layerIndex[L"plots"] = inFile(L"plots");
    description.textStyleIndex[L"labels"] = inFile(L"labels");
    props.layer = named(L"plots");
    props.textStyle = named(L"labels");
    EXPECT_TRUE(LoadObjectDependencies(props, description));
    EXPECT_TRUE(hasLayer(L"Plots"));
    EXPECT_FALSE(textStyleNamed(database(), L"Labels").isNull());
    EXPECT_FALSE(hasBlock(L"Tree"));
}

TEST_F(DependenciesTest, ADimensionStyleAloneComesButNotBesideABlock)
{
    description.dimensionStyleIndex[L"plan"] = inFile(L"plan");
    description.blockIndex[L"tree"] = inFile(L"tree");
    props.blockName = named(L"tree");
    props.dimensionStyle = named(L"plan");
    EXPECT_TRUE(LoadObjectDependencies(props, description));
    EXPECT_TRUE(hasBlock(L"Tree"));
    EXPECT_FALSE(hasDimensionStyle(L"Plan"));

    props.blockName = openConstraint(anyText);
    EXPECT_TRUE(LoadObjectDependencies(props, description));
    EXPECT_TRUE(hasDimensionStyle(L"Plan"));
}

// A later layer adds its kind to the file that the style has brought into the list.
TEST_F(DependenciesTest, ALayerComesBesideADimensionStyle)
{
    description.dimensionStyleIndex[L"plan"] = inFile(L"plan");
    description.layerIndex[L"plots"] = inFile(L"plots");
    props.dimensionStyle = named(L"plan");
    props.layer = named(L"plots");
    EXPECT_TRUE(LoadObjectDependencies(props, description));
    EXPECT_TRUE(hasDimensionStyle(L"Plan"));
    EXPECT_TRUE(hasLayer(L"Plots"));
}

TEST_F(DependenciesTest, ANameThatNoFileIsKnownForEndsItBeforeAnythingIsRead)
{
    description.blockIndex[L"tree"] = inFile(L"tree");
    props.blockName = named(L"tree");
    props.layer = named(L"cellar");
    EXPECT_FALSE(LoadObjectDependencies(props, description));
    EXPECT_FALSE(hasBlock(L"Tree"));
}

TEST_F(DependenciesTest, WhatTheDrawingHasIsLookedForNowhere)
{
    description.resourceFiles = {L"missing.dwg"};
    description.layerIndex[L"walls"] = inFile(L"walls");
    props.layer = named(L"WALLS");
    EXPECT_TRUE(LoadObjectDependencies(props, description));
    description.layerIndex[L"plots"] = inFile(L"plots");
    props.layer = named(L"plots");
    EXPECT_FALSE(LoadObjectDependencies(props, description));
}

TEST_F(DependenciesTest, ANameThatItsFileLacksIsNoFailure)
{
    description.layerIndex[L"cellar"] = inFile(L"cellar");
    props.layer = named(L"cellar");
    EXPECT_TRUE(LoadObjectDependencies(props, description));
    EXPECT_FALSE(hasLayer(L"cellar"));
}

TEST_F(DependenciesTest, ABlockOfAWholeFileIsLoadedAtOnceAndItsFailureIsNotNoticed)
{
    DxfDrawing plan;
    plan.line();
    description.blockFiles[L"plan"] = {plan.write(folder(), "plan.dwg").wstring(), L"Plan"};
    description.blockFiles[L"lost"] = {L"lost.dwg", L"Lost"};
    props.blockName = named(L"plan");
    props.layer = named(L"cellar");
    EXPECT_FALSE(LoadObjectDependencies(props, description));
    EXPECT_TRUE(hasBlock(L"Plan"));

    props.layer = openConstraint(anyText);
    props.blockName = named(L"lost");
    EXPECT_TRUE(LoadObjectDependencies(props, description));
    EXPECT_FALSE(hasBlock(L"Lost"));
}

TEST_F(DependenciesTest, ByName)
{
    description.objects[L"wall"].props.layer = named(L"walls");
    EXPECT_TRUE(LoadObjectDependencies(L"Wall", description));
    EXPECT_FALSE(LoadObjectDependencies(L"gate", description));
}

TEST_F(DependenciesTest, OnceLoadedAnObjectIsNotAskedAboutAgain)
{
    ObjectDef wall;
    wall.props.layer = named(L"plots");
    LoadedDependencies loaded;
    EXPECT_FALSE(loaded.load(wall, description));
    description.layerIndex[L"plots"] = inFile(L"plots");
    EXPECT_TRUE(loaded.load(wall, description));
    description.layerIndex.clear();
    wall.props.layer = named(L"cellar");
    EXPECT_TRUE(loaded.load(wall, description));
    EXPECT_FALSE(LoadedDependencies().load(wall, description));
}

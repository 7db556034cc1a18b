#include "tests/templates/template_test.h"

#include "frame/entity_filter.h"
#include "frame/entity_gathering.h"
#include "host/db/entity.h"
#include "objects/conformity.h"
#include "templates/object_from_entity.h"
#include "templates/object_writer.h"
#include "templates/same_object.h"

#include <map>
#include <tuple>

namespace {

std::wstring linesOf(const GraphicProps& props)
{
    std::wstring text;
    WriteObject(props, text);
    return host::lowerCased(text);
}

// The file by the rule, each entity compared with all objects before it.
std::map<std::wstring, std::vector<GraphicProps>> plainly(const EntityList& entities)
{
    std::map<std::wstring, std::vector<GraphicProps>> byType;
    for (const AcDbObjectId id : entities) {
        const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
        GraphicProps props;
        ObjectFromEntity(props, *entity);
        const std::wstring& block = props.blockName.value;
        if (props.types[0] == L"BlockReference" && (block.empty() || block[0] == L'*'))
            continue;
        std::vector<GraphicProps>& known = byType[props.types[0]];
        bool isNew = true;
        for (const GraphicProps& other : known)
            isNew = isNew && !SameObject(other, props);
        if (isNew)
            known.push_back(props);
    }
    return byType;
}

} // namespace

// What was written is read, in its order and its classes; every entity then conforms to an object.
TEST_F(TemplateTest, RandomDrawingsLoadAgain)
{
    std::mt19937 random(735);
    for (int round = 0; round < 60; ++round) {
        SCOPED_TRACE(round);
        DxfDrawing drawing;
        look::addResources(drawing);
        look::addRandomEntities(drawing, random, 30);
        open(drawing, "random-" + std::to_string(round) + ".dxf");
        std::filesystem::remove(target());
        const std::wstring printed = generate(L"%t_%i");
        EntityList entities = scanModelSpace();
        filterEntities(entities);
        const auto expected = plainly(entities);

        const std::wstring loaded = transcript(L"kelmaro_load\n" + quoted(target()));
        EXPECT_FALSE(tells(loaded, L"rror") || tells(loaded, L"arning"));
        const Description& description = *::session().description;
        std::size_t count = 0;
        ASSERT_EQ(description.rootClass.children.size(), expected.size());
        auto classDef = description.rootClass.children.begin();
        for (const auto& [type, objects] : expected) {
            EXPECT_EQ(classDef->name, type);
            ASSERT_EQ(classDef->objects.size(), objects.size());
            for (std::size_t at = 0; at < objects.size(); ++at) {
                GraphicProps named = objects[at];
                named.name = host::lowerCased(type) + L"_" + std::to_wstring(at + 1);
                EXPECT_EQ(classDef->objects[at], named.name);
                const ObjectDef* const read = description.findObject(named.name);
                ASSERT_TRUE(read);
                GraphicProps bare = read->props;
                ASSERT_EQ(bare.tables.size(), 1u);
                EXPECT_EQ(bare.tables[0].name, L"OD_NAME");
                bare.tables.clear();
                EXPECT_EQ(linesOf(bare), linesOf(named));
            }
            count += objects.size();
            ++classDef;
        }
        EXPECT_TRUE(tells(printed, L"Completed: " + std::to_wstring(count) + L"/30\n"));

        for (const AcDbObjectId id : entities) {
            const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
            GraphicProps props;
            ObjectFromEntity(props, *entity);
            const std::wstring& block = props.blockName.value;
            const bool dropped =
                props.types[0] == L"BlockReference" && (block.empty() || block[0] == L'*');
            if (!dropped) {
                EXPECT_TRUE(conforms(description, id, props.types[0]));
            }
        }
    }
}

TEST_F(TemplateTest, VariablesAreSetByTheFile)
{
    DxfDrawing drawing;
    drawing.luprec = 2;
    drawing.insunits = 4;
    drawing.line("0", "48\n0.126\n");
    open(drawing);
    generate();
    EXPECT_EQ(rest(L"Variable|"), (std::vector<std::wstring>{L"INSUNITS|4", L"LUPREC|2"}));
    EXPECT_EQ(rest(L"||obj_prop|linetypeScale|"), std::vector<std::wstring>{L"0.13"});

    open(DxfDrawing(), "other.dxf");
    transcript(L"kelmaro_load\n" + quoted(target()));
    EXPECT_EQ(database().insunits(), 4);
    EXPECT_EQ(database().luprec(), 2);
}

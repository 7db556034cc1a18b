#include "frame/entity_list.h"

#include <gtest/gtest.h>

namespace {

EntityList listOf(const std::vector<std::uint32_t>& stubs)
{
    EntityList entities;
    for (const std::uint32_t stub : stubs)
        entities.append(AcDbObjectId(1, stub));
    return entities;
}

std::vector<std::uint32_t> stubsOf(const EntityList& entities)
{
    std::vector<std::uint32_t> stubs;
    for (const AcDbObjectId id : entities)
        stubs.push_back(id.stubNumber());
    return stubs;
}

} // namespace

TEST(EntityList, TheLastOneTakesThePlaceOfOneRemoved)
{
    using Stubs = std::vector<std::uint32_t>;
    const std::tuple<Stubs, std::size_t, Stubs> cases[] = {
        {{1, 2, 3, 4}, 0, {4, 2, 3}},
        {{1, 2, 3, 4}, 3, {1, 2, 3}},
        {{1, 2}, 1, {1}},
        {{1}, 0, {}},
    };
    for (const auto& [before, at, after] : cases) {
        EntityList entities = listOf(before);
        entities.remove(at);
        EXPECT_EQ(stubsOf(entities), after);
    }
}

TEST(EntityList, FilteringLooksAtThePlaceAgain)
{
    EntityList entities = listOf({1, 2, 3, 4, 5, 6, 3});
    std::vector<std::uint32_t> seen;
    keepIf(entities, [&](AcDbObjectId id) {
        seen.push_back(id.stubNumber());
        return id.stubNumber() % 3 != 0;
    });
    EXPECT_EQ(stubsOf(entities), (std::vector<std::uint32_t>{1, 2, 5, 4}));
    EXPECT_EQ(seen, (std::vector<std::uint32_t>{1, 2, 3, 3, 6, 5, 4}));
}

#include "host/db/record_index.h"

#include <gtest/gtest.h>

#include <functional>
#include <random>
#include <unordered_map>

namespace {

using host::RecordIndex;
using host::Stub;

Stub withHandle(std::uint64_t handle)
{
    Stub stub;
    stub.handle = handle;
    return stub;
}

TEST(RecordIndex, TheFirstHolderKeepsAHandle)
{
    RecordIndex index;
    const std::uint64_t handles[] = {0x10, 0x20, 0x10, 0, 0xFFFFFFFFFFFFFFFF, 0x20, 1};
    const bool taken[] = {true, true, false, false, true, false, true};
    for (std::size_t i = 0; i < std::size(handles); ++i) {
        const std::uint32_t number = index.add(withHandle(handles[i]));
        EXPECT_EQ(number, i + 1);
        EXPECT_EQ(index.enterHandle(number), taken[i]) << i;
    }
    EXPECT_TRUE(index.enterHandle(1)); // entering it again changes nothing
    const std::pair<std::uint64_t, std::uint32_t> rows[] = {
        {0x10, 1}, {0x20, 2}, {0, 0}, {0xFFFFFFFFFFFFFFFF, 5}, {1, 7}, {2, 0}, {0x11, 0},
    };
    for (const auto& [handle, number] : rows)
        EXPECT_EQ(index.findHandle(handle), number) << handle;
    EXPECT_EQ(index.greatestHandle(), 0xFFFFFFFFFFFFFFFFu);
}

TEST(RecordIndex, AnEmptyOneKnowsNoHandle)
{
    const RecordIndex index;
    EXPECT_EQ(index.findHandle(1), 0u);
    EXPECT_EQ(index.greatestHandle(), 0u);
    EXPECT_EQ(index.count(), 0u);
}

// Handles that come in order, that differ in high bits only, and at random, against a plain map.
TEST(RecordIndex, FindsWhatAMapFinds)
{
    std::mt19937_64 random(7);
    const auto consecutive = [&, next = std::uint64_t{0}]() mutable { return ++next; };
    const auto high = [&, next = std::uint64_t{0}]() mutable { return ++next << 40; };
    const auto repeated = [&] { return random() % 30000; };
    const std::function<std::uint64_t()> kinds[] = {consecutive, high, repeated};
    for (const auto& make : kinds) {
        RecordIndex index;
        std::unordered_map<std::uint64_t, std::uint32_t> map;
        for (int i = 0; i < 50000; ++i) {
            const std::uint64_t handle = make();
            const std::uint32_t number = index.add(withHandle(handle));
            const bool first = handle != 0 && map.emplace(handle, number).second;
            ASSERT_EQ(index.enterHandle(number), first) << handle;
        }
        for (const auto& [handle, number] : map)
            ASSERT_EQ(index.findHandle(handle), number);
        for (int i = 0; i < 1000; ++i) {
            const std::uint64_t handle = random();
            ASSERT_EQ(index.findHandle(handle), map.contains(handle) ? map[handle] : 0u);
        }
    }
}

TEST(RecordIndex, StubsNeverMove)
{
    RecordIndex index;
    const std::uint32_t number = index.add(withHandle(42));
    const Stub* const first = &index[number];
    index.reserve(200000);
    for (int i = 0; i < 200000; ++i)
        index.add(withHandle(static_cast<std::uint64_t>(i) + 100));
    EXPECT_EQ(&index[number], first);
    EXPECT_EQ(first->handle, 42u);
    EXPECT_EQ(index.count(), 200001u);
    EXPECT_EQ(index[200001].handle, 200099u);
}

TEST(RecordIndex, NamesAreNumberedInTheOrderOfTheirComing)
{
    host::NameTable<std::uint16_t> names;
    EXPECT_EQ(names.number("LINE"), 1);
    EXPECT_EQ(names.number("line"), 2); // bytes, not letters
    EXPECT_EQ(names.number(""), 3);
    EXPECT_EQ(names.number(std::string("LI") + "NE"), 1);
    EXPECT_EQ(names.name(2), "line");
    EXPECT_EQ(names.name(0), "");
    EXPECT_EQ(names.size(), 3u);
}

} // namespace

#include "classify/priority_order.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <numeric>
#include <random>

namespace {

using Order = std::vector<std::size_t>;

// Exchange passes over the list itself.
Order byExchanges(std::vector<std::int32_t> priorities)
{
    Order order(priorities.size());
    std::iota(order.begin(), order.end(), 0u);
    bool changed = true;
    while (changed) {
        changed = false;
        for (std::size_t i = 0; i < order.size(); ++i)
            for (std::size_t j = i + 1; j < order.size(); ++j)
                if (priorities[i] > priorities[j]) {
                    std::swap(priorities[i], priorities[j]);
                    std::swap(order[i], order[j]);
                    changed = true;
                }
    }
    return order;
}

} // namespace

TEST(PriorityOrder, IsAscendingWithEqualOnesAsExchangesLeaveThem)
{
    struct Row {
        std::vector<std::int32_t> priorities;
        Order order;
    };
    // By hand: 2a 2b 1 becomes 1 2b 2a, since the exchange with 1 takes 2a to the end.
    const Row rows[] = {
        {{}, {}},
        {{7}, {0}},
        {{3, 1, 2}, {1, 2, 0}},
        {{2, 2, 2}, {0, 1, 2}},
        {{2, 2, 1}, {2, 1, 0}},
        {{1, 2, 2}, {0, 1, 2}},
        {{INT32_MAX, INT32_MIN}, {1, 0}},
    };
    for (const Row& row : rows)
        EXPECT_EQ(priorityOrder(row.priorities), row.order);
}

TEST(PriorityOrder, IsThatOfExchangePassesOnRandomLists)
{
    std::mt19937 random(20);
    for (int round = 0; round < 3000; ++round) {
        const std::int32_t kinds = std::uniform_int_distribution<>(1, 12)(random);
        std::vector<std::int32_t> priorities(std::uniform_int_distribution<>(0, 40)(random));
        for (std::int32_t& priority : priorities)
            priority = std::uniform_int_distribution<>(0, kinds)(random) - 5;
        ASSERT_EQ(priorityOrder(priorities), byExchanges(priorities)) << "round " << round;
    }
}

// A hundred thousand entries take an exchange sort minutes.
TEST(PriorityOrder, StaysNearLinear)
{
    std::mt19937 random(21);
    for (const int kinds : {2, 300, 100000}) {
        std::vector<std::int32_t> priorities(100000);
        for (std::int32_t& priority : priorities)
            priority = std::uniform_int_distribution<>(0, kinds)(random);
        const auto start = std::chrono::steady_clock::now();
        const Order order = priorityOrder(priorities);
        EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
        EXPECT_TRUE(std::is_sorted(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
            return priorities[a] < priorities[b];
        }));
    }
}

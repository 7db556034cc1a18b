#include "host/edit/fiber.h"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

using host::Fiber;

TEST(Fiber, StopsInTheMiddleAndGoesOn)
{
    std::string trace;
    std::unique_ptr<Fiber> fiber;
    fiber = std::make_unique<Fiber>([&] {
        const std::string local = "kept";
        trace += "a";
        fiber->yield();
        trace += local;
        fiber->yield();
        trace += "c";
    });
    for (const char* step : {"1", "2", "3"}) {
        EXPECT_FALSE(fiber->done());
        trace += step;
        fiber->resume();
    }
    EXPECT_TRUE(fiber->done());
    EXPECT_EQ(trace, "1a2kept3c");
}

TEST(Fiber, StartsOthersAndHandsTheirWaitingUp)
{
    std::string trace;
    std::unique_ptr<Fiber> outer;
    std::unique_ptr<Fiber> inner;
    inner = std::make_unique<Fiber>([&] {
        trace += "(";
        inner->yield();
        trace += ")";
    });
    outer = std::make_unique<Fiber>([&] {
        trace += "[";
        while (!inner->done()) {
            inner->resume();
            outer->yield();
        }
        trace += "]";
    });
    while (!outer->done()) {
        outer->resume();
        trace += ".";
    }
    EXPECT_EQ(trace, "[(.).].");
}

TEST(Fiber, YieldsInsideAHandlerWhileOthersThrow)
{
    std::vector<std::unique_ptr<Fiber>> fibers(3);
    std::string trace;
    for (std::size_t i = 0; i < fibers.size(); ++i)
        fibers[i] = std::make_unique<Fiber>([&, i] {
            try {
                throw std::runtime_error(std::to_string(i));
            } catch (const std::exception&) {
                fibers[i]->yield();
                try {
                    throw; // its own exception, not that of the fiber that ran last
                } catch (const std::exception& again) {
                    trace += again.what();
                }
            }
        });
    for (int round = 0; round < 2; ++round)
        for (const auto& fiber : fibers)
            fiber->resume();
    EXPECT_EQ(trace, "012");
}

TEST(Fiber, StacksAreUsedAgain)
{
    int sum = 0;
    for (int i = 0; i < 20000; ++i) { // twenty gigabytes if each were new
        Fiber fiber([&] {
            volatile char deep[200000];
            deep[0] = 1;
            deep[sizeof deep - 1] = 1;
            sum += deep[0] + deep[sizeof deep - 1];
        });
        fiber.resume();
    }
    EXPECT_EQ(sum, 40000);
}

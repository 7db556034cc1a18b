#pragma once

#include <initializer_list>
#include <iterator>
#include <random>

// Repeatable choices.
class Dice {
public:
    explicit Dice(unsigned seed) : engine_(seed) {}

    int below(int end) { return std::uniform_int_distribution(0, end - 1)(engine_); }
    bool oneIn(int count) { return below(count) == 0; }
    template <class Range> const auto& of(const Range& choices)
    {
        return std::data(choices)[below(static_cast<int>(std::size(choices)))];
    }
    template <class T> T of(std::initializer_list<T> choices)
    {
        return std::data(choices)[below(static_cast<int>(choices.size()))];
    }

private:
    std::mt19937 engine_;
};

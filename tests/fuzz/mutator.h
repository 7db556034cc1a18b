#pragma once

#include <cstdint>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace fuzz {

// Makes damaged inputs out of good ones. An input is cut into the units of its language, so that most of what is made still gets
// far into the reader: pairs of lines of a text DXF, groups of a binary one, lines of a description.
enum class Language { dxfText, dxfBinary, description };

class Mutator {
public:
    Mutator(Language language, std::vector<std::string> seeds);

    // The same number gives the same input.
    std::string make(std::uint64_t number);

private:
    using Units = std::vector<std::string_view>;

    Units cut(std::string_view input) const;
    void changeUnits(std::string& input);
    void changeBytes(std::string& input);
    std::string changedUnit(std::string_view unit);
    std::size_t below(std::size_t limit);

    Language language_;
    std::vector<std::string> seeds_;
    std::vector<Units> units_;
    std::mt19937_64 random_;
};

} // namespace fuzz

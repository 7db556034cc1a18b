#pragma once

#include <cstdint>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace fuzz {

// Makes damaged inputs out of good ones. An input is cut into the units of its language, so that
// most of what is made still gets far into the reader: pairs of lines of a text DXF, groups of a
// binary one, lines of a description. Of a big drawing each input has a part of the records only,
// its structure whole: many small inputs find more than few big ones.
enum class Language { dxfText, dxfBinary, description };

class Mutator {
public:
    Mutator(Language language, std::vector<std::string> seeds);

    // The same number gives the same input.
    std::string make(std::uint64_t number);

private:
    using Units = std::vector<std::string_view>;
    // Units from one record's begin to the next one's.
    struct Record {
        std::size_t first = 0;
        std::size_t end = 0;
        std::size_t bytes = 0;
        bool structure = false; // sections and tables fall apart without it
        bool child = false;     // comes and goes with the record before it
    };
    struct Seed {
        std::string bytes;
        Units units;
        std::vector<Record> records; // none in a description
    };

    Units cut(std::string_view input) const;
    void findRecords(Seed& seed) const;
    std::string part(const Seed& seed);
    void changeUnits(std::string& input);
    void changeBytes(std::string& input);
    std::string changedUnit(const Units& units, std::size_t at);
    std::string changedTag(const Units& units, std::size_t at);
    std::string changedGroup(const Units& units, std::size_t at);
    std::string changedLine(std::string_view line);
    std::string_view sibling(const Units& units, std::size_t at); // another unit of the same code
    std::size_t below(std::size_t limit);

    Language language_;
    std::vector<Seed> seeds_;
    std::mt19937_64 random_;
};

} // namespace fuzz

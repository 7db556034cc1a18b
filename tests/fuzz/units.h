#pragma once

#include <cstddef>
#include <string_view>

namespace fuzz {

// The units of drawing files, found without the readers that are tested.

std::size_t afterLine(std::string_view text, std::size_t at);

// A pair of lines, as it stands.
struct TextTag {
    std::string_view codeLine; // with its line end
    std::string_view value;    // without
    std::string_view lineEnd;

    explicit TextTag(std::string_view unit);
    std::string_view code() const; // without blanks around it
};

// A group of a binary file. Files up to R12 have codes of one byte, with 255 before one of two.
struct BinaryGroup {
    int code = -1;
    std::size_t codeLength = 0;

    BinaryGroup(std::string_view input, std::size_t at, bool wideCodes);
    // Length of the value behind the code, at least 1.
    std::size_t valueLength(std::string_view input, std::size_t at) const;
};

inline constexpr std::size_t kBinaryHead = 22; // bytes of the sentinel
bool hasWideCodes(std::string_view input);

} // namespace fuzz

#pragma once

#include "description/graphic_props.h"

#include <optional>
#include <span>
#include <string_view>
#include <variant>

// How the value of a property reads.
enum class PropertyGrammar {
    number,       // a real
    scale,        // a real for all axes, or (x y z)
    name,         // any text, lower-cased
    text,         // any text as written
    word,         // one of the row's words, lower-cased
    code,         // one of the row's words, as its code
    wordOrNumber, // one of the row's words as its code, or a number as an integer
    color,        // the same, or (r g b): an entry of a list
    nonZero,      // a number: whether it is not 0
    positive,     // a number: whether it is above 0
    positiveText, // any text read as an integer: whether it is above 0
};

struct PropertyWord {
    std::wstring_view written; // compared without case
    std::int32_t code = 0;
};

using PropertyMember = std::variant<
    PropConstraint<double> GraphicProps::*, PropConstraint<ScaleFactors> GraphicProps::*,
    PropConstraint<std::wstring> GraphicProps::*, PropConstraint<std::uint8_t> GraphicProps::*,
    PropConstraint<std::int32_t> GraphicProps::*, ColorList GraphicProps::*, bool GraphicProps::*>;

// One property keyword.
struct PropertyRow {
    std::wstring_view keyword; // lower-case, as it is read and prompted for
    std::wstring_view written; // as generated descriptions spell it
    PropertyMember member;
    PropertyGrammar grammar;
    int promptOrder; // from 1, in the order of asking; 0 is never asked for
    std::span<const PropertyWord> words = {};
};

// All keywords, in the order in which generated descriptions write them.
std::span<const PropertyRow> propertyTable();

// By lower-cased keyword; null if there is none.
const PropertyRow* findProperty(std::wstring_view keyword);

// The row's code for a word, without regard to case, and the other way round.
std::optional<std::int32_t> codeOfWord(std::span<const PropertyWord> words, std::wstring_view word);
std::wstring_view wordOfCode(std::span<const PropertyWord> words, std::int32_t code); // or ""

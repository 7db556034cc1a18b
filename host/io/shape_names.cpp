#include "host/io/shape_names.h"

#include <algorithm>
#include <cstdint>

namespace host {

namespace {

constexpr char kEndOfText = '\x1A';
constexpr std::size_t kLongestTitle = 64;
constexpr std::size_t kEntry = 4; // bytes of number and length

std::size_t shortAt(std::string_view bytes, std::size_t at)
{
    return static_cast<std::uint8_t>(bytes[at]) |
           static_cast<std::size_t>(static_cast<std::uint8_t>(bytes[at + 1])) << 8;
}

char upper(char c)
{
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

} // namespace

int shapeNumberIn(std::string_view bytes, std::string_view name)
{
    const std::size_t title = bytes.substr(0, kLongestTitle).find(kEndOfText);
    if (title == std::string_view::npos || bytes.size() < title + 7)
        return 0;
    const std::size_t count = shortAt(bytes, title + 5);
    const std::size_t entries = title + 7;
    std::size_t shape = entries + count * kEntry;
    for (std::size_t i = 0; i < count && shape <= bytes.size(); ++i) {
        const std::size_t entry = entries + i * kEntry;
        const std::size_t length = shortAt(bytes, entry + 2);
        std::string_view own = bytes.substr(shape, length);
        own = own.substr(0, own.find('\0'));
        if (std::equal(own.begin(), own.end(), name.begin(), name.end(),
                       [](char a, char b) { return upper(a) == upper(b); }))
            return static_cast<int>(shortAt(bytes, entry));
        shape += length;
    }
    return 0;
}

} // namespace host

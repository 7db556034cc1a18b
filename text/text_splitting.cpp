#include "text/text_splitting.h"

#include <algorithm>
#include <cassert>

std::vector<std::wstring> splitText(std::wstring_view text, std::wstring_view separators)
{
    std::vector<std::wstring> pieces;
    std::size_t begin = text.find_first_not_of(separators);
    while (begin != text.npos) {
        const std::size_t end = std::min(text.find_first_of(separators, begin), text.size());
        pieces.emplace_back(text.substr(begin, end - begin));
        begin = text.find_first_not_of(separators, end);
    }
    return pieces;
}

std::vector<std::wstring> splitWithEscape(std::wstring_view text, std::wstring_view separators)
{
    std::vector<std::wstring> joined;
    std::size_t searchFrom = 0;
    bool open = false; // the last joined piece ends in a backslash and waits for its other half
    for (std::wstring& piece : splitText(text, separators)) {
        if (open) {
            // A piece's own backslash is never before the search position, so there is one.
            const std::size_t backslash = text.find(L'\\', searchFrom);
            assert(backslash != text.npos && backslash + 1 < text.size());
            joined.back().back() = text[backslash + 1];
            joined.back() += piece;
            searchFrom = backslash + 2;
        } else {
            joined.push_back(std::move(piece));
        }
        open = joined.back().back() == L'\\';
    }
    return joined;
}

std::wstring_view trimmedLeft(std::wstring_view text, std::wstring_view characters)
{
    text.remove_prefix(std::min(text.find_first_not_of(characters), text.size()));
    return text;
}

std::wstring_view trimmedRight(std::wstring_view text, std::wstring_view characters)
{
    return text.substr(0, text.find_last_not_of(characters) + 1);
}

std::wstring_view trimmedItem(std::wstring_view text)
{
    return trimmedRight(trimmedLeft(text, L" \t"), L" \t\r\n");
}

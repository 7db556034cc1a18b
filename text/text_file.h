#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

// The lines of a UTF-8 text file. A byte order mark is skipped, and CR LF counts as a line feed.
class TextFileLines {
public:
    static constexpr std::size_t kLongestPiece = 10239; // characters

    // Nothing when the file cannot be read. The name is found as host/files finds names.
    static std::optional<TextFileLines> open(std::wstring_view path);

    // The next piece: up to and with a line feed, or kLongestPiece characters of a longer line.
    // Nothing at the end of the file.
    std::optional<std::wstring_view> next();

private:
    explicit TextFileLines(std::wstring text) : text_(std::move(text)) {}

    std::wstring text_;
    std::size_t at_ = 0;
};

// A whole text file, written anew: UTF-8 without a mark, line feeds as they stand in the text. A
// former file is replaced only by a complete one. False if the file cannot be written.
bool writeTextFile(std::wstring_view path, std::wstring_view text);

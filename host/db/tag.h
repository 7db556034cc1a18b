#pragma once

#include <cstdint>
#include <string_view>

namespace host {

// One group of a drawing file: a code and a value, as the file writes them. The bytes belong to the
// file's image or to the drawing's arena; both live as long as the drawing.
struct Tag {
    const char* codeLine = nullptr; // the code with its line end; null for a tag that we made
    const char* value =
        nullptr; // text form: without its line end; binary form: without a terminating zero
    std::uint32_t length = 0; // bytes at `value`
    std::int16_t code = 0;
    std::uint8_t codeLength = 0; // bytes at `codeLine`
    std::uint8_t endLength =
        0; // bytes of line end, or terminating zero, behind the value in the image

    std::string_view bytes() const { return {value, length}; }
};
static_assert(sizeof(Tag) == 24);

// How a value is held, as its group code decides.
enum class TagKind : std::uint8_t {
    text,
    real,
    int16,
    int32,
    int64,
    boolean,
    handle,
    binary,
    comment
};

// The kind of a code; text for the codes of no range.
TagKind tagKind(int code);

} // namespace host

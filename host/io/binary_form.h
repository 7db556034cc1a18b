#pragma once

#include "host/db/tag_form.h"
#include "host/text/code_page.h"

#include <optional>

namespace host {

// The first bytes of a binary drawing file.
inline constexpr std::string_view kBinarySentinel{"AutoCAD Binary DXF\r\n\x1A\0", 22};

// Width of the group codes of a binary file.
enum class BinaryCodes : std::uint8_t {
    oneByte, // up to R12; 255 is followed by a code of two bytes
    twoBytes
};

// The kind of a code in a binary file, where the width of a value hangs on it; nothing for a code
// of no range.
std::optional<TagKind> binaryKind(int code);

// One tag at `at`, its value checked to lie before `last`. Texts end with a zero byte; chunks begin
// with their length, which counts as part of the value. Nothing when the bytes end too early or the
// code is of no range; `at` is left at the tag then.
enum class BinaryTrouble : std::uint8_t { none, cut, unknownCode };
BinaryTrouble takeBinaryTag(const char*& at, const char* last, BinaryCodes codes, Tag& tag);

// Tags as bytes: the code, then a value of the width that the code's range gives it, lowest byte
// first.
class BinaryForm : public TagForm {
public:
    BinaryForm(DxfVersion version, CodePage page, BinaryCodes codes);

    DxfVersion version() const override { return version_; }
    const CodePage& page() const { return page_; }

    void split(const char* first, std::size_t length, std::vector<Tag>& tags) const override;

    std::wstring text(const Tag& tag) const override;
    double real(const Tag& tag) const override;
    std::int64_t integer(const Tag& tag) const override;
    std::uint64_t handle(const Tag& tag) const override;
    std::vector<std::uint8_t> binary(const Tag& tag) const override;

    std::string textValue(int code, std::wstring_view value) const override;
    std::string realValue(int code, double value) const override;
    std::string integerValue(int code, std::int64_t value) const override;
    std::string handleValue(int code, std::uint64_t value) const override;
    std::string binaryValue(int code, std::span<const std::uint8_t> value) const override;

    void write(const Tag& tag, std::string& out) const override;

private:
    DxfVersion version_;
    CodePage page_;
    BinaryCodes codes_;
};

} // namespace host

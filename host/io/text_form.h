#pragma once

#include "host/db/tag_form.h"
#include "host/text/code_page.h"

namespace host {

// How a text file sets its tags: what ends a line, and the width to which codes and integers are
// filled with blanks on their left (0: not at all).
struct TextStyle {
    std::string lineEnd = "\n";
    std::size_t codeWidth = 3;
    std::size_t int16Width = 6;
    std::size_t int32Width = 9;

    // As the first tags of the file have it that tell.
    static TextStyle learn(std::string_view bytes);
};

// Tags in two lines each: the code, the value.
class TextForm : public TagForm {
public:
    TextForm(DxfVersion version, CodePage page, TextStyle style);

    DxfVersion version() const override { return version_; }
    const TextStyle& style() const { return style_; }
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
    TextStyle style_;
};

// The code page of a drawing's texts: UTF-8 from R2007 on, else by the name in $DWGCODEPAGE.
CodePage pageOfDrawing(DxfVersion version, std::string_view dwgCodePage);

} // namespace host

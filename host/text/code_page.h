#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace host {

// The encoding of a drawing's texts. Bytes below 128 are ASCII in every page; a byte that does not
// decode becomes U+DC80 to U+DCFF and is encoded as that byte. Copies are cheap and may be used by
// any thread.
class CodePage {
public:
    using Lacking = std::function<void(wchar_t character, std::string& out)>;

    CodePage(); // ANSI_1252

    static CodePage utf8();

    // By the value of $DWGCODEPAGE, without regard to case ("ANSI_1252", "dos850"); an empty or
    // unknown name means ANSI_1252. Drawings from R2007 on are UTF-8 whatever that variable says.
    static CodePage forDrawing(std::string_view dwgCodePage, bool utf8);

    // By Windows number, as descriptors in texts name it; nothing for a page that is not known.
    static std::optional<CodePage> byNumber(int number);

    bool isUtf8() const;

    std::wstring decode(std::string_view bytes) const;

    // Nothing when the page lacks the character.
    std::optional<std::string> encode(wchar_t character) const;

    // `lacking` writes what stands in the place of a character that the page lacks.
    std::string encode(std::wstring_view text, const Lacking& lacking) const;

private:
    struct Table;

    explicit CodePage(std::shared_ptr<const Table> table);
    static std::shared_ptr<const Table> tableFor(const char* converterName);
    static CodePage byName(std::string_view plainName);

    bool appendEncoded(wchar_t character, std::string& out) const;

    std::shared_ptr<const Table> table_; // null for UTF-8
};

} // namespace host

#include "host/text/code_page.h"

#include "host/text/encoding.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <iconv.h>
#include <map>
#include <mutex>
#include <vector>

// The system's converter is asked once for each page, for every byte and every pair of bytes. What
// it answers is kept as tables, so that decoding needs no state and no lock.

namespace host {

namespace {

constexpr wchar_t kByteBase = 0xDC00; // an undecodable byte is this plus its value

struct PageName {
    std::string_view plainName; // of $DWGCODEPAGE: lower case, without "_", "-" and blanks
    const char* converterName;
};

constexpr PageName kPageNames[] = {
    {"ansi874", "CP874"},       {"ansi932", "CP932"},       {"ansi936", "CP936"},
    {"ansi949", "CP949"},       {"ansi950", "CP950"},       {"ansi1250", "CP1250"},
    {"ansi1251", "CP1251"},     {"ansi1252", "CP1252"},     {"ansi1253", "CP1253"},
    {"ansi1254", "CP1254"},     {"ansi1255", "CP1255"},     {"ansi1256", "CP1256"},
    {"ansi1257", "CP1257"},     {"ansi1258", "CP1258"},     {"ansi1361", "CP1361"},
    {"johab", "CP1361"},        {"dos437", "CP437"},        {"dos737", "CP737"},
    {"dos775", "CP775"},        {"dos850", "CP850"},        {"dos852", "CP852"},
    {"dos855", "CP855"},        {"dos857", "CP857"},        {"dos860", "CP860"},
    {"dos861", "CP861"},        {"dos863", "CP863"},        {"dos864", "CP864"},
    {"dos865", "CP865"},        {"dos866", "CP866"},        {"dos869", "CP869"},
    {"dos932", "CP932"},        {"iso88591", "ISO-8859-1"}, {"iso88592", "ISO-8859-2"},
    {"iso88593", "ISO-8859-3"}, {"iso88594", "ISO-8859-4"}, {"iso88595", "ISO-8859-5"},
    {"iso88596", "ISO-8859-6"}, {"iso88597", "ISO-8859-7"}, {"iso88598", "ISO-8859-8"},
    {"iso88599", "ISO-8859-9"}, {"macintosh", "MACINTOSH"}, {"macroman", "MACINTOSH"},
    {"big5", "CP950"},          {"gb2312", "CP936"},        {"ksc5601", "CP949"},
};

class Converter {
public:
    Converter(const char* to, const char* from) : handle_(iconv_open(to, from)) {}
    ~Converter()
    {
        if (works())
            iconv_close(handle_);
    }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;

    bool works() const { return handle_ != reinterpret_cast<iconv_t>(-1); }

    // Bytes of the whole input's conversion; 0 when it is invalid, cut short or too long for `out`.
    std::size_t convert(const void* in, std::size_t size, void* out, std::size_t room)
    {
        char* from = static_cast<char*>(const_cast<void*>(in));
        char* to = static_cast<char*>(out);
        const std::size_t whole = room;
        iconv(handle_, nullptr, nullptr, nullptr, nullptr);
        if (iconv(handle_, &from, &size, &to, &room) != 0 || size != 0)
            return 0;
        // Pages with combining marks hold a letter back until it is certain that no mark follows.
        if (iconv(handle_, nullptr, nullptr, &to, &room) != 0)
            return 0;
        return whole - room;
    }

private:
    iconv_t handle_;
};

} // namespace

struct CodePage::Table {
    std::array<wchar_t, 256> single{};
    std::vector<wchar_t>
        pairs; // by (first - 128) * 256 + second, 0 for none; empty in a single-byte page
    std::vector<std::pair<wchar_t, std::uint16_t>>
        codes; // sorted; one byte, or two with the first one high

    explicit Table(const char* converterName);

    wchar_t pairAt(unsigned char first, unsigned char second) const
    {
        return pairs[(first - 0x80u) * 256u + second];
    }

    // A character above ASCII; -1 when the page lacks it.
    int codeOf(wchar_t character) const
    {
        const auto found = std::lower_bound(
            codes.begin(), codes.end(), character,
            [](const auto& entry, wchar_t wanted) { return entry.first < wanted; });
        return found != codes.end() && found->first == character ? found->second : -1;
    }
};

CodePage::Table::Table(const char* converterName)
{
    for (unsigned byte = 0; byte < 256; ++byte)
        single[byte] =
            byte < 0x80 ? static_cast<wchar_t>(byte) : kByteBase + static_cast<wchar_t>(byte);

    Converter decoder("WCHAR_T", converterName);
    Converter encoder(converterName, "WCHAR_T");
    if (!decoder.works() || !encoder.works())
        return; // a system without this converter: bytes above ASCII pass through undecoded

    const auto decoded = [&](const unsigned char* bytes, std::size_t count) {
        wchar_t out[4];
        const std::size_t size = decoder.convert(bytes, count, out, sizeof out);
        return size == sizeof(wchar_t) && out[0] >= 0x80 ? out[0] : L'\0';
    };
    std::vector<unsigned char> leads;
    for (unsigned value = 0x80; value < 256; ++value) {
        const auto byte = static_cast<unsigned char>(value);
        if (const wchar_t character = decoded(&byte, 1)) {
            single[value] = character;
            codes.emplace_back(character, static_cast<std::uint16_t>(value));
        } else {
            leads.push_back(byte);
        }
    }
    for (const unsigned char lead : leads) {
        for (unsigned value = 0x20; value < 256; ++value) {
            const unsigned char bytes[] = {lead, static_cast<unsigned char>(value)};
            const wchar_t character = decoded(bytes, 2);
            if (!character)
                continue;
            if (pairs.empty())
                pairs.resize(128 * 256);
            pairs[(lead - 0x80u) * 256u + value] = character;
            codes.emplace_back(character, static_cast<std::uint16_t>(lead << 8 | value));
        }
    }

    // Where several codes decode to one character, the converter's own choice is written.
    std::sort(codes.begin(), codes.end());
    const auto last = codes.end();
    auto kept = codes.begin();
    for (auto run = codes.begin(); run != last;) {
        const auto end =
            std::find_if(run, last, [&](const auto& one) { return one.first != run->first; });
        auto chosen = run;
        if (end - run > 1) {
            unsigned char out[8];
            const std::size_t size = encoder.convert(&run->first, sizeof(wchar_t), out, sizeof out);
            const unsigned code = size == 1 ? out[0] : size == 2 ? out[0] * 256u + out[1] : 0;
            const auto preferred =
                std::find_if(run, end, [&](const auto& one) { return one.second == code; });
            if (preferred != end)
                chosen = preferred;
        }
        *kept++ = *chosen;
        run = end;
    }
    codes.erase(kept, last);
}

std::shared_ptr<const CodePage::Table> CodePage::tableFor(const char* converterName)
{
    static std::mutex mutex;
    static std::map<std::string, std::shared_ptr<const Table>, std::less<>> tables;
    const std::lock_guard lock(mutex);
    std::shared_ptr<const Table>& table = tables[converterName];
    if (!table)
        table = std::make_shared<const Table>(converterName);
    return table;
}

CodePage::CodePage() : table_(tableFor("CP1252"))
{
}

CodePage::CodePage(std::shared_ptr<const Table> table) : table_(std::move(table))
{
}

CodePage CodePage::utf8()
{
    return CodePage(std::shared_ptr<const Table>());
}

CodePage CodePage::byName(std::string_view plainName)
{
    for (const PageName& row : kPageNames) {
        if (row.plainName == plainName)
            return CodePage(tableFor(row.converterName));
    }
    return {};
}

CodePage CodePage::forDrawing(std::string_view dwgCodePage, bool utf8Drawing)
{
    if (utf8Drawing)
        return utf8();
    std::string plain;
    for (const char character : dwgCodePage) {
        if (character >= 'A' && character <= 'Z')
            plain += static_cast<char>(character + 32);
        else if (character != '_' && character != '-' && character != ' ')
            plain += character;
    }
    return plain == "utf8" ? utf8() : byName(plain);
}

std::optional<CodePage> CodePage::byNumber(int number)
{
    if (number == 65001)
        return utf8();
    const std::string converterName = "CP" + std::to_string(number);
    for (const PageName& row : kPageNames) {
        if (row.converterName == converterName)
            return CodePage(tableFor(row.converterName));
    }
    return std::nullopt;
}

bool CodePage::isUtf8() const
{
    return !table_;
}

std::wstring CodePage::decode(std::string_view bytes) const
{
    if (!table_)
        return fromUtf8(bytes);
    std::wstring text;
    text.reserve(bytes.size());
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const auto first = static_cast<unsigned char>(bytes[i]);
        wchar_t character = table_->single[first];
        const bool mayLead = character == kByteBase + first && !table_->pairs.empty();
        if (mayLead && i + 1 < bytes.size()) {
            const wchar_t pair = table_->pairAt(first, static_cast<unsigned char>(bytes[i + 1]));
            if (pair) {
                character = pair;
                ++i;
            }
        }
        text += character;
    }
    return text;
}

bool CodePage::appendEncoded(wchar_t character, std::string& out) const
{
    if (character >= 0 && character < 0x80) {
        out += static_cast<char>(character);
        return true;
    }
    if (!table_) {
        const bool valid = character <= 0x10FFFF && (character < 0xD800 || character > 0xDFFF);
        if (!valid && (character < kByteBase + 0x80 || character > kByteBase + 0xFF))
            return false;
        out += toUtf8({&character, 1});
        return true;
    }
    if (character >= kByteBase + 0x80 && character <= kByteBase + 0xFF) {
        out += static_cast<char>(character - kByteBase);
        return true;
    }
    const int code = table_->codeOf(character);
    if (code < 0)
        return false;
    if (code > 0xFF)
        out += static_cast<char>(code >> 8);
    out += static_cast<char>(code & 0xFF);
    return true;
}

std::optional<std::string> CodePage::encode(wchar_t character) const
{
    std::string bytes;
    if (!appendEncoded(character, bytes))
        return std::nullopt;
    return bytes;
}

std::string CodePage::encode(std::wstring_view text, const Lacking& lacking) const
{
    std::string bytes;
    bytes.reserve(text.size());
    for (const wchar_t character : text) {
        if (!appendEncoded(character, bytes))
            lacking(character, bytes);
    }
    return bytes;
}

} // namespace host

#include "description/property_parser.h"

#include "description/property_table.h"
#include "host/text/case_mapping.h"
#include "text/number_text.h"
#include "text/text_splitting.h"

namespace {

constexpr std::size_t kThree = 3; // factors of a scale, parts of a colour

// What stands in the parentheses of "(a b c)", when that is three numbers.
std::optional<std::vector<std::wstring>> threeNumbers(std::wstring_view item, std::size_t open)
{
    const std::size_t close = item.rfind(L')');
    if (close == item.npos || close < open)
        return std::nullopt;
    // The count fits an item that begins with its parenthesis; behind other text it takes in too
    // much.
    std::vector<std::wstring> parts = splitText(item.substr(open + 1, close - 1), L" ");
    if (parts.size() != kThree)
        return std::nullopt;
    for (const std::wstring& part : parts) {
        if (!isNumber(part))
            return std::nullopt;
    }
    return parts;
}

// Reads items of one row; nothing for an item that the row's grammar refuses.
class ItemReader {
public:
    ItemReader(const PropertyRow& row, std::wstring_view item) : row_(row), item_(item) {}

    std::optional<double> read(double) const
    {
        return isNumber(item_) ? std::optional(leadingReal(item_)) : std::nullopt;
    }

    std::optional<ScaleFactors> read(const ScaleFactors&) const
    {
        const std::size_t open = item_.find(L'(');
        if (open == item_.npos) {
            const std::optional<double> factor = read(0.0);
            return factor ? std::optional(ScaleFactors{*factor, *factor, *factor}) : std::nullopt;
        }
        const auto parts = threeNumbers(item_, open);
        if (!parts)
            return std::nullopt;
        return ScaleFactors{leadingReal((*parts)[0]), leadingReal((*parts)[1]),
                            leadingReal((*parts)[2])};
    }

    std::optional<std::wstring> read(const std::wstring&) const
    {
        if (row_.grammar == PropertyGrammar::text)
            return std::wstring(item_);
        if (row_.grammar == PropertyGrammar::word && !codeOfWord(row_.words, item_))
            return std::nullopt;
        return host::lowerCased(item_);
    }

    std::optional<std::uint8_t> read(std::uint8_t) const
    {
        if (row_.grammar == PropertyGrammar::code) {
            const std::optional<std::int32_t> code = codeOfWord(row_.words, item_);
            return code ? std::optional(static_cast<std::uint8_t>(*code)) : std::nullopt;
        }
        if (!isNumber(item_))
            return std::nullopt;
        const double number = leadingReal(item_);
        return row_.grammar == PropertyGrammar::nonZero ? number != 0.0 : number > 0.0;
    }

    std::optional<std::int32_t> read(std::int32_t) const
    {
        if (const std::optional<std::int32_t> code = codeOfWord(row_.words, item_))
            return code;
        if (row_.grammar == PropertyGrammar::code || !isNumber(item_))
            return std::nullopt;
        return leadingInteger(item_);
    }

    std::optional<ColorEntry> readColor() const
    {
        const std::size_t open = item_.find(L'(');
        if (open == item_.npos) {
            const std::optional<std::int32_t> index = read(std::int32_t{0});
            return index ? std::optional(ColorEntry{*index}) : std::nullopt;
        }
        const auto parts = threeNumbers(item_, open);
        if (!parts)
            return std::nullopt;
        return ColorEntry{leadingInteger((*parts)[0]), leadingInteger((*parts)[1]),
                          leadingInteger((*parts)[2])};
    }

private:
    const PropertyRow& row_;
    std::wstring_view item_;
};

// Puts one item into the member that a row names; one overload for each kind of member.
class ItemStore {
public:
    ItemStore(GraphicProps& props, const PropertyRow& row, std::wstring_view item,
              std::int32_t mode)
        : props_(props), row_(row), item_(item), mode_(mode)
    {
    }

    template <class T> bool operator()(PropConstraint<T> GraphicProps::*member) const
    {
        if (isAny())
            return true;
        std::optional<T> read = ItemReader(row_, item_).read(T{});
        if (!read)
            return false;
        PropConstraint<T>& constraint = props_.*member;
        if (constraint.isGiven()) {
            constraint.mode = mode_;
            constraint.accepted.push_back(std::move(*read));
        } else {
            constraint = {kOneValue, std::move(*read), {}};
        }
        return true;
    }

    bool operator()(ColorList GraphicProps::*member) const
    {
        std::optional<ColorEntry> entry =
            isAny() ? ColorEntry{} : ItemReader(row_, item_).readColor();
        if (!entry)
            return false;
        (props_.*member).push_back(std::move(*entry));
        return true;
    }

    bool operator()(bool GraphicProps::*member) const
    {
        props_.*member = !isAny() && leadingInteger(item_) > 0;
        return true;
    }

private:
    bool isAny() const { return item_ == anyText; }

    GraphicProps& props_;
    const PropertyRow& row_;
    std::wstring_view item_;
    std::int32_t mode_;
};

} // namespace

bool parseProperty(GraphicProps& props, std::wstring_view keyword, std::wstring_view value,
                   std::wstring_view accepted)
{
    const bool range = accepted.find(L':') != accepted.npos;
    const std::int32_t mode = accepted.empty() ? kOneValue : range ? kValueAndRange : kValueAndList;
    std::vector<std::wstring> items = splitWithEscape(accepted, range ? L":" : L",");
    if (range && items.size() != 2)
        return false;
    items.insert(items.begin(), std::wstring(value));

    const PropertyRow* row = findProperty(host::lowerCased(keyword));
    for (const std::wstring& untrimmed : items) {
        const std::wstring_view item = trimmedItem(untrimmed);
        if (item.empty())
            continue;
        if (!row) {
            if (item != anyText)
                return false;
        } else if (!std::visit(ItemStore(props, *row, item, mode), row->member)) {
            return false;
        }
    }
    return true;
}

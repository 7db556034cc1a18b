#include "host/db/tag_items.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace host {

namespace {

constexpr std::size_t kChunk = 127; // bytes that one binary item holds

// Codes of x that a y (code + 10) belongs to, and mostly a z (code + 20).
struct PointCodes {
    int first;
    int last;
};
constexpr PointCodes kPointCodes[] = {{10, 17}, {110, 112}, {210, 213}, {1010, 1013}};

std::wstring hexadecimal(std::uint64_t value)
{
    std::wstring digits;
    do {
        digits.insert(digits.begin(), L"0123456789ABCDEF"[value & 15]);
        value >>= 4;
    } while (value != 0);
    return digits;
}

std::optional<std::uint64_t> fromHexadecimal(std::wstring_view text)
{
    constexpr std::size_t kDigits = 16;
    if (text.empty() || text.size() > kDigits)
        return std::nullopt;
    std::uint64_t value = 0;
    for (const wchar_t c : text) {
        const int digit = c >= L'0' && c <= L'9'   ? c - L'0'
                          : c >= L'A' && c <= L'F' ? c - L'A' + 10
                          : c >= L'a' && c <= L'f' ? c - L'a' + 10
                                                   : -1;
        if (digit < 0)
            return std::nullopt;
        value = value << 4 | static_cast<std::uint64_t>(digit);
    }
    return value;
}

} // namespace

bool isPointCode(int code)
{
    return std::any_of(
        std::begin(kPointCodes), std::end(kPointCodes),
        [&](const PointCodes& range) { return code >= range.first && code <= range.last; });
}

std::size_t behindItem(const TagList& tags, std::size_t at, std::size_t last)
{
    const int code = tags[at].code;
    std::size_t next = at + 1;
    if (!isPointCode(code))
        return next;
    if (next < last && tags[next].code == code + 10)
        ++next;
    if (next == at + 2 && next < last && tags[next].code == code + 20)
        ++next;
    return next;
}

resbuf itemAt(const TagList& tags, std::size_t at, std::size_t end)
{
    resbuf item;
    item.restype = tags[at].code;
    resbuf::Value& value = item.resval;
    switch (tagKind(tags[at].code)) {
    case TagKind::real:
        if (isPointCode(tags[at].code)) {
            for (std::size_t i = at; i < end; ++i)
                value.rpoint[i - at] = tags.real(i);
        } else {
            value.rreal = tags.real(at);
        }
        break;
    case TagKind::int16:
    case TagKind::boolean:
        value.rint = static_cast<std::int16_t>(tags.integer(at));
        break;
    case TagKind::int32:
        value.rlong = static_cast<std::int32_t>(tags.integer(at));
        break;
    case TagKind::int64:
        value.mnInt64 = tags.integer(at);
        break;
    case TagKind::handle:
        value.rstring = hexadecimal(tags.handle(at));
        break;
    case TagKind::binary:
        value.rbinary = tags.form().binary(tags[at]);
        break;
    case TagKind::text:
    case TagKind::comment:
        value.rstring = tags.text(at);
        break;
    }
    return item;
}

bool sameItem(const resbuf& a, const resbuf& b)
{
    if (a.restype != b.restype)
        return false;
    const resbuf::Value& left = a.resval;
    const resbuf::Value& right = b.resval;
    switch (tagKind(a.restype)) {
    case TagKind::real:
        return isPointCode(a.restype) ? left.rpoint == right.rpoint : left.rreal == right.rreal;
    case TagKind::int16:
    case TagKind::boolean:
        return left.rint == right.rint;
    case TagKind::int32:
        return left.rlong == right.rlong;
    case TagKind::int64:
        return left.mnInt64 == right.mnInt64;
    case TagKind::handle:
        return fromHexadecimal(left.rstring) == fromHexadecimal(right.rstring);
    case TagKind::binary:
        return left.rbinary == right.rbinary;
    case TagKind::text:
    case TagKind::comment:
        return left.rstring == right.rstring;
    }
    return false;
}

bool isWritable(const resbuf& item)
{
    constexpr int kLast = 1071;
    const int code = item.restype;
    if (code < 1 || code == 999 || code > kLast)
        return false;
    switch (tagKind(code)) {
    case TagKind::real:
        if (isPointCode(code))
            return std::all_of(item.resval.rpoint.begin(), item.resval.rpoint.end(),
                               [](double part) { return std::isfinite(part); });
        return std::isfinite(item.resval.rreal);
    case TagKind::boolean:
        return item.resval.rint == 0 || item.resval.rint == 1;
    case TagKind::handle:
        return fromHexadecimal(item.resval.rstring).has_value();
    case TagKind::binary:
        return item.resval.rbinary.size() <= kChunk;
    default:
        return true;
    }
}

void overwriteItem(TagList& tags, std::size_t at, std::size_t end, const resbuf& item)
{
    const resbuf::Value& value = item.resval;
    switch (tagKind(item.restype)) {
    case TagKind::real:
        if (!isPointCode(item.restype)) {
            tags.setReal(at, value.rreal);
            break;
        }
        for (std::size_t i = at; i < end; ++i)
            if (tags.real(i) != value.rpoint[i - at])
                tags.setReal(i, value.rpoint[i - at]);
        break;
    case TagKind::int16:
    case TagKind::boolean:
        tags.setInteger(at, value.rint);
        break;
    case TagKind::int32:
        tags.setInteger(at, value.rlong);
        break;
    case TagKind::int64:
        tags.setInteger(at, value.mnInt64);
        break;
    case TagKind::handle:
        tags.setHandle(at, fromHexadecimal(value.rstring).value_or(0));
        break;
    case TagKind::binary:
        tags.setBytes(at, tags.form().binaryValue(item.restype, value.rbinary));
        break;
    case TagKind::text:
    case TagKind::comment:
        tags.setText(at, value.rstring);
        break;
    }
}

ResbufChain itemsOf(const TagList& tags, std::size_t first, std::size_t last)
{
    ResbufChain items;
    for (std::size_t i = first; i < last;) {
        if (tagKind(tags[i].code) == TagKind::comment) {
            ++i;
            continue;
        }
        const std::size_t end = behindItem(tags, i, last);
        items.push_back(itemAt(tags, i, end));
        i = end;
    }
    return items;
}

void appendItem(TagList& tags, const resbuf& item)
{
    const resbuf::Value& value = item.resval;
    const int code = item.restype;
    switch (tagKind(code)) {
    case TagKind::real:
        if (!isPointCode(code)) {
            tags.addReal(code, value.rreal);
            break;
        }
        for (int i = 0; i < 3; ++i)
            tags.addReal(code + 10 * i, value.rpoint[static_cast<std::size_t>(i)]);
        break;
    case TagKind::int16:
    case TagKind::boolean:
        tags.addInteger(code, value.rint);
        break;
    case TagKind::int32:
        tags.addInteger(code, value.rlong);
        break;
    case TagKind::int64:
        tags.addInteger(code, value.mnInt64);
        break;
    case TagKind::handle:
        tags.addHandle(code, fromHexadecimal(value.rstring).value_or(0));
        break;
    case TagKind::binary:
        tags.insertBinary(tags.size(), code, value.rbinary);
        break;
    case TagKind::text:
    case TagKind::comment:
        tags.addText(code, value.rstring);
        break;
    }
}

} // namespace host

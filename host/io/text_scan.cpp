#include "host/io/text_scan.h"

#include "host/db/tag.h"
#include "host/io/text_lines.h"
#include "host/text/number_format.h"

#include <algorithm>

namespace host {

namespace {

enum class Check : std::uint8_t { none, real, integer };

struct CodeRule {
    Check check = Check::none;
    TagRole role = TagRole::none;
};

const std::array<CodeRule, kRoleTableSize>& codeRules()
{
    static const std::array<CodeRule, kRoleTableSize> rules = [] {
        std::array<CodeRule, kRoleTableSize> table{};
        for (std::size_t code = 0; code < table.size(); ++code) {
            table[code].role = kTagRoles[code];
            switch (tagKind(static_cast<int>(code))) {
            case TagKind::real:
                table[code].check = Check::real;
                break;
            case TagKind::int16:
            case TagKind::int32:
            case TagKind::int64:
            case TagKind::boolean:
                table[code].check = Check::integer;
                break;
            default:
                break;
            }
        }
        return table;
    }();
    return rules;
}

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

// The syntax of a number without an exponent is checked here; what has one, or very many digits,
// may be too great and is converted.
bool isRealSlow(const char* first, const char* last)
{
    constexpr std::ptrdiff_t kManyDigits = 300;
    if (last - first > kManyDigits)
        return parseReal({first, static_cast<std::size_t>(last - first)}).has_value();
    const char* at = first;
    const char* end = last;
    while (at < end && (*at == ' ' || *at == '\t'))
        ++at;
    while (end > at && (end[-1] == ' ' || end[-1] == '\t'))
        --end;
    if (at < end && (*at == '-' || *at == '+'))
        ++at;
    const char* const digits = at;
    while (at < end && isDigit(*at))
        ++at;
    std::ptrdiff_t count = at - digits;
    if (at < end && *at == '.') {
        const char* const fraction = ++at;
        while (at < end && isDigit(*at))
            ++at;
        count += at - fraction;
    }
    if (at == end)
        return count > 0;
    return parseReal({first, static_cast<std::size_t>(last - first)}).has_value();
}

bool isIntegerSlow(const char* first, const char* last)
{
    return parseInteger({first, static_cast<std::size_t>(last - first)}).has_value();
}

#if defined(__SSE2__)

// One bit for each of 16 bytes.
inline std::uint32_t digitBits(__m128i bytes)
{
    const __m128i fromZero = _mm_sub_epi8(bytes, _mm_set1_epi8('0'));
    const __m128i low = _mm_min_epu8(fromZero, _mm_set1_epi8(9));
    return static_cast<std::uint32_t>(_mm_movemask_epi8(_mm_cmpeq_epi8(low, fromZero)));
}

inline std::uint32_t bitsOf(__m128i bytes, char c)
{
    return static_cast<std::uint32_t>(_mm_movemask_epi8(_mm_cmpeq_epi8(bytes, _mm_set1_epi8(c))));
}

inline __m128i load(const char* at)
{
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(at));
}

// The common spellings: a sign perhaps, digits, one point perhaps.
inline bool isReal(const char* first, const char* last)
{
    const std::size_t length = static_cast<std::size_t>(last - first);
    if (length - 1 >= 31)
        return isRealSlow(first, last);
    std::uint32_t digits = digitBits(load(first));
    if (length > 16)
        digits |= digitBits(load(first + 16)) << 16;
    std::uint32_t others = ~digits & ((1u << length) - 1);
    const std::uint32_t sign = first[0] == '-';
    others &= ~sign;
    if ((others & (others - 1)) == 0) {
        if (others == 0) {
            if (length > sign)
                return true;
        } else if (first[__builtin_ctz(others)] == '.' && length > sign + 1) {
            return true;
        }
    }
    return isRealSlow(first, last);
}

// Blanks, then digits.
inline bool isInteger(const char* first, const char* last)
{
    const std::size_t length = static_cast<std::size_t>(last - first);
    if (length - 1 >= 16)
        return isIntegerSlow(first, last);
    const __m128i bytes = load(first);
    const std::uint32_t others = ~digitBits(bytes) & ((1u << length) - 1);
    if ((others & (others + 1)) == 0 && (others & ~bitsOf(bytes, ' ')) == 0 &&
        others + 1 != 1u << length)
        return true;
    return isIntegerSlow(first, last);
}

#else

inline bool isReal(const char* first, const char* last)
{
    return isRealSlow(first, last);
}

inline bool isInteger(const char* first, const char* last)
{
    return isIntegerSlow(first, last);
}

#endif

bool readsOne(const char* first, const char* last)
{
    return parseInteger({first, static_cast<std::size_t>(last - first)}) == 1;
}

} // namespace

ScanTrouble scanText(std::string_view file, std::size_t first, std::size_t last, RecordNotes& notes,
                     bool& ended)
{
    const std::array<CodeRule, kRoleTableSize>& rules = codeRules();
    const char* const base = file.data();
    const char* const stop = base + last;
    const char* at = base + first;
    ended = false;
    bool begun = false; // some record has
    std::size_t start = first;
    if (first == 0 && file.starts_with("\xEF\xBB\xBF"))
        at += 3;
    const auto trouble = [&](ScanFault fault, const char* where, int code = 0) {
        if (!begun && fault != ScanFault::cutTag && fault != ScanFault::noEnd)
            fault = ScanFault::noDrawing;
        return ScanTrouble{fault, static_cast<std::size_t>(where - base), code};
    };

    while (at < stop) {
        const char* const codeLine = at;
        const int code = takeCode(at, stop);
        if (code == kNoCode && (at < stop || !begun))
            return trouble(ScanFault::badCode, codeLine);
        if (at >= stop)
            return trouble(ScanFault::cutTag, codeLine, code);
        const char* const value = at;
        const char* const end = findLineEnd(value, stop, at);

        const auto number = static_cast<unsigned>(code);
        if (number >= kRoleTableSize)
            continue;
        const CodeRule rule = rules[number];
        if (rule.check == Check::real) {
            if (!isReal(value, end))
                return trouble(ScanFault::badReal, value, code);
        } else if (rule.check == Check::integer) {
            if (!isInteger(value, end))
                return trouble(ScanFault::badInteger, value, code);
            if (rule.role == TagRole::space && begun)
                notes.tag(rule.role, {}, readsOne(value, end));
        } else if (rule.role != TagRole::none) {
            const std::string_view bytes(value, static_cast<std::size_t>(end - value));
            if (rule.role == TagRole::type) {
                // What precedes the first record belongs to it.
                start = begun || first > 0 ? static_cast<std::size_t>(codeLine - base) : 0;
                begun = true;
                if (notes.begin(start, bytes)) {
                    ended = true;
                    return {};
                }
            } else if (begun) {
                notes.tag(rule.role, bytes, false);
            }
        }
        if (!begun && code != 999)
            return trouble(ScanFault::noDrawing, codeLine, code);
    }
    return {};
}

std::size_t findRecordStart(std::string_view file, std::size_t from)
{
    const char* const base = file.data();
    const char* const stop = base + file.size();
    const char* at = base + std::min(from, file.size());
    findLineEnd(at, stop, at);
    while (at < stop && takeCode(at, stop) != kNoCode)
        ;
    while (at < stop) {
        const char* const codeLine = at;
        const int code = takeCode(at, stop);
        if (code == 0)
            return static_cast<std::size_t>(codeLine - base);
        findLineEnd(at, stop, at);
    }
    return file.size();
}

std::size_t lineNumber(std::string_view file, std::size_t offset)
{
    const std::string_view before = file.substr(0, offset);
    return 1 + static_cast<std::size_t>(std::count(before.begin(), before.end(), '\n'));
}

} // namespace host

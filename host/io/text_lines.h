#pragma once

#include <array>
#include <climits>
#include <cstdint>
#include <cstring>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

// The lines of a text file, fast. The bytes belong to a file's image: behind `last` zero bytes may
// be read. A line ends with "\n" or "\r\n", the last one of a file perhaps with nothing.
namespace host {

inline constexpr int kNoCode = INT_MIN;
inline constexpr std::size_t kLongestCodeLine = 200; // bytes; the rest of it can only be blanks

// The "\n" at or behind `at`, or `last`.
inline const char* findLineFeed(const char* at, const char* last)
{
#if defined(__SSE2__)
    const __m128i feed = _mm_set1_epi8('\n');
    for (; at < last; at += 16) {
        const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(at));
        if (const int found = _mm_movemask_epi8(_mm_cmpeq_epi8(bytes, feed))) {
            at += __builtin_ctz(static_cast<unsigned>(found));
            return at < last ? at : last;
        }
    }
    return last;
#else
    const void* const found = std::memchr(at, '\n', static_cast<std::size_t>(last - at));
    return found ? static_cast<const char*>(found) : last;
#endif
}

// The end of the line at `at` without what ends it; `next` is set to the next line.
inline const char* findLineEnd(const char* at, const char* last, const char*& next)
{
    const char* const feed = findLineFeed(at, last);
    next = feed < last ? feed + 1 : last;
    return feed > at && feed[-1] == '\r' ? feed - 1 : feed;
}

// What a character stands for in a group code: 0 to 9, a blank, or nothing of it.
inline constexpr std::uint8_t kCodeBlank = 16;
inline constexpr std::uint8_t kCodeOther = 255;
inline constexpr std::array<std::uint8_t, 256> kCodeCharacters = [] {
    std::array<std::uint8_t, 256> table{};
    table.fill(kCodeOther);
    for (int digit = 0; digit < 10; ++digit)
        table['0' + static_cast<std::size_t>(digit)] = static_cast<std::uint8_t>(digit);
    table[' '] = table['\t'] = kCodeBlank;
    return table;
}();

// A code of any spelling: blanks around, a sign. kNoCode when it is none or out of 16 bits.
int parseCode(const char* first, const char* last);

// The code on the line at `at`, which is moved to the next line; kNoCode when the line is none.
inline int takeCode(const char*& at, const char* last)
{
    // Nearly every file fills codes to three columns; the branch tells the next line's place sooner
    // than a search would.
    if (last - at > 5 && (at[3] == '\n' || (at[3] == '\r' && at[4] == '\n'))) {
        const unsigned a = kCodeCharacters[static_cast<unsigned char>(at[0])];
        const unsigned b = kCodeCharacters[static_cast<unsigned char>(at[1])];
        const unsigned c = kCodeCharacters[static_cast<unsigned char>(at[2])];
        if (c < 10 && (b < 10 ? a <= kCodeBlank : (b == kCodeBlank && a == kCodeBlank))) {
            at += at[3] == '\n' ? 4 : 5;
            return static_cast<int>((a & 15) * 100 + (b & 15) * 10 + c);
        }
    }
    const char* const first = at;
    const char* const end = findLineEnd(at, last, at);
    if (at - first > static_cast<std::ptrdiff_t>(kLongestCodeLine))
        return kNoCode;
    return parseCode(first, end);
}

} // namespace host

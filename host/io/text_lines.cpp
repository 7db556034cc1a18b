#include "host/io/text_lines.h"

namespace host {

int parseCode(const char* first, const char* last)
{
    constexpr int kGreatest = 32767;
    const auto isBlank = [](char c) { return c == ' ' || c == '\t'; };
    while (first < last && isBlank(*first))
        ++first;
    while (last > first && isBlank(last[-1]))
        --last;
    const bool negative = first < last && *first == '-';
    if (first < last && (*first == '-' || *first == '+'))
        ++first;
    if (first == last)
        return kNoCode;
    int code = 0;
    for (; first < last; ++first) {
        if (*first < '0' || *first > '9')
            return kNoCode;
        code = code * 10 + (*first - '0');
        if (code > kGreatest)
            return kNoCode;
    }
    return negative ? -code : code;
}

} // namespace host

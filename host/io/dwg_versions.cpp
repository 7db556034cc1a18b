#include "host/io/dwg_versions.h"

namespace host {

namespace {

struct Release {
    std::string_view mark; // the file's first bytes
    const wchar_t* name;
};

constexpr Release kReleases[] = {
    {"AC1032", L"AutoCAD 2018"}, {"AC1027", L"AutoCAD 2013"}, {"AC1024", L"AutoCAD 2010"},
    {"AC1021", L"AutoCAD 2007"}, {"AC1018", L"AutoCAD 2004"}, {"AC1015", L"AutoCAD 2000"},
    {"AC1014", L"AutoCAD R14"},  {"AC1012", L"AutoCAD R13"},  {"AC1009", L"AutoCAD R11 or R12"},
    {"AC1006", L"AutoCAD R10"},  {"AC1004", L"AutoCAD R9"},   {"AC1003", L"AutoCAD 2.60"},
    {"AC1002", L"AutoCAD 2.50"}, {"AC1001", L"AutoCAD 2.22"}, {"AC2.10", L"AutoCAD 2.10"},
    {"AC1.50", L"AutoCAD 2.05"}, {"AC1.40", L"AutoCAD 1.40"}, {"AC1.2", L"AutoCAD 1.2"},
};

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

} // namespace

std::optional<std::wstring> dwgRelease(std::string_view file)
{
    constexpr std::size_t kMarkLength = 6;
    const std::string_view mark = file.substr(0, kMarkLength);
    for (const Release& release : kReleases)
        if (mark.starts_with(release.mark))
            return std::wstring(release.name) + L" (" + std::wstring(mark.begin(), mark.end()) +
                   L")";
    // versions between the releases, and those to come
    if (mark.size() == kMarkLength && mark.starts_with("AC10") && isDigit(mark[4]) &&
        isDigit(mark[5]))
        return L"an unknown version (" + std::wstring(mark.begin(), mark.end()) + L")";
    return std::nullopt;
}

} // namespace host

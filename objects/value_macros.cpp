#include "objects/value_macros.h"

#include "host/db/database.h"
#include "host/edit/document.h"
#include "host/files/host_names.h"
#include "host/text/wide_format.h"

#include <ctime>
#include <iterator>

namespace {

std::wstring fileName()
{
    AcDbDatabase* const database = acdbHostApplicationServices()->workingDatabase();
    if (!database)
        return {};
    const AcApDocument* const document = acDocManagerPtr()->document(database);
    return document ? document->fileName() : database->getFilename();
}

std::wstring orUnknown(std::wstring name)
{
    return name.empty() ? L"unknown" : name;
}

// Each macro reads the clock by itself: two of one text may straddle a tick.
std::tm localTime()
{
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return local;
}

std::wstring twoDigits(int number)
{
    return host::format(L"%02i", number);
}

struct Macro {
    std::wstring_view word;
    std::wstring (*replacement)(const ObjectDef&);
};

constexpr Macro kMacros[] = {
    {L"$(obj_name)", [](const ObjectDef& object) { return object.props.name; }},
    {L"$(file_name)", [](const ObjectDef&) { return fileName(); }},
    {L"$(computer_name)", [](const ObjectDef&) { return orUnknown(host::computerName()); }},
    {L"$(user_name)", [](const ObjectDef&) { return orUnknown(host::userName()); }},
    {L"$(day)", [](const ObjectDef&) { return twoDigits(localTime().tm_mday); }},
    {L"$(month)", [](const ObjectDef&) { return twoDigits(localTime().tm_mon + 1); }},
    {L"$(year)", [](const ObjectDef&) { return host::format(L"%i", localTime().tm_year + 1900); }},
    {L"$(hour)", [](const ObjectDef&) { return twoDigits(localTime().tm_hour); }},
    {L"$(minute)", [](const ObjectDef&) { return twoDigits(localTime().tm_min); }},
    {L"$(second)", [](const ObjectDef&) { return twoDigits(localTime().tm_sec); }},
};

// False if the word does not occur. The replacement itself is not searched.
bool replaceAll(std::wstring& text, const Macro& macro, const ObjectDef& object)
{
    std::size_t at = text.find(macro.word);
    if (at == std::wstring::npos)
        return false;
    const std::wstring replacement = macro.replacement(object);
    for (; at != std::wstring::npos; at = text.find(macro.word, at + replacement.size()))
        text.replace(at, macro.word.size(), replacement);
    return true;
}

} // namespace

std::wstring expandMacros(const ObjectDef& object, std::wstring_view text)
{
    std::wstring expanded(text);
    if (expanded.find(L"$(") == std::wstring::npos)
        return expanded;

    // a chain that does not bite its tail visits each macro once, and macros put together from
    // pieces use up the text; one that does may double each time
    const std::size_t mostPasses = std::size(kMacros) + text.size();
    const std::size_t longest = 65536 + text.size();
    for (std::size_t pass = 0; pass <= mostPasses && expanded.size() <= longest; ++pass) {
        bool found = false;
        for (const Macro& macro : kMacros)
            found |= replaceAll(expanded, macro, object);
        if (!found)
            break;
    }
    return expanded;
}

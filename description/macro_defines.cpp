#include "description/macro_defines.h"

#include "host/text/case_mapping.h"

namespace {

constexpr std::wstring_view kOpening = L"$(";
constexpr std::wstring_view kForbidden = L"`~!@#$%^&*()=+[]{};:'\"\\|,<.>/? \t";

// Macros put together from pieces of other macros can name themselves unseen, and each of a row of
// macros can hold the one before it twice. Their expansion stops here; no other comes near.
constexpr int kMostReplacements = 10'000;
constexpr std::size_t kLongestExpansion = std::size_t{1} << 20; // characters

// False, and the text stays, when the result would be too long.
bool replaceAll(std::wstring& text, const std::wstring& part, const std::wstring& by)
{
    std::wstring result;
    std::size_t at = 0;
    for (std::size_t found; (found = text.find(part, at)) != text.npos; at = found + part.size()) {
        result.append(text, at, found - at);
        result += by;
        if (result.size() > kLongestExpansion)
            return false;
    }
    result.append(text, at);
    text = std::move(result);
    return true;
}

} // namespace

MacroDefines::Outcome MacroDefines::define(std::wstring_view name, std::wstring_view value)
{
    const std::wstring key = std::wstring(kOpening) + host::lowerCased(name) + L')';
    const auto known = values_.find(key);
    if (known != values_.end()) {
        known->second = value;
        return Outcome::replaced;
    }
    if (host::lowerCased(value).find(key) != std::wstring::npos)
        return Outcome::recursive;
    values_.emplace(key, value);
    return Outcome::defined;
}

std::wstring MacroDefines::expand(std::wstring text) const
{
    std::size_t from = 0;
    for (int replaced = 0; replaced < kMostReplacements;) {
        const std::size_t opening = text.find(kOpening, from);
        if (opening == text.npos)
            break;
        const std::size_t closing = text.find(L')', opening + kOpening.size());
        if (closing == text.npos)
            break;
        const std::wstring macro = text.substr(opening, closing + 1 - opening);
        const auto value = values_.find(host::lowerCased(macro));
        if (value == values_.end()) {
            from = closing + 1;
        } else if (replaceAll(text, macro, value->second)) {
            ++replaced;
        } else {
            break;
        }
    }
    return text;
}

bool hasForbiddenCharacter(std::wstring_view name)
{
    return name.find_first_of(kForbidden) != name.npos;
}

#pragma once

#include "host/runtime/error_status.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// The text of a definition file: UTF-8, with or without a byte order mark, in lines of whatever
// end.
namespace host {

// eFileNotFound, eFileAccessErr.
Acad::ErrorStatus readDefinitionText(const std::filesystem::path& file, std::wstring& text);

// Lines without their ends and without blanks and tabs around them. Views into the text.
std::vector<std::wstring_view> trimmedLines(std::wstring_view text);
std::wstring_view trimmedText(std::wstring_view text);

// The parts between commas, trimmed. A comma inside quotes or brackets parts nothing.
std::vector<std::wstring_view> commaParts(std::wstring_view line);

// A number, as users write it: ".5", "-1.", "1e3"; nothing for what is none.
std::optional<double> definitionNumber(std::wstring_view text);

// The name and the description of a header, "*NAME, description"; nothing for another line or one
// without a name.
struct DefinitionHeader {
    std::wstring_view name;
    std::wstring_view description;
};
std::optional<DefinitionHeader> definitionHeader(std::wstring_view line);

} // namespace host

#include "import/definition_names.h"

#include "host/text/case_mapping.h"
#include "text/text_file.h"
#include "text/text_splitting.h"

std::optional<std::wstring> definedName(std::wstring_view line)
{
    line = trimmedLeft(line, L" \t");
    if (!line.starts_with(L'*'))
        return std::nullopt;
    const std::wstring_view header = trimmedRight(line.substr(0, line.find(L',')), L" \t\r\n");
    return std::wstring(header.substr(1));
}

std::vector<std::wstring> definedNames(TextFileLines& lines)
{
    std::vector<std::wstring> names;
    while (const auto line = lines.next()) {
        if (const auto name = definedName(*line))
            names.push_back(host::lowerCased(*name));
    }
    return names;
}

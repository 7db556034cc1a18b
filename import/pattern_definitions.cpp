#include "import/pattern_definitions.h"

#include "host/files/open_file.h"
#include "host/files/safe_save.h"
#include "host/text/case_mapping.h"
#include "host/text/encoding.h"
#include "import/definition_names.h"
#include "import/readable_file.h"
#include "text/text_file.h"
#include "text/text_splitting.h"

#include <algorithm>

namespace {

bool isEmptyOrComment(std::wstring_view line)
{
    const std::wstring_view said = trimmedItem(line);
    return said.empty() || said.starts_with(L';');
}

// What the definitions add to a file with these bytes.
std::wstring addition(std::wstring_view path, const PatternDefinitions& definitions,
                      std::span<const std::wstring> names)
{
    std::vector<std::wstring> known;
    if (std::optional<TextFileLines> lines = TextFileLines::open(path))
        known = definedNames(*lines);
    std::wstring text;
    for (const std::wstring& name : names) {
        if (std::find(known.begin(), known.end(), name) == known.end())
            text.append(L"\n").append(definitions.at(name)).append(L"\n");
    }
    return text;
}

} // namespace

PatternDefinitions readPatternDefinitions(TextFileLines& lines)
{
    PatternDefinitions definitions;
    std::wstring* current = nullptr; // null before the first header and behind a repeated one
    while (const auto line = lines.next()) {
        if (const auto name = definedName(*line)) {
            const auto [entry, isNew] =
                definitions.try_emplace(host::lowerCased(*name), std::wstring(*line));
            current = isNew ? &entry->second : nullptr;
        } else if (current && !isEmptyOrComment(*line)) {
            current->append(*line);
        }
    }
    return definitions;
}

bool appendPatterns(std::wstring_view path, const PatternDefinitions& definitions,
                    std::span<const std::wstring> names)
{
    const std::optional<std::filesystem::path> file = readableFile(path);
    if (!file)
        return false;
    const std::wstring added = addition(path, definitions, names);
    if (added.empty())
        return true;
    std::string error;
    const std::string bytes = host::readWholeFile(*file, error);
    if (!error.empty())
        return false;
    const auto save = host::SafeSave::begin(*file, error, host::SafeSave::Backup::none);
    if (!save)
        return false;
    save->write(bytes);
    save->write(host::toUtf8(added));
    return save->commit(error);
}

#include "description/description_reader.h"

#include "description/directive_table.h"
#include "description/object_directives.h"
#include "description/resource_resolution.h"
#include "description/stored_table.h"
#include "host/text/case_mapping.h"
#include "store/od_tables.h"
#include "text/text_file.h"
#include "text/text_splitting.h"

#include <algorithm>

// One directive on a line, its arguments behind tabs; "#" begins a comment. Only the ends of a line
// are trimmed, and only the first token is folded: one that was a blank before trimming leaves its
// place to the next, which then stands there as written. Macros are expanded last, in the keyword
// too.

namespace {

std::vector<std::wstring> tokensOf(std::wstring_view line, const MacroDefines& defines)
{
    std::vector<std::wstring> tokens = splitWithEscape(line.substr(0, line.find(L'#')), L"\t");
    if (tokens.empty())
        return tokens;
    tokens.front() = std::wstring(trimmedLeft(tokens.front(), L" \t"));
    tokens.back() = std::wstring(trimmedRight(tokens.back(), L" \t\r\n"));
    tokens.front() = host::lowerCased(tokens.front());
    std::erase_if(tokens, [](const std::wstring& token) { return token.empty(); });
    for (std::wstring& token : tokens)
        token = defines.expand(std::move(token));
    return tokens;
}

bool readLines(ReadingState& state, TextFileLines& lines)
{
    while (const auto line = lines.next()) {
        ++state.lineNumber;
        const std::vector<std::wstring> tokens = tokensOf(*line, state.defines);
        if (!tokens.empty() && !runDirective(state, tokens))
            return false;
    }
    if (state.failed)
        return false;
    if (state.classDepth > 0) {
        state.sink.message(std::nullopt, Message::classNotClosed, {});
        return false;
    }
    return true;
}

// The lower-cased name of the table's first key field, or "".
std::wstring keyFieldOf(const TableDef& table)
{
    const auto key =
        std::find_if(table.fields.begin(), table.fields.end(),
                     [](const FieldDef& field) { return field.kind == FieldKind::key; });
    return key == table.fields.end() ? std::wstring() : host::lowerCased(key->name);
}

void bringTablesIntoDrawing(ReadingState& state)
{
    Description& description = state.description;
    for (const auto& [objectName, object] : description.objects) {
        for (const TableDef& table : object.props.tables) {
            const AcDbObjectId storeId = state.storeId();
            ensureTable(table, storeId);
            const auto [use, isNew] = description.tables.try_emplace(host::lowerCased(table.name));
            if (isNew)
                getTable(storeId, table.name, use->second.definition);
            std::vector<std::wstring>& keys = use->second.keyFields;
            std::wstring key = keyFieldOf(table);
            if (std::find(keys.begin(), keys.end(), key) == keys.end())
                keys.push_back(std::move(key));
        }
    }
}

} // namespace

Description readDescription(std::wstring_view path, MessageSink& sink, OdStore& store)
{
    ReadingState state(path, sink, store);
    if (std::optional<TextFileLines> lines = TextFileLines::open(path)) {
        if (!readLines(state, *lines) || !finishLastObject(state) || !resolveResources(state))
            return {};
        for (const HostVariable& variable : state.description.variables)
            WriteHostVariable(variable);
        bringTablesIntoDrawing(state);
    }
    return std::move(state.description);
}

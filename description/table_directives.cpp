#include "description/table_directives.h"

#include "description/stored_table.h"
#include "description/table_rules.h"
#include "host/text/case_mapping.h"
#include "text/number_text.h"
#include "text/text_splitting.h"

#include <algorithm>

namespace {

constexpr std::size_t kLongestTableName = 25;
constexpr std::size_t kLongestFieldName = 31;

struct TypeWord {
    std::wstring_view word;
    OdType type;
};
constexpr TypeWord kTypeWords[] = {
    {L"integer", OdType::integer},
    {L"real", OdType::real},
    {L"character", OdType::character},
};

struct FlagWord {
    std::wstring_view word;
    FieldFlag flag;
};
constexpr FlagWord kFlagWords[] = {
    {L"const", kConstField},
    {L"notempty", kNotEmptyField},
    {L"required", kRequiredField},
};

bool isAllowedName(std::wstring_view name, std::size_t longest)
{
    return name.size() <= longest && !hasForbiddenCharacter(name);
}

// Flags first, the type last; the last word decides the type whatever stands before it.
void readType(FieldDef& field, std::wstring_view text)
{
    std::vector<std::wstring> words = splitText(host::lowerCased(text), L" ");
    if (words.empty())
        return;
    for (const TypeWord& row : kTypeWords) {
        if (row.word == words.back())
            field.type = row.type;
    }
    words.pop_back();
    for (const std::wstring& word : words) {
        for (const FlagWord& row : kFlagWords) {
            if (row.word == word)
                field.flags |= row.flag;
        }
    }
}

// A list with commas, or a range if one colon without a backslash is in it. False for a range
// without exactly two bounds.
bool readConstraint(FieldDef& field, std::wstring_view text)
{
    field.values = splitWithEscape(text, L":,");
    auto colonsLeft = std::count(text.begin(), text.end(), L':');
    for (const std::wstring& value : field.values)
        colonsLeft -= std::count(value.begin(), value.end(), L':');
    if (colonsLeft != 1) {
        field.kind = FieldKind::list;
        return true;
    }
    field.kind = FieldKind::range;
    return field.values.size() == 2;
}

std::wstring_view trimmedField(std::wstring_view text)
{
    return trimmedRight(trimmedLeft(text, L" "), L" \n\r");
}

} // namespace

bool finishTable(ReadingState& state)
{
    TableDef& table = state.currentTable;
    if (table.name.empty())
        return true;
    if (!isWellFormed(table))
        state.warn(Message::tableIllFormed, table.name);
    else if (!tableMatches(table, state.storeId()))
        return state.fail(Message::tableDiffers, table.name);

    // What is compatible with the first table of a name is so with all others that are.
    const auto [seen, isNew] = state.seenTables.try_emplace(host::lowerCased(table.name), table);
    if (!isNew && !sameTable(table, seen->second) && !isCompatible(table, seen->second))
        return state.fail(Message::tableConflict, table.name);
    if (state.failed)
        return false;
    state.currentObject.props.tables.push_back(std::move(table));
    table = {};
    return true;
}

bool readOdName(ReadingState& state, Tokens tokens)
{
    if (state.currentName.empty())
        return state.fail(Message::objNameUndefined);
    if (tokens.size() != 2 || !isAllowedName(tokens[1], kLongestTableName))
        return state.fail(Message::invalidOdName);
    if (!finishTable(state))
        return false;
    state.currentTable.name = tokens[1];
    return true;
}

bool readOdKey(ReadingState& state, Tokens tokens)
{
    if (state.currentTable.name.empty())
        return state.fail(Message::odNameUndefined);
    if (tokens.size() != 2 || !isAllowedName(tokens[1], kLongestFieldName))
        return state.fail(Message::invalidOdKey);
    FieldDef& key = state.currentTable.fields.emplace_back();
    key.kind = FieldKind::key;
    key.name = tokens[1];
    key.type = OdType::character;
    key.defaultValue = L"$(obj_name)";
    return true;
}

bool readOdFld(ReadingState& state, Tokens tokens)
{
    TableDef& table = state.currentTable;
    if (table.name.empty())
        return state.fail(Message::odNameUndefined);
    if (tokens.size() < 4 || tokens.size() > 6 || !isAllowedName(tokens[1], kLongestFieldName))
        return state.fail(Message::invalidOdFld);
    if (const int known = findField(table, tokens[1]); known >= 0)
        return state.fail(Message::fieldRedefinition,
                          table.fields[static_cast<std::size_t>(known)].name);

    FieldDef field;
    field.name = tokens[1];
    field.description = trimmedField(tokens[2]);
    readType(field, tokens[3]);
    if (field.type == OdType::none)
        return state.fail(Message::invalidOdFld);
    if (tokens.size() > 4) {
        field.kind = FieldKind::defaultOnly;
        field.defaultValue = state.defines.expand(std::wstring(trimmedField(tokens[4])));
    }
    if (tokens.size() > 5 && !readConstraint(field, tokens[5]))
        return state.fail(Message::invalidOdFld);
    for (std::wstring& value : field.values)
        value = state.defines.expand(std::wstring(trimmedField(value)));

    // The only value allowed is the default, so there is nothing to type in.
    if (state.autoConst && field.values.size() == 1 && field.values.front() == field.defaultValue)
        field.flags |= kConstField;
    table.fields.push_back(std::move(field));
    return true;
}

bool readAutoConst(ReadingState& state, Tokens tokens)
{
    if (tokens.size() != 2)
        return state.fail(Message::invalidSyntax, tokens[0]);
    state.autoConst = leadingInteger(tokens[1]) > 0;
    return true;
}

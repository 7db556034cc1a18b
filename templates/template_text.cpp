#include "templates/template_text.h"

#include "description/host_variable.h"
#include "store/od_store.h"
#include "store/od_tables.h"
#include "templates/object_name.h"
#include "templates/object_writer.h"
#include "text/number_text.h"

#include <algorithm>
#include <iterator>
#include <map>

namespace {

constexpr std::wstring_view kResourceKinds[] = {
    L"BlockReference", L"BlockReferenceFile", L"Dimension", L"Layer",
    L"Layout",         L"Linetype",           L"MLeader",   L"Mline",
    L"Pattern",        L"Textstyle",
};

constexpr const wchar_t* kVariables[] = {L"INSUNITS", L"LUPREC"};

// Tables that belong to other software.
constexpr std::wstring_view kReservedPrefixes[] = {
    L"TPMCNTR_", L"TPMDESC_", L"TPMID_", L"TPMLINK_", L"TPMNODE_", L"CNTR_",
};

// The user names the table and the key when he edits the file.
constexpr std::wstring_view kTableToName = L"\tod_name\tOD_NAME\n\t\tod_key\tOD_KEY\n";

bool isReserved(std::wstring_view table)
{
    return std::any_of(std::begin(kReservedPrefixes), std::end(kReservedPrefixes),
                       [&](std::wstring_view prefix) { return table.starts_with(prefix); });
}

// Of points the first two coordinates, in space too. Empty for a type that is not known.
std::wstring textOf(const HostVariable& variable)
{
    switch (variable.type) {
    case HostVariableType::longInteger:
    case HostVariableType::shortInteger:
        return integerText(variable.integer);
    case HostVariableType::real:
        return realText(variable.reals[0]);
    case HostVariableType::point2d:
    case HostVariableType::point3d:
        return realText(variable.reals[0]) + L"," + realText(variable.reals[1]);
    case HostVariableType::text:
        return variable.text;
    default:
        return {};
    }
}

std::wstring tableText(const OdTable& table, const std::wstring& name)
{
    std::wstring text = L"\n#od_name\t" + name + L"\n";
    for (const OdField& field : table.fields) {
        text += L"#\tod_fld\t" + field.getName() + L"\tdescription\t";
        text += fieldTypeWord(field.getType());
        text += L"\n";
    }
    return text;
}

} // namespace

std::wstring classesText(std::span<const GraphicProps> objects, std::wstring_view format)
{
    std::map<std::wstring, std::vector<const GraphicProps*>> byType;
    for (const GraphicProps& object : objects)
        byType[object.types.front()].push_back(&object);

    std::wstring text;
    std::wstring block;
    for (const auto& [type, members] : byType) {
        text += L"Class\t" + type + L"\t1\n\n";
        for (std::size_t at = 0; at < members.size(); ++at) {
            GraphicProps named = *members[at];
            named.name = FormatObjectName(format, named, at + 1);
            text += WriteObject(named, block);
            text += kTableToName;
            text += L"\n";
        }
        text += L"/Class\n\n";
    }
    return text;
}

std::wstring resourcesText(std::wstring_view drawingName)
{
    std::wstring text;
    for (const std::wstring_view kind : kResourceKinds)
        text.append(L"#").append(kind).append(L"\t").append(drawingName).append(L"\n");
    return text + L"\n";
}

std::wstring variablesText()
{
    std::wstring text;
    for (const wchar_t* const name : kVariables) {
        HostVariable variable;
        variable.name = name;
        ReadHostVariable(variable);
        if (const std::wstring value = textOf(variable); !value.empty())
            text += L"Variable\t" + variable.name + L"\t" + value + L"\n";
    }
    return text.empty() ? text : text + L"\n";
}

std::wstring tablesText(AcDbDatabase& database)
{
    const AcDbObjectId store = existingStoreId(database);
    std::vector<std::wstring> names;
    listTables(database, names, kAllTables);
    std::wstring text;
    for (const std::wstring& name : names) {
        OdTable table;
        if (!isReserved(name) && getTable(store, name, table) == AcMap::kOk)
            text += tableText(table, name);
    }
    return text;
}

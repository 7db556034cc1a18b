#include "host/edit/system_variables.h"

#include "host/db/dictionary.h"
#include "host/db/dimension_style.h"
#include "host/db/header_variables.h"
#include "host/db/symbol_tables.h"
#include "host/edit/command_engine.h"
#include "host/edit/document.h"
#include "host/edit/prompts.h"
#include "host/edit/typed_values.h"
#include "host/edit/variable_table.h"
#include "host/text/case_mapping.h"
#include "host/text/encoding.h"
#include "host/text/wide_format.h"

#include <algorithm>
#include <cmath>

namespace host {

namespace {

AcDbDatabase* currentDatabase()
{
    return acdbHostApplicationServices()->workingDatabase();
}

resbuf defaultOf(const VariableRow& row)
{
    resbuf value;
    value.restype = static_cast<short>(row.type);
    value.resval.rint = static_cast<std::int16_t>(row.number);
    value.resval.rlong = static_cast<std::int32_t>(row.number);
    value.resval.rreal = row.number;
    value.resval.rpoint = {row.number, row.number, row.number};
    value.resval.rstring = row.text;
    return value;
}

std::optional<resbuf> valueOf(std::wstring_view name)
{
    const VariableRow* const row = findVariableRow(name);
    if (row && row->home == VariableHome::computed) {
        resbuf value = defaultOf(*row);
        row->compute(value);
        return value;
    }
    if (const AcDbDatabase* const database = currentDatabase())
        if (auto value = headerVariable(database->drawing(), toUtf8(upperCased(name))))
            return value;
    if (!row)
        return std::nullopt;
    if (row->home == VariableHome::program && engineExists())
        if (const auto kept = engine().programVariables().find(row->name);
            kept != engine().programVariables().end())
            return kept->second;
    return defaultOf(*row);
}

bool headerHolds(std::wstring_view name)
{
    const AcDbDatabase* const database = currentDatabase();
    return database && headerVariableCode(database->drawing(), toUtf8(upperCased(name))) != 0;
}

// The value in the variable's own type; a short passes for a long and for a real.
std::optional<resbuf> converted(const resbuf& value, int type)
{
    resbuf result = value;
    result.restype = static_cast<short>(type);
    if (value.restype == type)
        return result;
    if (value.restype != RTSHORT || (type != RTLONG && type != RTREAL))
        return std::nullopt;
    result.resval.rlong = value.resval.rint;
    result.resval.rreal = value.resval.rint;
    return result;
}

bool inRange(const VariableRow& row, const resbuf& value)
{
    const double number = value.restype == RTSHORT  ? value.resval.rint
                          : value.restype == RTLONG ? value.resval.rlong
                          : value.restype == RTREAL ? value.resval.rreal
                                                    : row.number;
    return std::isfinite(number) && number >= row.least && number <= row.greatest;
}

template <class Table> bool tableHas(AcDbObjectId id, std::wstring_view name)
{
    AcDbObjectPointer<Table> table(id, AcDb::kForRead);
    return table && table->has(name);
}

bool hasMultilineStyle(AcDbDatabase& database, std::wstring_view name)
{
    AcDbObjectPointer<AcDbDictionary> root(database.namedObjectsDictionaryId(), AcDb::kForRead);
    AcDbObjectId styles;
    AcDbObjectId style;
    if (!root || root->getAt(L"ACAD_MLINESTYLE", styles) != Acad::eOk)
        return false;
    AcDbObjectPointer<AcDbDictionary> dictionary(styles, AcDb::kForRead);
    return dictionary && dictionary->getAt(name, style) == Acad::eOk;
}

// A variable that names a record of the drawing takes the names of those only.
bool drawingHas(AcDbDatabase& database, std::wstring_view variable, std::wstring_view name)
{
    if (equalNoCase(variable, L"CLAYER"))
        return tableHas<AcDbLayerTable>(database.layerTableId(), name);
    if (equalNoCase(variable, L"CELTYPE"))
        return equalNoCase(name, L"ByLayer") || equalNoCase(name, L"ByBlock") ||
               tableHas<AcDbLinetypeTable>(database.linetypeTableId(), name);
    if (equalNoCase(variable, L"TEXTSTYLE"))
        return tableHas<AcDbTextStyleTable>(database.textStyleTableId(), name);
    if (equalNoCase(variable, L"DIMSTYLE"))
        return tableHas<AcDbDimStyleTable>(database.dimStyleTableId(), name);
    if (equalNoCase(variable, L"CMLSTYLE"))
        return hasMultilineStyle(database, name);
    return true;
}

bool setHeader(const VariableRow* row, const std::wstring& name, const resbuf& value)
{
    AcDbDatabase* const database = currentDatabase();
    if (!database)
        return false;
    if (value.restype == RTSTR && !drawingHas(*database, name, value.resval.rstring))
        return false;
    const std::string key = toUtf8(name);
    int code = headerVariableCode(database->drawing(), key);
    if (code == 0 && row)
        code = row->code;
    const std::optional<resbuf> before = headerVariable(database->drawing(), key);
    if (code == 0 || !setHeaderVariable(database->drawing(), key, code, value))
        return false;
    // another style takes its values along; the same one leaves what was set over them
    if (name == L"DIMSTYLE" &&
        (!before || !equalNoCase(before->resval.rstring, value.resval.rstring)))
        restoreDimensionStyle(*database, value.resval.rstring);
    return true;
}

} // namespace

bool isSystemVariable(std::wstring_view name)
{
    return findVariableRow(name) || headerHolds(name);
}

bool isReadOnlyVariable(std::wstring_view name)
{
    const VariableRow* const row = findVariableRow(name);
    return row ? row->readOnly : isReadOnlyHeaderVariable(name);
}

std::vector<std::wstring> systemVariableNames()
{
    std::vector<std::wstring> names;
    for (const VariableRow& row : variableRows())
        names.emplace_back(row.name);
    if (const AcDbDatabase* const database = currentDatabase())
        for (const std::string& name : headerVariableNames(database->drawing()))
            names.push_back(fromUtf8(name));
    std::sort(names.begin(), names.end());
    names.erase(std::unique(names.begin(), names.end()), names.end());
    return names;
}

int integerVariable(const wchar_t* name, int fallback)
{
    const std::optional<resbuf> value = valueOf(name);
    if (!value)
        return fallback;
    return value->restype == RTSHORT  ? value->resval.rint
           : value->restype == RTLONG ? value->resval.rlong
                                      : fallback;
}

double realVariable(const wchar_t* name, double fallback)
{
    const std::optional<resbuf> value = valueOf(name);
    return value && value->restype == RTREAL ? value->resval.rreal : fallback;
}

std::wstring variableText(const resbuf& value)
{
    const int digits = integerVariable(L"LUPREC", 4);
    const ads_point& point = value.resval.rpoint;
    switch (value.restype) {
    case RTSHORT:
        return std::to_wstring(value.resval.rint);
    case RTLONG:
        return std::to_wstring(value.resval.rlong);
    case RTREAL:
        return format(L"%.*f", digits, value.resval.rreal);
    case RTPOINT:
        return format(L"%.*f,%.*f", digits, point[0], digits, point[1]);
    case RT3DPOINT:
        return format(L"%.*f,%.*f,%.*f", digits, point[0], digits, point[1], digits, point[2]);
    default:
        return L'"' + value.resval.rstring + L'"';
    }
}

void askSystemVariable(std::wstring_view typedName)
{
    const std::wstring name = upperCased(typedName);
    const std::optional<resbuf> now = valueOf(name);
    if (!now)
        return;
    if (isReadOnlyVariable(name)) {
        engine().print(name + L" = " + variableText(*now) + L" (read only)\n");
        return;
    }
    const bool isText = now->restype == RTSTR;
    Question question;
    question.kind = isText                                                 ? WaitKind::text
                    : now->restype == RTPOINT || now->restype == RT3DPOINT ? WaitKind::point
                                                                           : WaitKind::number;
    question.takesSpaces = isText;
    question.prompt = L"Enter new value for " + name + (isText ? L", or . for none" : L"") + L" <" +
                      variableText(*now) + L">: ";
    engine().ask(question, [&](const Answer& answer) -> std::optional<std::wstring> {
        if (answer.kind == Answer::Kind::text && answer.text.empty())
            return std::nullopt;
        resbuf value = *now;
        if (std::optional<std::wstring> refusal = readVariableValue(answer, value))
            return refusal;
        if (acedSetVar(name.c_str(), value) == RTNORM)
            return std::nullopt;
        const VariableRow* const row = findVariableRow(name);
        if (row && value.restype == RTSHORT)
            return format(L"Requires an integer between %d and %d.\n", static_cast<int>(row->least),
                          static_cast<int>(row->greatest));
        return L"Cannot set " + name + L" to that value.\n";
    });
}

} // namespace host

int acedGetVar(const wchar_t* name, resbuf& value)
{
    if (!name)
        return RTERROR;
    std::optional<resbuf> found = host::valueOf(name);
    if (!found)
        return RTERROR;
    value = std::move(*found);
    return RTNORM;
}

int acedSetVar(const wchar_t* name, const resbuf& value)
{
    if (!name || host::isReadOnlyVariable(name))
        return RTERROR;
    const host::VariableRow* const row = host::findVariableRow(name);
    const std::optional<resbuf> now = host::valueOf(name);
    if (!now)
        return RTERROR;
    const std::optional<resbuf> wanted = host::converted(value, now->restype);
    if (!wanted || (row && !host::inRange(*row, *wanted)))
        return RTERROR;

    const std::wstring upper = host::upperCased(name);
    AcEditor* const editor = acedEditorPtr();
    if (editor)
        editor->tellReactors([&](AcEditorReactor& r) { r.sysVarWillChange(upper.c_str()); });
    bool done = true;
    if (row && row->home == host::VariableHome::program && !host::headerHolds(upper))
        host::engine().programVariables()[upper] = *wanted;
    else
        done = host::setHeader(row, upper, *wanted);
    if (editor)
        editor->tellReactors([&](AcEditorReactor& r) { r.sysVarChanged(upper.c_str(), done); });
    return done ? RTNORM : RTERROR;
}

#include "objects/value_macros.h"

#include "host/edit/document.h"
#include "host/files/host_names.h"
#include "objects/object_key.h"
#include "tests/support/opened_drawing.h"

#include <ctime>
#include <cwchar>

namespace {

ObjectDef named(const wchar_t* name)
{
    ObjectDef object;
    object.props.name = name;
    return object;
}

std::wstring orUnknown(const std::wstring& name)
{
    return name.empty() ? L"unknown" : name;
}

} // namespace

using ValueMacros = DrawingTest;

TEST_F(ValueMacros, ReplacesTheObjectsName)
{
    const std::tuple<const wchar_t*, const wchar_t*, const wchar_t*> cases[] = {
        {L"Road", L"plain", L"plain"},
        {L"Road", L"$(obj_name)_$(obj_name)", L"Road_Road"},
        {L"Road", L"$(OBJ_NAME)", L"$(OBJ_NAME)"},
        {L"Road", L"$(width) of $(obj_name", L"$(width) of $(obj_name"},
        {L"Дорога", L"<$(obj_name)>", L"<Дорога>"},
        {L"", L"$(obj_name)", L""},
    };
    for (const auto& [name, text, expanded] : cases) {
        SCOPED_TRACE(std::string(text, text + std::wcslen(text)));
        EXPECT_EQ(expandMacros(named(name), text), expanded);
    }
}

TEST_F(ValueMacros, ExpandsWhatAReplacementHolds)
{
    EXPECT_EQ(expandMacros(named(L"by $(user_name)"), L"$(obj_name)"),
              L"by " + orUnknown(host::userName()));
    std::wstring nested = L"$(obj_name)"; // with the name "obj" each pass makes the next macro
    for (int depth = 0; depth < 30; ++depth)
        nested = L"$(" + nested + L"_name)";
    EXPECT_EQ(expandMacros(named(L"obj"), nested), L"obj");
    EXPECT_EQ(expandMacros(named(L"Road"), std::wstring(70'000, L'-') + L"$(obj_name)"),
              std::wstring(70'000, L'-') + L"Road");
}

TEST_F(ValueMacros, ANameThatHoldsItselfEnds)
{
    const std::wstring expanded = expandMacros(named(L"a$(obj_name)$(obj_name)"), L"$(obj_name)");
    EXPECT_LT(expanded.size(), 10'000'000u);
    EXPECT_EQ(expanded.substr(0, 2), L"aa");
}

TEST_F(ValueMacros, NamesTheDrawingTheMachineAndTheUser)
{
    open(DxfDrawing(), "plan.dxf");
    const std::wstring file = expandMacros(named(L""), L"$(file_name)");
    EXPECT_EQ(std::filesystem::path(file).filename(), "plan.dxf");
    EXPECT_EQ(file, acDocManagerPtr()->curDocument()->fileName());
    EXPECT_EQ(expandMacros(named(L""), L"$(computer_name)/$(user_name)"),
              orUnknown(host::computerName()) + L"/" + orUnknown(host::userName()));
}

TEST_F(ValueMacros, TellsTheLocalTimeWithTwoDigits)
{
    const auto now = [] {
        const std::time_t time = std::time(nullptr);
        wchar_t text[32];
        std::wcsftime(text, 32, L"%Y-%m-%d %H:%M:%S", std::localtime(&time));
        return std::wstring(text);
    };
    std::wstring before, expanded;
    do { // again when a tick falls between
        before = now();
        expanded = expandMacros(named(L""), L"$(year)-$(month)-$(day) $(hour):$(minute):$(second)");
    } while (before != now());
    EXPECT_EQ(expanded, before);
}

TEST_F(ValueMacros, TheKeyIsTheFirstKeyFieldExpanded)
{
    FieldDef note;
    note.name = L"NOTE";
    note.kind = FieldKind::defaultOnly;
    FieldDef key;
    key.name = L"NAME";
    key.kind = FieldKind::key;
    key.defaultValue = L"$(obj_name)";
    FieldDef second = key;
    second.name = L"OTHER";
    const TableKey found = tableKey({L"T", {note, key, second}}, named(L"Wall"));
    EXPECT_EQ(found.field, L"NAME");
    EXPECT_EQ(found.value, L"Wall");
    const TableKey none = tableKey({L"T", {note}}, named(L"Wall"));
    EXPECT_EQ(none.field + none.value, L"");
}

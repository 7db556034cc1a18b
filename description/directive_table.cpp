#include "description/directive_table.h"

#include "description/class_directives.h"
#include "description/define_directive.h"
#include "description/object_directives.h"
#include "description/resource_directives.h"
#include "description/table_directives.h"
#include "description/variable_directives.h"

namespace {

struct DirectiveRow {
    std::wstring_view keyword; // lower-case
    bool (*read)(ReadingState& state, Tokens tokens);
};

constexpr DirectiveRow kDirectives[] = {
    {L"blockreference", readResource<Message::invalidBlockReference>},
    {L"blockreferencefile", readResource<Message::invalidBlockReferenceFile>},
    {L"autoconst", readAutoConst},
    {L"class", readClass},
    {L"/class", readClassEnd},
    {L"define", readDefine},
    {L"dimension", readResource<Message::invalidDimension>},
    {L"font", readResource<Message::invalidFont>},
    {L"layout", readResource<Message::invalidLayout>},
    {L"layer", readResource<Message::invalidLayer>},
    {L"linetype", readResource<Message::invalidLinetype>},
    {L"mleader", readResource<Message::invalidMleader>},
    {L"mline", readResource<Message::invalidMline>},
    {L"obj_name", readObjName},
    {L"obj_prop", readObjProp},
    {L"obj_type", readObjType},
    {L"od_name", readOdName},
    {L"od_fld", readOdFld},
    {L"od_key", readOdKey},
    {L"pattern", readResource<Message::invalidPattern>},
    {L"textstyle", readResource<Message::invalidTextStyle>},
    {L"variable", readVariable},
};

} // namespace

bool runDirective(ReadingState& state, Tokens tokens)
{
    for (const DirectiveRow& row : kDirectives) {
        if (row.keyword == tokens[0])
            return row.read(state, tokens);
    }
    return state.fail(Message::invalidSyntax, tokens[0]);
}

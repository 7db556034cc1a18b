#include "classify/select_null_command.h"

#include "description/stored_table.h"
#include "frame/command_frame.h"
#include "frame/entity_gathering.h"
#include "frame/prompts.h"
#include "frame/selection_result.h"
#include "objects/record_object.h"
#include "session/session.h"
#include "text/text_comparison.h"

#include <algorithm>

namespace {

struct NullAnswers {
    int nonRequired = 0;
};

const TableDef* tableOfObject(const ObjectDef& object, std::wstring_view name)
{
    for (const TableDef& table : object.props.tables)
        if (textEqualNoCase(table.name, name))
            return &table;
    return nullptr;
}

// What the definition says of the field that the stored table has at a position.
bool isRequired(const TableDef& table, const OdTable& stored, std::size_t position)
{
    if (position >= stored.fields.size())
        return false;
    const int at = findField(table, stored.fields[position].getName());
    return at >= 0 && table.fields[static_cast<std::size_t>(at)].hasFlag(kRequiredField);
}

// Only texts can be empty.
bool hasNullValue(const Description& description, StoredTables& tables, const OdRecord& record,
                  bool nonRequired)
{
    const ObjectDef* const object = objectOfRecordUnchecked(description, record);
    const TableDef* const table = object ? tableOfObject(*object, record.name) : nullptr;
    if (!table)
        return false;
    for (std::size_t at = 0; at < record.fields.size(); ++at) {
        const OdValue& value = record.fields[at].value;
        if (value.getType() != OdType::character || !value.asText().empty())
            continue;
        if (nonRequired)
            return true;
        const OdTable* const stored = tables.find(record.name);
        if (stored && isRequired(*table, *stored, at))
            return true;
    }
    return false;
}

} // namespace

void selectNullValues()
{
    const CommandFrame frame;
    if (!frame)
        return;
    int& nonRequired = session().kept<NullAnswers>().nonRequired;
    if (!askZeroOne(Message::checkNonRequiredPrompt, nonRequired))
        return;
    EntityList entities;
    pickFirstEntities(entities);
    if (!gatherIfEmpty(entities, Fallback::askScan))
        return;
    filterEntities(entities);
    if (entities.empty())
        return;

    StoredTables tables(currentStore());
    keepIf(entities, [&](AcDbObjectId entity) {
        const std::vector<OdRecord> records = tables.recordsOf(entity);
        return std::any_of(records.begin(), records.end(), [&](const OdRecord& record) {
            return hasNullValue(frame.description(), tables, record, nonRequired != 0);
        });
    });
    selectAndTell(entities);
}

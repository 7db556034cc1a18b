#include "classify/select_values_command.h"

#include "description/stored_table.h"
#include "frame/command_frame.h"
#include "frame/entity_gathering.h"
#include "frame/prompts.h"
#include "frame/selection_result.h"
#include "objects/record_object.h"
#include "objects/validation.h"
#include "session/session.h"
#include "text/text_comparison.h"

#include <algorithm>

namespace {

// Kept from run to run; each command has its own.
struct NullAnswers {
    int nonRequired = 0;
};
struct AssertAnswers {
    int nonRequired = 0;
};

enum class WhenNothing { silent, told };

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
                  Fields fields)
{
    const ObjectDef* const object = objectOfRecordUnchecked(description, record);
    const TableDef* const table = object ? tableOfObject(*object, record.name) : nullptr;
    if (!table)
        return false;
    for (std::size_t at = 0; at < record.fields.size(); ++at) {
        const OdValue& value = record.fields[at].value;
        if (value.getType() != OdType::character || !value.asText().empty())
            continue;
        if (fields == Fields::all)
            return true;
        const OdTable* const stored = tables.find(record.name);
        if (stored && isRequired(*table, *stored, at))
            return true;
    }
    return false;
}

// Asks which fields count and selects the entities of which some record passes the test, which gets
// the tables, all records of the entity, the one record and the fields.
template <class Answers, class Test> void selectByRecords(WhenNothing whenNothing, Test test)
{
    const CommandFrame frame;
    if (!frame)
        return;
    int& nonRequired = session().kept<Answers>().nonRequired;
    if (!askZeroOne(Message::checkNonRequiredPrompt, nonRequired))
        return;
    std::optional<EntityList> entities = usableEntities(Fallback::askScan);
    if (!entities)
        return;
    if (entities->empty()) {
        if (whenNothing == WhenNothing::told)
            tellSelected(*entities);
        return;
    }

    const Fields fields = nonRequired ? Fields::all : Fields::required;
    StoredTables tables(currentStore());
    keepIf(*entities, [&](AcDbObjectId entity) {
        const std::vector<OdRecord> records = tables.recordsOf(entity);
        return std::any_of(records.begin(), records.end(), [&](const OdRecord& record) {
            return test(frame.description(), tables, records, record, fields);
        });
    });
    selectAndTell(*entities);
}

} // namespace

void selectNullValues()
{
    selectByRecords<NullAnswers>(
        WhenNothing::silent, [](const Description& description, StoredTables& tables,
                                std::span<const OdRecord>, const OdRecord& record, Fields fields) {
            return hasNullValue(description, tables, record, fields);
        });
}

void selectIllegalValues()
{
    selectByRecords<AssertAnswers>(WhenNothing::told, [](const Description& description,
                                                         StoredTables& tables,
                                                         std::span<const OdRecord> records,
                                                         const OdRecord& record, Fields fields) {
        const ObjectDef* const object = objectOfRecord(description, record, tables);
        return object && !validateObject(description, tables, records, object->props.name,
                                         Values::legal, fields);
    });
}

#include "classify/round_command.h"

#include "frame/command_frame.h"
#include "frame/entity_gathering.h"
#include "objects/entity_objects.h"
#include "objects/object_key.h"
#include "text/messages.h"
#include "text/number_text.h"
#include "text/text_comparison.h"

#include <algorithm>

namespace {

struct RoundedField {
    std::wstring name;
    int digits = 0; // behind the point
};

int digitsOf(const std::wstring& text)
{
    const std::size_t point = text.find(L'.');
    return point == std::wstring::npos ? 0 : static_cast<int>(text.size() - point - 1);
}

std::vector<RoundedField> roundedFields(const TableDef& table)
{
    std::vector<RoundedField> fields;
    for (const FieldDef& field : table.fields) {
        if (field.type != OdType::real)
            continue;
        int digits = digitsOf(field.defaultValue);
        for (const std::wstring& value : field.values)
            digits = std::max(digits, digitsOf(value));
        fields.push_back({field.name, digits});
    }
    return fields;
}

bool hasKey(const OdRecord& record, const TableKey& key)
{
    const int position = findField(record, key.field);
    return position >= 0 &&
           textEqualNoCase(record.fields[static_cast<std::size_t>(position)].value.displayText(),
                           key.value);
}

// Every record of the object is written again, also when no value changed. Throws
// AcMap::kNoConversion for a value that is no number.
void roundRecords(const TableDef& table, const ObjectDef& object, StoredTables& tables,
                  AcDbObjectId entity)
{
    const OdTable* const stored = tables.find(table.name);
    if (!stored)
        return;
    const std::vector<RoundedField> fields = roundedFields(table);
    const TableKey key = tableKey(table, object);
    OdRecordIterator rows = newIterator(*stored);
    OdRecord record;
    for (rows.open(entity); !rows.isDone(); rows.next()) {
        rows.readRecord(record);
        if (!hasKey(record, key))
            continue;
        for (const RoundedField& field : fields) {
            const int position = findField(record, field.name);
            if (position < 0)
                continue;
            OdValue& value = record.fields[static_cast<std::size_t>(position)].value;
            value = OdValue(roundTo(value.asReal(), field.digits));
        }
        rows.updateRecord(record);
    }
}

} // namespace

void roundValues()
{
    const CommandFrame frame;
    if (!frame)
        return;
    const std::optional<EntityList> entities = usableEntities(Fallback::askScan);
    if (!entities)
        return;
    if (entities->empty())
        return tell(Message::noObjectsSelected);

    StoredTables tables(currentStore());
    const ValidObjects objects(frame.description(), tables);
    for (const AcDbObjectId entity : *entities) {
        // read again for each object, since the one before may have changed the next one's key
        const ObjectDef* object = nullptr;
        while ((object = objects.next(tables.recordsOf(entity), object)))
            for (const TableDef& table : object->props.tables)
                roundRecords(table, *object, tables, entity);
    }
    tell(Message::completedPlain);
}

#include "classify/select_duplicates_command.h"

#include "frame/command_frame.h"
#include "frame/entity_gathering.h"
#include "frame/selection_result.h"
#include "host/text/case_mapping.h"
#include "objects/record_object.h"
#include "text/messages.h"

#include <map>
#include <set>

namespace {

// The first object, in the order of names, with more records than tables, whichever tables the
// records are in; null for none.
const ObjectDef* duplicatedObject(const Description& description, StoredTables& tables,
                                  AcDbObjectId entity)
{
    struct Count {
        const ObjectDef* object = nullptr;
        std::size_t records = 0;
    };
    std::map<std::wstring, Count> counts;
    for (const OdRecord& record : tables.recordsOf(entity))
        if (const ObjectDef* const object = objectOfRecord(description, record, tables)) {
            Count& count = counts[host::lowerCased(object->props.name)];
            count.object = object;
            ++count.records;
        }
    for (const auto& [name, count] : counts)
        if (count.records > count.object->props.tables.size())
            return count.object;
    return nullptr;
}

} // namespace

void selectDuplicates()
{
    const CommandFrame frame;
    if (!frame)
        return;
    const std::optional<EntityList> entities = usableEntities(Fallback::askScan);
    if (!entities)
        return;
    if (entities->empty())
        return tellSelected(*entities);

    StoredTables tables(currentStore());
    EntityList duplicates;
    std::set<std::wstring> names;
    for (const AcDbObjectId entity : *entities)
        if (const ObjectDef* const object = duplicatedObject(frame.description(), tables, entity)) {
            duplicates.append(entity);
            names.insert(object->props.name);
        }
    tell(Message::selectedOpen, duplicates.size());
    for (const std::wstring& name : names)
        host::print(L"'" + name + L"' ");
    host::print(L")\n");
    selectAndTell(duplicates);
}

#include "objects/entity_objects.h"

#include "host/text/case_mapping.h"
#include "objects/record_object.h"

#include <map>

std::vector<const ObjectDef*> objectsOfRecords(const Description& description, StoredTables& tables,
                                               std::span<const OdRecord> records)
{
    std::map<std::wstring, const ObjectDef*> byName;
    for (const OdRecord& record : records)
        if (const ObjectDef* const object = objectOfRecord(description, record, tables))
            byName.emplace(host::lowerCased(object->props.name), object);

    std::vector<const ObjectDef*> objects;
    objects.reserve(byName.size());
    for (const auto& [name, object] : byName)
        objects.push_back(object);
    return objects;
}

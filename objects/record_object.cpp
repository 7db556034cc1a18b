#include "objects/record_object.h"

#include "host/text/case_mapping.h"

#include <algorithm>

const ObjectDef* objectOfRecordUnchecked(const Description& description, const OdRecord& record)
{
    const auto use = description.tables.find(host::lowerCased(record.name));
    if (use == description.tables.end())
        return nullptr;
    for (const std::wstring& key : use->second.keyFields) {
        const int position = findField(use->second.definition, key);
        if (position < 0 || static_cast<std::size_t>(position) >= record.fields.size())
            continue;
        const std::wstring name = record.fields[static_cast<std::size_t>(position)].value.asText();
        if (const ObjectDef* const object = description.findObject(name))
            return object;
    }
    return nullptr;
}

const ObjectDef* objectOfRecord(const Description& description, const OdRecord& record,
                                StoredTables& tables)
{
    const ObjectDef* const object = objectOfRecordUnchecked(description, record);
    if (!object)
        return nullptr;
    const auto matches = [&](const TableDef& table) { return tables.matches(table); };
    return std::all_of(object->props.tables.begin(), object->props.tables.end(), matches) ? object
                                                                                          : nullptr;
}

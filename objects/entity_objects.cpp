#include "objects/entity_objects.h"

#include "host/text/case_mapping.h"
#include "objects/object_key.h"
#include "objects/record_object.h"
#include "objects/validation.h"

#include <algorithm>
#include <limits>

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

ValidObjects::ValidObjects(const Description& description, StoredTables& tables)
    : description_(description), tables_(tables)
{
    for (const auto& [name, object] : description.objects) {
        places_.emplace(&object, objects_.size());
        objects_.push_back(&object);
        enter(objects_.size() - 1);
    }
}

void ValidObjects::enter(std::size_t place)
{
    const ObjectDef& object = *objects_[place];
    if (object.props.tables.empty())
        return withoutTables_.push_back(place);

    // an object without a record of its first table is not valid
    const TableDef& table = object.props.tables.front();
    const OdTable* const stored = tables_.find(table.name);
    if (!stored)
        return;
    const TableKey key = tableKey(table, object);
    const int position = findField(*stored, key.field);
    if (position < 0)
        return;
    std::vector<Keyed>& keyed = byTable_[table.name];
    const auto at = static_cast<std::size_t>(position);
    auto found = std::find_if(keyed.begin(), keyed.end(),
                              [&](const Keyed& row) { return row.position == at; });
    if (found == keyed.end())
        found = keyed.insert(keyed.end(), Keyed{at, {}, {}});
    found->byText[key.value].push_back(place);
    found->all.push_back(place);
}

ValidObjects::Places ValidObjects::candidates(std::span<const OdRecord> records) const
{
    Places places = records.empty() ? Places() : withoutTables_;
    const auto add = [&](const Places& more) {
        places.insert(places.end(), more.begin(), more.end());
    };
    for (const OdRecord& record : records) {
        const auto table = byTable_.find(record.name);
        if (table == byTable_.end())
            continue;
        for (const Keyed& keyed : table->second) {
            if (keyed.position >= record.fields.size())
                continue;
            const OdValue& key = record.fields[keyed.position].value;
            if (key.getType() != OdType::character)
                add(keyed.all);
            else if (const auto same = keyed.byText.find(key.asText()); same != keyed.byText.end())
                add(same->second);
        }
    }
    std::sort(places.begin(), places.end());
    places.erase(std::unique(places.begin(), places.end()), places.end());
    return places;
}

bool ValidObjects::isValid(std::size_t place, std::span<const OdRecord> records) const
{
    return validateObject(description_, tables_, records, objects_[place]->props.name, Values::any,
                          Fields::all);
}

const ObjectDef* ValidObjects::next(std::span<const OdRecord> records, const ObjectDef* after) const
{
    const std::size_t first = after ? places_.at(after) + 1 : 0;
    for (const std::size_t place : candidates(records))
        if (place >= first && isValid(place, records))
            return objects_[place];
    return nullptr;
}

std::int32_t ValidObjects::highestPriority(std::span<const OdRecord> records) const
{
    std::int32_t highest = std::numeric_limits<std::int32_t>::min();
    for (const std::size_t place : candidates(records))
        if (objects_[place]->priority > highest && isValid(place, records))
            highest = objects_[place]->priority;
    return highest;
}

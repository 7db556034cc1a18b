#include "classify/delete_duplicates_command.h"

#include "frame/command_frame.h"
#include "frame/entity_gathering.h"
#include "frame/selection_result.h"
#include "host/edit/prompts.h"
#include "host/text/case_mapping.h"
#include "objects/entity_objects.h"
#include "objects/object_key.h"
#include "text/messages.h"
#include "text/text_comparison.h"

#include <algorithm>
#include <string_view>
#include <unordered_set>

namespace {

enum class Surplus { first, last };

// Nothing when the command is to end.
std::optional<Surplus> askSurplus()
{
    std::wstring answer;
    if (acedGetString(1, filledIn(Message::firstOrLastPrompt).c_str(), answer) != RTNORM)
        return std::nullopt;
    const std::wstring typed = host::lowerCased(answer);
    if (std::wstring_view(textOf(Message::firstKeyword)).starts_with(typed))
        return Surplus::first;
    if (std::wstring_view(textOf(Message::lastKeyword)).starts_with(typed))
        return Surplus::last;
    return std::nullopt;
}

// The numbers of the table's rows with the object's key, letter case aside, from 0.
std::vector<std::size_t> rowsWithKey(const OdTable& stored, OdRecordIterator& rows,
                                     AcDbObjectId entity, const TableKey& key)
{
    std::vector<std::size_t> hits;
    const int position = findField(stored, key.field);
    if (position < 0)
        return hits;
    const auto at = static_cast<std::size_t>(position);
    OdRecord record;
    std::size_t row = 0;
    for (rows.open(entity); !rows.isDone(); rows.next(), ++row) {
        rows.readRecord(record);
        if (at >= record.fields.size() || record.fields[at].getType() == OdType::none)
            continue;
        if (textEqualNoCase(record.fields[at].value.asText(), key.value))
            hits.push_back(row);
    }
    return hits;
}

std::size_t takeSurplus(std::vector<std::size_t>& hits, Surplus surplus)
{
    const std::size_t row = surplus == Surplus::first ? hits.front() : hits.back();
    if (surplus == Surplus::last) {
        hits.pop_back();
    } else {
        hits.erase(hits.begin());
        for (std::size_t& later : hits)
            --later;
    }
    return row;
}

// `next` moves only by a row that was read, so the walk stands on the first row whichever is
// counted to: users rely on the last row staying.
bool removeSurplus(const OdTable& stored, AcDbObjectId entity, const TableKey& key, Surplus surplus)
{
    OdRecordIterator rows = newIterator(stored);
    std::vector<std::size_t> hits = rowsWithKey(stored, rows, entity, key);
    bool removed = false;
    while (hits.size() > 1) {
        rows.open(entity);
        const std::size_t row = takeSurplus(hits, surplus);
        for (std::size_t at = 0; at < row; ++at)
            rows.next();
        removed |= rows.removeRecord() == AcMap::kOk;
    }
    return removed;
}

class Cleaning {
public:
    Cleaning(const Description& description, StoredTables& tables, Surplus surplus)
        : tables_(tables), objects_(description, tables), surplus_(surplus)
    {
    }

    // True when a row went.
    bool clean(AcDbObjectId entity)
    {
        std::vector<OdRecord> records = tables_.recordsOf(entity);
        const std::unordered_set<std::wstring> repeated = repeatedTables(records);
        if (repeated.empty())
            return false;
        bool removed = false;
        const ObjectDef* object = nullptr;
        while ((object = objects_.next(records, object))) {
            bool changed = false;
            for (const TableDef& table : object->props.tables) {
                const OdTable* const stored = repeated.contains(host::lowerCased(table.name))
                                                  ? tables_.find(table.name)
                                                  : nullptr;
                changed |=
                    stored && removeSurplus(*stored, entity, tableKey(table, *object), surplus_);
            }
            if (changed)
                records = tables_.recordsOf(entity);
            removed |= changed;
        }
        return removed;
    }

private:
    // Lower-cased names of the tables that have more than one row.
    static std::unordered_set<std::wstring> repeatedTables(std::span<const OdRecord> records)
    {
        std::unordered_set<std::wstring> seen;
        std::unordered_set<std::wstring> repeated;
        for (const OdRecord& record : records)
            if (const std::wstring name = host::lowerCased(record.name); !seen.insert(name).second)
                repeated.insert(name);
        return repeated;
    }

    StoredTables& tables_;
    ValidObjects objects_;
    Surplus surplus_;
};

} // namespace

void deleteDuplicates()
{
    const CommandFrame frame;
    if (!frame)
        return;
    EntityList entities;
    pickFirstEntities(entities);
    if (fillIfEmpty(entities, Fallback::askScan) == Gathering::cancelled)
        return;
    filterEntities(entities);
    if (entities.empty())
        return tell(Message::completed, 0);
    const std::optional<Surplus> surplus = askSurplus();
    if (!surplus)
        return;

    StoredTables tables(currentStore());
    Cleaning cleaning(frame.description(), tables, *surplus);
    EntityList cleaned;
    std::unordered_set<AcDbObjectId> listed;
    for (const AcDbObjectId entity : entities)
        if (cleaning.clean(entity) && listed.insert(entity).second)
            cleaned.append(entity);
    selectResult(cleaned);
    tell(Message::completed, cleaned.size());
}

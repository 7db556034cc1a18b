#include "host/edit/selection_set.h"

#include "host/db/database.h"
#include "host/edit/id_sequence.h"
#include "host/edit/pick_first.h"
#include "host/edit/selection.h"
#include "host/text/case_mapping.h"
#include "host/text/encoding.h"
#include "host/text/number_format.h"

#include <algorithm>
#include <unordered_map>

namespace host {

namespace {

// An entity's name holds its id and zero, a set's its number and this.
constexpr std::int64_t kSetMark = 1;

std::unordered_map<std::int64_t, IdSequence>& sets()
{
    static std::unordered_map<std::int64_t, IdSequence> all;
    return all;
}

IdSequence* findSet(const ads_name& name)
{
    if (name[1] != kSetMark)
        return nullptr;
    const auto found = sets().find(name[0]);
    return found == sets().end() ? nullptr : &found->second;
}

AcDbDatabase* currentDatabase()
{
    return acdbHostApplicationServices()->workingDatabase();
}

AcGePoint2d flat(const void* point)
{
    const ads_point& p = *static_cast<const ads_point*>(point);
    return {p[0], p[1]};
}

std::vector<AcGePoint2d> flatPoints(const void* chain)
{
    std::vector<AcGePoint2d> points;
    for (const resbuf& item : *static_cast<const ResbufChain*>(chain))
        points.emplace_back(item.resval.rpoint[0], item.resval.rpoint[1]);
    return points;
}

// One row for each mode: what it takes beside the mode.
struct Mode {
    const wchar_t* name;
    enum class Wants { nothing, point, corners, points } wants;
    std::vector<AcDbObjectId> (*select)(AcDbDatabase& database, const void* pt1, const void* pt2);
};

const Mode kModes[] = {
    {L"_I", Mode::Wants::nothing,
     [](AcDbDatabase&, const void*, const void*) { return currentPickFirst(); }},
    {L"_P", Mode::Wants::nothing,
     [](AcDbDatabase&, const void*, const void*) { return previousSelection(); }},
    {L"_A", Mode::Wants::nothing,
     [](AcDbDatabase& database, const void*, const void*) { return allEntities(database); }},
    {L"_X", Mode::Wants::nothing,
     [](AcDbDatabase& database, const void*, const void*) {
         return filteredEntities(database, {});
     }},
    {L"_L", Mode::Wants::nothing,
     [](AcDbDatabase& database, const void*, const void*) {
         return std::vector<AcDbObjectId>{lastEntity(database)};
     }},
    {L"", Mode::Wants::point,
     [](AcDbDatabase& database, const void* pt1, const void*) {
         return std::vector<AcDbObjectId>{entityAt(database, *static_cast<const ads_point*>(pt1))};
     }},
    {L"_W", Mode::Wants::corners,
     [](AcDbDatabase& database, const void* pt1, const void* pt2) {
         return entitiesIn(database, SelectionShape::rectangle(flat(pt1), flat(pt2)),
                           Reach::inside);
     }},
    {L"_C", Mode::Wants::corners,
     [](AcDbDatabase& database, const void* pt1, const void* pt2) {
         return entitiesIn(database, SelectionShape::rectangle(flat(pt1), flat(pt2)),
                           Reach::touching);
     }},
    {L"_WP", Mode::Wants::points,
     [](AcDbDatabase& database, const void* pt1, const void*) {
         return entitiesIn(database, SelectionShape::polygon(flatPoints(pt1)), Reach::inside);
     }},
    {L"_CP", Mode::Wants::points,
     [](AcDbDatabase& database, const void* pt1, const void*) {
         return entitiesIn(database, SelectionShape::polygon(flatPoints(pt1)), Reach::touching);
     }},
    {L"_F", Mode::Wants::points,
     [](AcDbDatabase& database, const void* pt1, const void*) {
         return entitiesIn(database, SelectionShape::fence(flatPoints(pt1)), Reach::touching);
     }},
};

const Mode* findMode(std::wstring_view name)
{
    if (!name.empty() && name.front() == L'_')
        name.remove_prefix(1);
    for (const Mode& mode : kModes)
        if (equalNoCase(std::wstring_view(mode.name).substr(*mode.name ? 1 : 0), name))
            return &mode;
    return nullptr;
}

} // namespace

ads_name makeSelectionSet(std::vector<AcDbObjectId> ids)
{
    static std::int64_t number = 0;
    sets()[++number] = IdSequence(std::move(ids));
    return {number, kSetMark};
}

const std::vector<AcDbObjectId>* selectionSetMembers(const ads_name& set)
{
    IdSequence* const found = findSet(set);
    return found ? &found->ids() : nullptr;
}

} // namespace host

int acedSSGet(const wchar_t* mode, const void* pt1, const void* pt2, const ResbufChain* filter,
              ads_name& set)
{
    set = {};
    AcDbDatabase* const database = host::currentDatabase();
    if (!database)
        return RTERROR;
    std::vector<AcDbObjectId> ids;
    if (!mode && !pt1) {
        if (const int result = host::selectObjects(ids, filter); result != RTNORM)
            return result;
    } else {
        const host::Mode* const how = host::findMode(mode ? mode : L"");
        using Wants = host::Mode::Wants;
        if (!how || (how->wants != Wants::nothing && !pt1) ||
            (how->wants == Wants::corners && !pt2))
            return RTERROR;
        ids = how->select(*database, pt1, pt2);
        std::erase_if(ids, [&](AcDbObjectId id) {
            return id.isNull() || (filter && !host::passesFilter(id, *filter));
        });
    }
    if (ids.empty())
        return RTERROR;
    set = host::makeSelectionSet(std::move(ids));
    return RTNORM;
}

int acedSSLength(const ads_name& set, std::int32_t& length)
{
    const host::IdSequence* const found = host::findSet(set);
    if (!found)
        return RTERROR;
    length = static_cast<std::int32_t>(found->size());
    return RTNORM;
}

int acedSSName(const ads_name& set, std::int32_t index, ads_name& entity)
{
    const host::IdSequence* const found = host::findSet(set);
    if (!found || index < 0 || static_cast<std::size_t>(index) >= found->size())
        return RTERROR;
    entity = {(*found)[static_cast<std::size_t>(index)].asOldId(), 0};
    return RTNORM;
}

int acedSSFree(const ads_name& set)
{
    return set[1] == host::kSetMark && host::sets().erase(set[0]) ? RTNORM : RTERROR;
}

int acedSSAdd(const ads_name* entity, const ads_name* set, ads_name& result)
{
    AcDbObjectId id;
    if (entity && acdbGetObjectId(id, *entity) != Acad::eOk)
        return RTERROR;
    if (!set) {
        result = host::makeSelectionSet({});
        if (entity)
            host::findSet(result)->add(id);
        return RTNORM;
    }
    host::IdSequence* const found = host::findSet(*set);
    if (!found)
        return RTERROR;
    if (entity)
        found->add(id);
    result = *set;
    return RTNORM;
}

int acedSSDel(const ads_name& entity, const ads_name& set)
{
    AcDbObjectId id;
    host::IdSequence* const found = host::findSet(set);
    return found && acdbGetObjectId(id, entity) == Acad::eOk && found->remove(id) ? RTNORM
                                                                                  : RTERROR;
}

int acedSSMemb(const ads_name& entity, const ads_name& set)
{
    AcDbObjectId id;
    host::IdSequence* const found = host::findSet(set);
    return found && acdbGetObjectId(id, entity) == Acad::eOk && found->has(id) ? RTNORM : RTERROR;
}

int acedSSSetFirst(const ads_name* grip, const ads_name* pick)
{
    const ads_name* const name = pick ? pick : grip;
    if (!name) {
        host::setPickFirst({});
        return RTNORM;
    }
    host::IdSequence* const found = host::findSet(*name);
    if (!found)
        return RTERROR;
    host::setPickFirst(found->ids());
    return RTNORM;
}

int acedSSGetFirst(ads_name* grip, ads_name* pick)
{
    const std::vector<AcDbObjectId> ids = host::currentPickFirst();
    for (ads_name* name : {grip, pick})
        if (name)
            *name = ids.empty() ? ads_name{} : host::makeSelectionSet(ids);
    return RTNORM;
}

Acad::ErrorStatus acdbGetObjectId(AcDbObjectId& id, const ads_name& name)
{
    id.setNull();
    if (name[0] == 0 || name[1] != 0)
        return Acad::eInvalidInput;
    AcDbObjectId named;
    named.setFromOldId(name[0]);
    if (!named.isValid())
        return Acad::eUnknownHandle;
    id = named;
    return Acad::eOk;
}

Acad::ErrorStatus acdbGetAdsName(ads_name& name, AcDbObjectId id)
{
    if (id.isNull())
        return Acad::eNullObjectId;
    if (!id.isValid())
        return Acad::eUnknownHandle;
    name = {id.asOldId(), 0};
    return Acad::eOk;
}

int acdbEntLast(ads_name& entity)
{
    AcDbDatabase* const database = host::currentDatabase();
    return database && acdbGetAdsName(entity, host::lastEntity(*database)) == Acad::eOk ? RTNORM
                                                                                        : RTERROR;
}

int acdbHandEnt(const wchar_t* handle, ads_name& entity)
{
    AcDbDatabase* const database = host::currentDatabase();
    if (!database || !handle)
        return RTERROR;
    const auto value = host::parseHandle(host::toUtf8(handle));
    AcDbObjectId id;
    if (!value || database->getAcDbObjectId(id, AcDbHandle(*value)) != Acad::eOk)
        return RTERROR;
    return acdbGetAdsName(entity, id) == Acad::eOk ? RTNORM : RTERROR;
}

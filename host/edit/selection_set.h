#pragma once

#include "host/db/object_id.h"
#include "host/runtime/error_status.h"
#include "host/runtime/resbuf.h"

#include <cstdint>
#include <vector>

// Selection sets by name. A set holds ids in the order of their coming, each once; filling it,
// taking members out, asking its length and reading a member by number take no search.

// `mode` null: asks "Select objects: ". "_I" the pick-first set; "_X" all of the drawing that the
// filter lets through; "_A" all; "_P" previous; "_L" last; "_W" and "_C" by two corners
// (ads_point), "_WP", "_CP" and "_F" by points (ResbufChain); none: what lies at `pt1`. RTNORM with
// a set that is not empty, RTERROR and no set when nothing was selected, RTCAN.
int acedSSGet(const wchar_t* mode, const void* pt1, const void* pt2, const ResbufChain* filter,
              ads_name& set);
int acedSSLength(const ads_name& set, std::int32_t& length);
int acedSSName(const ads_name& set, std::int32_t index, ads_name& entity);
int acedSSFree(const ads_name& set);
// Null and null: an empty set. An entity alone: a set of it. Both: the entity joins the set.
int acedSSAdd(const ads_name* entity, const ads_name* set, ads_name& result);
int acedSSDel(const ads_name& entity, const ads_name& set);
int acedSSMemb(const ads_name& entity, const ads_name& set); // RTNORM when it is a member

// The pick-first set becomes a copy of `pick`, or of `grip` where that alone is given; two nulls
// clear it.
int acedSSSetFirst(const ads_name* grip, const ads_name* pick);
// Sets of their own, to be freed; a zero name where nothing is selected.
int acedSSGetFirst(ads_name* grip, ads_name* pick);

// Names of entities and their ids.
Acad::ErrorStatus acdbGetObjectId(AcDbObjectId& id, const ads_name& name);
Acad::ErrorStatus acdbGetAdsName(ads_name& name, AcDbObjectId id);
// The last entity of model space that is not erased; RTERROR when there is none.
int acdbEntLast(ads_name& entity);
// The object with this handle (hexadecimal), also of another kind than an entity.
int acdbHandEnt(const wchar_t* handle, ads_name& entity);

namespace host {

// A new set with these members, for callers that hold ids; the caller frees it.
ads_name makeSelectionSet(std::vector<AcDbObjectId> ids);
// Its members; null for a name that is no set. Holds until the set changes.
const std::vector<AcDbObjectId>* selectionSetMembers(const ads_name& set);

} // namespace host

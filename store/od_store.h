#pragma once

#include "host/db/object_id.h"

#include <cstdint>
#include <map>
#include <mutex>

class AcDbDatabase;

// The key of the tables' dictionary among a drawing's named objects.
inline constexpr const wchar_t* kStoreName = L"ODEMUDATA";

// Finds the dictionary of tables of each open drawing.
class OdStore {
public:
    // The working database; null when no drawing is open.
    AcDbDatabase* currentDatabase();

    // The drawing's dictionary of tables, which is made if there is none. Null only without a
    // database or when the host refuses.
    AcDbObjectId getStoreId(AcDbDatabase* database);

private:
    std::mutex mutex_;
    // By the number of the database, which no other database ever gets.
    std::map<std::uint32_t, AcDbObjectId> stores_;
};

// The same without making one: null when the drawing has none.
AcDbObjectId existingStoreId(AcDbDatabase& database);

#include "host/db/object_id.h"

#include "host/db/class_table.h"
#include "host/db/database.h"

namespace {

const host::Stub* stubOf(const AcDbObjectId& id)
{
    const AcDbDatabase* const database = id.database();
    if (!database || id.stubNumber() == 0 || id.stubNumber() > database->drawing().index.count())
        return nullptr;
    return &database->drawing().index[id.stubNumber()];
}

} // namespace

AcDbDatabase* AcDbObjectId::database() const
{
    return AcDbDatabase::withNumber(databaseNumber());
}

bool AcDbObjectId::isValid() const
{
    return stubOf(*this) != nullptr;
}

AcDbHandle AcDbObjectId::handle() const
{
    const host::Stub* const stub = stubOf(*this);
    return AcDbHandle(stub ? stub->handle : 0);
}

AcRxClass* AcDbObjectId::objectClass() const
{
    return isValid() ? host::classOfRecord(database()->drawing(), stubNumber()) : nullptr;
}

bool AcDbObjectId::isErased() const
{
    const host::Stub* const stub = stubOf(*this);
    return !stub || (stub->flags & host::kErased) != 0;
}

#pragma once

#include "store/od_record_iterator.h"

// Whether some record of the entity passes the test; the walk stops at the first that does. A record
// that cannot be read counts as one without fields.
template <class Test>
bool anyRecord(OdRecordIterator& iterator, AcDbObjectId entity, Test test)
{
    OdRecord record;
    for (iterator.open(entity); !iterator.isDone(); iterator.next()) {
        iterator.readRecord(record);
        if (test(record))
            return true;
    }
    return false;
}

#include "draw/named_styles.h"

#include "host/db/database.h"
#include "host/db/dictionary.h"
#include "host/db/symbol_table.h"

namespace {

AcDbObjectId recordNamed(AcDbObjectId tableId, std::wstring_view name)
{
    const AcDbObjectPointer<AcDbSymbolTable> table(tableId, AcDb::kForRead);
    AcDbObjectId id;
    if (table)
        table->getAt(name, id);
    return id;
}

AcDbObjectId entryNamed(AcDbObjectId dictionaryId, std::wstring_view name)
{
    const AcDbObjectPointer<AcDbDictionary> dictionary(dictionaryId, AcDb::kForRead);
    AcDbObjectId id;
    if (dictionary)
        dictionary->getAt(name, id);
    return id;
}

} // namespace

AcDbObjectId blockNamed(const AcDbDatabase& database, std::wstring_view name)
{
    return recordNamed(database.blockTableId(), name);
}

AcDbObjectId dimensionStyleNamed(const AcDbDatabase& database, std::wstring_view name)
{
    return recordNamed(database.dimStyleTableId(), name);
}

AcDbObjectId textStyleNamed(const AcDbDatabase& database, std::wstring_view name)
{
    return recordNamed(database.textStyleTableId(), name);
}

AcDbObjectId dictionaryEntry(const AcDbDatabase& database, std::wstring_view dictionary,
                             std::wstring_view name)
{
    return entryNamed(entryNamed(database.namedObjectsDictionaryId(), dictionary), name);
}

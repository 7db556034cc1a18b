#include "draw/named_styles.h"

#include "host/db/database.h"
#include "host/db/dictionary.h"
#include "host/db/symbol_table.h"

namespace {

// A record of a symbol table or an entry of a dictionary.
template <class Holder> AcDbObjectId named(AcDbObjectId holderId, std::wstring_view name)
{
    const AcDbObjectPointer<Holder> holder(holderId, AcDb::kForRead);
    AcDbObjectId id;
    if (holder)
        holder->getAt(name, id);
    return id;
}

} // namespace

AcDbObjectId blockNamed(const AcDbDatabase& database, std::wstring_view name)
{
    return named<AcDbSymbolTable>(database.blockTableId(), name);
}

AcDbObjectId dimensionStyleNamed(const AcDbDatabase& database, std::wstring_view name)
{
    return named<AcDbSymbolTable>(database.dimStyleTableId(), name);
}

AcDbObjectId textStyleNamed(const AcDbDatabase& database, std::wstring_view name)
{
    return named<AcDbSymbolTable>(database.textStyleTableId(), name);
}

AcDbObjectId dictionaryEntry(const AcDbDatabase& database, std::wstring_view dictionary,
                             std::wstring_view name)
{
    return named<AcDbDictionary>(
        named<AcDbDictionary>(database.namedObjectsDictionaryId(), dictionary), name);
}

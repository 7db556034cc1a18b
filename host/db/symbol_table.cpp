#include "host/db/symbol_table.h"

#include "host/db/database.h"
#include "host/db/drawing.h"
#include "host/db/lookups.h"

#include <algorithm>

ACRX_NO_CONS_DEFINE_MEMBERS(AcDbSymbolTableRecord, AcDbObject)
ACRX_NO_CONS_DEFINE_MEMBERS(AcDbSymbolTable, AcDbObject)

namespace {

constexpr int kName = 2;
constexpr int kFlags = 70;
constexpr int kDependentBit = 16;

// The name of the table that a class of tables or records belongs to, from its record's name.
std::string_view tableOfRecord(const AcDbSymbolTableRecord& record)
{
    const std::string name = record.recordName();
    const host::SymbolKind* const kind = host::symbolKind(name);
    return kind ? kind->table : std::string_view();
}

// "*U" with the first number that the table has not yet.
std::wstring numberedName(host::Drawing& drawing, std::string_view table, std::wstring_view stem)
{
    for (int number = 1;; ++number) {
        std::wstring name = std::wstring(stem) + std::to_wstring(number);
        if (host::findSymbol(drawing, table, name).isNull())
            return name;
    }
}

bool asksForNumber(std::wstring_view name)
{
    return name.size() == 2 && name[0] == L'*';
}

} // namespace

// ---- records ----

std::wstring AcDbSymbolTableRecord::name() const
{
    const std::size_t at = host::findField(tags(), part(), kName);
    if (at != host::TagList::npos)
        return tags().text(at);
    const std::size_t any = tags().find(kName, 0, host::dataEnd(tags()));
    return any == host::TagList::npos ? std::wstring() : tags().text(any);
}

Acad::ErrorStatus AcDbSymbolTableRecord::getName(std::wstring& result) const
{
    result = name();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTableRecord::setName(std::wstring_view newName)
{
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    if (newName.empty())
        return Acad::eInvalidKey;
    if (drawing()) {
        const AcDbObjectId other = host::findSymbol(*drawing(), tableOfRecord(*this), newName);
        if (!other.isNull() && other != objectId())
            return Acad::eDuplicateKey;
    }
    const Acad::ErrorStatus status = setText(part(), kName, newName);
    noteSymbolChange();
    return status;
}

bool AcDbSymbolTableRecord::isDependent() const
{
    return flag(part(), kFlags, kDependentBit);
}

void AcDbSymbolTableRecord::complete(host::Drawing& drawing)
{
    const host::SymbolKind* const kind = host::symbolKind(recordName());
    if (kind)
        host::addDefaults(tagsForWrite(), *kind, drawing.version);
}

void AcDbSymbolTableRecord::noteSymbolChange()
{
    if (drawing())
        ++drawing()->symbolGeneration;
}

// ---- tables ----

std::span<const std::string_view> AcDbSymbolTable::markers() const
{
    static constexpr std::string_view own[] = {"AcDbSymbolTable"};
    return own;
}

std::string_view AcDbSymbolTable::tableName() const
{
    // the class's DXF name is that of its records' index type, "TABLE LAYER"
    constexpr std::size_t kPrefix = 6;
    const std::wstring_view type = isA()->dxfName();
    const host::SymbolKind* const kind =
        host::symbolKind(std::string(type.begin() + kPrefix, type.end()));
    return kind ? kind->table : std::string_view();
}

Acad::ErrorStatus AcDbSymbolTable::getAt(std::wstring_view name, AcDbObjectId& id) const
{
    id = drawing() ? host::findSymbol(*drawing(), tableName(), name) : AcDbObjectId();
    return id.isNull() ? Acad::eKeyNotFound : Acad::eOk;
}

bool AcDbSymbolTable::has(std::wstring_view name) const
{
    AcDbObjectId id;
    return getAt(name, id) == Acad::eOk;
}

bool AcDbSymbolTable::has(AcDbObjectId id) const
{
    if (!drawing() || id.isErased() || id.database() != database())
        return false;
    const auto place = drawing()->tables.find(tableName());
    if (place == drawing()->tables.end())
        return false;
    const std::vector<std::uint32_t>& records = place->second.records;
    return std::find(records.begin(), records.end(), id.stubNumber()) != records.end();
}

Acad::ErrorStatus AcDbSymbolTable::add(AcDbObjectId& id, AcDbSymbolTableRecord* record)
{
    id.setNull();
    if (!drawing())
        return Acad::eNotInDatabase;
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    if (!record)
        return Acad::eNullObjectPointer;
    if (record->database())
        return Acad::eAlreadyInDb;
    const std::string_view table = tableName();
    if (tableOfRecord(*record) != table)
        return Acad::eWrongObjectType;
    const bool blocks = table == "BLOCK_RECORD";
    if (blocks && asksForNumber(record->name()))
        record->setName(numberedName(*drawing(), table, record->name()));
    const std::wstring name = record->name();
    if (name.empty() && !record->mayLackName())
        return Acad::eInvalidKey;
    if (has(name))
        return Acad::eDuplicateKey;

    host::Drawing& drawn = *drawing();
    record->complete(drawn);
    const bool old = drawn.version <= host::DxfVersion::r12;
    // block records are no part of an R12 file: the BLOCK alone stands for the block there
    const std::uint16_t flags = old && blocks ? host::kImplicit : 0;
    const Acad::ErrorStatus status = record->addToDatabase(drawn, objectId(), flags);
    if (status != Acad::eOk)
        return status;
    if (old && !blocks)
        host::dropMarkers(record->tagsForWrite());
    id = record->objectId();
    drawn.tables[std::string(table)].records.push_back(id.stubNumber());
    drawn.database.lookups().symbols.added(drawn, table, name, id.stubNumber());
    return record->joined();
}

std::unique_ptr<AcDbSymbolTableIterator> AcDbSymbolTable::newIterator() const
{
    std::vector<AcDbObjectId> ids;
    if (drawing()) {
        const auto place = drawing()->tables.find(tableName());
        if (place != drawing()->tables.end())
            for (const std::uint32_t stub : place->second.records)
                if ((drawing()->index[stub].flags & host::kErased) == 0)
                    ids.push_back(drawing()->id(stub));
    }
    return std::make_unique<AcDbSymbolTableIterator>(std::move(ids));
}

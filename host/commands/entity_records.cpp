#include "host/commands/entity_records.h"

#include "host/commands/property_text.h"
#include "host/db/database.h"
#include "host/db/dictionary.h"
#include "host/db/entity.h"
#include "host/db/tag.h"
#include "host/db/xrecord.h"
#include "host/text/wide_format.h"

namespace host {

namespace {

// Holds the definitions of the drawing's tables: for each field its name (1) and a default whose
// group code is that of the field's values.
constexpr std::wstring_view kTables = L"ODEMUDATA";
constexpr short kFieldName = 1;

struct Field {
    std::wstring name;
    short code = 0;
};

bool isPoint(int code)
{
    return (code >= 10 && code <= 17) || (code >= 110 && code <= 112) ||
           (code >= 210 && code <= 213);
}

std::wstring bytesText(const std::vector<std::uint8_t>& bytes)
{
    std::wstring text;
    for (const std::uint8_t byte : bytes)
        text += format(L"%02X", static_cast<int>(byte));
    return text;
}

std::wstring itemText(const resbuf& item)
{
    const resbuf::Value& value = item.resval;
    switch (tagKind(item.restype)) {
    case TagKind::real:
        return isPoint(item.restype) ? pointText(AcGePoint3d(value.rpoint))
                                     : numberText(value.rreal);
    case TagKind::int16:
    case TagKind::boolean:
        return std::to_wstring(value.rint);
    case TagKind::int32:
        return std::to_wstring(value.rlong);
    case TagKind::int64:
        return std::to_wstring(value.mnInt64);
    case TagKind::handle:
        return value.rstring;
    case TagKind::binary:
        return bytesText(value.rbinary);
    case TagKind::text:
    case TagKind::comment:
        break;
    }
    return quotedText(value.rstring);
}

ResbufChain chainAt(AcDbObjectId id)
{
    ResbufChain chain;
    AcDbObjectPointer<AcDbXrecord> record(id, AcDb::kForRead);
    if (record)
        record->rbChain(chain);
    return chain;
}

// The fields of a table; none without a definition.
std::vector<Field> fieldsOf(AcDbDatabase& database, std::wstring_view table)
{
    AcDbObjectPointer<AcDbDictionary> root(database.namedObjectsDictionaryId(), AcDb::kForRead);
    AcDbObjectId id;
    if (!root || root->getAt(kTables, id) != Acad::eOk)
        return {};
    AcDbObjectPointer<AcDbDictionary> tables(id, AcDb::kForRead);
    if (!tables || tables->getAt(table, id) != Acad::eOk)
        return {};
    const ResbufChain chain = chainAt(id);
    std::vector<Field> fields;
    for (std::size_t i = 0; i + 1 < chain.size(); i += 2)
        if (chain[i].restype == kFieldName)
            fields.push_back({chain[i].resval.rstring, chain[i + 1].restype});
    return fields;
}

bool fits(const ResbufChain& chain, const std::vector<Field>& fields)
{
    if (fields.empty() || chain.empty() || chain.size() % fields.size() != 0)
        return false;
    for (std::size_t i = 0; i < chain.size(); ++i)
        if (chain[i].restype != fields[i % fields.size()].code)
            return false;
    return true;
}

void addRecords(const std::wstring& table, const ResbufChain& chain,
                const std::vector<Field>& fields, std::vector<EntityRecord>& records)
{
    const bool named = fits(chain, fields);
    for (std::size_t i = 0; i < chain.size(); ++i) {
        if (i == 0 || (named && i % fields.size() == 0))
            records.push_back({table, {}});
        records.back().values.emplace_back(named ? fields[i % fields.size()].name
                                                 : std::to_wstring(chain[i].restype),
                                           itemText(chain[i]));
    }
    if (chain.empty())
        records.push_back({table, {}});
}

} // namespace

std::vector<EntityRecord> recordsOf(const AcDbEntity& entity)
{
    std::vector<EntityRecord> records;
    AcDbObjectPointer<AcDbDictionary> dictionary(entity.extensionDictionary(), AcDb::kForRead);
    if (!dictionary)
        return records;
    for (auto entry = dictionary->newIterator(); !entry->done(); entry->next())
        if (const AcRxClass* const kind = entry->objectId().objectClass();
            kind && kind->isDerivedFrom(AcDbXrecord::desc()))
            addRecords(entry->name(), chainAt(entry->objectId()),
                       fieldsOf(*entity.database(), entry->name()), records);
    return records;
}

} // namespace host

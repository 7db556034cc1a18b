#pragma once

#include "host/db/block_table.h"
#include "host/db/dictionary.h"
#include "host/db/line.h"
#include "host/db/xrecord.h"
#include "host/text/wide_format.h"
#include "store/od_store.h"
#include "store/od_tables.h"
#include "tests/support/command_test.h"

#include <initializer_list>

// An empty drawing with entities, tables and chains that a test puts there, and chains as texts:
// "1=Wall 40=12.5 90=3 10=1,2,3", in any order.
class RecordTest : public CommandTest {
protected:
    AcDbObjectId storeId() { return store_.getStoreId(&database()); }

    AcDbObjectId addLine()
    {
        AcDbObjectPointer<AcDbBlockTableRecord> space(database().modelSpaceId(), AcDb::kForWrite);
        AcDbObjectPointer<AcDbLine> line;
        line.create();
        EXPECT_EQ(space->appendAcDbEntity(line.object()), Acad::eOk);
        return line->objectId();
    }

    // Fields as NAME and type; "Objects" with three fields is used most.
    void addTable(std::wstring_view name,
                  std::initializer_list<std::pair<const wchar_t*, OdType>> row)
    {
        std::vector<OdField> fields;
        for (const auto& [field, type] : row)
            fields.emplace_back(field, type);
        EXPECT_EQ(createTable(storeId(), name, fields), AcMap::kOk);
    }
    void addObjectsTable()
    {
        addTable(
            L"Objects",
            {{L"Key", OdType::character}, {L"Width", OdType::real}, {L"Floors", OdType::integer}});
    }

    static ResbufChain chainOf(std::wstring_view text)
    {
        ResbufChain chain;
        while (!text.empty()) {
            const std::wstring_view word = text.substr(0, std::min(text.find(L' '), text.size()));
            text.remove_prefix(std::min(word.size() + 1, text.size()));
            resbuf item;
            const std::wstring value(word.substr(word.find(L'=') + 1));
            item.restype = static_cast<short>(std::stoi(std::wstring(word)));
            if (item.restype < 10)
                item.resval.rstring = value;
            else if (item.restype < 40)
                std::swscanf(value.c_str(), L"%lf,%lf,%lf", &item.resval.rpoint[0],
                             &item.resval.rpoint[1], &item.resval.rpoint[2]);
            else if (item.restype < 60)
                item.resval.rreal = std::stod(value);
            else if (item.restype < 80)
                item.resval.rint = static_cast<std::int16_t>(std::stoi(value));
            else
                item.resval.rlong = std::stoi(value);
            chain.push_back(std::move(item));
        }
        return chain;
    }

    // What the entry of a dictionary holds; "none" without such an entry.
    static std::wstring chainIn(AcDbObjectId dictionaryId, std::wstring_view key)
    {
        const AcDbObjectPointer<AcDbDictionary> dictionary(dictionaryId, AcDb::kForRead);
        AcDbObjectId id;
        if (!dictionary || dictionary->getAt(key, id) != Acad::eOk)
            return L"none";
        const AcDbObjectPointer<AcDbXrecord> record(id, AcDb::kForRead);
        ResbufChain chain;
        EXPECT_EQ(record->rbChain(chain), Acad::eOk);
        std::wstring text;
        for (const resbuf& item : chain) {
            const resbuf::Value& value = item.resval;
            if (!text.empty())
                text += L' ';
            text += host::format(L"%i=", int{item.restype});
            if (item.restype < 10)
                text += value.rstring;
            else if (item.restype < 40)
                text +=
                    host::format(L"%g,%g,%g", value.rpoint[0], value.rpoint[1], value.rpoint[2]);
            else if (item.restype < 60)
                text += host::format(L"%g", value.rreal);
            else if (item.restype < 80)
                text += host::format(L"%i", int{value.rint});
            else
                text += host::format(L"%i", value.rlong);
        }
        return text;
    }

    static void putChain(AcDbObjectId dictionaryId, std::wstring_view key, std::wstring_view text)
    {
        const AcDbObjectPointer<AcDbDictionary> dictionary(dictionaryId, AcDb::kForWrite);
        AcDbObjectPointer<AcDbXrecord> record;
        record.create();
        AcDbObjectId id;
        ASSERT_EQ(dictionary->setAt(key, record.object(), id), Acad::eOk);
        ASSERT_EQ(record->setFromRbChain(chainOf(text)), Acad::eOk);
    }

    static AcDbObjectId extensionOf(AcDbObjectId entityId)
    {
        const AcDbObjectPointer<AcDbObject> entity(entityId, AcDb::kForRead);
        return entity->extensionDictionary();
    }
    static std::wstring rowsOf(AcDbObjectId entityId, std::wstring_view key)
    {
        return chainIn(extensionOf(entityId), key);
    }
    static void putRows(AcDbObjectId entityId, std::wstring_view key, std::wstring_view text)
    {
        {
            const AcDbObjectPointer<AcDbObject> entity(entityId, AcDb::kForWrite);
            if (entity->extensionDictionary().isNull())
                entity->createExtensionDictionary();
        }
        putChain(extensionOf(entityId), key, text);
    }

    OdStore store_;
};

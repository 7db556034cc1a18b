#pragma once

#include "description/description_reader.h"
#include "objects/record_attachment.h"
#include "store/od_record_iterator.h"
#include "store/od_store.h"
#include "tests/support/opened_drawing.h"
#include "text/message_sink.h"

#include <fstream>

// Writes the lines of a description file; blanks in `lines` are blanks, "|" stands for a tab.
inline std::filesystem::path writeDescription(const std::filesystem::path& folder,
                                              std::string lines,
                                              const char* name = "description.txt")
{
    std::replace(lines.begin(), lines.end(), '|', '\t');
    const std::filesystem::path path = folder / name;
    std::ofstream(path, std::ios::binary) << lines;
    return path;
}

// Puts one record of each of the object's tables on the entity, with the defaults.
inline void classifyAs(const Description& description, AcDbObjectId store, AcDbObjectId entity,
                       std::wstring_view name)
{
    const ObjectDef* const object = description.findObject(name);
    ASSERT_NE(object, nullptr);
    for (const TableDef& table : object->props.tables)
        ASSERT_TRUE(attachRecord(table, entity, *object, store));
}

// Gives a field of the entity's record number `row` (over all tables) another value.
inline void setField(AcDbObjectId store, AcDbObjectId entity, std::wstring_view field,
                     const OdValue& value, int row = 0)
{
    OdRecordIterator records = newIterator(store);
    OdRecord record;
    int at = 0;
    for (records.open(entity); !records.isDone(); records.next(), ++at) {
        ASSERT_EQ(records.readRecord(record), AcMap::kOk);
        const int position = findField(record, field);
        if (at != row || position < 0)
            continue;
        record.fields[static_cast<std::size_t>(position)].value = value;
        ASSERT_EQ(records.updateRecord(record), AcMap::kOk);
        return;
    }
    FAIL() << "no such record or field";
}

// A test on a drawing and a description of its own.
class DescribedTest : public DrawingTest {
protected:
    void describe(const std::string& lines)
    {
        struct Refusal final : MessageSink {
            void message(std::optional<int> line, Message id, std::wstring_view item) override
            {
                const std::wstring text = messageText(line, id, item);
                ADD_FAILURE() << std::string(text.begin(), text.end());
            }
        } sink;
        description = readDescription(writeDescription(folder(), lines).wstring(), sink, store_);
    }

    AcDbObjectId storeId() { return store_.getStoreId(&database()); }
    void classify(AcDbObjectId entity, std::wstring_view name)
    {
        classifyAs(description, storeId(), entity, name);
    }

    Description description;

private:
    OdStore store_;
};

#pragma once

#include "store/od_record_iterator.h"
#include "store/od_tables.h"
#include "store/record_writing.h"
#include "tests/support/lettered_test.h"

#include <initializer_list>

// A drawing of six lines, A to F in its order, of which E is on a locked layer, and what tests put
// on them. "Wall" has two tables, "Gate" and "Road" share one of those of "Wall"; "Road" is in a
// class below that of the others.
class RecordsTest : public LetteredTest {
protected:
    RecordsTest()
    {
        DxfDrawing drawing;
        drawing.layer("Locked", 4);
        for (const char letter : {'A', 'B', 'C', 'D', 'E', 'F'})
            lettered[letter] = drawing.line(letter == 'E' ? "Locked" : "0");
        open(drawing);
        EXPECT_EQ(load("class|Buildings|1\n"
                       "obj_name|Wall|1|3\n"
                       "obj_type|Line\n"
                       "od_name|WALLS\n"
                       "od_key|NAME\n"
                       "od_fld|HEIGHT|h|required real|2.5|1.25,2.5,2.125\n"
                       "od_name|OWNERS\n"
                       "od_key|NAME\n"
                       "od_fld|OWNER|o|character|city\n"
                       "obj_name|Gate|1|1\n"
                       "obj_type|Line\n"
                       "od_name|OWNERS\n"
                       "od_key|NAME\n"
                       "od_fld|OWNER|o|character|city\n"
                       "class|Ways|1\n"
                       "obj_name|Road|1|2\n"
                       "obj_type|Line\n"
                       "od_name|OWNERS\n"
                       "od_key|NAME\n"
                       "od_fld|OWNER|o|character|city\n"
                       "/class\n"
                       "/class\n")
                      .find(L"rror"),
                  std::wstring::npos);
        for (const char* name : {"Wall", "Gate"}) // makes the tables
            classify('F', name);
        clear('F');
    }

    static std::wstring wide(const std::string& text) { return {text.begin(), text.end()}; }

    std::wstring pick(char letter)
    {
        return L"(handent \"" + wide(lettered.at(letter)) + L"\")\n\n";
    }

    using LetteredTest::classify;
    void classify(char letter, const char* name) { classify(letter, wide(name)); }
    // One row of a table, its values as texts in the order of the fields.
    void addRow(char letter, const wchar_t* table, std::initializer_list<const wchar_t*> values)
    {
        OdTable stored;
        ASSERT_EQ(getTable(storeId(), table, stored), AcMap::kOk);
        OdRecord record;
        initRecord(stored, record);
        std::size_t at = 0;
        for (const wchar_t* value : values)
            record.fields.at(at++).value = OdValue(value);
        ASSERT_EQ(addRecord(stored, record, id(letter)), AcMap::kOk);
    }

    void clear(char letter)
    {
        OdRecordIterator walk = newIterator(storeId());
        for (walk.open(id(letter)); !walk.isDone();)
            ASSERT_EQ(walk.removeRecord(), AcMap::kOk);
    }

    // The entity's rows as "OWNERS(Gate,city) WALLS(Wall,2.0)".
    std::string rows(char letter)
    {
        std::wstring text;
        OdRecordIterator walk = newIterator(storeId());
        OdRecord record;
        for (walk.open(id(letter)); !walk.isDone(); walk.next()) {
            EXPECT_EQ(walk.readRecord(record), AcMap::kOk);
            text += (text.empty() ? L"" : L" ") + record.name + L'(';
            for (std::size_t at = 0; at < record.fields.size(); ++at)
                text += (at ? L"," : L"") + record.fields[at].value.displayText();
            text += L')';
        }
        return {text.begin(), text.end()};
    }
    bool hasDictionary(char letter)
    {
        const AcDbObjectPointer<AcDbObject> entity(id(letter), AcDb::kForRead);
        return entity && !entity->extensionDictionary().isNull();
    }

    // What is printed by this text with these selected.
    std::wstring printedBy(std::string_view letters, std::wstring_view typed)
    {
        select(letters);
        return transcript(typed);
    }
};

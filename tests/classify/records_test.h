#pragma once

#include "host/edit/pick_first.h"
#include "store/od_record_iterator.h"
#include "store/od_tables.h"
#include "store/record_writing.h"
#include "tests/support/plugin_test.h"

#include <initializer_list>

// A drawing of six lines, A to F in its order, of which E is on a locked layer, and what tests put
// on them. "Wall" has two tables, "Gate" and "Road" share one of those of "Wall"; "Road" is in a
// class below that of the others.
class RecordsTest : public PluginTest {
protected:
    RecordsTest()
    {
        DxfDrawing drawing;
        drawing.layer("Locked", 4);
        for (std::size_t at = 0; at < handles_.size(); ++at)
            handles_[at] = drawing.line(at == 4 ? "Locked" : "0");
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

    const Description& description() { return *::session().description; }
    AcDbObjectId id(char letter)
    {
        return idOf(handles_.at(static_cast<std::size_t>(letter - 'A')));
    }
    std::wstring pick(char letter)
    {
        return L"(handent \"" + wide(handles_.at(static_cast<std::size_t>(letter - 'A'))) +
               L"\")\n\n";
    }

    void classify(char letter, const char* name)
    {
        classifyAs(description(), storeId(), id(letter), wide(name));
    }
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

    void select(std::string_view letters)
    {
        std::vector<AcDbObjectId> ids;
        for (const char letter : letters)
            ids.push_back(id(letter));
        host::setPickFirst(ids);
    }
    std::string selected()
    {
        std::string letters;
        for (const AcDbObjectId entity : host::currentPickFirst())
            for (char letter = 'A'; letter <= 'F'; ++letter)
                if (id(letter) == entity)
                    letters += letter;
        return letters;
    }

    // What is printed by this text with these selected.
    std::wstring printedBy(std::string_view letters, std::wstring_view typed)
    {
        select(letters);
        return transcript(typed);
    }

private:
    std::vector<std::string> handles_ = std::vector<std::string>(6);
};

inline bool tells(const std::wstring& printed, std::wstring_view text)
{
    return printed.find(text) != std::wstring::npos;
}

#pragma once

#include "host/edit/pick_first.h"
#include "tests/support/plugin_test.h"

#include <map>

// A drawing of six entities, named by letters in the order of the drawing:
// A a wall as it should be; E the same on a locked layer; B a wall on the wrong layer, with an
// illegal required value; C a line without records that looks like a wall; D a gate as it should
// be, with two empty texts; F a wall with an illegal value that is not required.
class SelectionTest : public PluginTest {
protected:
    SelectionTest()
    {
        DxfDrawing drawing;
        drawing.layer("Walls");
        drawing.layer("Locked", 4);
        names_ = {{'A', drawing.line("Walls")}, {'E', drawing.line("Locked")}};
        names_['B'] = drawing.line("0");
        names_['C'] = drawing.line("Walls");
        names_['D'] = drawing.circle(5.0);
        names_['F'] = drawing.line("Walls");
        open(drawing);
        EXPECT_EQ(load("class|Buildings|1\n"
                       "obj_name|Wall|1|5\n"
                       "obj_type|Line\n"
                       "obj_prop|layer|walls|walls,locked\n"
                       "od_name|WALLS\n"
                       "od_key|NAME\n"
                       "od_fld|MATERIAL|m|character|brick|brick,stone\n"
                       "od_fld|FLOORS|f|required integer|2|1:9\n"
                       "class|Openings|1\n"
                       "obj_name|Gate|1|5\n"
                       "obj_type|Circle\n"
                       "od_name|GATES\n"
                       "od_key|NAME\n"
                       "od_fld|TAG|t|required character\n"
                       "od_fld|NOTE|n|character\n"
                       "/class\n"
                       "/class\n")
                      .find(L"rror"),
                  std::wstring::npos);
        for (const char wall : {'A', 'E', 'B', 'F'})
            classifyAs(description(), storeId(), id(wall), L"Wall");
        classifyAs(description(), storeId(), id('D'), L"Gate");
        setField(storeId(), id('B'), L"FLOORS", OdValue(99));
        setField(storeId(), id('F'), L"MATERIAL", OdValue(L"wood"));
    }

    const Description& description() { return *::session().description; }
    AcDbObjectId id(char letter) { return idOf(names_.at(letter)); }

    void select(std::string_view letters)
    {
        std::vector<AcDbObjectId> ids;
        for (const char letter : letters)
            ids.push_back(id(letter));
        host::setPickFirst(ids);
    }
    // The selection as letters, in its order.
    std::string selected()
    {
        std::string letters;
        for (const AcDbObjectId entity : host::currentPickFirst())
            for (const auto& [letter, handle] : names_)
                if (idOf(handle) == entity)
                    letters += letter;
        return letters;
    }

    // Types with nothing selected before; the letters selected then. "Selected: " must tell their
    // count.
    std::string selectedBy(std::wstring_view typed)
    {
        select("");
        const std::wstring printed = transcript(typed);
        const std::string letters = selected();
        EXPECT_NE(printed.find(L"Selected: " + std::to_wstring(letters.size())), std::wstring::npos)
            << std::string(printed.begin(), printed.end());
        return letters;
    }

private:
    std::map<char, std::string> names_;
};

inline bool tells(const std::wstring& printed, std::wstring_view text)
{
    return printed.find(text) != std::wstring::npos;
}

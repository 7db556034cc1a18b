#pragma once

#include "tests/support/lettered_test.h"

// A drawing of six entities, named by letters in the order of the drawing:
// A a wall as it should be; E the same on a locked layer; B a wall on the wrong layer, with an
// illegal required value; C a line without records that looks like a wall; D a gate as it should
// be, with two empty texts; F a wall with an illegal value that is not required.
class SelectionTest : public LetteredTest {
protected:
    SelectionTest()
    {
        DxfDrawing drawing;
        drawing.layer("Walls");
        drawing.layer("Locked", 4);
        lettered = {{'A', drawing.line("Walls")}, {'E', drawing.line("Locked")}};
        lettered['B'] = drawing.line("0");
        lettered['C'] = drawing.line("Walls");
        lettered['D'] = drawing.circle(5.0);
        lettered['F'] = drawing.line("Walls");
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
            classify(wall, L"Wall");
        classify('D', L"Gate");
        setField(storeId(), id('B'), L"FLOORS", OdValue(99));
        setField(storeId(), id('F'), L"MATERIAL", OdValue(L"wood"));
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
};

#include "host/io/new_drawing.h"

#include "host/io/class_records.h"
#include "host/io/new_drawing_header.h"
#include "host/io/standard_objects.h"
#include "host/io/tag_script.h"

namespace host {

namespace {

// Handles below are those of the records further down; the header's seed lies above them all.
constexpr std::string_view kTables = R"(0 SECTION
2 TABLES
0 TABLE
2 VPORT
5 8
330 0
100 AcDbSymbolTable
70 1
0 VPORT
5 29
330 8
100 AcDbSymbolTableRecord
100 AcDbViewportTableRecord
2 *Active
70 0
10 0.0
20 0.0
11 1.0
21 1.0
12 210.0
22 148.5
13 0.0
23 0.0
14 10.0
24 10.0
15 10.0
25 10.0
16 0.0
26 0.0
36 1.0
17 0.0
27 0.0
37 0.0
40 297.0
41 1.92
42 50.0
43 0.0
44 0.0
50 0.0
51 0.0
71 0
72 1000
73 1
74 3
75 0
76 0
77 0
78 0
281 0
65 1
110 0.0
120 0.0
130 0.0
111 1.0
121 0.0
131 0.0
112 0.0
122 1.0
132 0.0
79 0
146 0.0
60 3
61 5
292 1
282 1
141 0.0
142 0.0
63 250
421 3355443
0 ENDTAB
0 TABLE
2 LTYPE
5 5
330 0
100 AcDbSymbolTable
70 3
0 LTYPE
5 14
330 5
100 AcDbSymbolTableRecord
100 AcDbLinetypeTableRecord
2 ByBlock
70 0
3
72 65
73 0
40 0.0
0 LTYPE
5 15
330 5
100 AcDbSymbolTableRecord
100 AcDbLinetypeTableRecord
2 ByLayer
70 0
3
72 65
73 0
40 0.0
0 LTYPE
5 16
330 5
100 AcDbSymbolTableRecord
100 AcDbLinetypeTableRecord
2 Continuous
70 0
3 Solid line
72 65
73 0
40 0.0
0 ENDTAB
0 TABLE
2 LAYER
5 2
330 0
100 AcDbSymbolTable
70 1
0 LAYER
5 10
330 2
100 AcDbSymbolTableRecord
100 AcDbLayerTableRecord
2 0
70 0
62 7
6 Continuous
370 -3
390 F
0 ENDTAB
0 TABLE
2 STYLE
5 3
330 0
100 AcDbSymbolTable
70 1
0 STYLE
5 11
330 3
100 AcDbSymbolTableRecord
100 AcDbTextStyleTableRecord
2 Standard
70 0
40 0.0
41 1.0
50 0.0
71 0
42 2.5
3 txt
4
0 ENDTAB
0 TABLE
2 VIEW
5 6
330 0
100 AcDbSymbolTable
70 0
0 ENDTAB
0 TABLE
2 UCS
5 7
330 0
100 AcDbSymbolTable
70 0
0 ENDTAB
0 TABLE
2 APPID
5 9
330 0
100 AcDbSymbolTable
70 1
0 APPID
5 12
330 9
100 AcDbSymbolTableRecord
100 AcDbRegAppTableRecord
2 ACAD
70 0
0 ENDTAB
0 TABLE
2 DIMSTYLE
5 A
330 0
100 AcDbSymbolTable
70 1
100 AcDbDimStyleTable
71 1
340 27
0 DIMSTYLE
105 27
330 A
100 AcDbSymbolTableRecord
100 AcDbDimStyleTableRecord
2 Standard
70 0
41 2.5
42 0.625
43 3.75
44 1.25
73 0
74 0
77 1
78 8
140 2.5
141 2.5
143 0.03937007874016
147 0.625
171 3
172 1
271 2
272 2
274 3
278 44
283 0
284 8
340 11
0 ENDTAB
0 TABLE
2 BLOCK_RECORD
5 1
330 0
100 AcDbSymbolTable
70 2
0 BLOCK_RECORD
5 1F
330 1
100 AcDbSymbolTableRecord
100 AcDbBlockTableRecord
2 *Model_Space
340 22
70 0
280 1
281 0
0 BLOCK_RECORD
5 1B
330 1
100 AcDbSymbolTableRecord
100 AcDbBlockTableRecord
2 *Paper_Space
340 1E
70 0
280 1
281 0
0 ENDTAB
0 ENDSEC
)";

constexpr std::string_view kBlocks = R"(0 SECTION
2 BLOCKS
0 BLOCK
5 20
330 1F
100 AcDbEntity
8 0
100 AcDbBlockBegin
2 *Model_Space
70 0
10 0.0
20 0.0
30 0.0
3 *Model_Space
1
0 ENDBLK
5 21
330 1F
100 AcDbEntity
8 0
100 AcDbBlockEnd
0 BLOCK
5 1C
330 1B
100 AcDbEntity
67 1
8 0
100 AcDbBlockBegin
2 *Paper_Space
70 0
10 0.0
20 0.0
30 0.0
3 *Paper_Space
1
0 ENDBLK
5 1D
330 1B
100 AcDbEntity
67 1
8 0
100 AcDbBlockEnd
0 ENDSEC
0 SECTION
2 ENTITIES
0 ENDSEC
)";

constexpr std::string_view kLeaderStyle = R"(0 MLEADERSTYLE
5 2B
102 {ACAD_REACTORS
330 2A
102 }
330 2A
100 AcDbMLeaderStyle
179 2
170 2
171 1
172 0
90 2
40 0.0
41 0.0
173 1
91 -1056964608
340 14
92 -2
290 1
42 2.0
291 1
43 8.0
3 Standard
44 4.0
300
342 11
174 1
178 1
175 1
176 0
93 -1056964608
45 4.0
292 0
297 0
46 4.0
94 -1056964608
47 1.0
49 1.0
140 1.0
293 1
141 0.0
294 1
177 0
142 1.0
295 0
296 0
143 3.75
271 0
272 9
273 9
298 0
)";

std::string headerScript()
{
    std::string script = "0 SECTION\n2 HEADER\n";
    std::string_view left = kNewDrawingHeader;
    while (!left.empty()) {
        std::string_view line = left.substr(0, left.find('\n'));
        left.remove_prefix(line.size() + 1);
        const auto word = [&] {
            const std::string_view taken = line.substr(0, line.find(' '));
            line.remove_prefix(std::min(taken.size() + 1, line.size()));
            return std::string(taken);
        };
        script += "9 " + word() + "\n";
        while (!line.empty()) {
            const std::string code = word();
            script += code + " " + word() + "\n";
        }
    }
    return script + "0 ENDSEC\n";
}

std::string classesScript()
{
    std::string script = "0 SECTION\n2 CLASSES\n";
    for (const std::string_view type : {"ACDBDICTIONARYWDFLT", "MLEADERSTYLE"}) {
        const ClassRecord& record = *classRecordOf(type);
        script += "0 CLASS\n1 " + std::string(record.type) + "\n2 " +
                  std::string(record.className) + "\n3 " + std::string(record.application) +
                  "\n90 " + std::to_string(record.capabilities) + "\n91 1\n280 0\n281 0\n";
    }
    return script + "0 ENDSEC\n";
}

} // namespace

std::string newDrawingText()
{
    std::string script = headerScript() + classesScript();
    script += kTables;
    script += kBlocks;
    script += "0 SECTION\n2 OBJECTS\n";
    script += dictionaryScript({"C", "0"}, {{"ACAD_GROUP", "D"},
                                            {"ACAD_LAYOUT", "1A"},
                                            {"ACAD_MLEADERSTYLE", "2A"},
                                            {"ACAD_MLINESTYLE", "17"},
                                            {"ACAD_PLOTSETTINGS", "19"},
                                            {"ACAD_PLOTSTYLENAME", "E"}});
    script += dictionaryScript({"D", "C"}, {});
    script += dictionaryScript({"1A", "C"}, {{"Layout1", "1E"}, {"Model", "22"}});
    script += dictionaryScript({"2A", "C"}, {{"Standard", "2B"}});
    script += dictionaryScript({"17", "C"}, {{"Standard", "18"}});
    script += dictionaryScript({"19", "C"}, {});
    script += plotStyleScript({"E", "C"}, "F");
    script += multilineStyleScript({"18", "17"});
    script += kLeaderStyle;
    script += layoutScript({"1E", "1A"}, {"Layout1", "1B", false});
    script += layoutScript({"22", "1A"}, {"Model", "1F", true});
    script += "0 ENDSEC\n0 EOF\n";
    return tagsFromScript(script);
}

} // namespace host

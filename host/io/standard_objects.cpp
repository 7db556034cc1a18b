#include "host/io/standard_objects.h"

namespace host {

namespace {

constexpr std::string_view kMultilineStyle = R"(100 AcDbMlineStyle
2 Standard
70 0
3
62 256
51 90.0
52 90.0
71 2
49 0.5
62 256
6 ByLayer
49 -0.5
62 256
6 ByLayer
)";

constexpr std::string_view kPlotSettings = R"(100 AcDbPlotSettings
1
2 none_device
4
6
40 0.0
41 0.0
42 0.0
43 0.0
44 0.0
45 0.0
46 0.0
47 0.0
48 0.0
49 0.0
140 0.0
141 0.0
142 1.0
143 1.0
)";

constexpr std::string_view kPlotSettingsEnd = R"(72 1
73 0
74 5
7
75 16
147 1.0
76 0
77 2
78 300
148 0.0
149 0.0
)";

constexpr std::string_view kLayoutEnd = R"(10 0.0
20 0.0
11 420.0
21 297.0
12 0.0
22 0.0
32 0.0
14 1e+20
24 1e+20
34 1e+20
15 -1e+20
25 -1e+20
35 -1e+20
146 0.0
13 0.0
23 0.0
33 0.0
16 1.0
26 0.0
36 0.0
17 0.0
27 1.0
37 0.0
76 0
)";

std::string headScript(std::string_view type, const ScriptHead& head)
{
    std::string script = "0 " + std::string(type) + "\n5 " + head.handle + "\n";
    if (head.owner != "0")
        script += "102 {ACAD_REACTORS\n330 " + head.owner + "\n102 }\n";
    return script + "330 " + head.owner + "\n";
}

std::string entryScript(const ScriptEntry& entry)
{
    return "3 " + std::string(entry.name) + "\n350 " + entry.handle + "\n";
}

} // namespace

std::string dictionaryScript(const ScriptHead& head, std::initializer_list<ScriptEntry> entries)
{
    std::string script = headScript("DICTIONARY", head) + "100 AcDbDictionary\n281 1\n";
    for (const ScriptEntry& entry : entries)
        script += entryScript(entry);
    return script;
}

std::string plotStyleScript(const ScriptHead& head, const std::string& style)
{
    return headScript("ACDBDICTIONARYWDFLT", head) + "100 AcDbDictionary\n281 1\n" +
           entryScript({"Normal", style}) + "100 AcDbDictionaryWithDefault\n340 " + style + "\n" +
           headScript("ACDBPLACEHOLDER", {style, head.handle});
}

std::string multilineStyleScript(const ScriptHead& head)
{
    return headScript("MLINESTYLE", head) + std::string(kMultilineStyle);
}

std::string layoutScript(const ScriptHead& head, const LayoutScript& layout)
{
    constexpr int kPaperFlags = 688;
    constexpr int kModelFlags = 1712; // the same for model space
    std::string script = headScript("LAYOUT", head);
    script += kPlotSettings;
    script += "70 " + std::to_string(layout.model ? kModelFlags : kPaperFlags) + "\n";
    script += kPlotSettingsEnd;
    script += "100 AcDbLayout\n1 " + std::string(layout.name) + "\n70 1\n71 " +
              (layout.model ? "0" : "1") + "\n";
    script += kLayoutEnd;
    return script + "330 " + layout.block + "\n";
}

} // namespace host

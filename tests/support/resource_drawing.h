#pragma once

#include "tests/support/dxf_drawing.h"

#include <initializer_list>
#include <map>
#include <string>

// A drawing that other drawings take resources from.
class ResourceDrawing : public DxfDrawing {
public:
    void mlineStyle(const std::string& name)
    {
        add("ACAD_MLINESTYLE", name, "MLINESTYLE",
            "100\nAcDbMlineStyle\n2\n" + name +
                "\n70\n0\n3\n\n62\n256\n51\n90.0\n52\n90.0\n71\n1\n49\n0.5\n62\n256\n6\nByLayer\n");
    }
    void mleaderStyle(const std::string& name)
    {
        add("ACAD_MLEADERSTYLE", name, "MLEADERSTYLE",
            "100\nAcDbMLeaderStyle\n170\n2\n171\n1\n172\n0\n90\n2\n40\n0.0\n41\n0.0\n173\n1\n91\n"
            "-1056964608\n");
    }
    // A tab with a space of its own, which holds a line.
    void layout(const std::string& name)
    {
        const std::string number = std::to_string(tabs_++);
        const std::string space = block("*Paper_Space" + number, 0, lineIn("0"), {}, {});
        add("ACAD_LAYOUT", name, "LAYOUT",
            "100\nAcDbPlotSettings\n1\n\n2\n\n4\n\n6\n\n70\n0\n100\nAcDbLayout\n1\n" + name +
                "\n70\n1\n71\n" + std::to_string(tabs_) + "\n330\n" + space + "\n");
    }
    // The line as the body of a block.
    std::string lineIn(std::string_view layer)
    {
        return "0\nLINE\n5\n" + takeHandle() + "\n100\nAcDbEntity\n8\n" + std::string(layer) +
               "\n100\nAcDbLine\n10\n0.0\n20\n0.0\n30\n0.0\n11\n1.0\n21\n0.0\n31\n0.0\n";
    }
    std::string referenceIn(std::string_view block)
    {
        return "0\nINSERT\n5\n" + takeHandle() +
               "\n100\nAcDbEntity\n8\n0\n100\nAcDbBlockReference\n2\n" + std::string(block) +
               "\n10\n0.0\n20\n0.0\n30\n0.0\n";
    }

    std::filesystem::path write(const std::filesystem::path& folder, std::string_view name) const
    {
        DxfDrawing whole = *this;
        for (const auto& [key, dictionary] : dictionaries_) {
            whole.rootEntry(key, dictionary.handle);
            whole.object("0\nDICTIONARY\n5\n" + dictionary.handle +
                         "\n330\nC\n100\nAcDbDictionary\n281\n1\n" + dictionary.entries);
        }
        return whole.write(folder, name);
    }

private:
    struct Dictionary {
        std::string handle;
        std::string entries;
    };

    void add(const std::string& key, const std::string& name, const std::string& record,
             const std::string& body)
    {
        Dictionary& dictionary = dictionaries_[key];
        if (dictionary.handle.empty())
            dictionary.handle = takeHandle();
        const std::string handle = takeHandle();
        dictionary.entries += field(3, name) + field(350, handle);
        object("0\n" + record + "\n5\n" + handle + "\n330\n" + dictionary.handle + "\n" + body);
    }

    std::map<std::string, Dictionary> dictionaries_;
    int tabs_ = 0;
};

#pragma once

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

// A drawing of R2000 written tag by tag: what a test puts in and the least that makes it whole.
// Bodies are lines of a DXF file, "40\n5.0\n"; handles are given in the order of the calls.
class DxfDrawing {
public:
    int luprec = 4;
    int insunits = 6; // metres

    void layer(std::string_view name, int flags = 0, int color = 7)
    {
        layers_ +=
            record("LAYER", 0x2, "AcDbLayerTableRecord",
                   field(2, name) + field(70, flags) + field(62, color) + field(6, "Continuous"));
    }
    void linetype(std::string_view name)
    {
        linetypes_ += record("LTYPE", 0x5, "AcDbLinetypeTableRecord",
                             field(2, name) + field(70, 0) + field(3, "") + field(72, 65) +
                                 field(73, 0) + field(40, "0.0"));
    }
    void textStyle(std::string_view name)
    {
        styles_ += record("STYLE", 0x3, "AcDbTextStyleTableRecord",
                          field(2, name) + field(70, 0) + field(40, "0.0") + field(3, "txt"));
    }
    void dimensionStyle(std::string_view name)
    {
        dimensionStyles_ += "0\nDIMSTYLE\n105\n" + hex(next_++) + "\n330\nA\n" +
                            "100\nAcDbSymbolTableRecord\n100\nAcDbDimStyleTableRecord\n" +
                            field(2, name) + field(70, 0);
    }
    // A block with these units; `body` holds its entities. `data` is put at the end of its record.
    std::string block(std::string_view name, int units = 0, std::string_view body = {},
                      std::string_view data = {}, std::string_view inRecord = {})
    {
        const std::string handle = hex(next_++);
        blockRecords_ += "0\nBLOCK_RECORD\n5\n" + handle + "\n" + std::string(inRecord) +
                         "330\n1\n100\nAcDbSymbolTableRecord\n100\nAcDbBlockTableRecord\n" +
                         field(2, name) + field(340, "0") + field(70, units) + std::string(data);
        const std::string begin = hex(next_++);
        blocks_ += blockText(name, handle, body, begin, hex(next_++));
        return handle;
    }
    // The entity's handle. `common` is put under AcDbEntity behind the layer, `head` behind the
    // handle.
    std::string entity(std::string_view type, std::string_view marker, std::string_view body,
                       std::string_view layerName = "0", std::string_view common = {},
                       std::string_view head = {})
    {
        const std::string handle = hex(next_++);
        entities_ += "0\n" + std::string(type) + "\n5\n" + handle + "\n" + std::string(head) +
                     "330\n1F\n100\nAcDbEntity\n" + field(8, layerName) + std::string(common);
        if (!marker.empty())
            entities_ += "100\n" + std::string(marker) + "\n";
        entities_ += body;
        return handle;
    }
    std::string line(std::string_view layerName = "0", std::string_view common = {},
                     std::string_view head = {})
    {
        return entity("LINE", "AcDbLine", "10\n0.0\n20\n0.0\n30\n0.0\n11\n1.0\n21\n0.0\n31\n0.0\n",
                      layerName, common, head);
    }
    std::string circle(double radius, std::string_view layerName = "0")
    {
        return entity("CIRCLE", "AcDbCircle",
                      "10\n0.0\n20\n0.0\n30\n0.0\n40\n" + std::to_string(radius) + "\n", layerName);
    }
    // Anything else, as it stands, in OBJECTS; entries of the root dictionary beside it.
    void object(std::string_view text) { objects_ += text; }
    void rootEntry(std::string_view key, std::string_view handle)
    {
        rootEntries_ += field(3, key) + field(350, handle);
    }
    void dxfClass(std::string_view dxfName, std::string_view className, bool isEntity)
    {
        classes_ += "0\nCLASS\n" + field(1, dxfName) + field(2, className) + field(3, "app") +
                    field(90, 0) + field(280, 0) + field(281, isEntity ? 1 : 0);
    }
    std::string takeHandle() { return hex(next_++); }

    std::filesystem::path write(const std::filesystem::path& folder,
                                std::string_view name = "drawing.dxf") const
    {
        const std::filesystem::path path = folder / name;
        std::ofstream(path, std::ios::binary) << text();
        return path;
    }

    std::string text() const
    {
        return "0\nSECTION\n2\nHEADER\n9\n$ACADVER\n1\nAC1015\n9\n$HANDSEED\n5\nFFFF\n"
               "9\n$LUPREC\n70\n" +
               std::to_string(luprec) + "\n9\n$INSUNITS\n70\n" + std::to_string(insunits) +
               "\n0\nENDSEC\n0\nSECTION\n2\nCLASSES\n" + classes_ +
               "0\nENDSEC\n0\nSECTION\n2\nTABLES\n" + tableText("LTYPE", "5", standardLinetypes()) +
               tableText("LAYER", "2",
                         "0\nLAYER\n5\n10\n330\n2\n100\nAcDbSymbolTableRecord\n100\n"
                         "AcDbLayerTableRecord\n2\n0\n70\n0\n62\n7\n6\nContinuous\n" +
                             layers_) +
               tableText("STYLE", "3",
                         "0\nSTYLE\n5\n11\n330\n3\n100\nAcDbSymbolTableRecord\n100\n"
                         "AcDbTextStyleTableRecord\n2\nStandard\n70\n0\n40\n0.0\n3\n"
                         "txt\n" +
                             styles_) +
               tableText("DIMSTYLE", "A",
                         "0\nDIMSTYLE\n105\n27\n330\nA\n100\nAcDbSymbolTableRecord\n"
                         "100\nAcDbDimStyleTableRecord\n2\nStandard\n70\n0\n" +
                             dimensionStyles_) +
               tableText("BLOCK_RECORD", "1",
                         spaceRecord("1F", "*Model_Space") + spaceRecord("1B", "*Paper_Space") +
                             blockRecords_) +
               "0\nENDSEC\n0\nSECTION\n2\nBLOCKS\n" +
               blockText("*Model_Space", "1F", "", "20", "21") +
               blockText("*Paper_Space", "1B", "", "1C", "1D") + blocks_ +
               "0\nENDSEC\n0\nSECTION\n2\nENTITIES\n" + entities_ +
               "0\nENDSEC\n0\nSECTION\n2\nOBJECTS\n0\nDICTIONARY\n5\nC\n330\n0\n100\nAcDbDictionary"
               "\n"
               "281\n1\n" +
               rootEntries_ + objects_ + "0\nENDSEC\n0\nEOF\n";
    }

    static std::string field(int code, std::string_view value)
    {
        return std::to_string(code) + "\n" + std::string(value) + "\n";
    }
    static std::string field(int code, int value) { return field(code, std::to_string(value)); }

private:
    static std::string hex(unsigned value)
    {
        char text[16];
        std::snprintf(text, sizeof text, "%X", value);
        return text;
    }
    std::string record(const char* type, unsigned table, const char* marker,
                       const std::string& body)
    {
        return std::string("0\n") + type + "\n5\n" + hex(next_++) + "\n330\n" + hex(table) +
               "\n100\nAcDbSymbolTableRecord\n100\n" + marker + "\n" + body;
    }
    static std::string tableText(const char* name, const char* handle, const std::string& records)
    {
        return std::string("0\nTABLE\n2\n") + name + "\n5\n" + handle +
               "\n330\n0\n100\nAcDbSymbolTable\n70\n9\n" + records + "0\nENDTAB\n";
    }
    std::string standardLinetypes() const
    {
        std::string text;
        const char* const names[] = {"ByBlock", "ByLayer", "Continuous"};
        for (int at = 0; at < 3; ++at)
            text += "0\nLTYPE\n5\n" + hex(0x14 + static_cast<unsigned>(at)) +
                    "\n330\n5\n100\nAcDbSymbolTableRecord\n100\nAcDbLinetypeTableRecord\n2\n" +
                    names[at] + "\n70\n0\n3\n\n72\n65\n73\n0\n40\n0.0\n";
        return text + linetypes_;
    }
    static std::string spaceRecord(const char* handle, const char* name)
    {
        return std::string("0\nBLOCK_RECORD\n5\n") + handle +
               "\n330\n1\n100\nAcDbSymbolTableRecord\n100\nAcDbBlockTableRecord\n2\n" + name +
               "\n340\n0\n";
    }
    static std::string blockText(std::string_view name, const std::string& owner,
                                 std::string_view body, const std::string& begin,
                                 const std::string& end)
    {
        return "0\nBLOCK\n5\n" + begin + "\n330\n" + owner +
               "\n100\nAcDbEntity\n8\n0\n100\nAcDbBlockBegin\n2\n" + std::string(name) +
               "\n70\n0\n10\n0.0\n20\n0.0\n30\n0.0\n3\n" + std::string(name) + "\n1\n\n" +
               std::string(body) + "0\nENDBLK\n5\n" + end + "\n330\n" + owner +
               "\n100\nAcDbEntity\n8\n0\n100\nAcDbBlockEnd\n";
    }

    unsigned next_ = 0x100;
    std::string classes_, layers_, linetypes_, styles_, dimensionStyles_, blockRecords_, blocks_,
        entities_, rootEntries_, objects_;
};

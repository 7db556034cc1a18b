#pragma once

#include "host/db/database.h"
#include "host/db/object_pointer.h"
#include "host/io/drawing_reader.h"
#include "host/io/dxf_format.h"
#include "host/text/encoding.h"

#include <gtest/gtest.h>

// Drawings made of short texts. A script has one tag a word group, "code value", separated by ";".
// Blanks before a code do not matter, those behind the value's first blank do.
namespace host::test {

inline std::string lines(std::string_view script, std::string_view lineEnd = "\n")
{
    std::string text;
    while (!script.empty()) {
        std::string_view tag = script.substr(0, script.find(';'));
        script.remove_prefix(std::min(tag.size() + 1, script.size()));
        tag.remove_prefix(std::min(tag.find_first_not_of(" \n"), tag.size()));
        if (tag.empty())
            continue;
        const std::size_t blank = std::min(tag.find(' '), tag.size());
        std::string code(tag.substr(0, blank));
        code.insert(0, code.size() < 3 ? 3 - code.size() : 0, ' ');
        text += code;
        text += lineEnd;
        text += tag.substr(std::min(blank + 1, tag.size()));
        text += lineEnd;
    }
    return text;
}

inline std::string section(std::string_view name, std::string_view script)
{
    return "0 SECTION;2 " + std::string(name) + ";" + std::string(script) + ";0 ENDSEC;";
}

inline std::string header(std::string_view version, std::string_view seed = "100")
{
    return section("HEADER",
                   "9 $ACADVER;1 " + std::string(version) + ";9 $HANDSEED;5 " + std::string(seed));
}

// Both spaces, the layer 0 and a root dictionary, of R2000.
inline std::string modernDrawing(std::string_view entities, std::string_view blocks = {},
                                 std::string_view objects = {})
{
    return header("AC1015") +
           section("TABLES",
                   "0 TABLE;2 LAYER;5 2;330 0;100 AcDbSymbolTable;70 1;"
                   "0 LAYER;5 10;330 2;100 AcDbSymbolTableRecord;100 AcDbLayerTableRecord;2 0;70 0;"
                   "62 7;6 Continuous;0 ENDTAB;"
                   "0 TABLE;2 BLOCK_RECORD;5 1;330 0;100 AcDbSymbolTable;70 2;"
                   "0 BLOCK_RECORD;5 1F;330 1;100 AcDbSymbolTableRecord;"
                   "100 AcDbBlockTableRecord;2 *Model_Space;"
                   "0 BLOCK_RECORD;5 1B;330 1;100 AcDbSymbolTableRecord;"
                   "100 AcDbBlockTableRecord;2 *Paper_Space;0 ENDTAB") +
           section("BLOCKS", "0 BLOCK;5 20;330 1F;100 AcDbEntity;8 0;100 AcDbBlockBegin;"
                             "2 *Model_Space;0 ENDBLK;5 21;330 1F;100 AcDbEntity;8 0;"
                             "100 AcDbBlockEnd;" +
                                 std::string(blocks)) +
           section("ENTITIES", entities) +
           section("OBJECTS",
                   "0 DICTIONARY;5 C;330 0;100 AcDbDictionary;281 1;" + std::string(objects)) +
           "0 EOF;";
}

// An open drawing of some bytes; the format is in use while it lives.
class OpenDrawing {
public:
    explicit OpenDrawing(std::string bytes)
        : use_(*this), bytes_(std::move(bytes)), database_(false)
    {
        outcome_ = readDrawing(FileImage::fromBytes(bytes_), L"plan.dxf", drawing());
    }

    const FileOutcome& outcome() const { return outcome_; }
    Drawing& drawing() { return database_.drawing(); }
    AcDbDatabase& database() { return database_; }
    const std::string& bytes() const { return bytes_; }

    std::string saved(std::wstring* message = nullptr)
    {
        std::string out;
        const FileOutcome written = format_.write(drawing(), out);
        EXPECT_EQ(written.status, Acad::eOk);
        if (message)
            *message = written.message;
        return out;
    }

    // The record with this handle.
    const Stub& stub(std::uint64_t handle)
    {
        const std::uint32_t number = drawing().index.findHandle(handle);
        EXPECT_NE(number, 0u) << std::hex << handle;
        return drawing().index[number];
    }
    template <class T> AcDbObjectPointer<T> open(std::uint64_t handle)
    {
        AcDbObjectPointer<T> object(drawing().idOfHandle(handle), AcDb::kForWrite);
        EXPECT_EQ(object.openStatus(), Acad::eOk) << std::hex << handle;
        return object;
    }

private:
    struct Use {
        explicit Use(OpenDrawing& drawing) { setDrawingFormat(&drawing.format_); }
        ~Use() { setDrawingFormat(nullptr); }
    };

    DxfFormat format_;
    Use use_;
    std::string bytes_;
    AcDbDatabase database_;
    FileOutcome outcome_;
};

// The text with one piece put in before another, which stands in it once.
inline std::string withBefore(std::string text, std::string_view place, std::string_view piece)
{
    const std::size_t at = text.find(place);
    EXPECT_NE(at, std::string::npos) << place;
    EXPECT_EQ(text.find(place, at + 1), std::string::npos) << place;
    return text.insert(at, piece);
}

inline std::string replaced(std::string text, std::string_view from, std::string_view to)
{
    const std::size_t at = text.find(from);
    EXPECT_NE(at, std::string::npos) << from;
    return at == std::string::npos ? text : text.replace(at, from.size(), to);
}

} // namespace host::test

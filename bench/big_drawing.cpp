#include "bench/big_drawing.h"

#include "host/db/block_table.h"
#include "host/db/database.h"
#include "host/db/dictionary.h"
#include "host/db/symbol_tables.h"
#include "host/db/xrecord.h"

#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <stdexcept>
#include <string>

namespace {

constexpr int kLayers = 20;
constexpr std::uint64_t kFirstHandle = 0x10000; // above those of a new drawing

resbuf item(short code, const wchar_t* text)
{
    resbuf made;
    made.restype = code;
    made.resval.rstring = text;
    return made;
}

// Layers, the block "mark" and the table "parcel", with the host's own means.
void addDefinitions(AcDbDatabase& database)
{
    AcDbObjectPointer<AcDbLayerTable> layers(database.layerTableId(), AcDb::kForWrite);
    for (int i = 0; i < kLayers; ++i) {
        AcDbObjectPointer<AcDbLayerTableRecord> layer;
        layer.create();
        layer->setName(L"layer" + std::to_wstring(i));
        AcDbObjectId id;
        layers->add(id, layer.object());
    }
    layers.close();

    AcDbObjectPointer<AcDbBlockTable> blocks(database.blockTableId(), AcDb::kForWrite);
    AcDbObjectPointer<AcDbBlockTableRecord> block;
    block.create();
    block->setName(L"mark");
    AcDbObjectId blockId;
    blocks->add(blockId, block.object());

    AcDbObjectPointer<AcDbDictionary> root(database.namedObjectsDictionaryId(), AcDb::kForWrite);
    AcDbObjectPointer<AcDbDictionary> store;
    store.create();
    AcDbObjectId storeId;
    root->setAt(L"ODEMUDATA", store.object(), storeId);
    AcDbObjectPointer<AcDbXrecord> table;
    table.create();
    AcDbObjectId tableId;
    store->setAt(L"parcel", table.object(), tableId);
    ResbufChain chain{item(1, L"object"), item(1, L""),     item(1, L"number"),
                      item(90, L""),      item(1, L"area"), item(40, L"")};
    table->setFromRbChain(chain);
}

class Text {
public:
    [[gnu::format(printf, 2, 3)]] void add(const char* format, ...)
    {
        char line[512];
        va_list arguments;
        va_start(arguments, format);
        const int length = std::vsnprintf(line, sizeof line, format, arguments);
        va_end(arguments);
        bytes.append(line, static_cast<std::size_t>(length));
    }
    std::string bytes;
};

// Writes the entities and, into another text, the objects that hang on them.
class Entities {
public:
    explicit Entities(std::uint64_t owner) : owner_(owner) {}

    void addOne(std::size_t i)
    {
        const double x = static_cast<double>(i % 1000) * 12.345678 + 3512345.25;
        const double y = static_cast<double>(i / 1000) * 9.8765432 + 5812345.75;
        switch (i % 10) {
        case 0:
        case 1:
        case 2:
        case 3:
            begin("LINE", i);
            entities.add(
                "100\nAcDbLine\n 10\n%.6f\n 20\n%.6f\n 30\n0.0\n 11\n%.6f\n 21\n%.6f\n 31\n0.0\n",
                x, y, x + 5, y + 7);
            break;
        case 4:
        case 5:
            begin("LWPOLYLINE", i);
            entities.add("100\nAcDbPolyline\n 90\n        8\n 70\n     1\n 43\n0.0\n");
            for (int v = 0; v < 8; ++v)
                entities.add(" 10\n%.6f\n 20\n%.6f\n", x + v * 1.25, y + (v % 2) * 3.5);
            break;
        case 6:
            addInsert(i, x, y);
            break;
        case 7:
        case 8:
            begin("TEXT", i);
            entities.add("100\nAcDbText\n 10\n%.6f\n 20\n%.6f\n 30\n0.0\n 40\n2.5\n  1\nParcel "
                         "%zu\n100\nAcDbText\n",
                         x, y, i);
            break;
        default:
            begin("HATCH", i);
            entities.add(
                "100\nAcDbHatch\n 10\n0.0\n 20\n0.0\n 30\n0.0\n210\n0.0\n220\n0.0\n230\n1.0\n  "
                "2\nSOLID\n 70\n     1\n 71\n     0\n"
                " 91\n        1\n 92\n        2\n 72\n     0\n 73\n     1\n 93\n        4\n");
            for (int v = 0; v < 4; ++v)
                entities.add(" 10\n%.6f\n 20\n%.6f\n", x + (v == 1 || v == 2) * 6.5,
                             y + (v >= 2) * 4.5);
            entities.add(" 97\n        0\n 75\n     0\n 76\n     1\n 98\n        0\n");
        }
    }

    Text entities;
    Text objects;

private:
    std::uint64_t take() { return next_++; }

    void begin(const char* type, std::size_t i)
    {
        const std::uint64_t handle = take();
        last_ = handle;
        entities.add("  0\n%s\n  5\n%llX\n", type, static_cast<unsigned long long>(handle));
        if ((i / 10 + i) % 10 < 3) // every type gets its share
            addRecord(handle, i);
        entities.add("330\n%llX\n100\nAcDbEntity\n  8\nlayer%zu\n",
                     static_cast<unsigned long long>(owner_), i % kLayers);
    }

    void addRecord(std::uint64_t entity, std::size_t i)
    {
        const unsigned long long dictionary = take(), record = take();
        entities.add("102\n{ACAD_XDICTIONARY\n360\n%llX\n102\n}\n", dictionary);
        objects.add("  0\nDICTIONARY\n  5\n%llX\n330\n%llX\n100\nAcDbDictionary\n280\n     "
                    "1\n281\n     1\n  3\nparcel\n360\n%llX\n",
                    dictionary, static_cast<unsigned long long>(entity), record);
        objects.add("  0\nXRECORD\n  "
                    "5\n%llX\n102\n{ACAD_REACTORS\n330\n%llX\n102\n}\n330\n%"
                    "llX\n100\nAcDbXrecord\n280\n     1\n"
                    "  1\nWall\n 90\n%9zu\n 40\n%.1f\n",
                    record, dictionary, dictionary, i, static_cast<double>(i % 977));
    }

    void addInsert(std::size_t i, double x, double y)
    {
        begin("INSERT", i);
        const unsigned long long insert = last_;
        entities.add(
            "100\nAcDbBlockReference\n 66\n     1\n  2\nmark\n 10\n%.6f\n 20\n%.6f\n 30\n0.0\n", x,
            y);
        entities.add("  0\nATTRIB\n  5\n%llX\n330\n%llX\n100\nAcDbEntity\n  8\n0\n100\nAcDbText\n "
                     "10\n%.6f\n 20\n%.6f\n 30\n0.0\n 40\n1.5\n"
                     "  1\n%zu\n100\nAcDbAttribute\n  2\nNUMBER\n 70\n     0\n",
                     static_cast<unsigned long long>(take()), insert, x + 1, y + 1, i);
        entities.add("  0\nSEQEND\n  5\n%llX\n330\n%llX\n100\nAcDbEntity\n  8\n0\n",
                     static_cast<unsigned long long>(take()), insert);
    }

    std::uint64_t owner_;
    std::uint64_t next_ = kFirstHandle;
    std::uint64_t last_ = 0;
};

// Position of the line "  0" that begins the ENDSEC of a section.
std::size_t endOfSection(const std::string& bytes, const std::string& name)
{
    const std::size_t section = bytes.find("SECTION\n  2\n" + name + "\n");
    const std::size_t end =
        section == std::string::npos ? section : bytes.find("  0\nENDSEC\n", section);
    if (end == std::string::npos)
        throw std::runtime_error("a new drawing has no section " + name);
    return end;
}

} // namespace

void writeBigDrawing(const std::filesystem::path& path, std::size_t count)
{
    AcDbDatabase database;
    addDefinitions(database);
    std::string frame;
    host::drawingFormat().write(database.drawing(), frame);

    Entities entities(database.modelSpaceId().handle().value());
    const std::size_t entitiesAt = endOfSection(frame, "ENTITIES");
    const std::size_t objectsAt = endOfSection(frame, "OBJECTS");
    std::ofstream out(path, std::ios::binary);
    out.write(frame.data(), static_cast<std::streamsize>(entitiesAt));
    for (std::size_t i = 0; i < count; ++i) {
        entities.addOne(i);
        if (entities.entities.bytes.size() > 1 << 20) {
            out << entities.entities.bytes;
            entities.entities.bytes.clear();
        }
    }
    out << entities.entities.bytes;
    out.write(frame.data() + entitiesAt, static_cast<std::streamsize>(objectsAt - entitiesAt));
    out << entities.objects.bytes;
    out.write(frame.data() + objectsAt, static_cast<std::streamsize>(frame.size() - objectsAt));
    if (!out.flush())
        throw std::runtime_error("cannot write " + path.string());
}

void writeBigDescription(const std::filesystem::path& path)
{
    std::ofstream out(path, std::ios::binary);
    out << "class\tParcels\t1\n"
           "obj_name\tWall\t1\t1\n"
           "obj_type\tLine,Polyline,Text,Hatch,BlockReference\n"
           "obj_prop\tlayer\tlayer0\tlayer0,layer1,layer2,layer10,layer11\n"
           "obj_prop\tcolor\tbylayer\n"
           "od_name\tparcel\n"
           "od_key\tobject\n"
           "od_fld\tnumber\tNumber\tinteger\t1\n"
           "od_fld\tarea\tArea\treal\t1\t0:500\n"
           "/class\n";
}

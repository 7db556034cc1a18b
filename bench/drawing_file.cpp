#include "bench/drawing_file.h"

#include "host/db/block_table.h"
#include "host/db/database.h"
#include "host/db/dictionary.h"
#include "host/db/symbol_tables.h"
#include "host/db/xrecord.h"

#include <cstdarg>
#include <cstdio>
#include <stdexcept>

namespace {

constexpr std::size_t kPiece = 1 << 20; // bytes of entities kept before they are written

resbuf item(short code, const wchar_t* text)
{
    resbuf made;
    made.restype = code;
    made.resval.rstring = text;
    return made;
}

// With the host's own means.
void addDefinitions(AcDbDatabase& database)
{
    AcDbObjectPointer<AcDbLayerTable> layers(database.layerTableId(), AcDb::kForWrite);
    for (std::size_t i = 0; i < DrawingFile::kLayers; ++i) {
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

void FormattedText::add(const char* format, ...)
{
    char piece[512];
    va_list arguments;
    va_start(arguments, format);
    const int length = std::vsnprintf(piece, sizeof piece, format, arguments);
    va_end(arguments);
    bytes.append(piece, static_cast<std::size_t>(length));
}

DrawingFile::DrawingFile(const std::filesystem::path& path)
    : path_(path), out_(path, std::ios::binary)
{
    AcDbDatabase database;
    addDefinitions(database);
    host::drawingFormat().write(database.drawing(), frame_);
    owner_ = database.modelSpaceId().handle().value();
    entitiesAt_ = endOfSection(frame_, "ENTITIES");
    objectsAt_ = endOfSection(frame_, "OBJECTS");
    out_.write(frame_.data(), static_cast<std::streamsize>(entitiesAt_));
}

unsigned long long DrawingFile::begin(const char* type, std::size_t layer,
                                      const std::optional<ParcelRecord>& record)
{
    if (entities_.bytes.size() > kPiece) {
        out_ << entities_.bytes;
        entities_.bytes.clear();
    }
    const unsigned long long handle = takeHandle();
    entities_.add("  0\n%s\n  5\n%llX\n", type, handle);
    if (record)
        addRecord(handle, *record);
    entities_.add("330\n%llX\n100\nAcDbEntity\n  8\nlayer%zu\n", owner_, layer);
    return handle;
}

void DrawingFile::addRecord(unsigned long long entity, const ParcelRecord& record)
{
    const unsigned long long dictionary = takeHandle(), xrecord = takeHandle();
    entities_.add("102\n{ACAD_XDICTIONARY\n360\n%llX\n102\n}\n", dictionary);
    objects_.add("  0\nDICTIONARY\n  5\n%llX\n330\n%llX\n100\nAcDbDictionary\n280\n     1\n281\n"
                 "     1\n  3\nparcel\n360\n%llX\n",
                 dictionary, entity, xrecord);
    objects_.add("  0\nXRECORD\n  5\n%llX\n102\n{ACAD_REACTORS\n330\n%llX\n102\n}\n330\n%llX\n100\n"
                 "AcDbXrecord\n280\n     1\n  1\n%s\n 90\n%9zu\n 40\n%.1f\n",
                 xrecord, dictionary, dictionary, record.object.c_str(), record.number,
                 record.area);
}

void DrawingFile::finish()
{
    out_ << entities_.bytes;
    out_.write(frame_.data() + entitiesAt_, static_cast<std::streamsize>(objectsAt_ - entitiesAt_));
    out_ << objects_.bytes;
    out_.write(frame_.data() + objectsAt_,
               static_cast<std::streamsize>(frame_.size() - objectsAt_));
    if (!out_.flush())
        throw std::runtime_error("cannot write " + path_.string());
}

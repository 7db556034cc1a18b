// A damaged drawing is refused with a reason, or opens and then saves as it was. Everything in it
// can be looked at; what can be changed can be taken back, and what was changed and saved opens
// again.

#include "tests/fuzz/scratch_folder.h"
#include "tests/fuzz/target.h"

#include "host/commands/entity_properties.h"
#include "host/db/block_table.h"
#include "host/db/database.h"
#include "host/db/dictionary.h"
#include "host/db/entity.h"
#include "host/db/xrecord.h"
#include "host/io/drawing_reader.h"
#include "host/start/host_session.h"

#include <algorithm>
#include <memory>
#include <string_view>

namespace {

constexpr std::uint32_t kChanges = 12; // objects changed in one input
constexpr std::uint16_t kColor = 3;

// What is done with a drawing that opens; the length of the input chooses.
enum class Trial { save, look, takeBack, saveChanged };

struct Opened {
    explicit Opened(std::string bytes) : database(std::make_unique<AcDbDatabase>(false, true))
    {
        outcome = host::readDrawing(host::FileImage::fromBytes(std::move(bytes)), L"damaged.dxf",
                                    drawing());
    }

    host::Drawing& drawing() { return database->drawing(); }
    std::string saved()
    {
        std::string bytes;
        const host::FileOutcome written = host::drawingFormat().write(drawing(), bytes);
        fuzz::require(written.status == Acad::eOk, "what is open can be written", written.message);
        return bytes;
    }

    std::unique_ptr<AcDbDatabase> database;
    host::FileOutcome outcome;
};

void lookAt(AcDbObjectId id)
{
    AcDbObjectPointer<AcDbObject> object(id, AcDb::kForRead);
    if (object.openStatus() != Acad::eOk)
        return;
    AcDbDxfFiler nothing;
    object->dxfOutFields(&nothing);
    object->xData();
    object->extensionDictionary();
    object->persistentReactors();
    if (const auto* const entity = AcDbEntity::cast(object.object())) {
        host::propertiesOf(*entity);
        AcDbExtents extents;
        entity->getGeomExtents(extents);
    } else if (const auto* const record = AcDbXrecord::cast(object.object())) {
        ResbufChain chain;
        record->rbChain(chain);
    } else if (const auto* const dictionary = AcDbDictionary::cast(object.object())) {
        dictionary->numEntries();
    } else if (const auto* const symbol = AcDbSymbolTableRecord::cast(object.object())) {
        std::wstring name;
        symbol->getName(name);
    }
}

void addRecord(AcDbEntity& entity)
{
    entity.createExtensionDictionary();
    AcDbObjectPointer<AcDbDictionary> dictionary(entity.extensionDictionary(), AcDb::kForWrite);
    if (dictionary.openStatus() != Acad::eOk)
        return;
    AcDbObjectPointer<AcDbXrecord> record;
    record.create();
    AcDbObjectId id;
    resbuf number;
    number.restype = 90;
    number.resval.rlong = 7;
    if (dictionary->setAt(L"table", record.object(), id) == Acad::eOk)
        record->setFromRbChain({number});
}

// One command that changes some entities and erases others; those that must have the colour later.
std::vector<AcDbObjectId> change(AcDbDatabase& database)
{
    host::Drawing& drawing = database.drawing();
    std::vector<AcDbObjectId> colored;
    drawing.undo.beginGroup(L"change");
    const std::uint32_t count = drawing.index.count();
    const std::uint32_t step = std::max(1u, count / (4 * kChanges));
    std::uint32_t changes = 0;
    for (std::uint32_t stub = count % step + 1; stub <= count && changes < kChanges; stub += step) {
        const host::Stub& record = drawing.index[stub];
        if ((record.flags & host::kEntity) == 0)
            continue; // BLOCK and ENDBLK
        if ((record.flags & host::kChild) != 0 &&
            (drawing.index[record.owner].flags & host::kEntity) == 0)
            continue; // a part of nothing, which a raised drawing leaves out
        AcDbObjectPointer<AcDbEntity> entity(drawing.id(stub), AcDb::kForWrite);
        if (entity.openStatus() != Acad::eOk)
            continue;
        const bool isColored = entity->setColorIndex(kColor) == Acad::eOk && entity->isModified();
        switch (changes++ % 4) {
        case 0:
            entity->setLineWeight(25);
            break;
        case 1:
            addRecord(*entity);
            break;
        case 2:
            entity->erase();
            continue;
        default:
            break;
        }
        if (isColored)
            colored.push_back(drawing.id(stub));
    }
    drawing.undo.endGroup(drawing);
    return colored;
}

void saveChanged(Opened& opened)
{
    std::vector<AcDbObjectId> colored = change(*opened.database);
    std::erase_if(colored, [](AcDbObjectId id) { return id.isErased(); });
    const std::string bytes = opened.saved();
    Opened again(bytes);
    fuzz::require(again.outcome.status == Acad::eOk, "what was saved opens", again.outcome.message);
    fuzz::require(again.saved() == bytes, "what was saved saves as it is");
    for (const AcDbObjectId id : colored) {
        AcDbObjectPointer<AcDbEntity> entity(again.drawing().idOfHandle(id.handle().value()),
                                             AcDb::kForRead);
        fuzz::require(entity.openStatus() == Acad::eOk, "a changed entity is in the file");
        fuzz::require(entity->colorIndex() == kColor, "a changed colour is in the file");
    }
}

} // namespace

fuzz::Language fuzz::language()
{
#ifdef FUZZ_BINARY
    return Language::dxfBinary;
#else
    return Language::dxfText;
#endif
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const fuzz::ScratchFolder profile;
    static const host::HostSession session({.profile = profile.path()});
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    Opened opened(bytes);
    if (opened.outcome.status != Acad::eOk) {
        fuzz::require(!opened.outcome.message.empty(), "a refusal has a message");
        return 0;
    }
    host::Drawing& drawing = opened.drawing();
    const auto trial = static_cast<Trial>(size % 4);
    if (trial == Trial::look)
        for (std::uint32_t stub = 1; stub <= drawing.index.count(); ++stub)
            lookAt(drawing.id(stub));
    if (trial == Trial::takeBack) {
        change(*opened.database);
        opened.saved();
        drawing.undo.undo(drawing);
        drawing.undo.redo(drawing);
        drawing.undo.undo(drawing);
    }
    if (trial == Trial::saveChanged)
        saveChanged(opened);
    else
        fuzz::require(opened.saved() == bytes, "a drawing as it was opened saves as it was");
    return 0;
}

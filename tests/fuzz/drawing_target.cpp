// A damaged drawing is refused, or opens and then saves as it was; everything in it can be looked at, and what can be changed
// can be taken back.

#include "tests/fuzz/memory_file.h"
#include "tests/fuzz/target.h"

#include "host/db/block_table.h"
#include "host/db/database.h"
#include "host/db/dictionary.h"
#include "host/db/entity.h"
#include "host/db/xrecord.h"
#include "host/geom/stroke_sink.h"
#include "host/start/host_session.h"

#include <cstdlib>
#include <string_view>

namespace {

// Ends the program: what must hold does not.
void require(bool holds)
{
    if (!holds)
        std::abort();
}

class Nothing : public AcDbDxfFiler { };

void lookAt(AcDbObjectId id)
{
    AcDbObjectPointer<AcDbObject> object(id, AcDb::kForRead);
    if (object.openStatus() != Acad::eOk)
        return;
    Nothing nothing;
    object->dxfOutFields(&nothing);
    object->xData();
    object->extensionDictionary();
    object->persistentReactors();
    if (const auto* const entity = AcDbEntity::cast(object.object())) {
        entity->layer();
        entity->linetype();
        entity->color();
        entity->lineWeight();
        AcDbExtents extents;
        entity->getGeomExtents(extents);
    } else if (const auto* const record = AcDbXrecord::cast(object.object())) {
        ResbufChain chain;
        record->rbChain(chain);
    } else if (const auto* const dictionary = AcDbDictionary::cast(object.object())) {
        dictionary->numEntries();
    }
}

void changeAndTakeBack(AcDbDatabase& database, AcDbObjectId id)
{
    host::Drawing& drawing = database.drawing();
    drawing.undo.beginGroup(L"change");
    AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForWrite);
    if (entity.openStatus() == Acad::eOk) {
        entity->setColorIndex(3);
        entity->setLineWeight(25);
        entity->createExtensionDictionary();
        AcDbObjectPointer<AcDbDictionary> dictionary(entity->extensionDictionary(), AcDb::kForWrite);
        if (dictionary.openStatus() == Acad::eOk) {
            AcDbObjectPointer<AcDbXrecord> record;
            record.create();
            AcDbObjectId recordId;
            dictionary->setAt(L"table", record.object(), recordId);
        }
        dictionary.close();
        entity->erase();
    }
    entity.close();
    drawing.undo.endGroup(drawing);
    drawing.undo.undo(drawing);
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
    static const host::HostSession session({ .profile = std::filesystem::temp_directory_path() / "kelmaro-fuzz" });
    const fuzz::MemoryFile file(data, size);
    AcDbDatabase database(false, true);
    std::wstring message;
    if (database.readDwgFile(file.path(), &message) != Acad::eOk) {
        require(!message.empty());
        return 0;
    }
    host::Drawing& drawing = database.drawing();
    std::string saved;
    if (drawing.fileRecords % 2 == 0) {
        for (std::uint32_t stub = 1; stub <= drawing.index.count(); ++stub)
            lookAt(drawing.id(stub));
        const std::size_t shown = std::min<std::size_t>(drawing.index.count(), 40);
        for (std::uint32_t stub = 1; stub <= shown; ++stub)
            changeAndTakeBack(database, drawing.id(stub * drawing.index.count() / static_cast<std::uint32_t>(shown)));
    }
    require(host::drawingFormat().write(drawing, saved).status == Acad::eOk);
    require(saved == std::string_view(reinterpret_cast<const char*>(data), size));
    return 0;
}

#include "host/commands/drawing/wipeout_frames.h"

#include "host/db/database.h"
#include "host/db/dictionary.h"
#include "host/db/generic_object.h"
#include "host/db/object_pointer.h"

namespace host {

namespace {

constexpr const wchar_t* kKey = L"ACAD_WIPEOUT_VARS";
constexpr Subclass kPart{"AcDbWipeoutVariables"};
constexpr int kFrames = 70;

void makeVariables(AcDbDatabase& database, AcDbDictionary& root, WipeoutFrames frames)
{
    TagList tags(database.drawing().source);
    tags.insertBytes(0, 0, "WIPEOUTVARIABLES");
    tags.insertBytes(1, 100, kPart.marker);
    tags.addInteger(kFrames, static_cast<int>(frames));
    AcDbObjectPointer<AcDbObject> made;
    made.acquire(AcDbObject::withTags(*AcDbGenericObject::desc(), std::move(tags)).release());
    AcDbObjectId id;
    root.setAt(kKey, made.object(), id);
}

} // namespace

void setWipeoutFrames(AcDbDatabase& database, WipeoutFrames frames)
{
    const AcDbObjectPointer<AcDbDictionary> root(database.namedObjectsDictionaryId(),
                                                 AcDb::kForWrite);
    AcDbObjectId id;
    if (!root)
        return;
    if (root->getAt(kKey, id) != Acad::eOk) {
        makeVariables(database, *root, frames);
        return;
    }
    const AcDbObjectPointer<AcDbObject> variables(id, AcDb::kForWrite);
    if (!variables)
        return;
    const std::size_t at = findField(variables->tags(), kPart, kFrames);
    if (at != TagList::npos)
        variables->tagsForWrite().setInteger(at, static_cast<int>(frames));
}

} // namespace host

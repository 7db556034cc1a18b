#include "draw/entity_replacement.h"

#include "host/db/dictionary.h"
#include "host/db/object_pointer.h"

#include <utility>

KeptEntries::KeptEntries(const AcDbEntity& from) : entries_(copyOf(from.extensionDictionary()))
{
}

std::vector<KeptEntries::Entry> KeptEntries::copyOf(AcDbObjectId dictionaryId)
{
    std::vector<Entry> entries;
    const AcDbObjectPointer<AcDbDictionary> dictionary(dictionaryId, AcDb::kForRead);
    if (!dictionary)
        return entries;
    for (const auto walk = dictionary->newIterator(); !walk->done(); walk->next()) {
        const AcDbObjectPointer<AcDbObject> object(walk->objectId(), AcDb::kForRead);
        if (!object)
            continue;
        // what an entry only refers to belongs to somebody else and is not copied below it
        const bool isDictionary = AcDbDictionary::cast(object.object()) != nullptr;
        if (std::unique_ptr<AcDbObject> copy = object->clone())
            entries.push_back({walk->name(), std::move(copy),
                               isDictionary ? copyOf(walk->objectId()) : std::vector<Entry>()});
    }
    return entries;
}

void KeptEntries::put(std::vector<Entry>& entries, AcDbObjectId dictionaryId)
{
    for (Entry& entry : entries) {
        AcDbObjectPointer<AcDbDictionary> dictionary(dictionaryId, AcDb::kForWrite);
        if (!dictionary)
            return;
        AcDbObjectPointer<AcDbObject> copy;
        copy.acquire(entry.copy.release());
        AcDbObjectId id;
        if (dictionary->setAt(entry.name, copy.object(), id) != Acad::eOk)
            continue;
        copy.close();
        dictionary.close();
        if (!entry.below.empty())
            put(entry.below, id);
    }
}

void KeptEntries::handOver(AcDbEntity& to)
{
    if (entries_.empty())
        return;
    if (to.extensionDictionary().isNull())
        to.createExtensionDictionary();
    put(entries_, to.extensionDictionary());
    entries_.clear();
}

CommonLook::CommonLook(const AcDbEntity& from)
    : color(from.color()), layer(from.layerId()), linetype(from.linetypeId()),
      linetypeScale(from.linetypeScale()), lineWeight(from.lineWeight())
{
}

void CommonLook::giveTo(AcDbEntity& to) const
{
    to.setColor(color);
    to.setLayer(layer);
    to.setLinetype(linetype);
    to.setLinetypeScale(linetypeScale);
    to.setLineWeight(lineWeight);
}

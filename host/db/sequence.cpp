#include "host/db/sequence.h"

#include "host/db/database.h"
#include "host/db/reading.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbSequenceEnd, AcDbEntity, "SEQEND")

namespace host {

std::vector<AcDbObjectId> childrenOf(const AcDbEntity& parent)
{
    std::vector<AcDbObjectId> ids;
    if (const Drawing* const drawing = parent.drawing())
        for (const std::uint32_t child : drawing->children(parent.stubNumber()))
            ids.push_back(drawing->id(child));
    return ids;
}

std::vector<std::shared_ptr<const TagList>> childTags(const AcDbEntity& parent)
{
    std::vector<std::shared_ptr<const TagList>> all;
    if (Drawing* const drawing = parent.drawing())
        for (const std::uint32_t child : drawing->children(parent.stubNumber()))
            all.push_back(drawing->tagsOf(child));
    for (const std::unique_ptr<AcDbEntity>& child : parent.newChildren())
        all.push_back(std::make_shared<const TagList>(child->tags()));
    return all;
}

namespace {

bool hasEnd(const Drawing& drawing, std::uint32_t parent)
{
    const std::vector<std::uint32_t> all = drawing.children(parent, true);
    return !all.empty() && drawing.index.types().name(drawing.index[all.back()].type) == "SEQEND";
}

std::uint16_t flagsUnder(const Drawing& drawing, const AcDbEntity& parent)
{
    return static_cast<std::uint16_t>(kEntity | kChild |
                                      (drawing.index[parent.stubNumber()].flags & kPaperSpace));
}

Acad::ErrorStatus hang(Drawing& drawing, AcDbEntity& parent, AcDbEntity& child)
{
    const Acad::ErrorStatus status =
        child.addToDatabase(drawing, parent.objectId(), flagsUnder(drawing, parent));
    if (status == Acad::eOk)
        drawing.addedChildren[parent.stubNumber()].push_back(child.stubNumber());
    return status;
}

} // namespace

Acad::ErrorStatus appendChild(AcDbEntity& parent, AcDbEntity& child)
{
    Drawing* const drawing = parent.drawing();
    if (!drawing)
        return Acad::eNoDatabase;
    if (!parent.isWriteEnabled())
        return Acad::eNotOpenForWrite;
    const Acad::ErrorStatus status = hang(*drawing, parent, child);
    if (status != Acad::eOk || hasEnd(*drawing, parent.stubNumber()))
        return status;
    AcDbObjectPointer<AcDbSequenceEnd> end;
    end.create();
    end->setLayer(parent.layer());
    return hang(*drawing, parent, *end);
}

Acad::ErrorStatus hangNewChildren(AcDbEntity& parent)
{
    for (std::unique_ptr<AcDbEntity>& child : parent.takeNewChildren()) {
        AcDbObjectPointer<AcDbEntity> hung;
        hung.acquire(child.release());
        const Acad::ErrorStatus status = appendChild(parent, *hung);
        if (status != Acad::eOk)
            return status;
    }
    return Acad::eOk;
}

std::unique_ptr<AcDbEntity> copyWithChildren(const AcDbEntity& entity)
{
    const auto copyOf = [](const AcDbEntity& original) {
        return std::unique_ptr<AcDbEntity>(AcDbEntity::cast(original.clone().release()));
    };
    std::unique_ptr<AcDbEntity> copy = copyOf(entity);
    if (!copy)
        return nullptr;
    for (const std::unique_ptr<AcDbEntity>& child : entity.newChildren())
        copy->addNewChild(copyOf(*child));
    for (const AcDbObjectId id : childrenOf(entity)) {
        const Reading<AcDbEntity> child(id);
        if (child)
            copy->addNewChild(copyOf(*child));
    }
    return copy;
}

} // namespace host

#include "host/db/sequence.h"

#include "host/db/database.h"

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

} // namespace host

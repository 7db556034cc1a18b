#include "host/db/erasing.h"

#include "host/db/object.h"
#include "host/db/references.h"

#include <algorithm>
#include <unordered_set>

namespace host {

namespace {

bool lives(const Drawing& drawing, std::uint32_t stub)
{
    return (drawing.index[stub].flags & kErased) == 0;
}

bool marksLivingBlock(const Drawing& drawing, std::uint32_t stub)
{
    const auto marks = [&](const BlockPlace& block) {
        return (block.begin == stub || block.end == stub) && lives(drawing, block.record);
    };
    const std::string_view type = drawing.index.types().name(drawing.index[stub].type);
    if (type != "BLOCK" && type != "ENDBLK")
        return false;
    const auto owner = drawing.blocks.find(drawing.index[stub].owner);
    if (owner != drawing.blocks.end())
        return marks(owner->second);
    return std::any_of(drawing.blocks.begin(), drawing.blocks.end(), // R12 states no owners
                       [&](const auto& block) { return marks(block.second); });
}

} // namespace

std::vector<std::uint32_t> hardOwnedBy(Drawing& drawing, std::uint32_t owner)
{
    std::vector<std::uint32_t> owned;
    const std::shared_ptr<const TagList> tags = drawing.tagsOf(owner);
    for (const Reference& reference : referencesOf(*tags)) {
        if (reference.kind != ReferenceKind::hardOwner)
            continue;
        const std::uint32_t stub = drawing.index.findHandle(tags->handle(reference.at));
        if (stub && drawing.index[stub].owner == owner)
            owned.push_back(stub);
    }
    return owned;
}

Acad::ErrorStatus refusalToErase(Drawing& drawing, std::uint32_t stub)
{
    if (marksLivingBlock(drawing, stub))
        return Acad::eNotApplicable;
    std::vector<std::uint32_t> going;
    std::unordered_set<std::uint32_t> met;
    const auto take = [&](std::uint32_t owner) {
        for (const std::uint32_t owned : hardOwnedBy(drawing, owner))
            if (lives(drawing, owned) && met.insert(owned).second)
                going.push_back(owned);
    };
    take(stub);
    for (const std::uint32_t child : drawing.children(stub, true))
        if ((drawing.index[child].flags & kHasDictionary) != 0)
            take(child);
    for (std::size_t at = 0; at < going.size(); ++at) {
        const AcDbObject* const object = drawing.index[going[at]].object;
        if (object && object->isReadEnabled())
            return object->isWriteEnabled() ? Acad::eWasOpenForWrite : Acad::eWasOpenForRead;
        take(going[at]);
    }
    return Acad::eOk;
}

} // namespace host

#include "host/db/block_contents.h"

#include "host/db/attribute.h"
#include "host/db/reading.h"
#include "host/db/symbol_names.h"
#include "host/geom/stroke_sink.h"

#include <algorithm>
#include <vector>

namespace host {

namespace {

constexpr std::size_t kDeepest = 64;

// Blocks being drawn, outermost first, and the scope that enters one.
thread_local std::vector<AcDbObjectId> openBlocks;

class EnteredBlock {
public:
    explicit EnteredBlock(AcDbObjectId block)
        : entered_(openBlocks.size() < kDeepest &&
                   std::find(openBlocks.begin(), openBlocks.end(), block) == openBlocks.end())
    {
        if (entered_)
            openBlocks.push_back(block);
    }
    EnteredBlock(const EnteredBlock&) = delete;
    EnteredBlock& operator=(const EnteredBlock&) = delete;
    ~EnteredBlock()
    {
        if (entered_)
            openBlocks.pop_back();
    }
    explicit operator bool() const { return entered_; }

private:
    bool entered_;
};

bool isModel(const AcDbEntity& entity)
{
    const auto* const definition = AcDbAttributeDefinition::cast(&entity);
    return definition && !definition->isConstant();
}

} // namespace

bool strokeBlock(StrokeSink& sink, AcDbObjectId block, const AcGeMatrix3d& matrix)
{
    const AcDbDatabase* const database = block.database();
    if (!database)
        return false;
    Drawing& drawing = database->drawing();
    const auto place = drawing.blocks.find(block.stubNumber());
    if (place == drawing.blocks.end())
        return false;
    const EnteredBlock entered(block);
    if (!entered)
        return true;
    TransformingSink mapped(sink, matrix);
    for (const std::uint32_t stub : place->second.entities) {
        if (sink.done())
            break;
        if ((drawing.index[stub].flags & kErased) != 0)
            continue;
        const Reading<AcDbEntity> entity(drawing.id(stub));
        if (entity && entity->visibility() == AcDb::kVisible && !isModel(*entity))
            entity->strokes(mapped);
    }
    return true;
}

AcDbObjectId blockNamed(Drawing* drawing, std::wstring_view name)
{
    return drawing && !name.empty() ? findSymbol(*drawing, "BLOCK_RECORD", name) : AcDbObjectId();
}

} // namespace host

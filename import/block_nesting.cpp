#include "import/block_nesting.h"

#include "host/db/block_reference.h"
#include "host/db/block_table.h"
#include "host/db/object_pointer.h"
#include "text/text_comparison.h"

#include <algorithm>
#include <unordered_set>
#include <vector>

// Both walks keep their own stack: a damaged file may nest deeper than a thread's stack reaches.

namespace {

// The blocks that a block refers to, each once.
std::vector<AcDbObjectId> blocksIn(AcDbObjectId id)
{
    std::vector<AcDbObjectId> blocks;
    const AcDbObjectPointer<AcDbBlockTableRecord> block(id, AcDb::kForRead);
    std::unique_ptr<AcDbBlockTableRecordIterator> entity;
    if (!block || block->newIterator(entity) != Acad::eOk)
        return blocks;
    for (; !entity->done(); entity->step()) {
        const AcRxClass* const kind = entity->entityId().objectClass();
        if (!kind || !kind->isDerivedFrom(AcDbBlockReference::desc()))
            continue;
        const AcDbObjectPointer<AcDbBlockReference> reference(entity->entityId(), AcDb::kForRead);
        if (reference && !reference->blockTableRecord().isNull())
            blocks.push_back(reference->blockTableRecord());
    }
    std::sort(blocks.begin(), blocks.end());
    blocks.erase(std::unique(blocks.begin(), blocks.end()), blocks.end());
    return blocks;
}

} // namespace

bool BlockNesting::isEndless(AcDbObjectId block)
{
    struct Level {
        AcDbObjectId block;
        std::vector<AcDbObjectId> inner; // those still to be walked
    };
    std::vector<Level> levels;
    const auto enter = [&](AcDbObjectId id) {
        states_[id] = State::open;
        levels.push_back({id, blocksIn(id)});
    };
    if (!states_.contains(block))
        enter(block);
    while (!levels.empty()) {
        if (levels.back().inner.empty()) {
            states_[levels.back().block] = State::sound;
            levels.pop_back();
            continue;
        }
        const AcDbObjectId inner = levels.back().inner.back();
        levels.back().inner.pop_back();
        const auto known = states_.find(inner);
        if (known == states_.end()) {
            enter(inner);
        } else if (known->second != State::sound) {
            for (const Level& level : levels)
                states_[level.block] = State::endless;
            break;
        }
    }
    return states_[block] == State::endless;
}

bool BlockNesting::holds(AcDbObjectId block, std::wstring_view name)
{
    std::unordered_set<AcDbObjectId> met{block};
    std::vector<AcDbObjectId> waiting{block};
    while (!waiting.empty()) {
        const AcDbObjectId outer = waiting.back();
        waiting.pop_back();
        for (const AcDbObjectId inner : blocksIn(outer)) {
            if (!met.insert(inner).second)
                continue;
            const AcDbObjectPointer<AcDbBlockTableRecord> record(inner, AcDb::kForRead);
            if (record && textEqualNoCase(record->name(), name))
                return true;
            waiting.push_back(inner);
        }
    }
    return false;
}

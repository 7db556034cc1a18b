#include "host/db/block_explosion.h"

#include "host/db/arc.h"
#include "host/db/block_table.h"
#include "host/db/circle.h"
#include "host/db/dimension.h"
#include "host/db/hatch_stretching.h"
#include "host/db/leader.h"
#include "host/db/lwpolyline.h"
#include "host/db/reading.h"
#include "host/db/sequence.h"
#include "host/db/solid_trace.h"
#include "host/db/text.h"
#include "host/db/text_stretching.h"

#include <algorithm>
#include <iterator>

namespace host {

namespace {

// A copy must not point to what stays in the block.
void letGo(AcDbEntity& copy)
{
    if (AcDbHatch* const hatch = AcDbHatch::cast(&copy)) {
        std::vector<HatchLoop> loops = hatch->loops();
        if (std::none_of(loops.begin(), loops.end(),
                         [](const HatchLoop& loop) { return !loop.sources.empty(); }))
            return;
        for (HatchLoop& loop : loops)
            loop.sources.clear();
        hatch->setLoops(loops);
        hatch->setAssociative(false);
    } else if (AcDbLeader* const leader = AcDbLeader::cast(&copy)) {
        leader->detachAnnotation();
    } else if (AcDbDimension* const dimension = AcDbDimension::cast(&copy)) {
        dimension->forgetBlock();
    }
}

// A polyline of straight segments stays one in its mapped plane; null for one with arcs.
std::unique_ptr<AcDbEntity> stretchedPolyline(const AcDbPolyline& original, const AcGeMatrix3d& map)
{
    const std::vector<BulgeVertex>& vertices = original.vertices();
    if (std::any_of(vertices.begin(), vertices.end(),
                    [](const BulgeVertex& vertex) { return vertex.bulge != 0.0; }))
        return nullptr;
    const AcGeMatrix3d plane = map * AcGeMatrix3d::arbitraryAxes(original.normal());
    const AcGeVector3d up = plane.axis(0).crossProduct(plane.axis(1)).normal();
    if (up.isZeroLength())
        return nullptr;
    const AcGeMatrix3d back = AcGeMatrix3d::arbitraryAxes(up).inverse();
    std::unique_ptr<AcDbEntity> copy = copyWithChildren(original);
    AcDbPolyline& made = *AcDbPolyline::cast(copy.get());
    for (unsigned i = 0; i < vertices.size(); ++i) {
        const AcGePoint3d place =
            back * (plane * AcGePoint3d(vertices[i].point, original.elevation()));
        made.setPointAt(i, place.convert2d());
        made.setElevation(place.z);
    }
    made.setNormal(up);
    return copy;
}

// What it draws is what it is.
bool isDrawnSimply(const AcDbEntity& entity)
{
    const AcRxClass* const kinds[] = {AcDbCircle::desc(), AcDbArc::desc(), AcDbSolid::desc(),
                                      AcDbTrace::desc()};
    return std::any_of(std::begin(kinds), std::end(kinds),
                       [&](const AcRxClass* kind) { return entity.isKindOf(kind); });
}

class Explosion {
public:
    explicit Explosion(const AcGeMatrix3d& map) : map_(map) {}

    // Adds the mapped entity, in whatever form it can follow.
    Acad::ErrorStatus take(const AcDbEntity& original, EntityParts& parts) const
    {
        std::unique_ptr<AcDbEntity> copy = copyWithChildren(original);
        if (!copy)
            return Acad::eNotApplicable; // of a class that nobody here can make
        letGo(*copy);
        const Acad::ErrorStatus status = copy->transformBy(map_);
        if (status == Acad::eOk) {
            parts.push_back(std::move(copy));
            return status;
        }
        if (AcDbText* const text = AcDbText::cast(copy.get())) {
            stretchText(*text, map_);
            parts.push_back(std::move(copy));
            return Acad::eOk;
        }
        if (isDrawnSimply(original)) {
            PartSink sink(original, parts);
            TransformingSink mapped(sink, map_);
            original.strokes(mapped);
            return sink.outcome();
        }
        if (std::unique_ptr<AcDbEntity> form = stretched(original)) {
            parts.push_back(std::move(form));
            return Acad::eOk;
        }
        return takeParts(original, status, parts);
    }

private:
    std::unique_ptr<AcDbEntity> stretched(const AcDbEntity& original) const
    {
        if (const AcDbPolyline* const polyline = AcDbPolyline::cast(&original))
            return stretchedPolyline(*polyline, map_);
        const AcDbHatch* const hatch = AcDbHatch::cast(&original);
        return hatch ? stretchedHatch(*hatch, map_) : nullptr;
    }
    Acad::ErrorStatus takeParts(const AcDbEntity& original, Acad::ErrorStatus refusal,
                                EntityParts& parts) const
    {
        EntityParts simpler;
        if (original.explode(simpler) != Acad::eOk)
            return refusal;
        for (const std::unique_ptr<AcDbEntity>& part : simpler) {
            const Acad::ErrorStatus status = take(*part, parts);
            if (status != Acad::eOk)
                return status;
        }
        return Acad::eOk;
    }

    AcGeMatrix3d map_;
};

} // namespace

Acad::ErrorStatus explodeBlock(const AcDbEntity& whole, AcDbObjectId blockId,
                               const AcGeMatrix3d& map, ByBlock byBlock, EntityParts& parts)
{
    const Reading<AcDbBlockTableRecord> block(blockId);
    std::unique_ptr<AcDbBlockTableRecordIterator> walk;
    if (!block || block->isFromExternalReference() || block->newIterator(walk) != Acad::eOk)
        return Acad::eNotApplicable;
    const Explosion explosion(map);
    EntityParts made;
    for (; !walk->done(); walk->step()) {
        const Reading<AcDbEntity> entity(walk->entityId());
        if (!entity)
            continue;
        const Acad::ErrorStatus status = explosion.take(*entity, made);
        if (status != Acad::eOk)
            return status;
    }
    if (byBlock == ByBlock::resolved)
        for (const std::unique_ptr<AcDbEntity>& part : made)
            resolveByBlock(whole, *part);
    parts.insert(parts.end(), std::make_move_iterator(made.begin()),
                 std::make_move_iterator(made.end()));
    return made.empty() ? Acad::eNotApplicable : Acad::eOk;
}

} // namespace host

#include "host/edit/entity_search.h"

#include "host/db/block_reference.h"
#include "host/db/block_table.h"
#include "host/db/database.h"
#include "host/db/layer_visibility.h"
#include "host/db/symbol_tables.h"
#include "host/edit/system_variables.h"
#include "host/files/paths.h"
#include "host/text/case_mapping.h"
#include "host/text/encoding.h"
#include "host/text/number_format.h"

#include <algorithm>

namespace host {

namespace {

constexpr double kWindowPixels = 1000.0;
constexpr double kUsualViewHeight = 297.0; // of a drawing that tells no view

// The pick box, and smaller ones for which of several entities is nearer.
constexpr double kPickBoxParts[] = {1.0 / 64, 1.0 / 8, 1.0};

// Calls `visit` for each living entity of a block, in drawing order, with stub and number.
template <class Visit> void visitEntities(Drawing& drawing, std::uint32_t block, Visit visit)
{
    const auto place = drawing.blocks.find(block);
    if (place == drawing.blocks.end())
        return;
    for (const std::uint32_t number : place->second.entities)
        if (const Stub& stub = drawing.index[number]; !(stub.flags & kErased))
            visit(number, stub);
}

// Those that geometry can find, open for read.
template <class Visit> void visitVisible(AcDbDatabase& database, Visit visit)
{
    Drawing& drawing = database.drawing();
    visitEntities(drawing, drawing.modelSpace, [&](std::uint32_t number, const Stub& stub) {
        if (!layerState(drawing, stub.layer).visible())
            return;
        AcDbObjectPointer<AcDbEntity> entity(drawing.id(number), AcDb::kForRead);
        if (entity && entity->visibility() == AcDb::kVisible)
            visit(*entity);
    });
}

bool touches(const AcDbEntity& entity, const SelectionShape& shape)
{
    CrossingTest test(shape);
    return entity.strokes(test) && test.crosses();
}

bool liesInside(const AcDbEntity& entity, const SelectionShape& shape)
{
    WindowTest test(shape);
    return entity.strokes(test) && test.isInside();
}

double viewHeight(AcDbDatabase& database)
{
    AcDbObjectPointer<AcDbViewportTable> table(database.viewportTableId(), AcDb::kForRead);
    AcDbObjectId id;
    if (!table || table->getAt(L"*Active", id) != Acad::eOk)
        return 0.0;
    AcDbObjectPointer<AcDbViewportTableRecord> view(id, AcDb::kForRead);
    return view ? realField(view->tags(), Subclass{"AcDbViewportTableRecord"}, 40, 0.0) : 0.0;
}

bool matchesAny(std::wstring_view name, std::wstring_view patterns)
{
    for (std::size_t begin = 0, end = 0; end != patterns.npos; begin = end + 1) {
        end = patterns.find(L',', begin);
        if (wildcardMatches(name, patterns.substr(begin, end - begin)))
            return true;
    }
    return false;
}

bool passesItem(const AcDbEntity& entity, const resbuf& item)
{
    const std::wstring& wanted = item.resval.rstring;
    switch (item.restype) {
    case 0: {
        const Drawing& drawing = *entity.drawing();
        const Stub& stub = drawing.index[entity.stubNumber()];
        return matchesAny(fromUtf8(drawing.index.types().name(stub.type)), wanted);
    }
    case 2: {
        const AcDbBlockReference* const reference = AcDbBlockReference::cast(&entity);
        return reference && matchesAny(reference->blockName(), wanted);
    }
    case 8:
        return matchesAny(entity.layer(), wanted);
    case 62:
        return entity.colorIndex() == item.resval.rint;
    default:
        return false;
    }
}

} // namespace

std::vector<AcDbObjectId> entitiesIn(AcDbDatabase& database, const SelectionShape& shape,
                                     Reach reach)
{
    std::vector<AcDbObjectId> found;
    visitVisible(database, [&](const AcDbEntity& entity) {
        if (reach == Reach::inside ? liesInside(entity, shape) : touches(entity, shape))
            found.push_back(entity.objectId());
    });
    return found;
}

double pickBoxHalfSize(AcDbDatabase& database)
{
    const double height = viewHeight(database);
    const int pixels = std::max(integerVariable(L"PICKBOX", 3), 1);
    return pixels * (height > 0.0 ? height : kUsualViewHeight) / kWindowPixels;
}

AcDbObjectId entityAt(AcDbDatabase& database, const AcGePoint3d& point)
{
    std::vector<SelectionShape> boxes;
    for (const double part : kPickBoxParts)
        boxes.push_back(
            SelectionShape::pickBox(point.convert2d(), part * pickBoxHalfSize(database)));
    AcDbObjectId best;
    std::size_t nearest = boxes.size() - 1;
    visitVisible(database, [&](const AcDbEntity& entity) {
        if (!touches(entity, boxes[nearest]))
            return;
        best = entity.objectId();
        while (nearest > 0 && touches(entity, boxes[nearest - 1]))
            --nearest;
    });
    return best;
}

std::vector<AcDbObjectId> visibleEntities(AcDbDatabase& database)
{
    std::vector<AcDbObjectId> found;
    visitVisible(database, [&](const AcDbEntity& entity) { found.push_back(entity.objectId()); });
    return found;
}

std::vector<AcDbObjectId> allEntities(AcDbDatabase& database)
{
    Drawing& drawing = database.drawing();
    std::vector<AcDbObjectId> found;
    visitEntities(drawing, drawing.modelSpace, [&](std::uint32_t number, const Stub& stub) {
        if (!layerState(drawing, stub.layer).frozen)
            found.push_back(drawing.id(number));
    });
    return found;
}

std::vector<AcDbObjectId> filteredEntities(AcDbDatabase& database, const ResbufChain& filter)
{
    Drawing& drawing = database.drawing();
    std::vector<std::uint32_t> spaces = {drawing.modelSpace};
    for (const auto& [record, place] : drawing.blocks) {
        AcDbObjectPointer<AcDbBlockTableRecord> block(drawing.id(record), AcDb::kForRead);
        if (record != drawing.modelSpace && block && block->isLayout())
            spaces.push_back(record);
    }
    std::vector<AcDbObjectId> found;
    for (const std::uint32_t space : spaces)
        visitEntities(drawing, space, [&](std::uint32_t number, const Stub&) {
            if (passesFilter(drawing.id(number), filter))
                found.push_back(drawing.id(number));
        });
    return found;
}

AcDbObjectId lastEntity(AcDbDatabase& database)
{
    Drawing& drawing = database.drawing();
    const auto place = drawing.blocks.find(drawing.modelSpace);
    if (place == drawing.blocks.end())
        return {};
    const auto& entities = place->second.entities;
    const auto last = std::find_if(entities.rbegin(), entities.rend(), [&](std::uint32_t number) {
        return !(drawing.index[number].flags & kErased);
    });
    return last == entities.rend() ? AcDbObjectId() : drawing.id(*last);
}

bool passesFilter(AcDbObjectId id, const ResbufChain& filter)
{
    if (filter.empty())
        return true;
    AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
    return entity && std::ranges::all_of(
                         filter, [&](const resbuf& item) { return passesItem(*entity, item); });
}

std::optional<AcDbObjectId> entityByHandent(AcDbDatabase& database, std::wstring_view text)
{
    constexpr std::wstring_view kFunction = L"handent";
    const auto skipBlanks = [&] {
        text.remove_prefix(std::min(text.find_first_not_of(L" \t"), text.size()));
    };
    const auto take = [&](std::wstring_view expected) {
        skipBlanks();
        if (!equalNoCase(text.substr(0, expected.size()), expected))
            return false;
        text.remove_prefix(expected.size());
        return true;
    };
    if (!take(L"(") || !take(kFunction) || !take(L"\""))
        return std::nullopt;
    const std::size_t quote = text.find(L'"');
    if (quote == std::wstring_view::npos)
        return std::nullopt;
    const std::wstring_view handle = text.substr(0, quote);
    text.remove_prefix(quote + 1);
    if (!take(L")") || !text.empty())
        return std::nullopt;
    const std::optional<std::uint64_t> value = parseHandle(toUtf8(handle));
    AcDbObjectId id;
    if (!value || database.getAcDbObjectId(id, AcDbHandle(*value)) != Acad::eOk || id.isErased())
        return AcDbObjectId();
    // a BLOCK and an ENDBLK hold a definition together; no command may have them
    const bool drawn = (database.drawing().index[id.stubNumber()].flags & kEntity) != 0;
    AcRxClass* const kind = id.objectClass();
    return drawn && kind && kind->isDerivedFrom(AcDbEntity::desc()) ? id : AcDbObjectId();
}

} // namespace host

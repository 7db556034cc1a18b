#include "host/db/dimension_arrows.h"

#include "host/db/block_table.h"
#include "host/db/circle.h"
#include "host/db/database.h"
#include "host/db/line.h"
#include "host/db/lwpolyline.h"
#include "host/db/solid_trace.h"
#include "host/db/symbol_names.h"
#include "host/text/case_mapping.h"

#include <algorithm>
#include <iterator>
#include <memory>
#include <span>

// An arrowhead is one unit long: its tip is the origin and it comes from the negative x axis.

namespace host {

namespace {

enum class StrokeKind {
    line,  // from, to
    band,  // a line of this width
    ring,  // radius
    disc,  // radius, filled
    wedge, // a filled triangle of the origin's mirror images: x of the base, half its width, x of
           // the top
    box,   // half a side, filled
};

struct Stroke {
    StrokeKind kind;
    double a = 0.0;
    double b = 0.0;
    double c = 0.0;
    double d = 0.0;
    double width = 0.0;
};

constexpr Stroke kTail{StrokeKind::line, 0.0, 0.0, -1.0, 0.0};
constexpr Stroke kHalfTail{StrokeKind::line, -0.5, 0.0, -1.0, 0.0};
constexpr double kSlim = 1.0 / 6.0;
constexpr double kThirty = 0.2679491924311227; // tangent of 15 degrees
constexpr double kDatum = 0.5773502691896258;

constexpr Stroke kDot[] = {{StrokeKind::disc, 0.5}, kHalfTail};
constexpr Stroke kDotSmall[] = {{StrokeKind::disc, 0.25}};
constexpr Stroke kDotBlank[] = {{StrokeKind::ring, 0.5}, kHalfTail};
constexpr Stroke kSmall[] = {{StrokeKind::ring, 0.25}};
constexpr Stroke kOrigin[] = {{StrokeKind::ring, 0.5}, kTail};
constexpr Stroke kOrigin2[] = {{StrokeKind::ring, 0.5}, {StrokeKind::ring, 0.25}, kHalfTail};
constexpr Stroke kOpen[] = {
    {StrokeKind::line, 0, 0, -1, kSlim}, {StrokeKind::line, 0, 0, -1, -kSlim}, kTail};
constexpr Stroke kOpen30[] = {
    {StrokeKind::line, 0, 0, -1, kThirty}, {StrokeKind::line, 0, 0, -1, -kThirty}, kTail};
constexpr Stroke kOpen90[] = {
    {StrokeKind::line, 0, 0, -0.5, 0.5}, {StrokeKind::line, 0, 0, -0.5, -0.5}, kTail};
constexpr Stroke kClosed[] = {{StrokeKind::line, 0, 0, -1, kSlim},
                              {StrokeKind::line, 0, 0, -1, -kSlim},
                              {StrokeKind::line, -1, kSlim, -1, -kSlim},
                              kTail};
constexpr Stroke kClosedBlank[] = {{StrokeKind::line, 0, 0, -1, kSlim},
                                   {StrokeKind::line, 0, 0, -1, -kSlim},
                                   {StrokeKind::line, -1, kSlim, -1, -kSlim}};
constexpr Stroke kOblique[] = {{StrokeKind::line, -0.5, -0.5, 0.5, 0.5}};
constexpr Stroke kArchTick[] = {{StrokeKind::band, -0.5, -0.5, 0.5, 0.5, 0.15}};
constexpr Stroke kBoxFilled[] = {{StrokeKind::box, 0.5}, kHalfTail};
constexpr Stroke kBoxBlank[] = {{StrokeKind::line, -0.5, -0.5, 0.5, -0.5},
                                {StrokeKind::line, 0.5, -0.5, 0.5, 0.5},
                                {StrokeKind::line, 0.5, 0.5, -0.5, 0.5},
                                {StrokeKind::line, -0.5, 0.5, -0.5, -0.5},
                                kHalfTail};
constexpr Stroke kDatumFilled[] = {{StrokeKind::wedge, 0.0, kDatum, -1.0}};
constexpr Stroke kDatumBlank[] = {{StrokeKind::line, 0, kDatum, -1, 0},
                                  {StrokeKind::line, -1, 0, 0, -kDatum},
                                  {StrokeKind::line, 0, -kDatum, 0, kDatum}};

struct Arrow {
    std::wstring_view name; // behind "_"
    bool lineReachesTip;
    std::span<const Stroke> strokes;
};

constexpr Arrow kArrows[] = {
    {L"None", true, {}},
    {L"Dot", false, kDot},
    {L"DotSmall", true, kDotSmall},
    {L"DotBlank", false, kDotBlank},
    {L"Small", true, kSmall},
    {L"Origin", false, kOrigin},
    {L"Origin2", false, kOrigin2},
    {L"Open", false, kOpen},
    {L"Open30", false, kOpen30},
    {L"Open90", false, kOpen90},
    {L"Closed", false, kClosed},
    {L"ClosedBlank", false, kClosedBlank},
    {L"Oblique", true, kOblique},
    {L"ArchTick", true, kArchTick},
    {L"BoxFilled", false, kBoxFilled},
    {L"BoxBlank", false, kBoxBlank},
    {L"DatumFilled", false, kDatumFilled},
    {L"DatumBlank", false, kDatumBlank},
};

const Arrow* arrowOf(std::wstring_view name)
{
    if (name.starts_with(L'_'))
        name.remove_prefix(1);
    const auto found =
        std::find_if(std::begin(kArrows), std::end(kArrows),
                     [&](const Arrow& arrow) { return equalNoCase(arrow.name, name); });
    return found == std::end(kArrows) ? nullptr : found;
}

std::unique_ptr<AcDbEntity> filled(const AcGePoint3d& a, const AcGePoint3d& b, const AcGePoint3d& c,
                                   const AcGePoint3d& d)
{
    auto solid = std::make_unique<AcDbSolid>();
    const AcGePoint3d corners[] = {a, b, c, d};
    for (int i = 0; i < 4; ++i)
        solid->setPointAt(i, corners[i]);
    return solid;
}

std::unique_ptr<AcDbEntity> entityOf(const Stroke& stroke)
{
    const double a = stroke.a;
    switch (stroke.kind) {
    case StrokeKind::line:
        return std::make_unique<AcDbLine>(AcGePoint3d(a, stroke.b, 0.0),
                                          AcGePoint3d(stroke.c, stroke.d, 0.0));
    case StrokeKind::ring:
        return std::make_unique<AcDbCircle>(AcGePoint3d(), AcGeVector3d::kZAxis, a);
    case StrokeKind::wedge:
        return filled({a, stroke.b, 0}, {a, -stroke.b, 0}, {stroke.c, 0, 0}, {stroke.c, 0, 0});
    case StrokeKind::box:
        return filled({-a, -a, 0}, {a, -a, 0}, {-a, a, 0}, {a, a, 0});
    case StrokeKind::band:
    case StrokeKind::disc:
        break;
    }
    auto path = std::make_unique<AcDbPolyline>();
    if (stroke.kind == StrokeKind::band) {
        path->addVertexAt(0, {a, stroke.b});
        path->addVertexAt(1, {stroke.c, stroke.d});
        path->setConstantWidth(stroke.width);
    } else { // two half circles as wide as to fill the disc
        path->addVertexAt(0, {-a / 2, 0.0}, 1.0);
        path->addVertexAt(1, {a / 2, 0.0}, 1.0);
        path->setConstantWidth(a);
        path->setClosed(true);
    }
    return path;
}

} // namespace

AcDbObjectId arrowBlock(AcDbDatabase& database, std::wstring_view name)
{
    if (name.empty())
        return {};
    if (const AcDbObjectId own = findSymbol(database.drawing(), "BLOCK_RECORD", name);
        !own.isNull())
        return own;
    const Arrow* const arrow = arrowOf(name);
    if (!arrow)
        return {};
    const std::wstring full = L"_" + std::wstring(arrow->name);
    AcDbObjectId id = findSymbol(database.drawing(), "BLOCK_RECORD", full);
    if (!id.isNull())
        return id;
    const AcDbObjectPointer<AcDbBlockTable> table(database.blockTableId(), AcDb::kForWrite);
    AcDbObjectPointer<AcDbBlockTableRecord> block;
    block.create();
    block->setName(full);
    if (!table || table->add(id, block.object()) != Acad::eOk)
        return {};
    for (const Stroke& stroke : arrow->strokes) {
        AcDbObjectPointer<AcDbEntity> entity;
        entity.acquire(entityOf(stroke).release());
        if (block->appendAcDbEntity(entity.object()) == Acad::eOk)
            entity->setColorIndex(0);
    }
    return id;
}

bool lineReachesTip(std::wstring_view name)
{
    const Arrow* const arrow = arrowOf(name);
    return arrow && arrow->lineReachesTip;
}

} // namespace host

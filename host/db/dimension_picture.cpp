#include "host/db/dimension_picture.h"

#include "host/db/arc.h"
#include "host/db/block_reference.h"
#include "host/db/block_table.h"
#include "host/db/database.h"
#include "host/db/dimension_arrows.h"
#include "host/db/line.h"
#include "host/db/mtext.h"
#include "host/db/mtext_contents.h"
#include "host/db/point_entity.h"
#include "host/db/reading.h"
#include "host/db/solid_trace.h"
#include "host/db/symbol_names.h"
#include "host/db/symbol_tables.h"
#include "host/db/text.h"
#include "host/geom/text_strokes.h"

#include <algorithm>
#include <cmath>

namespace host {

namespace {

constexpr double kNoLength = 1e-9;
constexpr int kMiddleCenter = 10; // of a single line's justifications
constexpr std::wstring_view kPointLayer = L"Defpoints";

// The layer of the definition points; it is never plotted.
bool ensurePointLayer(AcDbDatabase& database, bool plain)
{
    const AcDbObjectPointer<AcDbLayerTable> table(database.layerTableId(), AcDb::kForWrite);
    if (!table || table->has(kPointLayer))
        return static_cast<bool>(table);
    AcDbObjectPointer<AcDbLayerTableRecord> layer;
    layer.create();
    layer->setName(kPointLayer);
    AcDbObjectId id;
    return table->add(id, layer.object()) == Acad::eOk &&
           (plain || layer->setIsPlottable(false) == Acad::eOk);
}

} // namespace

DimensionPicture::DimensionPicture(AcDbDatabase& database, const DimensionStyle& style,
                                   double elevation, bool plain)
    : database_(database), style_(style), elevation_(elevation), plain_(plain),
      textStyle_(findSymbol(database.drawing(), "STYLE", style.txsty)),
      textHeight_(style.scaled(style.txt))
{
    const Reading<AcDbTextStyleTableRecord> record(textStyle_);
    if (!record)
        return;
    if (record->textSize() > 0.0) // a fixed height goes before the dimension style's
        textHeight_ = record->textSize();
    widthFactor_ = record->xScale();
}

DimensionPicture::~DimensionPicture() = default;

const std::wstring& DimensionPicture::arrowName(DimensionEnd end) const
{
    if (style_.sah == 0)
        return style_.blk;
    return end == DimensionEnd::first ? style_.blk1 : style_.blk2;
}

double DimensionPicture::arrowSize() const
{
    return style_.scaled(style_.tsz > 0.0 ? style_.tsz : style_.asz);
}

double DimensionPicture::lineStart(DimensionEnd end) const
{
    return style_.tsz > 0.0 || lineReachesTip(arrowName(end)) ? 0.0 : arrowSize();
}

double DimensionPicture::textHeight() const
{
    return textHeight_;
}

double DimensionPicture::textWidthOf(const std::wstring& contents) const
{
    const std::wstring plain = plainText(contents);
    double widest = 0.0;
    for (std::size_t from = 0; from <= plain.size();) {
        const std::size_t end = std::min(plain.find(L'\n', from), plain.size());
        const std::wstring_view line = std::wstring_view(plain).substr(from, end - from);
        widest = std::max(widest, textWidth(line, textHeight_, widthFactor_));
        from = end + 1;
    }
    return widest;
}

void DimensionPicture::add(std::unique_ptr<AcDbEntity> entity, double color, double weight)
{
    entity->setColorIndex(static_cast<std::uint16_t>(color));
    if (!plain_)
        entity->setLineWeight(static_cast<int>(weight));
    parts_.push_back(std::move(entity));
}

void DimensionPicture::dimensionLine(AcGePoint2d from, AcGePoint2d to)
{
    if (from.distanceTo(to) > kNoLength)
        add(std::make_unique<AcDbLine>(raised(from), raised(to)), style_.clrd, style_.lwd);
}

void DimensionPicture::extensionLine(AcGePoint2d from, AcGePoint2d to)
{
    if (from.distanceTo(to) > kNoLength)
        add(std::make_unique<AcDbLine>(raised(from), raised(to)), style_.clre, style_.lwe);
}

void DimensionPicture::dimensionArc(AcGePoint2d centre, double radius, double from, double to)
{
    if (radius * (to - from) > kNoLength)
        add(std::make_unique<AcDbArc>(raised(centre), radius, from, to), style_.clrd, style_.lwd);
}

void DimensionPicture::arrow(AcGePoint2d tip, AcGeVector2d pointing, DimensionEnd end)
{
    const double size = arrowSize();
    const AcGeVector2d across = pointing.perpVector();
    if (style_.tsz > 0.0) {
        const AcGeVector2d stroke = (pointing + across) * size;
        dimensionLine(tip - stroke, tip + stroke);
        return;
    }
    const AcDbObjectId block = arrowBlock(database_, arrowName(end));
    if (!block.isNull()) {
        auto reference = std::make_unique<AcDbBlockReference>(raised(tip), block);
        reference->setScaleFactors(AcGeScale3d(size));
        reference->setRotation(pointing.angle());
        add(std::move(reference), style_.clrd, style_.lwd);
        return;
    }
    auto head = std::make_unique<AcDbSolid>();
    const AcGePoint2d back = tip - pointing * size;
    const AcGePoint2d corners[] = {back + across * (size / 6.0), back - across * (size / 6.0), tip,
                                   tip};
    for (int i = 0; i < 4; ++i)
        head->setPointAt(i, raised(corners[i]));
    add(std::move(head), style_.clrd, style_.lwd);
}

void DimensionPicture::text(AcGePoint2d middle, double angle, const std::wstring& contents)
{
    if (contents.empty())
        return;
    if (plain_) {
        auto line = std::make_unique<AcDbText>();
        line->setTextStyle(textStyle_);
        line->setHeight(textHeight_);
        line->setTextString(plainText(contents));
        line->setRotation(angle);
        line->setPosition(raised(middle));
        line->setJustification(kMiddleCenter);
        line->setAlignmentPoint(raised(middle));
        add(std::move(line), style_.clrt, 0.0);
        return;
    }
    auto lines = std::make_unique<AcDbMText>();
    lines->setLocation(raised(middle));
    lines->setTextStyle(textStyle_);
    lines->setTextHeight(textHeight_);
    lines->setWidth(0.0);
    lines->setAttachment(AcDbMText::kMiddleCenter);
    lines->setContents(L"\\A1;" + contents);
    lines->setRotation(angle);
    add(std::move(lines), style_.clrt, style_.lwd);
}

void DimensionPicture::definitionPoint(AcGePoint2d place)
{
    points_.push_back(std::make_unique<AcDbPoint>(raised(place)));
}

void DimensionPicture::moveTo(AcDbBlockTableRecord& block)
{
    const auto append = [&](std::unique_ptr<AcDbEntity> entity, std::wstring_view layer) {
        AcDbObjectPointer<AcDbEntity> part;
        part.acquire(entity.release());
        if (block.appendAcDbEntity(part.object()) == Acad::eOk)
            part->setLayer(layer);
    };
    for (std::unique_ptr<AcDbEntity>& part : parts_)
        append(std::move(part), L"0");
    if (!points_.empty() && ensurePointLayer(database_, plain_))
        for (std::unique_ptr<AcDbEntity>& point : points_)
            append(std::move(point), kPointLayer);
    parts_.clear();
    points_.clear();
}

} // namespace host

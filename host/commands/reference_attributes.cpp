#include "host/commands/reference_attributes.h"

#include "host/db/attribute.h"
#include "host/db/block_reference.h"
#include "host/db/block_table.h"
#include "host/db/object_pointer.h"
#include "host/geom/matrix.h"

#include <cmath>

namespace host {

namespace {

constexpr int kPrompt = 3;

// The definition's tags under the attribute's marker.
TagList attributeTags(const AcDbAttributeDefinition& definition)
{
    TagList tags = definition.clone()->tags();
    tags.setText(0, L"ATTRIB");
    const std::size_t marker = tags.find(100, kAttributeDefinitionPart.marker);
    if (marker == TagList::npos)
        return tags;
    tags.setText(marker, L"AcDbAttribute");
    const TagRange own = subclassRange(tags, kAttributePart.marker).value_or(TagRange());
    const std::size_t prompt = tags.find(kPrompt, own.first, own.last);
    if (prompt != TagList::npos)
        tags.erase(prompt, prompt + 1);
    return tags;
}

void place(AcDbText& text, const AcDbAttributeDefinition& definition, const AcGeMatrix3d& transform)
{
    const AcGeMatrix3d plane = AcGeMatrix3d::arbitraryAxes(definition.normal());
    const double angle = definition.rotation();
    const AcGeVector3d along =
        transform * (plane * AcGeVector3d(std::cos(angle), std::sin(angle), 0.0));
    const AcGeVector3d upward =
        transform * (plane * AcGeVector3d(-std::sin(angle), std::cos(angle), 0.0));
    const AcGeVector3d across = upward - along.normal() * upward.dotProduct(along.normal());
    if (along.isZeroLength() || across.isZeroLength())
        return; // seen from its edge

    const AcGeVector3d normal = along.crossProduct(across).normal();
    const AcGeVector3d inPlane = AcGeMatrix3d::arbitraryAxes(normal).inverse() * along;
    text.setNormal(normal);
    text.setHeight(definition.height() * across.length());
    text.setWidthFactor(definition.widthFactor() * along.length() / across.length());
    text.setRotation(std::atan2(inPlane.y, inPlane.x));
    text.setPosition(transform * definition.position());
    if (definition.justification() != 0)
        text.setAlignmentPoint(transform * definition.alignmentPoint());
}

} // namespace

std::vector<AcDbObjectId> variableDefinitions(AcDbObjectId blockId)
{
    std::vector<AcDbObjectId> ids;
    const AcDbObjectPointer<AcDbBlockTableRecord> block(blockId, AcDb::kForRead);
    std::unique_ptr<AcDbBlockTableRecordIterator> walk;
    if (!block || block->newIterator(walk) != Acad::eOk)
        return ids;
    for (; !walk->done(); walk->step()) {
        const AcDbObjectPointer<AcDbAttributeDefinition> definition(walk->entityId(),
                                                                    AcDb::kForRead);
        if (definition && !definition->isConstant())
            ids.push_back(walk->entityId());
    }
    return ids;
}

std::unique_ptr<AcDbAttribute> attributeOf(const AcDbAttributeDefinition& definition,
                                           const AcDbBlockReference& reference,
                                           std::wstring_view value)
{
    auto attribute = std::make_unique<AcDbAttribute>();
    attribute->tagsForWrite() = attributeTags(definition);
    attribute->setTextString(value);
    place(*attribute, definition, reference.blockTransform());
    return attribute;
}

} // namespace host

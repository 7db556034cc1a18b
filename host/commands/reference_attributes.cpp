#include "host/commands/reference_attributes.h"

#include "host/db/attribute.h"
#include "host/db/block_reference.h"
#include "host/db/block_table.h"
#include "host/db/object_pointer.h"
#include "host/db/text_stretching.h"

namespace host {

namespace {

constexpr int kPrompt = 3;
constexpr int kChunk = 3; // of an embedded text's contents
constexpr int kLastChunk = 1;

// The definition's tags under the attribute's marker.
TagList attributeTags(const AcDbAttributeDefinition& definition)
{
    TagList tags = definition.clone()->tags();
    tags.setText(0, L"ATTRIB");
    const std::size_t marker = tags.find(100, kAttributeDefinitionPart.marker);
    if (marker != TagList::npos) // R12 has none
        tags.setText(marker, L"AcDbAttribute");
    const TagRange own = subclassRange(tags, kAttributePart.marker).value_or(TagRange());
    const std::size_t prompt = tags.find(kPrompt, own.first, own.last);
    if (prompt != TagList::npos)
        tags.erase(prompt, prompt + 1);
    return tags;
}

} // namespace

std::vector<std::wstring> linesOf(const TagList& tags)
{
    std::vector<std::wstring> lines;
    for (std::size_t i = tags.find(101); i < dataEnd(tags); ++i)
        if (tags[i].code == kChunk || tags[i].code == kLastChunk)
            lines.push_back(tags.text(i));
    return lines;
}

void setLines(TagList& tags, const std::vector<std::wstring>& lines)
{
    const std::size_t embedded = tags.find(101);
    if (embedded == TagList::npos || lines.empty())
        return;
    std::size_t at = dataEnd(tags);
    for (std::size_t i = at; i-- > embedded;)
        if (tags[i].code == kChunk || tags[i].code == kLastChunk) {
            tags.erase(i, i + 1);
            at = i;
        }
    for (const std::wstring& line : lines)
        tags.insertText(at++, &line == &lines.back() ? kLastChunk : kChunk, line);
}

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
    if (value != definition.textString())
        setLines(attribute->tagsForWrite(), {std::wstring(value)});
    const AcGeMatrix3d map = reference.blockTransform();
    const bool severalLines = attribute->tags().find(101) != TagList::npos;
    if (!severalLines || attribute->transformBy(map) != Acad::eOk)
        stretchText(*attribute, map);
    return attribute;
}

} // namespace host

#include "host/io/record_bytes.h"

#include "host/db/tag_view.h"

#include <algorithm>

namespace host {

namespace {

// A bracketed group that a file of R12 cannot have, or one that leads to what is not written.
bool leadsToAdded(const Drawing& drawing, const TagList& tags, TagRange group)
{
    for (std::size_t i = group.first; i < group.last; ++i)
        if (tagKind(tags[i].code) == TagKind::handle &&
            drawing.index.findHandle(tags.handle(i)) > drawing.fileRecords)
            return true;
    return false;
}

void dropLaterGroups(const Drawing& drawing, TagList& tags, bool added)
{
    const RecordHead head = recordHead(tags);
    // from the last to the first, so that positions stay true
    if (added)
        for (std::size_t i = dataEnd(tags); i-- > 0;)
            if (tags[i].code == 100)
                tags.erase(i, i + 1);
    std::vector<TagRange> ranges;
    if (added && head.owner != TagList::npos)
        ranges.push_back({head.owner, head.owner + 1});
    for (const TagRange group : {head.dictionary, head.reactors})
        if (!group.empty() && (added || leadsToAdded(drawing, tags, group)))
            ranges.push_back(group);
    std::sort(ranges.begin(), ranges.end(),
              [](const TagRange& a, const TagRange& b) { return a.first > b.first; });
    for (const TagRange range : ranges)
        tags.erase(range.first, range.last);
}

} // namespace

std::string RecordBytes::record(std::uint32_t stub) const
{
    const std::shared_ptr<const TagList> tags = drawing_.tagsOf(stub);
    if (drawing_.version > DxfVersion::r12)
        return this->tags(*tags);
    TagList older = *tags;
    dropLaterGroups(drawing_, older, stub > drawing_.fileRecords);
    return this->tags(older);
}

std::string RecordBytes::tags(const TagList& tags) const
{
    std::string bytes;
    for (const Tag& tag : tags)
        form_.write(tag, bytes);
    return bytes;
}

std::string RecordBytes::text(int code, std::string_view value) const
{
    Tag tag;
    tag.code = static_cast<std::int16_t>(code);
    tag.value = value.data();
    tag.length = static_cast<std::uint32_t>(value.size());
    std::string bytes;
    form_.write(tag, bytes);
    return bytes;
}

std::string RecordBytes::sectionBegin(std::string_view name) const
{
    return text(0, "SECTION") + text(2, name);
}

std::string RecordBytes::classRecord(const ClassRecord& record) const
{
    TagList tags(drawing_.source);
    const auto addText = [&](int code, std::string_view value) {
        tags.addText(code, std::wstring(value.begin(), value.end()));
    };
    addText(0, "CLASS");
    addText(1, record.type);
    addText(2, record.className);
    addText(3, record.application);
    tags.addInteger(90, record.capabilities);
    if (drawing_.version >= DxfVersion::r2004)
        tags.addInteger(91, 1);
    tags.addInteger(280, 0);
    tags.addInteger(281, record.entity ? 1 : 0);
    return this->tags(tags);
}

namespace {

TagList blockMark(std::shared_ptr<TagSource> source, std::wstring_view type, std::uint64_t handle,
                  std::uint64_t record, bool paper)
{
    TagList tags(std::move(source));
    tags.addText(0, type);
    tags.addHandle(5, handle);
    tags.addHandle(330, record);
    tags.addText(100, L"AcDbEntity");
    if (paper)
        tags.addInteger(67, 1);
    tags.addText(8, L"0");
    return tags;
}

} // namespace

TagList makeBlockBegin(std::shared_ptr<TagSource> source, std::uint64_t handle,
                       std::uint64_t record, std::wstring_view name, bool paper)
{
    TagList tags = blockMark(std::move(source), L"BLOCK", handle, record, paper);
    tags.addText(100, L"AcDbBlockBegin");
    tags.addText(2, name);
    tags.addInteger(70, 0);
    for (const int code : {10, 20, 30})
        tags.addReal(code, 0.0);
    tags.addText(3, name);
    tags.addText(1, L"");
    return tags;
}

TagList makeBlockEnd(std::shared_ptr<TagSource> source, std::uint64_t handle, std::uint64_t record,
                     bool paper)
{
    TagList tags = blockMark(std::move(source), L"ENDBLK", handle, record, paper);
    tags.addText(100, L"AcDbBlockEnd");
    return tags;
}

void setHandleSeed(TagList& header, std::uint64_t seed)
{
    const std::size_t name = header.find(9, "$HANDSEED");
    if (name != TagList::npos && name + 1 < header.size() && header[name + 1].code == 5) {
        header.setHandle(name + 1, seed);
        return;
    }
    header.addText(9, L"$HANDSEED");
    header.addHandle(5, seed);
}

} // namespace host

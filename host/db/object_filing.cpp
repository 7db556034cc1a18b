#include "host/db/database.h"
#include "host/db/entity.h"
#include "host/db/object.h"
#include "host/db/xrecord.h"
#include "host/text/case_mapping.h"

#include <algorithm>

// What leaves an object as a whole: extended data, its groups for a filer, a copy.

using host::RecordHead;
using host::TagList;

// ---- extended data, filing out, copying ----

namespace {

// The extended data of one application, its 1001 included; empty at the end where there is none.
host::TagRange dataRange(const TagList& tags, std::wstring_view application)
{
    for (std::size_t first = host::dataEnd(tags); first < tags.size();) {
        std::size_t last = first + 1;
        while (last < tags.size() && tags[last].code != 1001)
            ++last;
        if (host::equalNoCase(tags.text(first), application))
            return {first, last};
        first = last;
    }
    return {tags.size(), tags.size()};
}

// Equal codes and values, however the file writes them.
bool sameValues(const TagList& tags, host::TagRange range, const TagList& others)
{
    if (range.last - range.first != others.size())
        return false;
    for (std::size_t i = 0; i < others.size(); ++i) {
        const std::size_t own = range.first + i;
        if (tags[own].code != others[i].code)
            return false;
        if (tags[own].bytes() == others[i].bytes())
            continue;
        const host::TagKind kind = host::tagKind(others[i].code);
        const bool same =
            kind == host::TagKind::real   ? tags.real(own) == others.real(i)
            : kind == host::TagKind::text ? tags.text(own) == others.text(i)
            : kind == host::TagKind::handle
                ? tags.handle(own) == others.handle(i)
                : kind != host::TagKind::binary && tags.integer(own) == others.integer(i);
        if (!same)
            return false;
    }
    return true;
}

} // namespace

ResbufChain AcDbObject::xData(std::wstring_view application) const
{
    const TagList& own = tags();
    const host::TagRange range = application.empty()
                                     ? host::TagRange{host::dataEnd(own), own.size()}
                                     : dataRange(own, application);
    return host::itemsOf(own, range.first, range.last);
}

Acad::ErrorStatus AcDbObject::setXData(const ResbufChain& data)
{
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    if (data.empty() || data.front().restype != 1001)
        return Acad::eInvalidInput;
    TagList items(tags().source());
    if (data.size() > 1)
        for (const resbuf& item : data)
            host::appendItem(items, item);
    const host::TagRange now = dataRange(tags(), data.front().resval.rstring);
    if (sameValues(tags(), now, items))
        return Acad::eOk;
    TagList& own = tagsForWrite();
    TagList written(own.source());
    for (std::size_t i = 0; i < now.first; ++i)
        written.addTag(own[i]);
    for (const host::Tag& tag : items)
        written.addTag(tag);
    for (std::size_t i = now.last; i < own.size(); ++i)
        written.addTag(own[i]);
    own = std::move(written);
    return Acad::eOk;
}

namespace {

void fileOut(AcDbDxfFiler& filer, const TagList& tags, std::size_t& i)
{
    const int code = tags[i].code;
    switch (host::tagKind(code)) {
    case host::TagKind::real:
        if (i + 1 < tags.size() && tags[i + 1].code == code + 10 && code != 38 &&
            (code < 40 || code >= 110)) {
            AcGePoint3d point{tags.real(i), tags.real(i + 1), 0.0};
            ++i;
            if (i + 1 < tags.size() && tags[i + 1].code == code + 20)
                point.z = tags.real(++i);
            filer.writePoint3d(code, point);
        } else {
            filer.writeDouble(code, tags.real(i));
        }
        break;
    case host::TagKind::int16:
        filer.writeInt16(code, static_cast<std::int16_t>(tags.integer(i)));
        break;
    case host::TagKind::int32:
        filer.writeInt32(code, static_cast<std::int32_t>(tags.integer(i)));
        break;
    case host::TagKind::int64:
        filer.writeInt64(code, tags.integer(i));
        break;
    case host::TagKind::boolean:
        filer.writeBoolean(code, tags.integer(i) != 0);
        break;
    case host::TagKind::handle:
        filer.writeHandle(code, AcDbHandle(tags.handle(i)));
        break;
    case host::TagKind::binary:
        filer.writeBChunk(code, tags.form().binary(tags[i]));
        break;
    case host::TagKind::text:
        filer.writeString(code, tags.text(i));
        break;
    case host::TagKind::comment:
        break;
    }
}

// A record of R12 has no markers. With them the handle comes first, then the common codes, then
// what is the class's own.
TagList withMarkers(const TagList& tags, std::span<const std::string_view> markers)
{
    if (markers.empty() || host::hasMarkers(tags))
        return tags;
    const std::span<const short> common = host::kEntityPart.order;
    const bool entity = markers.front() == host::kEntityPart.marker;
    const std::size_t dataEnd = host::dataEnd(tags);
    const RecordHead head = host::recordHead(tags);
    const bool late = head.handle != TagList::npos && head.handle >= head.end;
    const auto isCommon = [&](std::size_t i) {
        return entity && i < dataEnd &&
               std::find(common.begin(), common.end(), tags[i].code) != common.end();
    };
    TagList marked(tags.source());
    const auto addMarker = [&](std::string_view marker) {
        marked.insertBytes(marked.size(), 100, marker);
    };
    marked.addTag(tags[0]);
    if (late)
        marked.addTag(tags[head.handle]);
    for (std::size_t i = 1; i < head.end; ++i)
        marked.addTag(tags[i]);
    addMarker(markers.front());
    for (std::size_t i = head.end; i < tags.size(); ++i)
        if (isCommon(i))
            marked.addTag(tags[i]);
    for (const std::string_view marker : markers.subspan(1))
        addMarker(marker);
    for (std::size_t i = head.end; i < tags.size(); ++i)
        if (!isCommon(i) && !(late && i == head.handle))
            marked.addTag(tags[i]);
    return marked;
}

} // namespace

Acad::ErrorStatus AcDbObject::dxfOutFields(AcDbDxfFiler* filer) const
{
    if (!filer)
        return Acad::eNullObjectPointer;
    const TagList own = withMarkers(tags(), markers());
    for (std::size_t i = 0; i < own.size(); ++i)
        fileOut(*filer, own, i);
    return Acad::eOk;
}

std::unique_ptr<AcDbObject> AcDbObject::clone() const
{
    // the parts of an entity that has several are told where R12 is raised
    const bool old = drawing_ && !host::hasMarkers(tags()) &&
                     (drawing_->index[stub_].flags & (host::kEntity | host::kChild)) != 0 &&
                     host::drawingFormat().isEntityOfR12(tags()[0].bytes());
    const TagList whole = old ? host::drawingFormat().raisedRecord(*drawing_, stub_) : tags();
    TagList own = withMarkers(whole.inSource(host::drawingFormat().scratchSource()), markers());
    own.erase(1, host::recordHead(own).end); // handle, groups and owner are the original's
    return withTags(*isA(), std::move(own));
}

std::unique_ptr<AcDbObject> AcDbObject::withTags(const AcRxClass& kind, TagList tags)
{
    std::unique_ptr<AcRxObject> made(kind.create());
    auto* const object = AcDbObject::cast(made.get());
    if (!object)
        return nullptr;
    static_cast<void>(made.release()); // goes on as the object's own kind
    object->tags_ = std::make_shared<TagList>(std::move(tags));
    return std::unique_ptr<AcDbObject>(object);
}

void AcDbObject::replaceContents(const TagList& contents)
{
    const TagList taken = contents.inSource(tags().source());
    TagList& own = tagsForWrite();
    own.erase(host::recordHead(own).end, own.size());
    for (std::size_t i = 1; i < taken.size(); ++i)
        own.addTag(taken[i]);
    tagsReplaced();
}

void AcDbObject::loseReference(std::size_t at)
{
    tagsForWrite().setHandle(at, 0);
}

#include "host/io/written_records.h"

#include "host/db/references.h"
#include "host/db/symbol_names.h"
#include "host/db/tag_view.h"
#include "host/io/section_order.h"
#include "host/text/case_mapping.h"

#include <algorithm>

namespace host {

namespace {

bool erased(const Stub& stub)
{
    return (stub.flags & (kErased | kNeverWas)) != 0;
}

// Whether a dictionary holds anything but dictionaries that hold nothing.
bool holdsSomething(Drawing& drawing, std::uint32_t stub, int depth)
{
    constexpr int kDeepest = 32;
    if (drawing.index.types().name(drawing.index[stub].type) != "DICTIONARY")
        return true;
    if (depth > kDeepest)
        return false;
    const std::shared_ptr<const TagList> tags = drawing.tagsOf(stub);
    const std::size_t first = recordHead(*tags).end;
    const std::size_t last = dataEnd(*tags);
    for (std::size_t i = first; i < last; ++i) {
        if ((*tags)[i].code != 350 && (*tags)[i].code != 360)
            continue;
        const std::uint32_t entry = drawing.index.findHandle(tags->handle(i));
        if (entry && !erased(drawing.index[entry]) && holdsSomething(drawing, entry, depth + 1))
            return true;
    }
    return false;
}

// R12 knows the two linetypes without a record.
bool isWritten(const Drawing& drawing, std::string_view table, std::wstring_view name)
{
    return drawing.version > DxfVersion::r12 || table != "LTYPE" ||
           (!equalNoCase(name, L"ByLayer") && !equalNoCase(name, L"ByBlock"));
}

// Adds the implicit table records that the tags of a new record call by name.
void followNames(Drawing& drawing, std::uint32_t stub, WrittenRecords& written)
{
    std::vector<std::uint32_t> waiting{stub};
    while (!waiting.empty()) {
        const std::shared_ptr<const TagList> tags = drawing.tagsOf(waiting.back());
        waiting.pop_back();
        for (const Reference& reference : referencesOf(*tags)) {
            // block records of R12 stay in memory
            if (reference.kind != ReferenceKind::name || reference.table == "BLOCK_RECORD")
                continue;
            const std::wstring name = tags->text(reference.at);
            const std::uint32_t record = findSymbol(drawing, reference.table, name).stubNumber();
            if (record && (drawing.index[record].flags & kImplicit) != 0 &&
                isWritten(drawing, reference.table, name) && written.added.insert(record).second)
                waiting.push_back(record);
        }
    }
}

// Adds the implicit records that the tags of `stub` name by handle.
void followHandles(Drawing& drawing, std::uint32_t stub, WrittenRecords& written)
{
    std::vector<std::uint32_t> waiting{stub};
    while (!waiting.empty()) {
        const std::uint32_t at = waiting.back();
        waiting.pop_back();
        const std::shared_ptr<const TagList> tags = drawing.tagsOf(at);
        for (std::size_t i = 1; i < tags->size(); ++i) {
            const int code = (*tags)[i].code;
            if (tagKind(code) != TagKind::handle || code == 5 || code == 105 || code < 330)
                continue;
            const std::uint32_t target = drawing.index.findHandle(tags->handle(i));
            if (target > drawing.fileRecords && !erased(drawing.index[target]) &&
                written.added.insert(target).second)
                waiting.push_back(target);
        }
    }
}

} // namespace

bool isObjectRecord(const Drawing& drawing, std::uint32_t stub)
{
    const Stub& record = drawing.index[stub];
    if ((record.flags & (kEntity | kChild | kStructure)) != 0)
        return false;
    const std::string_view type = drawing.index.types().name(record.type);
    return type != "BLOCK" && type != "ENDBLK" &&
           placeInOrder(kTableOrder, type) == std::size(kTableOrder);
}

std::vector<std::uint32_t> withChildren(const Drawing& drawing, std::uint32_t entity)
{
    std::vector<std::uint32_t> all{entity};
    const std::vector<std::uint32_t> children = drawing.children(entity, true);
    all.insert(all.end(), children.begin(), children.end());
    return all;
}

WrittenRecords findWrittenRecords(Drawing& drawing)
{
    WrittenRecords written;
    const bool hasObjects =
        std::any_of(drawing.sections.begin(), drawing.sections.end(),
                    [](const SectionPlace& section) { return section.name == "OBJECTS"; });
    std::vector<std::uint32_t> dictionaries;
    for (const std::uint32_t stub : drawing.changed()) {
        const Stub& record = drawing.index[stub];
        if (stub <= drawing.fileRecords) {
            if (erased(record))
                written.erased.insert(stub);
            else if ((record.flags & kChanged) != 0)
                written.changed.insert(stub);
            continue;
        }
        if (erased(record) || (record.flags & kChanged) == 0)
            continue;
        if (!isObjectRecord(drawing, stub)) {
            written.added.insert(stub);
        } else {
            dictionaries.push_back(stub);
            if (!written.objects && (record.flags & kImplicit) == 0)
                written.objects = holdsSomething(drawing, stub, 0);
        }
    }
    // An empty dictionary that a command left is no reason to give a file objects.
    if (written.objects || hasObjects)
        written.added.insert(dictionaries.begin(), dictionaries.end());
    const std::set<std::uint32_t> own = written.added;
    for (const std::uint32_t stub : own)
        if (!isObjectRecord(drawing, stub))
            followNames(drawing, stub, written);
    if (drawing.version > DxfVersion::r12 || written.objects) {
        for (const std::uint32_t stub : own)
            followHandles(drawing, stub, written);
        for (const std::uint32_t stub : written.changed)
            followHandles(drawing, stub, written);
    }
    return written;
}

} // namespace host

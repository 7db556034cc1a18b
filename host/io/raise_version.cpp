#include "host/io/raise_version.h"

#include "host/db/tag_view.h"
#include "host/io/subclass_parts.h"
#include "host/text/wide_format.h"

#include <algorithm>
#include <iterator>

namespace host {

namespace {

constexpr int kTrueColor = 420;
constexpr int kLineWeight = 370;
constexpr std::int64_t kUsualForEntities = -1; // by layer
constexpr std::int64_t kUsualForLayers = -3;   // the default

constexpr std::string_view kSectionsOfR12[] = {"HEADER", "TABLES", "BLOCKS", "ENTITIES"};

std::size_t countStrayChildren(const Drawing& drawing)
{
    std::size_t count = 0;
    for (std::uint32_t number = 1; number <= drawing.fileRecords; ++number) {
        const Stub& stub = drawing.index[number];
        if ((stub.flags & (kChild | kErased)) == kChild &&
            (drawing.index[stub.owner].flags & kEntity) == 0)
            ++count;
    }
    return count;
}

std::size_t countForeignRecords(Drawing& drawing)
{
    std::size_t count = 0;
    for (const SectionPlace& section : drawing.sections) {
        if (section.first == 0 || std::find(std::begin(kSectionsOfR12), std::end(kSectionsOfR12),
                                            section.name) != std::end(kSectionsOfR12))
            continue;
        count += section.end - section.first - 1;
        if (drawing.tagsOf(section.first)->size() > 2) // a picture stands in the SECTION itself
            ++count;
    }
    return count;
}

} // namespace

std::optional<Raise> findRaise(Drawing& drawing, const WrittenRecords& written)
{
    if (drawing.version > DxfVersion::r12)
        return std::nullopt;
    bool colors = false;
    bool weights = false;
    std::wstring entity;
    for (const std::set<std::uint32_t>* const stubs : {&written.added, &written.changed}) {
        for (const std::uint32_t number : *stubs) {
            const Stub& stub = drawing.index[number];
            const std::string_view type = drawing.index.types().name(stub.type);
            const bool isEntity = (stub.flags & (kEntity | kChild)) != 0;
            if (!isEntity && type != "LAYER")
                continue;
            const std::shared_ptr<const TagList> tags = drawing.tagsOf(number);
            const std::size_t end = dataEnd(*tags);
            colors = colors || tags->find(kTrueColor, 0, end) != TagList::npos;
            const std::size_t weight = tags->find(kLineWeight, 0, end);
            if (weight != TagList::npos)
                weights = weights ||
                          tags->integer(weight) != (isEntity ? kUsualForEntities : kUsualForLayers);
            if (isEntity && entity.empty() && number > drawing.fileRecords && !isEntityOfR12(type))
                entity.assign(type.begin(), type.end());
        }
    }
    Raise raise;
    raise.version = colors ? DxfVersion::r2004 : DxfVersion::r2000;
    const auto add = [&](const std::wstring& reason) {
        raise.reason += (raise.reason.empty() ? L"" : L", ") + reason;
    };
    if (written.objects)
        add(L"data in dictionaries");
    if (weights)
        add(L"line weights");
    if (colors)
        add(L"true colors");
    if (!entity.empty())
        add(entity);
    if (raise.reason.empty())
        return std::nullopt;
    raise.strayChildren = countStrayChildren(drawing);
    raise.foreignRecords = countForeignRecords(drawing);
    return raise;
}

std::wstring raiseMessage(const Raise& raise)
{
    std::wstring message =
        std::wstring(L"the drawing is raised from R12 to AutoCAD ") +
        (raise.version == DxfVersion::r2004 ? L"2004 (AC1018)" : L"2000 (AC1015)") +
        L", since R12 cannot hold " + raise.reason;
    if (raise.strayChildren == 1)
        message += L"; 1 VERTEX, ATTRIB or SEQEND that follows no POLYLINE or INSERT is left out";
    else if (raise.strayChildren != 0)
        message += format(L"; %zu VERTEX, ATTRIB or SEQEND that follow no POLYLINE or INSERT are "
                          L"left out",
                          raise.strayChildren);
    if (raise.foreignRecords == 1)
        message += L"; 1 record of a section that R12 does not have is left out";
    else if (raise.foreignRecords != 0)
        message += format(L"; %zu records of sections that R12 does not have are left out",
                          raise.foreignRecords);
    return message;
}

} // namespace host

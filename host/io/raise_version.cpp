#include "host/io/raise_version.h"

#include "host/db/tag_view.h"
#include "host/io/subclass_parts.h"

namespace host {

namespace {

constexpr int kTrueColor = 420;
constexpr int kLineWeight = 370;
constexpr std::int64_t kUsualForEntities = -1; // by layer
constexpr std::int64_t kUsualForLayers = -3;   // the default

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
    return raise;
}

std::wstring raiseMessage(const Raise& raise)
{
    return std::wstring(L"the drawing is raised from R12 to AutoCAD ") +
           (raise.version == DxfVersion::r2004 ? L"2004 (AC1018)" : L"2000 (AC1015)") +
           L", since R12 cannot hold " + raise.reason;
}

} // namespace host

#include "host/db/proxy_class.h"

#include "host/db/drawing.h"

namespace host {

namespace {

constexpr int kFirstNumber = 500;

DeclaredClass readClass(const TagList& tags)
{
    const auto text = [&](int code) {
        const std::size_t at = tags.find(code, 1);
        return at == TagList::npos ? std::wstring() : tags.text(at);
    };
    return {text(1), text(2), text(3)};
}

// Calls `visit` with the tags of each CLASS until it answers true.
template <class Visit> void eachClass(Drawing& drawing, Visit visit)
{
    for (const SectionPlace& section : drawing.sections) {
        if (section.name != "CLASSES")
            continue;
        for (std::uint32_t stub = section.first + 1; stub < section.end; ++stub)
            if (visit(*drawing.tagsOf(stub)))
                return;
    }
}

} // namespace

std::optional<DeclaredClass> declaredClass(Drawing& drawing, int number)
{
    std::optional<DeclaredClass> found;
    int next = kFirstNumber;
    eachClass(drawing, [&](const TagList& tags) {
        if (next++ != number)
            return false;
        found = readClass(tags);
        return true;
    });
    return found;
}

std::optional<DeclaredClass> declaredClass(Drawing& drawing, std::string_view dxfName)
{
    std::optional<DeclaredClass> found;
    eachClass(drawing, [&](const TagList& tags) {
        const std::size_t name = tags.find(1, 1);
        if (name == TagList::npos || tags[name].bytes() != dxfName)
            return false;
        found = readClass(tags);
        return true;
    });
    return found;
}

} // namespace host

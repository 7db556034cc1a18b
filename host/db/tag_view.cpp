#include "host/db/tag_view.h"

#include <algorithm>

namespace host {

namespace {

constexpr std::size_t npos = TagList::npos;

bool opensBracket(const Tag& tag)
{
    return tag.code == 102 && tag.length > 0 && tag.value[0] == '{';
}
bool closesBracket(const Tag& tag)
{
    return tag.code == 102 && tag.bytes() == "}";
}
bool isEmbedded(const Tag& tag)
{
    return tag.code == 101 && tag.bytes() == "Embedded Object";
}

// Codes that end a part besides the next 100.
bool endsPart(const Tag& tag)
{
    return tag.code == 100 || tag.code == 1001 || isEmbedded(tag);
}

// Behind the tag at `at` and the y and z that belong to it.
std::size_t behindPoint(const TagList& tags, std::size_t at, std::size_t last)
{
    const int code = tags[at].code;
    std::size_t next = at + 1;
    for (const int step : {10, 20})
        if (next < last && tags[next].code == code + step && tagKind(code) == TagKind::real)
            ++next;
    return next;
}

// The parts that a field of `part` may stand in, one after the other.
template <class Visit> void eachRange(const TagList& tags, const Subclass& part, Visit visit)
{
    std::size_t from = 0;
    while (const std::optional<TagRange> range = subclassRange(tags, part.marker, from)) {
        if (visit(*range))
            return;
        if (range->first <= from || !hasMarkers(tags))
            return;
        from = range->first;
    }
}

} // namespace

RecordHead recordHead(const TagList& tags)
{
    RecordHead head;
    // a 5 in a dimension style names an arrow block
    const int handleCode = !tags.empty() && tags[0].bytes() == "DIMSTYLE" ? 105 : 5;
    std::size_t i = std::min<std::size_t>(1, tags.size());
    for (; i < tags.size(); ++i) {
        const Tag& tag = tags[i];
        if (opensBracket(tag)) {
            std::size_t close = i + 1;
            while (close < tags.size() && !closesBracket(tags[close]) && tags[close].code != 100)
                ++close;
            if (close == tags.size() || tags[close].code == 100)
                break; // never closed: no bracket
            const TagRange range{i, close + 1};
            if (tag.bytes() == "{ACAD_XDICTIONARY" && head.dictionary.empty())
                head.dictionary = range;
            else if (tag.bytes() == "{ACAD_REACTORS" && head.reactors.empty())
                head.reactors = range;
            i = close;
        } else if (tag.code == handleCode && head.handle == npos) {
            head.handle = i;
        } else if (tag.code == 330 && head.owner == npos) {
            head.owner = i;
        } else if (tag.code != 999) {
            break;
        }
    }
    head.end = i;
    if (head.handle == npos && !hasMarkers(tags)) {
        // some programs of R12's time write the layer before the handle
        head.handle = tags.find(handleCode, i, dataEnd(tags));
    }
    return head;
}

bool hasMarkers(const TagList& tags)
{
    return tags.find(100) != npos;
}

std::size_t dataEnd(const TagList& tags)
{
    const std::size_t at = tags.find(1001);
    return at == npos ? tags.size() : at;
}

std::optional<TagRange> subclassRange(const TagList& tags, std::string_view marker,
                                      std::size_t from)
{
    std::size_t first = tags.find(100, marker, from);
    if (first == npos) {
        if (from > 0 || tags.empty())
            return std::nullopt;
        const std::size_t any = tags.find(100);
        if (any == npos)
            return TagRange{recordHead(tags).end, dataEnd(tags)};
        // a record with the common marker alone holds everything there
        if (tags[any].bytes() != "AcDbEntity" || tags.find(100, any + 1) != npos)
            return std::nullopt;
        first = any;
    }
    TagRange range{first + 1, first + 1};
    while (range.last < tags.size() && !endsPart(tags[range.last]))
        ++range.last;
    return range;
}

std::size_t findField(const TagList& tags, const Subclass& part, int code)
{
    std::size_t found = npos;
    eachRange(tags, part, [&](TagRange range) {
        found = tags.find(code, range.first, range.last);
        return found != npos;
    });
    return found;
}

std::size_t placeOfField(const TagList& tags, const Subclass& part, int code)
{
    const std::optional<TagRange> range = subclassRange(tags, part.marker);
    if (!range)
        return dataEnd(tags);
    const auto own = std::find(part.order.begin(), part.order.end(), code);
    if (own == part.order.end())
        return range->last;
    for (auto before = own; before != part.order.begin();) {
        --before;
        for (std::size_t i = range->last; i > range->first; --i)
            if (tags[i - 1].code == *before)
                return behindPoint(tags, i - 1, range->last);
    }
    if (hasMarkers(tags))
        return range->first;
    // all classes share one part here: what follows keeps the common codes in front
    for (auto after = own; after != part.order.end(); ++after)
        if (const std::size_t at = tags.find(*after, range->first, range->last); at != npos)
            return at;
    return range->first;
}

double realField(const TagList& tags, const Subclass& part, int code, double fallback)
{
    const std::size_t at = findField(tags, part, code);
    return at == npos ? fallback : tags.real(at);
}

std::int64_t integerField(const TagList& tags, const Subclass& part, int code,
                          std::int64_t fallback)
{
    const std::size_t at = findField(tags, part, code);
    return at == npos ? fallback : tags.integer(at);
}

std::wstring textField(const TagList& tags, const Subclass& part, int code,
                       std::wstring_view fallback)
{
    const std::size_t at = findField(tags, part, code);
    return at == npos ? std::wstring(fallback) : tags.text(at);
}

std::uint64_t handleField(const TagList& tags, const Subclass& part, int code)
{
    const std::size_t at = findField(tags, part, code);
    return at == npos ? 0 : tags.handle(at);
}

std::optional<AcGePoint3d> pointField(const TagList& tags, const Subclass& part, int code)
{
    const std::size_t at = findField(tags, part, code);
    if (at == npos)
        return std::nullopt;
    AcGePoint3d point{tags.real(at), 0.0, 0.0};
    if (at + 1 < tags.size() && tags[at + 1].code == code + 10)
        point.y = tags.real(at + 1);
    if (at + 2 < tags.size() && tags[at + 2].code == code + 20)
        point.z = tags.real(at + 2);
    return point;
}

namespace {

// Where a new tag goes. A record with markers that lacks this one is given it, so that what is
// written is found again.
std::size_t placeToWrite(TagWriter& object, const Subclass& part, int code)
{
    const TagList& tags = object.tags();
    if (hasMarkers(tags) && !subclassRange(tags, part.marker)) {
        const bool common = part.marker == "AcDbEntity";
        const std::size_t at = common ? tags.find(100) : dataEnd(tags);
        object.tagsForWrite().insertBytes(at, 100, part.marker);
    }
    return placeOfField(object.tags(), part, code);
}

} // namespace

bool setRealField(TagWriter& object, const Subclass& part, int code, double value, double fallback)
{
    const std::size_t at = findField(object.tags(), part, code);
    if (at != npos) {
        if (object.tags().real(at) == value)
            return false;
        object.tagsForWrite().setReal(at, value);
        return true;
    }
    if (value == fallback)
        return false;
    const std::size_t place = placeToWrite(object, part, code);
    object.tagsForWrite().insertReal(place, code, value);
    return true;
}

bool setIntegerField(TagWriter& object, const Subclass& part, int code, std::int64_t value,
                     std::int64_t fallback)
{
    const std::size_t at = findField(object.tags(), part, code);
    if (at != npos) {
        if (object.tags().integer(at) == value)
            return false;
        object.tagsForWrite().setInteger(at, value);
        return true;
    }
    if (value == fallback)
        return false;
    const std::size_t place = placeToWrite(object, part, code);
    object.tagsForWrite().insertInteger(place, code, value);
    return true;
}

bool setTextField(TagWriter& object, const Subclass& part, int code, std::wstring_view value,
                  std::wstring_view fallback)
{
    const std::size_t at = findField(object.tags(), part, code);
    if (at != npos) {
        if (object.tags().text(at) == value)
            return false;
        object.tagsForWrite().setText(at, value);
        return true;
    }
    if (value == fallback)
        return false;
    const std::size_t place = placeToWrite(object, part, code);
    object.tagsForWrite().insertText(place, code, value);
    return true;
}

bool setHandleField(TagWriter& object, const Subclass& part, int code, std::uint64_t value)
{
    const std::size_t at = findField(object.tags(), part, code);
    if (at != npos) {
        if (object.tags().handle(at) == value)
            return false;
        object.tagsForWrite().setHandle(at, value);
        return true;
    }
    if (value == 0)
        return false;
    const std::size_t place = placeToWrite(object, part, code);
    object.tagsForWrite().insertHandle(place, code, value);
    return true;
}

bool setPointField(TagWriter& object, const Subclass& part, int code, const AcGePoint3d& value)
{
    const double parts[] = {value.x, value.y, value.z};
    std::size_t at = findField(object.tags(), part, code);
    if (at == npos) {
        const std::size_t place = placeToWrite(object, part, code);
        TagList& tags = object.tagsForWrite();
        for (int i = 0; i < 3; ++i)
            tags.insertReal(place + static_cast<std::size_t>(i), code + 10 * i, parts[i]);
        return true;
    }
    bool changed = false;
    for (int i = 0; i < 3; ++i, ++at) {
        if (at < object.tags().size() && object.tags()[at].code == code + 10 * i) {
            if (object.tags().real(at) == parts[i])
                continue;
            object.tagsForWrite().setReal(at, parts[i]);
        } else if (parts[i] != 0.0) {
            object.tagsForWrite().insertReal(at, code + 10 * i, parts[i]);
        } else {
            break; // a flat point that stays flat
        }
        changed = true;
    }
    return changed;
}

bool removeField(TagWriter& object, const Subclass& part, int code)
{
    const std::size_t at = findField(object.tags(), part, code);
    if (at == npos)
        return false;
    object.tagsForWrite().erase(at, at + 1);
    return true;
}

} // namespace host

#include "host/db/header_variables.h"

#include "host/db/database.h"
#include "host/db/lookups.h"

#include <cmath>
#include <cstdlib>
#include <limits>

namespace host {

namespace {

constexpr int kNameCode = 9;
constexpr std::size_t npos = TagList::npos;

// The values of one variable: behind its name, without comments around them.
TagRange valuesOf(const TagList& tags, std::string_view name)
{
    TagRange range;
    for (std::size_t i = 0; i < tags.size(); ++i) {
        if (tags[i].code != kNameCode || tags[i].length != name.size() + 1)
            continue;
        const std::string_view bytes = tags[i].bytes();
        if (bytes[0] != '$' || bytes.substr(1) != name)
            continue;
        range.first = i + 1;
        while (range.first < tags.size() && tagKind(tags[range.first].code) == TagKind::comment)
            ++range.first;
        range.last = range.first;
        while (range.last < tags.size() && tags[range.last].code != kNameCode &&
               tagKind(tags[range.last].code) != TagKind::comment)
            ++range.last;
        return range;
    }
    return range;
}

std::string upperCasedAscii(std::string_view name)
{
    std::string upper(name);
    for (char& c : upper)
        if (c >= 'a' && c <= 'z')
            c = static_cast<char>(c - 'a' + 'A');
    return upper;
}

std::shared_ptr<const TagList> headerTags(const Drawing& constDrawing)
{
    Drawing& drawing = constDrawing.database.drawing();
    if (drawing.header == 0)
        return nullptr;
    if (std::shared_ptr<const TagList> changed = drawing.state(drawing.header).tags)
        return changed;
    std::shared_ptr<const TagList>& known = drawing.database.lookups().header;
    if (!known)
        known = drawing.tagsOf(drawing.header);
    return known;
}

bool isPoint(int code)
{
    return code == 10;
}

resbuf valueIn(const TagList& tags, TagRange range)
{
    resbuf item;
    resbuf::Value& value = item.resval;
    const int code = tags[range.first].code;
    if (isPoint(code)) {
        const std::size_t coordinates = std::min<std::size_t>(range.last - range.first, 3);
        for (std::size_t i = 0; i < coordinates; ++i)
            value.rpoint[i] = tags.real(range.first + i);
        item.restype = static_cast<short>(coordinates == 3 ? RT3DPOINT : RTPOINT);
        return item;
    }
    switch (tagKind(code)) {
    case TagKind::real:
        item.restype = static_cast<short>(RTREAL);
        value.rreal = tags.real(range.first);
        break;
    case TagKind::int16:
    case TagKind::boolean:
        item.restype = static_cast<short>(RTSHORT);
        value.rint = static_cast<std::int16_t>(tags.integer(range.first));
        break;
    case TagKind::int32:
    case TagKind::int64:
        item.restype = static_cast<short>(RTLONG);
        value.mnInt64 = tags.integer(range.first);
        value.rlong = static_cast<std::int32_t>(value.mnInt64);
        break;
    default:
        item.restype = static_cast<short>(RTSTR);
        value.rstring = tags.text(range.first);
        break;
    }
    return item;
}

std::optional<double> realOf(const resbuf& value)
{
    std::optional<double> real;
    if (value.restype == RTREAL || value.restype == RTANG || value.restype == RTORINT)
        real = value.resval.rreal;
    else if (value.restype == RTSHORT)
        real = value.resval.rint;
    else if (value.restype == RTLONG)
        real = value.resval.rlong;
    return real && std::isfinite(*real) ? real : std::nullopt;
}

std::optional<std::int64_t> integerOf(const resbuf& value, std::int64_t least, std::int64_t most)
{
    const std::optional<double> real = realOf(value);
    if (!real || *real != std::floor(*real) || *real < static_cast<double>(least) ||
        *real > static_cast<double>(most))
        return std::nullopt;
    return static_cast<std::int64_t>(*real);
}

template <class Integer> std::optional<std::int64_t> integerOf(const resbuf& value)
{
    return integerOf(value, std::numeric_limits<Integer>::min(),
                     std::numeric_limits<Integer>::max());
}

// Appends the value's tags for a code; `coordinates` counts those of a point. False when the value
// does not fit.
bool appendValue(TagList& tags, int code, const resbuf& value, std::size_t coordinates)
{
    if (isPoint(code)) {
        const ads_point& point = value.resval.rpoint;
        const bool flat = value.restype == RTPOINT;
        if ((!flat && value.restype != RT3DPOINT) || (coordinates == 2 && !flat && point[2] != 0.0))
            return false;
        for (std::size_t i = 0; i < coordinates; ++i) {
            const double part = i == 2 && flat ? 0.0 : point[i];
            if (!std::isfinite(part))
                return false;
            tags.addReal(code + 10 * static_cast<int>(i), part);
        }
        return true;
    }
    std::optional<std::int64_t> integer;
    switch (tagKind(code)) {
    case TagKind::real:
        if (const std::optional<double> real = realOf(value)) {
            tags.addReal(code, *real);
            return true;
        }
        return false;
    case TagKind::boolean:
        integer = integerOf(value, 0, 1);
        break;
    case TagKind::int16:
        integer = integerOf<std::int16_t>(value);
        break;
    case TagKind::int32:
    case TagKind::int64:
        integer = integerOf<std::int32_t>(value);
        break;
    case TagKind::handle: {
        wchar_t* end = nullptr;
        const std::wstring& text = value.resval.rstring;
        const std::uint64_t handle = std::wcstoull(text.c_str(), &end, 16);
        if (value.restype != RTSTR || text.empty() || *end)
            return false;
        tags.addHandle(code, handle);
        return true;
    }
    default:
        if (value.restype != RTSTR)
            return false;
        tags.addText(code, value.resval.rstring);
        return true;
    }
    if (integer)
        tags.addInteger(code, *integer);
    return integer.has_value();
}

bool sameValue(const TagList& tags, TagRange range, const TagList& wanted)
{
    if (range.last - range.first != wanted.size())
        return false;
    for (std::size_t i = 0; i < wanted.size(); ++i) {
        const std::size_t at = range.first + i;
        if (tags[at].code != wanted[i].code)
            return false;
        const TagKind kind = tagKind(wanted[i].code);
        if (kind == TagKind::text     ? tags.text(at) != wanted.text(i)
            : kind == TagKind::real   ? tags.real(at) != wanted.real(i)
            : kind == TagKind::handle ? tags.handle(at) != wanted.handle(i)
                                      : tags.integer(at) != wanted.integer(i))
            return false;
    }
    return true;
}

void putHeader(Drawing& drawing, TagList tags)
{
    drawing.undo.willChange(drawing, drawing.header);
    ObjectState state = drawing.state(drawing.header);
    state.tags = std::make_shared<const TagList>(std::move(tags));
    state.flags |= kChanged;
    drawing.restore(drawing.header, state);
}

} // namespace

std::optional<resbuf> headerVariable(const Drawing& drawing, std::string_view name)
{
    const std::shared_ptr<const TagList> tags = headerTags(drawing);
    if (!tags)
        return std::nullopt;
    const TagRange range = valuesOf(*tags, upperCasedAscii(name));
    if (range.empty())
        return std::nullopt;
    return valueIn(*tags, range);
}

int headerVariableCode(const Drawing& drawing, std::string_view name)
{
    const std::shared_ptr<const TagList> tags = headerTags(drawing);
    if (!tags)
        return 0;
    const TagRange range = valuesOf(*tags, upperCasedAscii(name));
    return range.empty() ? 0 : (*tags)[range.first].code;
}

bool setHeaderVariable(Drawing& drawing, std::string_view name, int code, const resbuf& value)
{
    const std::shared_ptr<const TagList> tags = headerTags(drawing);
    if (!tags)
        return false;
    const std::string upper = upperCasedAscii(name);
    const TagRange range = valuesOf(*tags, upper);
    const bool known = !range.empty();
    const int held = known ? (*tags)[range.first].code : code;
    std::size_t coordinates = value.restype == RTPOINT ? 2 : 3;
    if (known && isPoint(held))
        coordinates = std::min<std::size_t>(range.last - range.first, 3);
    TagList wanted(drawing.source);
    if (!appendValue(wanted, held, value, coordinates))
        return false;
    if (known && sameValue(*tags, range, wanted))
        return true;

    const std::wstring wide(upper.begin(), upper.end());
    drawing.database.tellReactors([&](AcDbDatabaseReactor& reactor) {
        reactor.headerSysVarWillChange(&drawing.database, wide.c_str());
    });
    TagList changed = *tags;
    if (known) {
        // a value keeps its code line
        for (std::size_t i = 0; i < wanted.size(); ++i)
            changed.setBytes(range.first + i, wanted[i].bytes());
    } else {
        changed.addText(kNameCode, L"$" + wide);
        for (const Tag& tag : wanted)
            changed.addTag(tag);
    }
    putHeader(drawing, std::move(changed));
    drawing.database.tellReactors([&](AcDbDatabaseReactor& reactor) {
        reactor.headerSysVarChanged(&drawing.database, wide.c_str(), true);
    });
    return true;
}

std::vector<std::string> headerVariableNames(const Drawing& drawing)
{
    std::vector<std::string> names;
    const std::shared_ptr<const TagList> tags = headerTags(drawing);
    if (!tags)
        return names;
    for (const Tag& tag : *tags)
        if (tag.code == kNameCode && tag.length > 1 && tag.value[0] == '$')
            names.emplace_back(tag.bytes().substr(1));
    return names;
}

} // namespace host

#include "host/db/xrecord.h"

#include "host/db/drawing.h"

#include <algorithm>
#include <cmath>
#include <optional>

ACRX_DXF_DEFINE_MEMBERS(AcDbXrecord, AcDbObject, "XRECORD")

using host::Tag;
using host::TagKind;
using host::TagList;

namespace {

constexpr std::size_t npos = TagList::npos;
constexpr std::string_view kMarker = "AcDbXrecord";
constexpr int kCloning = 280;
constexpr int kKeepExisting = 1;

// R13 and R14 know no cloning flag. An R12 drawing holds xrecords in memory only: it is saved as
// R2000 once it has one.
bool knowsCloningFlag(host::DxfVersion version)
{
    return version >= host::DxfVersion::r2000 || version <= host::DxfVersion::r12;
}

constexpr std::size_t kChunk = 127; // bytes that one binary item holds

// Codes of x that a y (code + 10) belongs to, and mostly a z (code + 20).
struct PointCodes {
    int first;
    int last;
};
constexpr PointCodes kPointCodes[] = {{10, 17}, {110, 112}, {210, 213}, {1010, 1013}};

bool isPointCode(int code)
{
    return std::any_of(
        std::begin(kPointCodes), std::end(kPointCodes),
        [&](const PointCodes& range) { return code >= range.first && code <= range.last; });
}

// Behind the item that begins at `at`: a point takes its y and z along.
std::size_t behindItem(const TagList& tags, std::size_t at, std::size_t last)
{
    const int code = tags[at].code;
    std::size_t next = at + 1;
    if (!isPointCode(code))
        return next;
    if (next < last && tags[next].code == code + 10)
        ++next;
    if (next == at + 2 && next < last && tags[next].code == code + 20)
        ++next;
    return next;
}

std::wstring hexadecimal(std::uint64_t value)
{
    std::wstring digits;
    do {
        digits.insert(digits.begin(), L"0123456789ABCDEF"[value & 15]);
        value >>= 4;
    } while (value != 0);
    return digits;
}

std::optional<std::uint64_t> fromHexadecimal(std::wstring_view text)
{
    constexpr std::size_t kDigits = 16;
    if (text.empty() || text.size() > kDigits)
        return std::nullopt;
    std::uint64_t value = 0;
    for (const wchar_t c : text) {
        const int digit = c >= L'0' && c <= L'9'   ? c - L'0'
                          : c >= L'A' && c <= L'F' ? c - L'A' + 10
                          : c >= L'a' && c <= L'f' ? c - L'a' + 10
                                                   : -1;
        if (digit < 0)
            return std::nullopt;
        value = value << 4 | static_cast<std::uint64_t>(digit);
    }
    return value;
}

resbuf itemAt(const TagList& tags, std::size_t at, std::size_t end)
{
    resbuf item;
    item.restype = tags[at].code;
    resbuf::Value& value = item.resval;
    switch (host::tagKind(tags[at].code)) {
    case TagKind::real:
        if (isPointCode(tags[at].code)) {
            for (std::size_t i = at; i < end; ++i)
                value.rpoint[i - at] = tags.real(i);
        } else {
            value.rreal = tags.real(at);
        }
        break;
    case TagKind::int16:
    case TagKind::boolean:
        value.rint = static_cast<std::int16_t>(tags.integer(at));
        break;
    case TagKind::int32:
        value.rlong = static_cast<std::int32_t>(tags.integer(at));
        break;
    case TagKind::int64:
        value.mnInt64 = tags.integer(at);
        break;
    case TagKind::handle:
        value.rstring = hexadecimal(tags.handle(at));
        break;
    case TagKind::binary:
        value.rbinary = tags.form().binary(tags[at]);
        break;
    case TagKind::text:
    case TagKind::comment:
        value.rstring = tags.text(at);
        break;
    }
    return item;
}

// Equal as values of the same code, so that the bytes of the one may stand for the other.
bool sameItem(const resbuf& a, const resbuf& b)
{
    if (a.restype != b.restype)
        return false;
    const resbuf::Value& left = a.resval;
    const resbuf::Value& right = b.resval;
    switch (host::tagKind(a.restype)) {
    case TagKind::real:
        return isPointCode(a.restype) ? left.rpoint == right.rpoint : left.rreal == right.rreal;
    case TagKind::int16:
    case TagKind::boolean:
        return left.rint == right.rint;
    case TagKind::int32:
        return left.rlong == right.rlong;
    case TagKind::int64:
        return left.mnInt64 == right.mnInt64;
    case TagKind::handle:
        return fromHexadecimal(left.rstring) == fromHexadecimal(right.rstring);
    case TagKind::binary:
        return left.rbinary == right.rbinary;
    case TagKind::text:
    case TagKind::comment:
        return left.rstring == right.rstring;
    }
    return false;
}

// Whether a file can hold the item: a code of 0 begins a new record, 999 is a comment, and a
// number that is none would make the file unreadable.
bool isWritable(const resbuf& item)
{
    constexpr int kLast = 1071;
    const int code = item.restype;
    if (code < 1 || code == 999 || code > kLast)
        return false;
    switch (host::tagKind(code)) {
    case TagKind::real:
        if (isPointCode(code))
            return std::all_of(item.resval.rpoint.begin(), item.resval.rpoint.end(),
                               [](double part) { return std::isfinite(part); });
        return std::isfinite(item.resval.rreal);
    case TagKind::boolean:
        return item.resval.rint == 0 || item.resval.rint == 1;
    case TagKind::handle:
        return fromHexadecimal(item.resval.rstring).has_value();
    case TagKind::binary:
        return item.resval.rbinary.size() <= kChunk;
    default:
        return true;
    }
}

// Writes an item over the tags of another one of the same code and the same number of tags, whose
// code lines stay.
void overwriteItem(TagList& tags, std::size_t at, std::size_t end, const resbuf& item)
{
    const resbuf::Value& value = item.resval;
    switch (host::tagKind(item.restype)) {
    case TagKind::real:
        if (!isPointCode(item.restype)) {
            tags.setReal(at, value.rreal);
            break;
        }
        for (std::size_t i = at; i < end; ++i)
            if (tags.real(i) != value.rpoint[i - at])
                tags.setReal(i, value.rpoint[i - at]);
        break;
    case TagKind::int16:
    case TagKind::boolean:
        tags.setInteger(at, value.rint);
        break;
    case TagKind::int32:
        tags.setInteger(at, value.rlong);
        break;
    case TagKind::int64:
        tags.setInteger(at, value.mnInt64);
        break;
    case TagKind::handle:
        tags.setHandle(at, fromHexadecimal(value.rstring).value_or(0));
        break;
    case TagKind::binary:
        tags.setBytes(at, tags.form().binaryValue(item.restype, value.rbinary));
        break;
    case TagKind::text:
    case TagKind::comment:
        tags.setText(at, value.rstring);
        break;
    }
}

// An item of the payload as it stands: comments in front of it belong to it.
struct StoredItem {
    resbuf item;
    std::size_t first = 0; // with the comments
    std::size_t value = 0;
    std::size_t end = 0;
};

std::vector<StoredItem> storedItems(const TagList& tags, std::size_t from)
{
    std::vector<StoredItem> items;
    std::size_t first = from;
    for (std::size_t i = from; i < tags.size();) {
        if (host::tagKind(tags[i].code) == TagKind::comment) {
            ++i;
            continue;
        }
        const std::size_t end = behindItem(tags, i, tags.size());
        items.push_back({itemAt(tags, i, end), first, i, end});
        first = i = end;
    }
    return items;
}

// Puts a new payload together from stored tags and new ones. Equal items at both ends keep their
// tags; between them an item keeps those of the next equal one not far ahead, or takes over the
// code lines of the one in its place.
class PayloadWriter {
public:
    PayloadWriter(const TagList& from, std::size_t payload)
        : from_(from), to_(from.source()), stored_(storedItems(from, payload))
    {
        for (std::size_t i = 0; i < payload; ++i)
            to_.addTag(from[i]);
    }

    TagList write(const ResbufChain& chain)
    {
        std::size_t tail = 0; // equal items at the end
        const std::size_t most = std::min(chain.size(), stored_.size());
        while (tail < most &&
               sameItem(chain[chain.size() - 1 - tail], stored_[stored_.size() - 1 - tail].item))
            ++tail;
        const std::size_t oldEnd = stored_.size() - tail;
        const std::size_t newEnd = chain.size() - tail;
        std::size_t old = 0;
        for (std::size_t i = 0; i < newEnd; ++i) {
            const std::size_t ahead = std::min(oldEnd, old + kLookAhead);
            std::size_t match = old;
            while (match < ahead && !sameItem(chain[i], stored_[match].item))
                ++match;
            if (match < ahead) {
                keep(stored_[match]);
                old = match + 1;
            } else if (newEnd - i <= oldEnd - old && replaces(chain[i], stored_[old])) {
                overwrite(stored_[old++], chain[i]);
            } else {
                host::appendItem(to_, chain[i]);
            }
        }
        for (std::size_t i = oldEnd; i < stored_.size(); ++i)
            keep(stored_[i]);
        return std::move(to_);
    }

private:
    static constexpr std::size_t kLookAhead = 64;

    static bool replaces(const resbuf& item, const StoredItem& stored)
    {
        if (item.restype != stored.item.restype)
            return false;
        constexpr std::size_t kCoordinates = 3;
        return !isPointCode(item.restype) || stored.end - stored.value == kCoordinates;
    }

    void keep(const StoredItem& stored)
    {
        for (std::size_t i = stored.first; i < stored.end; ++i)
            to_.addTag(from_[i]);
    }

    void overwrite(const StoredItem& stored, const resbuf& item)
    {
        const std::size_t at = to_.size() + (stored.value - stored.first);
        keep(stored);
        overwriteItem(to_, at, to_.size(), item);
    }

    const TagList& from_;
    TagList to_;
    std::vector<StoredItem> stored_;
};

} // namespace

namespace host {

ResbufChain itemsOf(const TagList& tags, std::size_t first, std::size_t last)
{
    ResbufChain items;
    for (std::size_t i = first; i < last;) {
        if (tagKind(tags[i].code) == TagKind::comment) {
            ++i;
            continue;
        }
        const std::size_t end = behindItem(tags, i, last);
        items.push_back(itemAt(tags, i, end));
        i = end;
    }
    return items;
}

void appendItem(TagList& tags, const resbuf& item)
{
    const resbuf::Value& value = item.resval;
    const int code = item.restype;
    switch (tagKind(code)) {
    case TagKind::real:
        if (!isPointCode(code)) {
            tags.addReal(code, value.rreal);
            break;
        }
        for (int i = 0; i < 3; ++i)
            tags.addReal(code + 10 * i, value.rpoint[static_cast<std::size_t>(i)]);
        break;
    case TagKind::int16:
    case TagKind::boolean:
        tags.addInteger(code, value.rint);
        break;
    case TagKind::int32:
        tags.addInteger(code, value.rlong);
        break;
    case TagKind::int64:
        tags.addInteger(code, value.mnInt64);
        break;
    case TagKind::handle:
        tags.addHandle(code, fromHexadecimal(value.rstring).value_or(0));
        break;
    case TagKind::binary:
        tags.insertBinary(tags.size(), code, value.rbinary);
        break;
    case TagKind::text:
    case TagKind::comment:
        tags.addText(code, value.rstring);
        break;
    }
}

} // namespace host

std::span<const std::string_view> AcDbXrecord::markers() const
{
    static constexpr std::string_view own[] = {kMarker};
    return own;
}

std::size_t AcDbXrecord::behindMarker() const
{
    const std::size_t marker = tags().find(100, kMarker);
    return marker == npos ? host::recordHead(tags()).end : marker + 1;
}

bool AcDbXrecord::hasCloningFlag() const
{
    const std::size_t at = behindMarker();
    return knowsCloningFlag(tags().form().version()) && at < tags().size() &&
           tags()[at].code == kCloning;
}

std::size_t AcDbXrecord::payload() const
{
    return behindMarker() + (hasCloningFlag() ? 1 : 0);
}

Acad::ErrorStatus AcDbXrecord::rbChain(ResbufChain& chain) const
{
    chain = host::itemsOf(tags(), payload(), tags().size());
    return Acad::eOk;
}

Acad::ErrorStatus AcDbXrecord::setFromRbChain(const ResbufChain& chain)
{
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    if (!std::all_of(chain.begin(), chain.end(), isWritable))
        return Acad::eInvalidInput;
    // without the flag in front of it an item of its code would be taken for it
    const bool flagNeeded = isNewObject() || (!chain.empty() && chain.front().restype == kCloning);
    if (flagNeeded)
        writeCloningFlag();

    const std::vector<StoredItem> stored = storedItems(tags(), payload());
    const bool same = std::equal(
        stored.begin(), stored.end(), chain.begin(), chain.end(),
        [](const StoredItem& old, const resbuf& item) { return sameItem(old.item, item); });
    if (same)
        return Acad::eOk;
    TagList written = PayloadWriter(tags(), payload()).write(chain);
    tagsForWrite() = std::move(written);
    return Acad::eOk;
}

void AcDbXrecord::writeCloningFlag()
{
    if (knowsCloningFlag(tags().form().version()) && !hasCloningFlag())
        tagsForWrite().insertInteger(behindMarker(), kCloning, kKeepExisting);
}

void AcDbXrecord::joinedDatabase(host::DxfVersion before)
{
    const std::size_t at = behindMarker();
    const bool had = knowsCloningFlag(before) && at < tags().size() && tags()[at].code == kCloning;
    const bool wants = knowsCloningFlag(tags().form().version());
    if (wants && !had)
        tagsForWrite().insertInteger(at, kCloning, kKeepExisting);
    else if (!wants && had)
        tagsForWrite().erase(at, at + 1);
}

AcDbXrecordIterator::AcDbXrecordIterator(const AcDbXrecord* record)
{
    if (record)
        record->rbChain(chain_);
}

Acad::ErrorStatus AcDbXrecordIterator::getCurResbuf(resbuf& item) const
{
    if (done())
        return Acad::eEndOfFile;
    item = chain_[at_];
    return Acad::eOk;
}

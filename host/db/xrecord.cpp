#include "host/db/xrecord.h"

#include "host/db/drawing.h"

#include <algorithm>

ACRX_DXF_DEFINE_MEMBERS(AcDbXrecord, AcDbObject, "XRECORD")

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
        const std::size_t end = host::behindItem(tags, i, tags.size());
        items.push_back({host::itemAt(tags, i, end), first, i, end});
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
        while (tail < most && host::sameItem(chain[chain.size() - 1 - tail],
                                             stored_[stored_.size() - 1 - tail].item))
            ++tail;
        const std::size_t oldEnd = stored_.size() - tail;
        const std::size_t newEnd = chain.size() - tail;
        std::size_t old = 0;
        for (std::size_t i = 0; i < newEnd; ++i) {
            const std::size_t ahead = std::min(oldEnd, old + kLookAhead);
            std::size_t match = old;
            while (match < ahead && !host::sameItem(chain[i], stored_[match].item))
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
        return !host::isPointCode(item.restype) || stored.end - stored.value == kCoordinates;
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
        host::overwriteItem(to_, at, to_.size(), item);
    }

    const TagList& from_;
    TagList to_;
    std::vector<StoredItem> stored_;
};

} // namespace

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
    if (!std::all_of(chain.begin(), chain.end(), host::isWritable))
        return Acad::eInvalidInput;
    // without the flag in front of it an item of its code would be taken for it
    const bool flagNeeded = isNewObject() || (!chain.empty() && chain.front().restype == kCloning);
    if (flagNeeded)
        writeCloningFlag();

    const std::vector<StoredItem> stored = storedItems(tags(), payload());
    const bool same = std::equal(
        stored.begin(), stored.end(), chain.begin(), chain.end(),
        [](const StoredItem& old, const resbuf& item) { return host::sameItem(old.item, item); });
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

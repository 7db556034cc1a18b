#pragma once

#include "host/db/tag_list.h"
#include "host/geom/point.h"

#include <optional>

namespace host {

// A part of a record's tags: from one subclass marker (100) to the next, or to an embedded object
// (101) or the extended data (1001). `order` is the documented order of the codes: a tag that the
// record lacks is inserted behind the nearest predecessor it has.
struct Subclass {
    std::string_view marker; // "AcDbCircle"
    std::span<const short> order = {};
};

// Half-open range of positions in a tag list.
struct TagRange {
    std::size_t first = 0;
    std::size_t last = 0;
    bool empty() const { return first >= last; }
};

// What stands before the first subclass marker: the handle, bracketed groups and the owner.
struct RecordHead {
    std::size_t handle = TagList::npos; // the 5, or the 105 of a dimension style
    std::size_t owner = TagList::npos;  // a 330 outside of brackets
    TagRange dictionary;                // 102 {ACAD_XDICTIONARY ... 102 }, both included
    TagRange reactors;                  // 102 {ACAD_REACTORS ... 102 }
    std::size_t end = 0; // first tag behind the head: a 100, or in records without markers the
                         // first tag that is none of these
};

RecordHead recordHead(const TagList& tags);
bool hasMarkers(const TagList& tags);     // some 100 stands in the record; R12 has none
std::size_t dataEnd(const TagList& tags); // first 1001, or the size

// The first part with this marker at or behind `from`, without the marker itself. A record without
// any marker is one part; a record with markers but without this one gives nothing.
std::optional<TagRange> subclassRange(const TagList& tags, std::string_view marker,
                                      std::size_t from = 0);

// Position of the field: searched in every part with this marker, in order; npos where there is
// none.
std::size_t findField(const TagList& tags, const Subclass& part, int code);

// Where a new tag of this code belongs: behind its nearest predecessor in the order, else at the
// start of the part; in a record without markers before its nearest successor.
std::size_t placeOfField(const TagList& tags, const Subclass& part, int code);

// Fields as values. Points are the code, code + 10 and, where present, code + 20.
double realField(const TagList& tags, const Subclass& part, int code, double fallback);
std::int64_t integerField(const TagList& tags, const Subclass& part, int code,
                          std::int64_t fallback);
std::wstring textField(const TagList& tags, const Subclass& part, int code,
                       std::wstring_view fallback);
std::uint64_t handleField(const TagList& tags, const Subclass& part, int code);
std::optional<AcGePoint3d> pointField(const TagList& tags, const Subclass& part, int code);

// Writing a field: leaves the tags alone when the effective value is equal already and answers
// false. A value that becomes the fallback keeps its tag. `tags` is asked for only when there is
// something to change. A record with markers that lacks the field's one gets it with the field.
class TagWriter {
public:
    virtual ~TagWriter() = default;
    virtual const TagList& tags() const = 0;
    virtual TagList& tagsForWrite() = 0;
};

bool setRealField(TagWriter& object, const Subclass& part, int code, double value, double fallback);
bool setIntegerField(TagWriter& object, const Subclass& part, int code, std::int64_t value,
                     std::int64_t fallback);
bool setTextField(TagWriter& object, const Subclass& part, int code, std::wstring_view value,
                  std::wstring_view fallback);
bool setHandleField(TagWriter& object, const Subclass& part, int code, std::uint64_t value);
bool setPointField(TagWriter& object, const Subclass& part, int code, const AcGePoint3d& value);
bool removeField(TagWriter& object, const Subclass& part, int code);

} // namespace host

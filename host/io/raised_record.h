#pragma once

#include "host/db/drawing.h"

namespace host {

// Brings single records of R12 into the shape that they have from R2000 on: handle, owner and
// subclass markers; the values stay. Lists belong to `source`.
class RaisedRecord {
public:
    RaisedRecord(Drawing& drawing, std::shared_ptr<TagSource> source)
        : drawing_(drawing), source_(std::move(source))
    {
    }

    TagList entity(std::uint32_t stub, std::uint64_t owner) const;
    TagList tableEntry(std::uint32_t stub, std::string_view table) const;
    TagList table(std::uint32_t stub, std::string_view name, std::size_t count) const;
    // BLOCK and ENDBLK under their marker; the spaces take the names of later versions.
    TagList blockMark(std::uint32_t stub, std::uint64_t record, bool paper) const;
    // One that is complete already, as implicit records and dictionaries are.
    TagList complete(std::uint32_t stub) const;

private:
    TagList tagsOf(std::uint32_t stub) const;
    // Type, handle, bracketed groups and owner; takes them out of `rest`.
    TagList head(TagList& rest, int handleCode, std::uint64_t handle, std::uint64_t owner) const;

    Drawing& drawing_;
    std::shared_ptr<TagSource> source_;
};

} // namespace host

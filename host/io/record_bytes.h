#pragma once

#include "host/db/drawing.h"
#include "host/io/class_records.h"

#include <string>

namespace host {

// The bytes of single records and of what stands around them, in a drawing's own form.
class RecordBytes {
public:
    explicit RecordBytes(Drawing& drawing) : drawing_(drawing), form_(drawing.source->form()) {}

    // A record as it is now. Up to R12 without what came later: subclass markers, owner, and groups
    // that lead to dictionaries.
    std::string record(std::uint32_t stub) const;
    std::string tags(const TagList& tags) const;
    std::string text(int code, std::string_view value) const; // ASCII

    std::string sectionBegin(std::string_view name) const;
    std::string classRecord(const ClassRecord& record) const;
    std::string sectionEnd() const { return text(0, "ENDSEC"); }

private:
    Drawing& drawing_;
    const TagForm& form_;
};

// BLOCK and ENDBLK, from R13 on, for a block record that has none. `record` is its handle.
TagList makeBlockBegin(std::shared_ptr<TagSource> source, std::uint64_t handle,
                       std::uint64_t record, std::wstring_view name, bool paper);
TagList makeBlockEnd(std::shared_ptr<TagSource> source, std::uint64_t handle, std::uint64_t record,
                     bool paper);

// Sets $HANDSEED in the tags of a header; one that lacks it gets it at the end.
void setHandleSeed(TagList& header, std::uint64_t seed);

} // namespace host
